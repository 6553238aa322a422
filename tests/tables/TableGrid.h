#pragma once

#include "foundation/SmartPtr.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/XmlDocument.h"

#include <string>

// Tables as a reader sees them:
//
//     head (name, price) foot ([total]2x1) body (a, [b c]1x2) / (_) / *(d, e)
//
// The rows of a group stand in parentheses with " / " between, those of the body need no word
// before them, and a second "body" begins another. A cell is its blocks, one word each; `_` is a
// placeholder. `[x]2x1` takes two columns and one row, and `[x]` followed by anything else says so
// in its attributes: `[x]abcx1`. `a<top; left=dashed; padding=1pt>` has borders, which are solid
// unless they say something else. `*` is before a row that is repeated for the data, and cells in
// braces, `head {a, b}`, stand in their group directly. `#1*(a)` is the heading of group 1 and
// `1(b)` a member; groups are numbered as they come.

/// The markup of such a table.
std::wstring markupOf(const std::wstring& grid);

/// The same as a tree.
SmartPtr<Xml::XmlDocument> treeOf(const std::wstring& grid);

/// What such a tree holds, in the same form; spans of 1 are left out.
std::wstring gridOf(const Xml::Element& table);
std::wstring gridOf(const std::wstring& markup);

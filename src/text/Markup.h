#pragma once

#include "foundation/String.h"
#include "foundation/Vector.h"
#include "text/TextView.h"

#include <set>

class XmlText;

/// Markup made of other markup: escaped, closed, cut out of a document.
namespace Markup {

/// Escapes plain text in place. Control characters other than the tab become blanks.
void escape(Core::String& plain);
/// The plain text that markup without tags stands for: the five entities that need no declaration
/// and references to characters are replaced, any other stays.
Core::String unescaped(TextView markup);

/// The closing tags of the names, in their order; and in the reverse order, which closes what was
/// opened in it.
Core::String closingTags(const Core::StringArray& names);
Core::String closingTagsInReverse(const Core::StringArray& names);

/// The markup from `start` through `end`, both included, with the tags added that the range cuts
/// off.
Core::String cutOut(const XmlText& text, int start, int end);
/// The names of the elements opened from `start` up to but excluding `end` and still open there,
/// the outermost first.
Core::StringArray openedBetween(const XmlText& text, int start, int end);
/// The direct text of a simple element, for labels. Of an entity it takes the "&" only, and it
/// drops the unit behind each child.
Core::String characterData(const XmlText& text, int element);

/// The path through the last occurrence of the name.
Core::String pathToParent(const Core::String& path, const Core::String& parentName);

} // namespace Markup

/// Declarations of namespaces, in the form xmlns:fo="...".
namespace Namespaces {

/// Whether the set declares the same prefix, without regard to case.
bool declares(const std::set<Core::String>& declared, const Core::String& declaration);
/// The declarations, each with a blank before it.
Core::String asAttributes(const std::set<Core::String>& declared);
/// Whether the prefix is declared by the element or around it.
bool isDeclaredAt(const XmlText& text, const Core::String& prefix, int element);
/// What the element itself declares.
std::set<Core::String> of(const XmlText& text, int element);
/// What is declared around the position; an inner declaration hides an outer one.
std::set<Core::String> around(const XmlText& text, int position);

} // namespace Namespaces

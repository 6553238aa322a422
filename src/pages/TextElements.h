#pragma once

#include "text/XmlText.h"

#include <vector>

/// What stands in an element of a text. Elements are given by their `<`, and names without prefix,
/// as trees have them.
namespace TextElements {

/// The elements directly in it, in their order; with a name, those of it.
std::vector<int> childrenOf(const XmlText& text, int element, XmlText::View name = {});
/// The first of that name; -1 without one.
int childOf(const XmlText& text, int element, XmlText::View name);

/// The value of the attribute that a tree finds by that name, as plain text: the one without a
/// prefix, or else the first with any. Empty without one. Entities are those of the text's document
/// type.
Core::String attributeOf(const XmlText& text, int element, XmlText::View name);

} // namespace TextElements

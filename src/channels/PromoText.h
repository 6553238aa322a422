#pragma once

#include "foundation/String.h"

#include <set>
#include <vector>

class Document;
class XmlText;

/// The promo places of a page sequence in the text.
namespace PromoText {

/// Their start tags, in their order, up to one that has no end. What stands in one is no place.
std::vector<int> in(const XmlText& text, int sequence);
/// They as they stand, one directly behind the other.
Core::String markupIn(const XmlText& text, int sequence);
/// The ids that elements of the document bear, those of these places left out.
std::set<Core::String> idsBeside(const XmlText& text, int sequence);

/// Takes them out, each with the tabs and the line break before it. One undo step.
void removeAll(Document& document, int sequence);

} // namespace PromoText

#pragma once

#include "foundation/String.h"
#include "foundation/values/PrintingAttributes.h"

namespace Xml {
class Element;
}

/// The qf:printing-options of a page master or a page sequence, which is its first child.
namespace PrintingOptions {

/// An id for the one with that number, which nothing else has.
Core::String makeId(int number);
/// The first eight characters of one.
Core::String makeShortId(int number);

/// What the owner's options say. Without an id of their own they get the one that is given.
PrintingAttributes read(const Xml::Element& owner, const Core::String& id);
/// Throws Core::Exception where one is what XML cannot hold.
void check(const PrintingAttributes& attributes);
/// Gives the owner these options. Empty ones leave it without the element.
void write(Xml::Element& owner, const PrintingAttributes& attributes);

/// Has the owner printed on both sides of the paper.
void setDuplex(Xml::Element& owner);
/// Says nothing more of that. The element goes when it holds no other option.
void removeDuplex(Xml::Element& owner);

} // namespace PrintingOptions

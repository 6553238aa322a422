#pragma once

#include "foundation/String.h"

#include <vector>

namespace Xml {
class Element;
}

/// The page masters of a layout master set: simple ones, which are pages, and complex ones, which
/// pick among them by their place in the sequence. A name is what refers to one.
namespace Masters {

/// The children that are masters.
std::vector<Xml::Element*> simpleOf(const Xml::Element& set);
std::vector<Xml::Element*> complexOf(const Xml::Element& set);
/// The same of the layout master set in the root of a document.
std::vector<Xml::Element*> simpleIn(const Xml::Element& root);
std::vector<Xml::Element*> complexIn(const Xml::Element& root);

/// Adds one behind all others: a simple one of 8.5 by 11 inches without regions, a complex one
/// without references. Throws Core::Exception, and adds nothing, for what XML cannot hold.
Xml::Element* addSimple(Xml::Element& set, const Core::String& name);
Xml::Element* addComplex(Xml::Element& set, const Core::String& name);

/// Empty where it has none.
Core::String nameOf(const Xml::Element& master);
std::vector<Core::String> namesOf(const std::vector<Xml::Element*>& masters);

void setName(Xml::Element& master, const Core::String& name);

/// The first of that name; null where there is none, and for the empty name.
Xml::Element* named(const std::vector<Xml::Element*>& masters, const Core::String& name);
Xml::Element* findSimple(const Xml::Element& set, const Core::String& name);
Xml::Element* findComplex(const Xml::Element& set, const Core::String& name);

} // namespace Masters

#pragma once

#include "foundation/String.h"

#include <vector>

namespace Xml {
class Element;
class Node;
} // namespace Xml

/// What stands in an element of a tree.
namespace Elements {

/// The child elements in their order; with a name, which is given without prefix, those of it.
std::vector<Xml::Element*> childrenOf(const Xml::Node& parent,
                                      const Core::String& name = Core::String());

/// The value of the attribute that has no prefix, or else of the first with any; empty without one.
Core::String valueOf(const Xml::Element& element, const Core::String& name);

} // namespace Elements

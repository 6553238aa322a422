#pragma once

#include "foundation/String.h"
#include "pages/RegionType.h"

#include <optional>
#include <vector>

namespace Xml {
class Element;
}

/// The regions of a simple page master, which are its children of five names. Most documents do not
/// name them; one without a name goes by the one that flows refer to it by, as "xsl-region-before".
namespace Regions {

/// "region-before" and so on, the names of the elements; empty for what is no type.
Core::String nameOf(RegionType type);
/// The type whose name the text ends in, "xsl-region-after" and "A-region-after" alike.
std::optional<RegionType> typeOf(const Core::String& text);

/// The type of an element; none where it is no region.
std::optional<RegionType> typeOf(const Xml::Element& element);
/// The name that flows refer to; empty where the element is no region.
Core::String flowNameOf(const Xml::Element& element);

/// The prefix and the type's name, as in "A-region-before". The body, and any without a prefix,
/// begins with "xsl".
Core::String defaultNameOf(RegionType type, const Core::String& prefix);
/// Adds one behind what the master has, with the size that new ones have.
Xml::Element& add(Xml::Element& master, RegionType type, const Core::String& flowName);

/// The master's regions in their order.
std::vector<Xml::Element*> of(const Xml::Element& master);
/// The first region of that name; null where there is none, and for the empty name.
Xml::Element* find(const Xml::Element& master, const Core::String& flowName);
/// The first child element, region or not, that no attribute gives a name; null without one.
Xml::Element* firstUnnamed(const Xml::Element& master);
/// Whether the master has a region of the type, under any name.
bool has(const Xml::Element& master, RegionType type);

} // namespace Regions

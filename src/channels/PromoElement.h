#pragma once

#include "channels/TranspromoInfo.h"
#include "templates/TemplateEntries.h"

#include <map>

namespace Xml {
class Element;
}

/// A promo place as an element.
namespace PromoElement {

/// From "region-body" and so on to the names that the regions of a page master have.
using Regions = std::map<Core::String, Core::String>;

/// What the element says, and of values that are computed what these entries do.
TranspromoInfo read(const Xml::Element& element, const Regions& regions,
                    const TemplateEntries& entries);
/// Gives a new element what it has to say itself.
void write(Xml::Element& element, const TranspromoInfo& place, const Regions& regions);
/// Throws Core::Exception where XML has no way to write one of its texts.
void requireText(const TranspromoInfo& place);

/// Whether both values are static, so that the element says all.
bool isStatic(const TranspromoInfo& place);
/// The id under which the element's values are; empty without one.
Core::String idOf(const Xml::Element& element);

Core::String nameOf(Xml::PageRegionConstraint region);
Xml::PageRegionConstraint regionNamed(const Core::String& name);

} // namespace PromoElement

#include "pages/HiddenRegions.h"

#include "foundation/xml/Element.h"
#include "pages/Regions.h"
#include "trees/DOMBasedBuffer.h"

#include <optional>

using Core::String;
using Xml::Element;

namespace {

const String defaultExtent = L"0.7in";

} // namespace

void HiddenRegions::hide(Element& master, const String& region) {
    Element* element = Regions::find(master, region);
    if (!element)
        return;
    const String extent = DOMBasedBuffer::getAttributeValue(element, L"extent", L"");
    hidden_[region] = {*Regions::typeOf(*element), extent.empty() ? defaultExtent : extent};
    master.remove_child(element);
}

void HiddenRegions::show(Element& master, const String& region) const {
    const auto known = hidden_.find(region);
    const std::optional<RegionType> type =
        known == hidden_.end() ? Regions::typeOf(region) : known->second.type;
    if (!type || Regions::has(master, *type) || Regions::find(master, region))
        return;
    Element* element = master.add_child(Regions::nameOf(*type), L"fo");
    element->set_attribute(L"region-name", region);
    element->set_attribute(L"extent",
                           known == hidden_.end() ? defaultExtent : known->second.extent);
}

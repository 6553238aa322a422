#include "pages/Regions.h"

#include "foundation/xml/Element.h"
#include "trees/DOMBasedBuffer.h"
#include "trees/Elements.h"

#include <algorithm>
#include <array>

using Core::String;
using Xml::Element;

namespace {

/// By their types.
constexpr std::array<std::wstring_view, 5> names{L"region-before", L"region-after", L"region-start",
                                                 L"region-end", L"region-body"};

const String regionName = L"region-name";

struct NewAttribute {
    RegionType type;
    const wchar_t* name;
    const wchar_t* value;
};

/// What a new region has.
constexpr std::array<NewAttribute, 7> newAttributes{{
    {RegionType::REGION_BEFORE, L"extent", L"0.7in"},
    {RegionType::REGION_BEFORE, L"display-align", L"after"},
    {RegionType::REGION_AFTER, L"extent", L"0.7in"},
    {RegionType::REGION_AFTER, L"display-align", L"before"},
    {RegionType::REGION_START, L"extent", L"0.7in"},
    {RegionType::REGION_END, L"extent", L"0.7in"},
    {RegionType::REGION_BODY, L"margin", L"0.7in"},
}};

template <typename Matches>
std::optional<RegionType> typeWhere(Matches matches) {
    const auto found = std::find_if(names.begin(), names.end(), matches);
    if (found == names.end())
        return std::nullopt;
    return static_cast<RegionType>(found - names.begin());
}

} // namespace

String Regions::nameOf(RegionType type) {
    const auto index = static_cast<std::size_t>(type);
    return index < names.size() ? String(names[index]) : String();
}

std::optional<RegionType> Regions::typeOf(const String& text) {
    return typeWhere([&](std::wstring_view name) { return text.view().ends_with(name); });
}

std::optional<RegionType> Regions::typeOf(const Element& element) {
    const String own = element.get_name();
    return typeWhere([&](std::wstring_view name) { return own.view() == name; });
}

String Regions::flowNameOf(const Element& element) {
    if (!typeOf(element))
        return {};
    const String name = DOMBasedBuffer::getAttributeValue(&element, regionName, String());
    return name.empty() ? L"xsl-" + element.get_name() : name;
}

String Regions::defaultNameOf(RegionType type, const String& prefix) {
    const bool isNamed = type != RegionType::REGION_BODY && !prefix.empty();
    return (isNamed ? prefix : String(L"xsl")) + L"-" + nameOf(type);
}

Element& Regions::add(Element& master, RegionType type, const String& flowName) {
    Element& region = *master.add_child(nameOf(type), L"fo");
    region.set_attribute(regionName, flowName);
    for (const NewAttribute& attribute : newAttributes)
        if (attribute.type == type)
            region.set_attribute(attribute.name, attribute.value);
    return region;
}

std::vector<Element*> Regions::of(const Element& master) {
    std::vector<Element*> found = Elements::childrenOf(master);
    std::erase_if(found, [](const Element* child) { return !typeOf(*child); });
    return found;
}

Element* Regions::find(const Element& master, const String& flowName) {
    if (flowName.empty())
        return nullptr;
    const std::vector<Element*> regions = of(master);
    const auto found = std::find_if(regions.begin(), regions.end(), [&](const Element* region) {
        return flowNameOf(*region) == flowName;
    });
    return found == regions.end() ? nullptr : *found;
}

Element* Regions::firstUnnamed(const Element& master) {
    for (Element* child : Elements::childrenOf(master))
        if (DOMBasedBuffer::getAttributeValue(child, regionName, String()).empty())
            return child;
    return nullptr;
}

bool Regions::has(const Element& master, RegionType type) {
    return !Elements::childrenOf(master, nameOf(type)).empty();
}

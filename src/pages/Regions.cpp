#include "pages/Regions.h"

#include "foundation/xml/Element.h"
#include "trees/Elements.h"

#include <algorithm>
#include <array>

using Core::String;
using Xml::Element;

namespace {

/// By their types.
constexpr std::array<std::wstring_view, 5> names{L"region-before", L"region-after", L"region-start",
                                                 L"region-end", L"region-body"};

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
    const Xml::Attribute* name = element.get_attribute(L"region-name");
    return name && !name->get_value().empty() ? name->get_value() : L"xsl-" + element.get_name();
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

bool Regions::has(const Element& master, RegionType type) {
    return !Elements::childrenOf(master, nameOf(type)).empty();
}

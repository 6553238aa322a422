#include "channels/PromoElement.h"

#include "foundation/xml/Element.h"
#include "templates/TemplateElements.h"
#include "templates/TemplateValues.h"

#include <algorithm>
#include <iterator>
#include <utility>

using Core::String;
using TemplateElements::valueOf;
using Xml::Element;

namespace {

constexpr const wchar_t* regionNames[] = {
    L"", L"region-body", L"region-before", L"region-after", L"region-start", L"region-end"};

/// A source that was written with its entities escaped once more is decoded to the end.
String decoded(String source) {
    static constexpr std::pair<const wchar_t*, const wchar_t*> entities[] = {
        {L"&lt;", L"<"}, {L"&gt;", L">"}, {L"&apos;", L"'"}, {L"&quot;", L"\""}, {L"&amp;", L"&"}};
    for (const auto& [entity, unit] : entities)
        source.replaceAll(entity, unit);
    return source;
}

PropertyValueEx valueNamed(const wchar_t* name, const String& id, const TemplateEntries& entries) {
    PropertyValueEx value(name, id);
    if (!id.empty())
        TemplateValues::complete(value, entries);
    return value;
}

/// Of several regions with that name the last.
Xml::PageRegionConstraint regionOf(const PromoElement::Regions& regions, const String& name) {
    const auto found = std::find_if(regions.rbegin(), regions.rend(), [&](const auto& region) {
        return !name.empty() && region.second == name;
    });
    return PromoElement::regionNamed(found == regions.rend() ? String() : found->first);
}

void setUnlessEmpty(Element& element, const wchar_t* name, const String& value,
                    const wchar_t* prefix = L"") {
    if (!value.empty())
        element.set_attribute(name, value, prefix);
}

} // namespace

String PromoElement::nameOf(Xml::PageRegionConstraint region) {
    const auto index = static_cast<std::size_t>(region);
    return index < std::size(regionNames) ? regionNames[index] : L"";
}

Xml::PageRegionConstraint PromoElement::regionNamed(const String& name) {
    const auto* const found = std::find_if(std::begin(regionNames), std::end(regionNames),
                                           [&](const wchar_t* known) { return name == known; });
    return static_cast<Xml::PageRegionConstraint>(
        found == std::end(regionNames) ? 0 : found - std::begin(regionNames));
}

bool PromoElement::isStatic(const TranspromoInfo& place) {
    return place.source.isStatic() && place.ruleKeyword.isStatic();
}

String PromoElement::idOf(const Element& element) {
    const Xml::Attribute* id = element.get_attribute(L"id", L"fo");
    return id ? id->get_value() : String();
}

TranspromoInfo PromoElement::read(const Element& element, const Regions& regions,
                                  const TemplateEntries& entries) {
    const String id = idOf(element);
    TranspromoInfo place;
    place.source = valueNamed(L"fo:src", id, entries);
    place.source.setStaticValue(decoded(valueOf(element, L"src")));
    place.pageConstraint = TranspromoInfo::parsePageContraint(valueOf(element, L"page-constraint"));
    place.alignmentConstraint =
        TranspromoInfo::parseAlignmentConstraint(valueOf(element, L"alignment-constraint"));
    place.regionConstraint = regionOf(regions, valueOf(element, L"region-constraint"));
    place.ruleKeyword = valueNamed(L"qf:rule", id, entries);
    place.ruleKeyword.setStaticValue(
        TranspromoInfo::parseTPRuleType(valueOf(element, L"rule")).getKeyword());
    return place;
}

void PromoElement::write(Element& element, const TranspromoInfo& place, const Regions& regions) {
    setUnlessEmpty(element, L"src",
                   place.source.isStatic() ? place.source.getStaticValue() : String(), L"fo");
    setUnlessEmpty(element, L"page-constraint",
                   TranspromoInfo::getPageConstraintAsString(place.pageConstraint));
    setUnlessEmpty(element, L"alignment-constraint",
                   TranspromoInfo::getAlignmentConstraintAsString(place.alignmentConstraint));
    if (const auto region = regions.find(nameOf(place.regionConstraint)); region != regions.end())
        setUnlessEmpty(element, L"region-constraint", region->second);
    if (const String keyword = place.ruleKeyword.getStaticValue(); !keyword.empty())
        element.set_attribute(L"rule", L"FIND_KEYWORD(" + keyword + L")");
    if (!isStatic(place))
        element.set_attribute(L"id", place.source.getObjectID(), L"fo");
}

void PromoElement::requireText(const TranspromoInfo& place) {
    for (const PropertyValueEx& value : {place.source, place.ruleKeyword}) {
        TemplateElements::requireText(
            {value.getObjectID(), value.getStaticValue(), value.getDynamicValue()});
        for (const ConditionalValue& row : value.getConditionalValues())
            TemplateElements::requireText({row.condition, row.staticValue, row.dynamicValue});
    }
}

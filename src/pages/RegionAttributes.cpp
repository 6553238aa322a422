#include "pages/RegionAttributes.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "trees/DOMBasedBuffer.h"

#include <array>

using Core::String;
using Xml::Element;

namespace {

struct Turn {
    const wchar_t* quarters;
    const wchar_t* degrees;
    const wchar_t* negative; ///< read, never written
};

constexpr std::array<Turn, 4> turns{
    {{L"0", L"0", L"0"}, {L"1", L"90", L"-270"}, {L"2", L"180", L"-180"}, {L"3", L"270", L"-90"}}};

String orZero(const String& length) {
    return length.empty() ? String(L"0pt") : length;
}

} // namespace

String RegionAttributes::get(const Element& element, const String& name) {
    return DOMBasedBuffer::getAttributeValue(&element, name, String());
}

void RegionAttributes::set(Element& element, const String& name, const String& value) {
    if (value.empty())
        element.remove_attribute(name);
    else
        element.set_attribute(name, value);
}

RegionAttributes::SideValues RegionAttributes::get(const Element& element, const Sides& names) {
    return {get(element, names.left), get(element, names.right), get(element, names.top),
            get(element, names.bottom)};
}

void RegionAttributes::set(Element& element, const Sides& names, const SideValues& values) {
    check(values);
    set(element, names.top, values.top);
    set(element, names.bottom, values.bottom);
    set(element, names.left, values.left);
    set(element, names.right, values.right);
}

void RegionAttributes::check(const SideValues& values) {
    for (const String& value : {values.left, values.right, values.top, values.bottom})
        Xml::requireXmlText(value);
}

String RegionAttributes::quartersOf(const String& degrees) {
    for (const Turn& turn : turns)
        if (degrees == turn.degrees || degrees == turn.negative)
            return turn.quarters;
    return turns.front().quarters;
}

String RegionAttributes::degreesOf(const String& quarters) {
    for (const Turn& turn : turns)
        if (quarters == turn.quarters)
            return turn.degrees;
    return {};
}

String RegionAttributes::shadowText(const Shadow& shadow) {
    if (shadow == Shadow())
        return {};
    String text = orZero(shadow.x) + L" " + orZero(shadow.y) + L" 0 " + shadow.color;
    return text.trim();
}

void RegionAttributes::setGradient(Element& region, const String& gradient) {
    if (gradient.empty())
        return;
    set(region, L"background-image", L"data:," + gradient);
    set(region, L"background-size", L"100%");
}

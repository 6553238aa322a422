#include "pages/PageLayout.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"

using Core::String;
using RegionAttributes::SideValues;
using Xml::Element;

namespace {

/// White space around a value says nothing, and records do not have it.
String trimmed(String value) {
    return value.trim();
}

void setLength(Element& master, const String& name, const Xml::Length& length) {
    const String value = length.getValueAsString();
    if (trimmed(RegionAttributes::get(master, name)) != value)
        RegionAttributes::set(master, name, value);
}

} // namespace

void PageLayout::setSize(Element& master, const String& width, const String& height) {
    Xml::requireXmlText(width);
    Xml::requireXmlText(height);
    RegionAttributes::set(master, L"page-width", width);
    RegionAttributes::set(master, L"page-height", height);
}

void PageLayout::setMargins(Element& master, const SideValues& margins) {
    RegionAttributes::check(margins);
    RegionAttributes::set(master, L"margin-top", margins.top);
    RegionAttributes::set(master, L"margin-bottom", margins.bottom);
    RegionAttributes::set(master, L"margin-right", margins.right);
    RegionAttributes::set(master, L"margin-left", margins.left);
}

void PageLayout::write(Element& master, const PageLayoutData& data) {
    Xml::requireXmlText(data.width.getValueAsString());
    Xml::requireXmlText(data.height.getValueAsString());
    setLength(master, L"page-width", data.width);
    setLength(master, L"page-height", data.height);
    const SideValues stands = RegionAttributes::get(master, RegionAttributes::margin);
    const SideValues margins{data.marginLeft.getValueAsString(),
                             data.marginRight.getValueAsString(), data.marginTop.getValueAsString(),
                             data.marginBottom.getValueAsString()};
    const SideValues plain{trimmed(stands.left), trimmed(stands.right), trimmed(stands.top),
                           trimmed(stands.bottom)};
    if (margins != plain)
        setMargins(master, margins);
}

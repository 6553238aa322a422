#include "tables/CellBorders.h"

#include "foundation/values/PropertiesHelper.h"
#include "tables/BorderShorthand.h"
#include "trees/DOMBasedBuffer.h"

#include <array>

using Core::String;
using Border = CellBorderType;

namespace {

struct Names {
    String style;
    String color;
    String width;
};

const Names& namesOf(Border type) {
    static const std::array<Names, 8> names{{
        {L"border-bottom-style", L"border-bottom-color", L"border-bottom-width"},
        {L"border-top-style", L"border-top-color", L"border-top-width"},
        {L"border-left-style", L"border-left-color", L"border-left-width"},
        {L"border-right-style", L"border-right-color", L"border-right-width"},
        {},
        {},
        {L"border-style", L"border-color", L"border-width"},
        {L"border", L"border", L"border"},
    }};
    const auto index = static_cast<std::size_t>(type);
    return names[index < names.size() ? index : static_cast<std::size_t>(Border::None)];
}

/// The other edges in the order in which they are written.
const std::array<Border, 3>& othersThan(Border edge) {
    static const std::array<std::array<Border, 3>, 4> others{{
        {Border::Top, Border::Left, Border::Right},
        {Border::Bottom, Border::Left, Border::Right},
        {Border::Top, Border::Bottom, Border::Right},
        {Border::Top, Border::Left, Border::Bottom},
    }};
    return others[static_cast<std::size_t>(edge)];
}

} // namespace

CellBorders::CellBorders(Xml::Element& cell)
    : cell_(&cell), properties_(DOMBasedBuffer::getElementProperties(&cell)) {
    properties_.removeNamespaceForPropertiesWith(cell.getNSPrefix());
    PropertiesHelper::expandShorthands(properties_);
}

String CellBorders::styleName(Border type) {
    return namesOf(type).style;
}

String CellBorders::colorName(Border type) {
    return namesOf(type).color;
}

String CellBorders::widthName(Border type) {
    return namesOf(type).width;
}

bool CellBorders::has(Border type) const {
    const String value = properties_.getPropertyValue(styleName(type));
    return !value.empty() && value != L"none";
}

String CellBorders::styleOf(Border type) const {
    const Border speaking = has(Border::Style) ? Border::Style : type;
    return has(speaking) ? properties_.getPropertyValue(styleName(speaking)) : String();
}

void CellBorders::set(Border type, const String& style, const BorderInfo& info) {
    const Names& names = namesOf(type);
    if (has(Border::Style) || names.style.empty())
        return;
    put(names.style, style);
    if (!info.color.empty())
        put(names.color, info.color);
    if (!info.width.empty())
        put(names.width, info.width);
    isToCollapse_ = true;
}

void CellBorders::put(const String& name, const String& value) {
    properties_.setProperty({name, value});
    isChanged_ = true;
}

void CellBorders::remove(Border type) {
    const String name = styleName(type);
    if (!properties_.containsProperty(name))
        return;
    collapse();
    PropertiesHelper::expandShorthands(properties_);
    properties_.removePropertyByName(name);
    isChanged_ = true;
}

void CellBorders::removeAll() {
    for (const Border type :
         {Border::Border, Border::Style, Border::Top, Border::Bottom, Border::Left, Border::Right})
        remove(type);
}

void CellBorders::dissolve(Border edge, const BorderInfo& info) {
    const Border shorthand = has(Border::Style) ? Border::Style : Border::Border;
    if (!has(shorthand))
        return;
    String style = styleOf(shorthand);
    if (shorthand == Border::Border)
        style = BorderShorthand::styleIn(style);
    remove(shorthand);
    for (const Border other : othersThan(edge))
        set(other, style, info);
    if (shorthand == Border::Border)
        set(edge, style, info);
}

void CellBorders::collapse() {
    if (!isToCollapse_)
        return;
    PropertiesHelper::removeDefaultValues(properties_);
    PropertiesHelper::collapseShorthands(properties_);
    isToCollapse_ = false;
}

void CellBorders::write() {
    collapse();
    if (isChanged_)
        DOMBasedBuffer::setElementProperties(cell_, properties_);
    isChanged_ = false;
}

#include "pages/RegionLayout.h"

#include "foundation/Format.h"
#include "foundation/values/BordersAndBackgroundData.h"
#include "foundation/values/BoxShadow.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "pages/RegionAttributes.h"

#include <algorithm>
#include <array>
#include <vector>

using Core::String;
using Xml::Element;

namespace {

// How a field and the text of its attribute become each other

using Field = String (*)(const RegionData&);
using ReadField = void (*)(const String&, RegionData&);

template <auto member>
String lengthText(const RegionData& data) {
    return (data.*member).getValueAsString();
}

template <auto member>
void readLength(const String& text, RegionData& data) {
    Xml::Length::parseLength(text, data.*member);
}

template <auto member>
void readLengthOrPercent(const String& text, RegionData& data) {
    Xml::LengthOrPercent::parseLengthOrPercent(text, data.*member);
}

template <auto member>
String ownText(const RegionData& data) {
    return data.*member;
}

template <auto member>
void readText(const String& text, RegionData& data) {
    data.*member = text;
}

template <auto member>
String styleText(const RegionData& data) {
    return BordersAndBackgroundData::getStyleName(data.*member);
}

template <auto member>
void readStyle(const String& text, RegionData& data) {
    data.*member = BordersAndBackgroundData::getStyleIdx(text);
}

constexpr std::array<std::wstring_view, 4> repeats{L"repeat", L"repeat-x", L"repeat-y",
                                                   L"no-repeat"};

String repeatText(const RegionData& data) {
    const auto index = static_cast<std::size_t>(data.backgroundRepeat);
    return index < repeats.size() ? String(repeats[index]) : String();
}

void readRepeat(const String& text, RegionData& data) {
    const auto found = std::find(repeats.begin(), repeats.end(), text.view());
    data.backgroundRepeat = found == repeats.end() ? 0 : static_cast<int>(found - repeats.begin());
}

String countText(const RegionData& data) {
    return String::formatS(data.columnCount);
}

void readCount(const String& text, RegionData& data) {
    data.columnCount = text.empty() ? 1 : Core::Format::parseInt(text);
}

String precedenceText(const RegionData& data) {
    return data.precedence ? String(L"true") : String();
}

void readPrecedence(const String& text, RegionData& data) {
    data.precedence = text == L"true";
}

String orientationText(const RegionData& data) {
    return RegionAttributes::degreesOf(String::formatS(data.orientation));
}

void readOrientation(const String& text, RegionData& data) {
    data.orientation = Core::Format::parseInt(RegionAttributes::quartersOf(text));
}

String alignText(const RegionData& data) {
    return data.getDisplayAlign();
}

void readAlign(const String& text, RegionData& data) {
    for (int align : {1, 2}) {
        RegionData known;
        known.displayAlign = align;
        if (text == known.getDisplayAlign())
            data.displayAlign = align;
    }
}

String shadowText(const RegionData& data) {
    return RegionAttributes::shadowText(
        {data.shadowX.getValueAsString(), data.shadowY.getValueAsString(), data.shadowColor});
}

void readShadow(const String& text, RegionData& data) {
    Xml::BoxShadow shadow;
    if (!shadow.readFromString(text))
        return;
    data.shadowX = shadow.getX();
    data.shadowY = shadow.getY();
    data.shadowColor = shadow.getColor();
}

// The record, in the order in which it is written

enum class Of { AnyRegion, Body };

struct Row {
    const wchar_t* attribute;
    Field text;
    ReadField read;
};

/// Attributes that are one value: where one differs all are written.
struct Value {
    Of of;
    std::vector<Row> rows;
};

template <auto member>
Row lengthRow(const wchar_t* attribute) {
    return {attribute, &lengthText<member>, &readLength<member>};
}

template <auto member>
Row percentRow(const wchar_t* attribute) {
    return {attribute, &lengthText<member>, &readLengthOrPercent<member>};
}

template <auto member>
Row styleRow(const wchar_t* attribute) {
    return {attribute, &styleText<member>, &readStyle<member>};
}

template <auto member>
Row textRow(const wchar_t* attribute) {
    return {attribute, &ownText<member>, &readText<member>};
}

using R = RegionData;

const std::vector<Value> valuesThroughImage{
    {Of::AnyRegion,
     {percentRow<&R::paddingTop>(L"padding-top"), percentRow<&R::paddingBottom>(L"padding-bottom"),
      percentRow<&R::paddingLeft>(L"padding-left"),
      percentRow<&R::paddingRight>(L"padding-right")}},
    {Of::Body,
     {percentRow<&R::marginTop>(L"margin-top"), percentRow<&R::marginBottom>(L"margin-bottom"),
      percentRow<&R::marginLeft>(L"margin-left"), percentRow<&R::marginRight>(L"margin-right")}},
    {Of::AnyRegion,
     {styleRow<&R::borderStyleTop>(L"border-top-style"),
      styleRow<&R::borderStyleBottom>(L"border-bottom-style"),
      styleRow<&R::borderStyleLeft>(L"border-left-style"),
      styleRow<&R::borderStyleRight>(L"border-right-style")}},
    {Of::AnyRegion,
     {lengthRow<&R::borderWidthTop>(L"border-top-width"),
      lengthRow<&R::borderWidthBottom>(L"border-bottom-width"),
      lengthRow<&R::borderWidthLeft>(L"border-left-width"),
      lengthRow<&R::borderWidthRight>(L"border-right-width")}},
    {Of::AnyRegion,
     {textRow<&R::borderColorTop>(L"border-top-color"),
      textRow<&R::borderColorBottom>(L"border-bottom-color"),
      textRow<&R::borderColorLeft>(L"border-left-color"),
      textRow<&R::borderColorRight>(L"border-right-color")}},
    {Of::AnyRegion, {{L"box-shadow", &shadowText, &readShadow}}},
    {Of::AnyRegion, {textRow<&R::backgroundColor>(L"background-color")}},
    {Of::AnyRegion, {textRow<&R::backgroundImage>(L"background-image")}},
};

const std::vector<Value> valuesBehindImage{
    {Of::AnyRegion, {{L"background-repeat", &repeatText, &readRepeat}}},
    {Of::AnyRegion,
     {percentRow<&R::backgroundPositionHorizontal>(L"background-position-horizontal")}},
    {Of::AnyRegion, {percentRow<&R::backgroundPositionVertical>(L"background-position-vertical")}},
    {Of::AnyRegion, {lengthRow<&R::extent>(L"extent")}},
    {Of::Body, {lengthRow<&R::columnGap>(L"column-gap")}},
    {Of::Body, {{L"column-count", &countText, &readCount}}},
    {Of::AnyRegion, {{L"precedence", &precedenceText, &readPrecedence}}},
    {Of::AnyRegion, {{L"reference-orientation", &orientationText, &readOrientation}}},
    {Of::AnyRegion, {{L"display-align", &alignText, &readAlign}}},
};

bool concerns(const Value& value, const String& flowName) {
    return value.of == Of::AnyRegion || flowName == RegionLayout::bodyName;
}

void readValues(const std::vector<Value>& values, const Element& region, const String& flowName,
                RegionData& data) {
    for (const Value& value : values)
        if (concerns(value, flowName))
            for (const Row& row : value.rows)
                row.read(RegionAttributes::get(region, row.attribute), data);
}

void checkValues(const std::vector<Value>& values, const RegionData& data) {
    for (const Value& value : values)
        for (const Row& row : value.rows)
            Xml::requireXmlText(row.text(data));
}

void writeValues(const std::vector<Value>& values, Element& region, const String& flowName,
                 const RegionData& stands, const RegionData& data) {
    for (const Value& value : values) {
        const auto differs = [&](const Row& row) { return row.text(stands) != row.text(data); };
        if (concerns(value, flowName) && std::any_of(value.rows.begin(), value.rows.end(), differs))
            for (const Row& row : value.rows)
                RegionAttributes::set(region, row.attribute, row.text(data));
    }
}

} // namespace

void RegionLayout::check(const RegionData& data) {
    checkValues(valuesThroughImage, data);
    checkValues(valuesBehindImage, data);
    Xml::requireXmlText(data.backgroundGradient);
}

RegionData RegionLayout::read(const Element& region, const String& flowName) {
    RegionData data;
    readValues(valuesThroughImage, region, flowName, data);
    readValues(valuesBehindImage, region, flowName, data);
    data.visible = true;
    return data;
}

void RegionLayout::write(Element& region, const String& flowName, const RegionData& data) {
    const RegionData stands = read(region, flowName);
    writeValues(valuesThroughImage, region, flowName, stands, data);
    RegionAttributes::setGradient(region, data.backgroundGradient); // in the image's place
    writeValues(valuesBehindImage, region, flowName, stands, data);
}

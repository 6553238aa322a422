#include "foundation/values/ColumnWidth.h"

#include "foundation/Format.h"

#include <string_view>

using Core::Format;
using Core::String;

namespace Xml {

namespace {

const String share = L"proportional-column-width";

/// What stands between the parentheses.
String argumentOf(const String& function) {
    const String inside = function.substringAfter(L"(");
    return inside.endsIn(L")") ? inside.substringBefore(L")").trim() : String();
}

} // namespace

bool ColumnWidth::parseColumnWidth(const String& text, ColumnWidth& result) {
    result = ColumnWidth();
    const String width = String(text).trim();
    if (!isShare(width))
        return LengthOrPercent::parseLengthOrPercent(width, result.value_);
    float percent = 0;
    if (!Format::parseFloat(argumentOf(width), percent))
        return false;
    result.value_.setPercent(percent);
    return true;
}

String ColumnWidth::formatShare(float percent) {
    return share + L"(" + Format::formatValue(percent, L"0.###") + L")";
}

bool ColumnWidth::isShare(const String& text) {
    return text.substringBefore(L"(") == share;
}

} // namespace Xml

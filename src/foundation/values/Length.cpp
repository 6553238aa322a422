#include "foundation/values/Length.h"

#include "foundation/Format.h"

#include <algorithm>
#include <array>
#include <string_view>

using Core::Format;
using Core::String;

namespace Xml {

namespace {

constexpr std::array<std::wstring_view, 8> units = {L"px", L"pt", L"pc", L"cm",
                                                    L"mm", L"in", L"em", L"ex"};

} // namespace

bool Length::parseLength(const String& text, Length& result) {
    result = Length();
    result.text_ = String(text).trim();
    const std::wstring_view whole = result.text_.view();
    const auto unit = std::find_if(units.begin(), units.end(), [whole](std::wstring_view name) {
        return whole.ends_with(name);
    });
    if (unit == units.end())
        return false;
    const String number(whole.substr(0, whole.size() - unit->size()));
    if (!Format::parseFloat(number, result.size_))
        return false;
    result.unit_ = String(*unit);
    return true;
}

void Length::setSize(float size) {
    if (!isValid())
        return;
    size_ = size;
    text_ = Format::formatValue(size, L"") + unit_;
}

} // namespace Xml

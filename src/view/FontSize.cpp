#include "view/FontSize.h"

#include "foundation/Format.h"
#include "foundation/values/LengthOrPercent.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

using Core::String;

namespace {

constexpr float step = 1.2F;
constexpr float medium = 12;

/// In steps of size.
constexpr std::array<std::wstring_view, 7> words{L"xx-small", L"x-small", L"small",   L"medium",
                                                 L"large",    L"x-large", L"xx-large"};
constexpr int placeOfMedium = 3;

/// To a thousandth, which no reader sees and which hides what was rounded on the way.
String numberOf(float value) {
    return Core::Format::formatValue(value, L"0.###");
}

} // namespace

std::optional<float> FontSize::factorOf(const String& size) {
    if (size == L"larger")
        return step;
    if (size == L"smaller")
        return 1 / step;
    Xml::LengthOrPercent value;
    if (!Xml::LengthOrPercent::parseLengthOrPercent(size, value))
        return std::nullopt;
    if (value.isPercent())
        return value.getPercent() / 100;
    return value.getLength().getUnit() == L"em" ? std::optional(value.getLength().getSize())
                                                : std::nullopt;
}

String FontSize::asLength(const String& size) {
    const auto word = std::find(words.begin(), words.end(), size.view());
    if (word == words.end())
        return size;
    const auto steps = static_cast<float>(word - words.begin() - placeOfMedium);
    return numberOf(medium * std::pow(step, steps)) + L"pt";
}

String FontSize::times(float factor, const String& length) {
    Xml::Length value;
    return Xml::Length::parseLength(length, value)
               ? numberOf(factor * value.getSize()) + value.getUnit()
               : length;
}

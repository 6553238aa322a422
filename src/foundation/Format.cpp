#include "foundation/Format.h"

#include "foundation/FloatText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace Core {

namespace {

/// The text as bytes if it consists of these only, else empty.
std::string narrowed(const String& text, std::wstring_view allowed) {
    if (text.view().find_first_not_of(allowed) != std::wstring_view::npos)
        return {};
    return {text.view().begin(), text.view().end()};
}

std::string withoutPlus(const std::string& text) {
    const bool isSign = text.starts_with('+') && !text.starts_with("+-");
    return isSign ? text.substr(1) : text;
}

/// How many decimals a number is written with.
struct Decimals {
    std::size_t least = 0;
    std::size_t most = 0;
};

std::optional<Decimals> parseDecimals(std::wstring_view format) {
    const std::size_t point = format.find(L'.');
    const std::wstring_view whole = format.substr(0, point);
    if (whole.empty() || whole.find_first_not_of(L"#0") != std::wstring_view::npos)
        return std::nullopt;
    if (point == std::wstring_view::npos)
        return Decimals();
    const std::wstring_view fraction = format.substr(point + 1);
    const std::size_t zeros = std::min(fraction.find_first_not_of(L'0'), fraction.size());
    if (fraction.find_first_not_of(L'#', zeros) != std::wstring_view::npos)
        return std::nullopt;
    return Decimals{zeros, fraction.size()};
}

std::string rounded(float value, Decimals decimals) {
    std::string text = FloatText::rounded(value, static_cast<int>(decimals.most));
    std::size_t length = text.size();
    for (std::size_t i = decimals.most; i > decimals.least && text[length - 1] == '0'; --i)
        --length;
    if (text[length - 1] == '.')
        --length;
    text.resize(length);
    return text;
}

std::string withoutNegativeZero(std::string text) {
    if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos)
        text.erase(0, 1);
    return text;
}

} // namespace

int Format::parseInt(const String& text) {
    int result = 0;
    parseInt(text, result);
    return result;
}

bool Format::parseInt(const String& text, int& result) {
    const std::string number = withoutPlus(narrowed(text, L"+-0123456789"));
    const char* const end = number.data() + number.size();
    int value = 0;
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    if (error != std::errc() || stop != end)
        return false;
    result = value;
    return true;
}

bool Format::parseFloat(const String& text, float& result) {
    float value = 0;
    if (!FloatText::parse(withoutPlus(narrowed(text, L"+-.0123456789")), value))
        return false;
    result = value;
    return true;
}

String Format::formatValue(float value, const String& format) {
    if (!std::isfinite(value))
        return L"0";
    const std::optional<Decimals> decimals = parseDecimals(format.view());
    const std::string text = decimals ? rounded(value, *decimals) : FloatText::shortest(value);
    return withoutNegativeZero(text).c_str();
}

} // namespace Core

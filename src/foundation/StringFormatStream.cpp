#include "foundation/StringFormatStream.h"

#include "foundation/Format.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace Core {

namespace {

using Value = std::variant<String, float>;

struct Hole {
    std::size_t index;
    std::wstring_view format;
    std::size_t length; // braces included
};

/// The hole that `text` begins with.
std::optional<Hole> holeAt(std::wstring_view text) {
    const std::size_t close = text.starts_with(L'{') ? text.find(L'}') : std::wstring_view::npos;
    if (close == std::wstring_view::npos)
        return std::nullopt;
    const std::wstring_view inside = text.substr(1, close - 1);
    const std::size_t colon = std::min(inside.find(L':'), inside.size());
    const std::wstring_view digits = inside.substr(0, colon);
    int index = 0;
    if (!std::all_of(digits.begin(), digits.end(), String::isDigit) ||
        !Format::parseInt(String(digits), index))
        return std::nullopt;
    const std::size_t formatStart = std::min(colon + 1, inside.size());
    return Hole{static_cast<std::size_t>(index), inside.substr(formatStart), close + 1};
}

String textOf(const Value& value, std::wstring_view format) {
    if (const float* number = std::get_if<float>(&value))
        return Format::formatValue(*number, String(format));
    return std::get<String>(value);
}

} // namespace

StringFormatStream::StringFormatStream(const wchar_t* format) : template_(format) {}

StringFormatStream& StringFormatStream::operator<<(const String& value) {
    values_.emplace_back(value);
    return *this;
}

StringFormatStream& StringFormatStream::operator<<(const wchar_t* value) {
    return *this << String(value);
}

StringFormatStream& StringFormatStream::operator<<(const char* value) {
    return *this << String(value);
}

StringFormatStream& StringFormatStream::operator<<(int value) {
    return *this << String::formatS(value);
}

StringFormatStream& StringFormatStream::operator<<(float value) {
    values_.emplace_back(value);
    return *this;
}

String StringFormatStream::getString() const {
    std::wstring text;
    std::wstring_view rest = template_.view();
    while (!rest.empty()) {
        const std::optional<Hole> hole = holeAt(rest);
        const bool isFilled = hole && hole->index < values_.size();
        if (isFilled)
            text += textOf(values_[hole->index], hole->format).view();
        else
            text += rest.front();
        rest.remove_prefix(isFilled ? hole->length : 1);
    }
    return String(std::move(text));
}

} // namespace Core

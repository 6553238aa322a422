#include "foundation/FloatText.h"

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <version>

namespace Core::FloatText {

#if defined(__cpp_lib_to_chars)

namespace {

/// Room for a sign and every digit that a float has before the point, or for the shortest text of
/// the smallest one.
constexpr std::size_t longest = 64;

template <typename... Options>
std::string write(std::size_t room, float value, Options... options) {
    std::string text(room, '\0');
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::fixed, options...);
    text.resize(static_cast<std::size_t>(written.ptr - text.data()));
    return text;
}

} // namespace

bool parse(const std::string& text, float& value) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, std::chars_format::fixed);
    return error == std::errc() && stop == end;
}

std::string shortest(float value) {
    return write(longest, value);
}

std::string rounded(float value, int decimals) {
    return write(longest + static_cast<std::size_t>(decimals), value, decimals);
}

#else // libc++ before its version 20, which reads whole numbers alone

namespace {

/// The host's locale may have a comma.
class WithPoint {
public:
    WithPoint() : outer_(uselocale(plain())) {}
    ~WithPoint() { uselocale(outer_); }
    WithPoint(const WithPoint&) = delete;
    WithPoint& operator=(const WithPoint&) = delete;

private:
    static locale_t plain() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t outer_;
};

} // namespace

bool parse(const std::string& text, float& value) {
    const WithPoint locale;
    char* stop = nullptr;
    value = std::strtof(text.c_str(), &stop);
    const bool isTooSmall = value == 0 && text.find_first_of("123456789") != std::string::npos;
    return !text.empty() && stop == text.c_str() + text.size() && text.front() != '+' &&
           std::isfinite(value) && !isTooSmall;
}

std::string shortest(float value) {
    std::string text;
    float read = 0;
    for (int decimals = 0; text.empty() || !parse(text, read) || read != value; ++decimals)
        text = rounded(value, decimals);
    return text;
}

std::string rounded(float value, int decimals) {
    const WithPoint locale;
    const int length = std::snprintf(nullptr, 0, "%.*f", decimals, static_cast<double>(value));
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), "%.*f", decimals, static_cast<double>(value));
    text.pop_back();
    return text;
}

#endif

} // namespace Core::FloatText

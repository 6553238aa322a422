#pragma once

// What the sources take for granted and the libraries that Emscripten brings do not have yet. It is
// included ahead of every source of the module, so that the sources themselves need not know.

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <compare>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include <expat.h>

namespace std {

template <typename Unit>
constexpr strong_ordering operator<=>(basic_string_view<Unit> a, basic_string_view<Unit> b) {
    return a.compare(b) <=> 0;
}

/// Fixed notation, with as many decimals as are given.
inline to_chars_result to_chars(char* first, char* last, float value, chars_format, int decimals) {
    const int length = snprintf(first, static_cast<size_t>(last - first), "%.*f", decimals,
                                static_cast<double>(value));
    return length < last - first ? to_chars_result{first + length, errc()}
                                 : to_chars_result{last, errc::value_too_large};
}

/// Fixed notation, with no more decimals than it takes to read the same number again.
inline to_chars_result to_chars(char* first, char* last, float value, chars_format format) {
    for (int decimals = 0;; ++decimals) {
        const to_chars_result written = to_chars(first, last, value, format, decimals);
        if (written.ec != errc() || strtof(first, nullptr) == value)
            return written;
    }
}

inline from_chars_result from_chars(const char* first, const char* last, float& value,
                                    chars_format = chars_format::general) {
    const string text(first, find_if(first, last, [](char unit) {
                          return !strchr("0123456789+-.eE", unit) || unit == '\0';
                      }));
    char* stop = nullptr;
    errno = 0;
    const float read = strtof(text.c_str(), &stop);
    if (stop == text.c_str() || text[0] == '+')
        return {first, errc::invalid_argument};
    if (errno == ERANGE)
        return {first + (stop - text.c_str()), errc::result_out_of_range};
    value = read;
    return {first + (stop - text.c_str()), errc()};
}

namespace ranges {

template <typename Range, typename Test>
constexpr auto find_if(Range&& range, Test test) {
    return std::find_if(std::begin(range), std::end(range), test);
}
template <typename Range, typename Value, typename Projection = identity>
constexpr auto find(Range&& range, const Value& value, Projection projection = {}) {
    return ranges::find_if(range,
                           [&](const auto& each) { return invoke(projection, each) == value; });
}
template <typename Range, typename Value, typename Projection = identity>
constexpr auto count(Range&& range, const Value& value, Projection projection = {}) {
    return std::count_if(std::begin(range), std::end(range), [&](const auto& each) {
        return invoke(projection, each) == value;
    });
}
template <typename Range, typename Test>
constexpr bool any_of(Range&& range, Test test) {
    return std::any_of(std::begin(range), std::end(range), test);
}
template <typename Range, typename Test>
constexpr bool none_of(Range&& range, Test test) {
    return !ranges::any_of(range, test);
}
template <typename Range, typename Out, typename Make>
constexpr auto transform(Range&& range, Out out, Make make) {
    return std::transform(std::begin(range), std::end(range), out, make);
}
template <typename Range, typename Out>
constexpr auto move(Range&& range, Out out) {
    return std::move(std::begin(range), std::end(range), out);
}
template <typename Range, typename Value, typename Order = std::less<>, typename Projection = identity>
constexpr auto lower_bound(Range&& range, const Value& value, Order order = {},
                           Projection projection = {}) {
    return std::lower_bound(std::begin(range), std::end(range), value,
                            [&](const auto& each, const Value& other) {
                                return order(invoke(projection, each), other);
                            });
}
template <typename Range, typename Value>
constexpr bool binary_search(Range&& range, const Value& value) {
    return std::binary_search(std::begin(range), std::end(range), value);
}
template <typename Range, typename Order = std::less<>, typename Projection = identity>
constexpr bool is_sorted(Range&& range, Order order = {}, Projection projection = {}) {
    for (auto next = std::begin(range); next != std::end(range); ++next)
        if (next != std::begin(range) &&
            order(invoke(projection, *next), invoke(projection, *std::prev(next))))
            return false;
    return true;
}

} // namespace ranges

} // namespace std

inline const char* strerrordesc_np(int error) {
    return strerror(error);
}

// Expat before 2.4 does not count what entities expand to. A text that was made to do harm stops
// the page of whoever opened it, and nothing else.
constexpr auto XML_ERROR_AMPLIFICATION_LIMIT_BREACH = static_cast<XML_Error>(43);
inline void XML_SetBillionLaughsAttackProtectionMaximumAmplification(XML_Parser, float) {}
inline void XML_SetBillionLaughsAttackProtectionActivationThreshold(XML_Parser,
                                                                    unsigned long long) {}

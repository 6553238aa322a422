#include "view/EntityText.h"

#include <array>
#include <optional>
#include <utility>

using Core::String;

namespace {

constexpr unsigned lastCodePoint = 0x10FFFF;

constexpr std::array<std::pair<std::wstring_view, const wchar_t*>, 5> known{
    {{L"&amp;", L"&"}, {L"&lt;", L"<"}, {L"&gt;", L">"}, {L"&quot;", L"\""}, {L"&apos;", L"'"}}};

std::optional<unsigned> digitOf(wchar_t sign) {
    if (String::isDigit(sign))
        return sign - L'0';
    const wchar_t small = sign | 0x20;
    return small >= L'a' && small <= L'f' ? std::optional<unsigned>(small - L'a' + 10)
                                          : std::nullopt;
}

/// Nothing for what is no number, or none of a character.
std::optional<unsigned> codePointOf(std::wstring_view digits, unsigned base) {
    unsigned number = 0;
    for (const wchar_t sign : digits) {
        const std::optional<unsigned> digit = digitOf(sign);
        if (!digit || *digit >= base)
            return std::nullopt;
        number = number * base + *digit;
        if (number > lastCodePoint)
            return std::nullopt;
    }
    const bool isHalfOfPair = number >= 0xD800 && number <= 0xDFFF;
    return number == 0 || isHalfOfPair ? std::nullopt : std::optional(number);
}

} // namespace

String EntityText::of(const String& reference) {
    const std::wstring_view whole = reference.view();
    for (const auto& [entity, shown] : known)
        if (whole == entity)
            return shown;
    if (!whole.starts_with(L"&#") || !whole.ends_with(L';'))
        return reference;
    const bool isHex = whole.starts_with(L"&#x");
    const std::size_t start = isHex ? 3 : 2;
    const auto number = codePointOf(whole.substr(start, whole.size() - start - 1), isHex ? 16 : 10);
    if (!number)
        return reference;
    const std::array<wchar_t, 2> terminated{static_cast<wchar_t>(*number), L'\0'};
    return String(terminated.data());
}

#include "foundation/UnitSearch.h"

#include <algorithm>
#include <cstddef>

namespace Core::UnitSearch {

namespace {

constexpr std::size_t blockSize = 16;

/// Compares a whole block without a branch, which compilers turn into vector instructions.
bool blockHolds(const wchar_t* block, wchar_t a, wchar_t b) noexcept {
    unsigned hits = 0;
    for (std::size_t i = 0; i < blockSize; ++i)
        hits |= static_cast<unsigned>(block[i] == a) | static_cast<unsigned>(block[i] == b);
    return hits != 0;
}

} // namespace

int forward(std::wstring_view text, wchar_t unit, unsigned long long start) noexcept {
    // npos is -1 as an int
    return start >= text.size() ? -1 : static_cast<int>(text.find(unit, start));
}

int forward(std::wstring_view text, std::wstring_view what, unsigned long long start) noexcept {
    return start >= text.size() ? -1 : static_cast<int>(text.find(what, start));
}

int forwardEither(std::wstring_view text, wchar_t a, wchar_t b, unsigned long long start) noexcept {
    if (start >= text.size())
        return -1;
    const wchar_t* at = text.data() + start;
    const wchar_t* const end = text.data() + text.size();
    while (end - at >= static_cast<std::ptrdiff_t>(blockSize) && !blockHolds(at, a, b))
        at += blockSize;
    while (at != end && *at != a && *at != b)
        ++at;
    return at == end ? -1 : static_cast<int>(at - text.data());
}

int backward(std::wstring_view text, wchar_t unit, unsigned long long start) noexcept {
    if (text.empty())
        return -1;
    std::size_t behind = std::min<std::size_t>(start, text.size() - 1) + 1;
    while (behind >= blockSize && !blockHolds(text.data() + behind - blockSize, unit, unit))
        behind -= blockSize;
    while (behind > 0 && text[behind - 1] != unit)
        --behind;
    return static_cast<int>(behind) - 1;
}

int backward(std::wstring_view text, std::wstring_view what, unsigned long long start) noexcept {
    if (text.empty() || what.size() > text.size())
        return -1;
    if (what.empty())
        return static_cast<int>(std::min<std::size_t>(start, text.size() - 1));
    std::size_t from = std::min<std::size_t>(start, text.size() - what.size());
    for (;;) {
        const int at = backward(text.substr(0, from + 1), what.front(), from);
        if (at < 0 || text.compare(static_cast<std::size_t>(at), what.size(), what) == 0)
            return at;
        if (at == 0)
            return -1;
        from = static_cast<std::size_t>(at) - 1;
    }
}

} // namespace Core::UnitSearch

#include "foundation/values/BorderStyle.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::wstring_view, 10> styles{L"none",  L"hidden", L"dotted", L"dashed",
                                                   L"solid", L"double", L"groove", L"ridge",
                                                   L"inset", L"outset"};

} // namespace

bool BorderStyle::contains(std::wstring_view word) noexcept {
    return indexOf(word) >= 0;
}

int BorderStyle::indexOf(std::wstring_view word) noexcept {
    const auto found = std::find(styles.begin(), styles.end(), word);
    return found == styles.end() ? -1 : static_cast<int>(found - styles.begin());
}

std::wstring_view BorderStyle::at(int index) noexcept {
    const auto place = static_cast<std::size_t>(index);
    return place < styles.size() ? styles[place] : styles.front();
}

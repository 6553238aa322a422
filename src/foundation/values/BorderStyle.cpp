#include "foundation/values/BorderStyle.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::wstring_view, 10> styles{L"none",  L"hidden", L"dotted", L"dashed",
                                                   L"solid", L"double", L"groove", L"ridge",
                                                   L"inset", L"outset"};

} // namespace

bool BorderStyle::contains(std::wstring_view word) noexcept {
    return std::find(styles.begin(), styles.end(), word) != styles.end();
}

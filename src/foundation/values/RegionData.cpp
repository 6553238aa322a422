#include "foundation/values/RegionData.h"

#include <array>

Core::String RegionData::getDisplayAlign() const {
    static constexpr std::array<const wchar_t*, 3> names{L"before", L"center", L"after"};
    const auto index = static_cast<std::size_t>(displayAlign);
    return index < names.size() ? Core::String(names[index]) : Core::String();
}

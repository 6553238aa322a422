#pragma once

#include "text/XmlScan.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace XmlScan {

/// Whether the list holds the name.
template <std::size_t Count>
constexpr bool contains(const std::array<Text, Count>& names, Text name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace XmlScan

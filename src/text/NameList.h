#pragma once

#include "text/XmlScan.h"

#include <algorithm>
#include <span>

namespace XmlScan {

/// Whether the list holds the name.
constexpr bool contains(std::span<const Text> names, Text name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace XmlScan

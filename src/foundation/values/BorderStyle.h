#pragma once

#include <string_view>

/// The styles that a border can have.
namespace BorderStyle {

/// Whether `word` is one, "none" included.
bool contains(std::wstring_view word) noexcept;

} // namespace BorderStyle

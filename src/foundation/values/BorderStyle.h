#pragma once

#include <string_view>

/// The styles that a border can have.
namespace BorderStyle {

/// Whether `word` is one, "none" included.
bool contains(std::wstring_view word) noexcept;
/// Its place in the list that begins with "none" and "hidden"; -1 if it is none.
int indexOf(std::wstring_view word) noexcept;
/// The style at a place; "none" elsewhere.
std::wstring_view at(int index) noexcept;

} // namespace BorderStyle

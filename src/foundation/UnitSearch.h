#pragma once

#include <string_view>

/// The searches behind Core::String, on plain views. A single unit is searched a machine word or
/// more at a time in both directions; a longer text is searched by its first unit and then
/// compared.
namespace Core::UnitSearch {

/// The first match at or after `start`; -1 if none or if `start` lies past the end.
int forward(std::wstring_view text, wchar_t unit, unsigned long long start) noexcept;
int forward(std::wstring_view text, std::wstring_view what, unsigned long long start) noexcept;

/// The first unit at or after `start` that is one of the two; -1 if none.
int forwardEither(std::wstring_view text, wchar_t a, wchar_t b, unsigned long long start) noexcept;

/// The last match at or before `start`, which is clipped to the text; -1 if none.
int backward(std::wstring_view text, wchar_t unit, unsigned long long start) noexcept;
int backward(std::wstring_view text, std::wstring_view what, unsigned long long start) noexcept;

} // namespace Core::UnitSearch

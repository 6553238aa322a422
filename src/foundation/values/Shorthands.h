#pragma once

#include "foundation/String.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

/// The shorthands of XSL, and what each says of one property. Names have no prefix, but for
/// "xml:lang".
namespace Shorthands {

inline constexpr std::array<std::wstring_view, 18> names{L"margin",
                                                         L"padding",
                                                         L"border",
                                                         L"border-top",
                                                         L"border-right",
                                                         L"border-bottom",
                                                         L"border-left",
                                                         L"border-color",
                                                         L"border-style",
                                                         L"border-width",
                                                         L"font",
                                                         L"background",
                                                         L"white-space",
                                                         L"vertical-align",
                                                         L"position",
                                                         L"page-break-after",
                                                         L"page-break-before",
                                                         L"xml:lang"};

/// Those that a property can be set by, the one that says most about it first.
std::vector<std::wstring_view> of(std::wstring_view property);

/// What the shorthand with that value gives the property: its initial value where the shorthand
/// sets it without a word. Nothing where the value makes no sense.
std::optional<Core::String> valueIn(std::wstring_view shorthand, const Core::String& value,
                                    std::wstring_view property);

} // namespace Shorthands

#pragma once

#include <string_view>

/// The properties of XSL formatting objects that change how an area looks.
namespace FormattingProperties {

/// Whether `name`, written without a prefix, is such a property, a shorthand of some, or a
/// component of one, as in "keep-together.within-line".
bool contains(std::wstring_view name) noexcept;

} // namespace FormattingProperties

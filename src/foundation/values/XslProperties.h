#pragma once

#include <string_view>

/// What XSL says of a property.
struct XslProperty {
    std::wstring_view name;    ///< without a prefix
    std::wstring_view initial; ///< empty where that is left to the formatter
    bool inherits = false;
};

/// The properties of XSL formatting objects that are no shorthands, but for those of aural style
/// and of page masters.
namespace XslProperties {

/// Null for a name that is none.
const XslProperty* find(std::wstring_view name) noexcept;

} // namespace XslProperties

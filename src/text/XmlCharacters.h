#pragma once

#include "foundation/Api.h"
#include "text/TextView.h"

#include <cstddef>

/// The characters that a document may hold.
namespace XmlCharacters {

/// How many of these a text holds: control characters but for tab, line feed and carriage return,
/// U+FFFE and U+FFFF, and halves of surrogate pairs that stand alone. No parser reads them, escaped
/// or not.
FORME_API std::size_t countForbidden(TextView text) noexcept;

} // namespace XmlCharacters

#pragma once

#include "foundation/String.h"

#include <optional>

/// The sizes of fonts, some of which are told by that of the font around.
namespace FontSize {

/// How many times the size around it is; nothing for a size by itself. Relative are em, percentages
/// and the words "larger" and "smaller".
std::optional<float> factorOf(const Core::String& size);
/// A size by itself as a length; the words, from "xx-small" to "xx-large", are steps of 1.2 from
/// 12pt. What is neither stays as it is.
Core::String asLength(const Core::String& size);
/// So many times a length; what is none stays as it is.
Core::String times(float factor, const Core::String& length);

} // namespace FontSize

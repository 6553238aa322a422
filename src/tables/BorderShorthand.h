#pragma once

#include "foundation/String.h"
#include "tables/BorderInfo.h"

/// The value of a `border`: a width, a style and a colour in any order, each of which may be left
/// out.
namespace BorderShorthand {

/// Puts what the text says in its place, and leaves alone what it does not. A word that is nothing
/// of these, or the second of its kind, ends the reading.
void parse(const Core::String& text, BorderInfo& info);

/// The style, which is solid where the text says none.
Core::String styleIn(const Core::String& text);

} // namespace BorderShorthand

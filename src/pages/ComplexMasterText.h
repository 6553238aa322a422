#pragma once

#include "foundation/String.h"

#include <vector>

class DetachedText;

/// Complex page masters as they stand in a text. One that is self-closing has no text.
namespace ComplexMasterText {

/// The text of the first of that name; the names are those of all, in their order.
Core::String named(const DetachedText& text, const std::vector<Core::String>& names,
                   const Core::String& name);
/// Takes those of the text out of the buffer, each of which has one that reads the same. Answers
/// what went, in the order of the text.
Core::String cutOut(const DetachedText& text, Core::String& buffer);

} // namespace ComplexMasterText

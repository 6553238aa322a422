#pragma once

#include "foundation/String.h"

#include <vector>

class DetachedText;

/// Complex page masters as they stand in a text. One that is self-closing has no text.
namespace ComplexMasterText {

/// The texts of all that have one.
std::vector<Core::String> of(const DetachedText& text);
/// The text of the first of that name; the names are those of all, in their order.
Core::String named(const DetachedText& text, const std::vector<Core::String>& names,
                   const Core::String& name);
/// Takes the first whose text that is out of the buffer.
void cutOut(Core::String& buffer, const Core::String& markup);

} // namespace ComplexMasterText

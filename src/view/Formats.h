#pragma once

#include "view/EditingState.h"

#include <vector>

class Document;

namespace Formats {

/// The formats at the caret or of the selected text; none without a caret.
std::vector<Format> of(const Document& document);

} // namespace Formats

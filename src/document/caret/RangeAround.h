#pragma once

#include "document/TextRange.h"

#include <optional>

class Document;

namespace RangeAround {

/// The unit of that kind that holds the position, or ends at it where none begins there. Nothing
/// outside of paragraphs and, for a word, at none.
std::optional<TextRange> find(const Document& document, TextUnit unit, int position);

} // namespace RangeAround

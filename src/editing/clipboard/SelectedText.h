#pragma once

#include "foundation/String.h"

class Document;

namespace SelectedText {

/// What is selected as a reader sees it: paragraphs and lines with line feeds between them, labels
/// before the items of lists, the cells of a row with tabs between them.
Core::String read(const Document& document);

} // namespace SelectedText

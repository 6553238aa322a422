#pragma once

class Document;

namespace TableSelection {

/// The table that the selection is exactly; -1 if it is none.
int selected(const Document& document);

} // namespace TableSelection

#pragma once

#include "document/EditableDocumentBuffer.h"
#include "foundation/String.h"

class Document;

namespace Selection {

/// The last selected offset; without a selection the caret.
int last(const Document& document);
/// Collapses the selection onto the caret. Ends a run of typing.
void collapse(Document& document);
bool coversElementNamed(const Document& document, const Core::String& name);
/// Whether the range, its end excluded, is all that stands between an element's tags.
bool isContentOfElement(const Document& document, int start, int end);
/// The path of the tag at the position, its own name last.
Core::String pathOf(const Document& document, int position);
/// The selected text, plain or as well-formed markup; empty without a selection. In plain text
/// entities stay as they are and each tag that breaks the line gives a line feed, also the next
/// one behind a selection that ends in text: a word taken from a block ends with a line feed.
Core::String read(const Document& document, TextFormat format);
Core::String plainText(const Document& document);
Core::String nativeText(const Document& document);
/// The selected text, plain or as well-formed markup; empty without a selection. In plain text
/// entities stay as they are and each tag that breaks the line gives a line feed, also the next
/// one behind a selection that ends in text: a word taken from a block ends with a line feed.
Core::String read(Document& document, TextFormat format, const Core::String& path);
/// The text of a range without its tags; `end` is excluded.
Core::String plainTextBetween(const Document& document, int start, int end);

} // namespace Selection

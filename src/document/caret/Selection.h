#pragma once

#include "document/EditableDocumentBuffer.h"
#include "foundation/String.h"

class Document;

/// What is selected: the range from the pivot to the caret, its end excluded, as markup and as
/// text.
namespace Selection {

/// The last selected offset; without a selection the caret.
int last(const Document& document);
/// Collapses the selection onto the caret. Ends a run of typing.
void collapse(Document& document);

/// Whether all places for the caret in the nearest element of that name around it are selected.
bool coversElementNamed(const Document& document, const Core::String& name);
/// Whether the range, its end excluded, is all that stands between an element's tags.
bool isContentOfElement(const Document& document, int start, int end);
/// The path of the tag at the position, its own name last.
Core::String pathOf(const Document& document, int position);

/// The selected text, plain or as well-formed markup; empty without a selection. In plain text
/// entities stay as they are and each tag that breaks the line gives a line feed, also the next one
/// behind a selection that ends in text: a word taken from a block ends with a line feed.
Core::String read(const Document& document, TextFormat format);
/// The same of the element around the caret that the path names. It is selected meanwhile, and
/// nothing is afterwards.
Core::String read(Document& document, TextFormat format, const Core::String& path);
Core::String plainText(const Document& document);
Core::String nativeText(const Document& document);
/// The text of a range without its tags; `end` is excluded.
Core::String plainTextBetween(const Document& document, int start, int end);

} // namespace Selection

#pragma once

#include "foundation/String.h"

class Document;

/// The text of a document as a whole, and markup put in the place of other markup as it stands.
namespace DocumentText {

/// Replaces the whole text, each "\r\n" by "\n", and puts the caret at its first place. Whether the
/// text is well formed is not looked at. With `resetHistory` nothing can be undone afterwards.
/// Without, the replacement is recorded as two steps, the old text and the new.
void set(Document& document, const Core::String& content, bool resetHistory);

/// Replaces the markup from `start` through `end`, both included; from `start` through `start - 1`
/// nothing goes. One undo step. Answers whether that was done; what would break the document is
/// refused.
bool replace(Document& document, int start, int end, const Core::String& xml);

} // namespace DocumentText

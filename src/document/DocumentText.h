#pragma once

#include "foundation/String.h"

class Document;

namespace DocumentText {

/// Replaces the whole text, each "\r\n" by "\n", and puts the caret at its first place. Whether
/// the text is well formed is not looked at. With `resetHistory` nothing can be undone
/// afterwards. Without, the replacement is one undo step of two entries, the old text and the
/// new.
void set(Document& document, const Core::String& content, bool resetHistory);

} // namespace DocumentText

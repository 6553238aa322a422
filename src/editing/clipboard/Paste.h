#pragma once

#include "foundation/String.h"

class Document;

/// What is pasted joins the paragraph at the caret, which splits where more than a line is pasted.
namespace Paste {

// Commands, each one undo step. Each takes the place of what is selected and leaves the caret
// behind what was pasted; false where nothing can go.

bool markup(Document& document, const Core::String& xml);
/// Each line is a paragraph.
bool text(Document& document, const Core::String& plain);

} // namespace Paste

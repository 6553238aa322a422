#pragma once

#include "foundation/String.h"

class Document;

/// Nearly every key types a character into text. All the rules of typing together then come to
/// this: it is inserted, escaped, and the caret goes behind it; a blank at the end of a line is an
/// entity until something follows it; the record of the run grows. So that is done at once, and as
/// a rule no element is looked for. It is no second set of rules: the same comes of going the long
/// way.
namespace PlainRun {

/// Whether the text is a character that can be typed so.
bool isPossible(const Document& document, const Core::String& text);

/// Types it if that is possible; otherwise does nothing and answers false.
bool type(Document& document, const Core::String& text);

} // namespace PlainRun

#pragma once

#include "foundation/String.h"

class Document;

/// Nearly every key continues a run of typing: a unit that no rule of typing asks about, put behind
/// one of the same kind. All the rules together then come to this: it is inserted, the caret goes
/// behind it, and the record of the run grows. So that is done at once, and no element is looked
/// for. It is no second set of rules: the same comes of going the long way.
namespace PlainRun {

/// Types the text if it continues a run so; otherwise does nothing and answers false.
bool type(Document& document, const Core::String& text);

} // namespace PlainRun

#pragma once

#include "foundation/String.h"

class Document;

namespace Spelling {

/// The dictionaries that the root names; empty if it names none.
Core::String dictionaries(const Document& document);

} // namespace Spelling

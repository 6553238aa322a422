#pragma once

#include "foundation/String.h"

class Document;

/// The words of a document for a spell checker, and the dictionaries that the document names.
namespace Spelling {

/// The dictionaries that the root names; empty if it names none.
Core::String dictionaries(const Document& document);

} // namespace Spelling

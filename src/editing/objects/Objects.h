#pragma once

#include "foundation/String.h"

class Document;

namespace Objects {

/// The element around the caret or, for what the caret is never in, such as a graphic, the
/// selected.
int namedByPath(const Document& document, const Core::String& path);
/// Whether an element of that name is written once for each node of the data.
bool isRepeating(const Core::String& name);

} // namespace Objects

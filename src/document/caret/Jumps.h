#pragma once

#include "foundation/String.h"

class Document;

namespace Jumps {

/// The first stop in a static content of the page sequence that has that flow name; -1 if none.
int firstStopInStaticContent(const Document& document, const Core::String& flowName, int generator);
/// The name of the first side region of a page master or, of one that refers to others, of the
/// first of these; empty if it has none.
Core::String firstSideRegionOf(const Document& document, const Core::String& masterName);

} // namespace Jumps

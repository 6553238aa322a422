#pragma once

#include "foundation/String.h"

class Document;

/// The far places that a host sends the caret to: page sequences, and the static contents that fill
/// the regions around a page's body. Names are plain text.
namespace Jumps {

/// The name of the first side region of a page master or, of one that refers to others, of the
/// first of these; empty if it has none.
Core::String firstSideRegionOf(const Document& document, const Core::String& masterName);
/// The first stop in a static content of the page sequence that has that flow name; -1 if none.
int firstStopInStaticContent(const Document& document, const Core::String& flowName, int generator);

} // namespace Jumps

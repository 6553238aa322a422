#pragma once

#include "foundation/String.h"

class Document;

/// Objects: what a host shows as a unit, such as a chart, a repeated or conditional section, a
/// floating region.
namespace Objects {

/// The element that a path names: around the caret or, for what the caret is never in, such as a
/// graphic, the selected.
int namedByPath(const Document& document, const Core::String& path);
/// Whether an element of that name is written once for each node of the data.
bool isRepeating(const Core::String& name);

} // namespace Objects

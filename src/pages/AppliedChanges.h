#pragma once

#include "foundation/String.h"

#include <vector>

class Document;

/// What was edited on a page of its own, on its way into the document: a simple page master and the
/// static contents that fill its regions.
namespace AppliedChanges {

/// Takes the master of that name over from the source, and for each of the target's page sequences
/// with these indices the static contents of the source that fill the master's regions. Other
/// static contents of the sequences stay. One undo step, which happens whole or not at all.
void apply(Document& target, const Core::String& source, const Core::String& master,
           const std::vector<int>& sequences);

} // namespace AppliedChanges

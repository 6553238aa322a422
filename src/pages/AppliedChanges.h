#pragma once

#include "foundation/String.h"

#include <vector>

class Document;
class EditableDocumentBuffer;

/// What was edited on a page of its own, on its way into the document: the template's data, a
/// simple page master and the static contents that fill its regions.
namespace AppliedChanges {

/// Takes the master of that name over from the source, from one template to another also the data
/// ahead of the masters but for the languages, and for each of the target's page sequences
/// with these indices the static contents of the source that fill the master's regions. Other
/// static contents of the sequences stay. One undo step, which happens whole or not at all.
void apply(Document& target, EditableDocumentBuffer& source, const Core::String& master,
           const std::vector<int>& sequences);

} // namespace AppliedChanges

#pragma once

#include "document/history/EditAction.h"

class Document;

/// Undo and redo: records of the history carried out on the document.
namespace History {

/// Performs one record of the history.
void replay(Document& document, const EditAction& action);

} // namespace History

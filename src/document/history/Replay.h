#pragma once

#include "document/history/EditAction.h"

class Document;

namespace History {

/// Performs one record of the history.
void replay(Document& document, const EditAction& action);

} // namespace History

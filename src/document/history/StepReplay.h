#pragma once

#include "document/history/EditAction.h"

#include <vector>

class Document;

/// One step of undo or redo: all its records, in the order in which they are replayed.
namespace StepReplay {

/// Replays them. What a step changed in many places is rewritten as one part of the text, from the
/// first of these places to the last, so that what lies behind moves once and not for each.
void replay(Document& document, const std::vector<EditAction>& step);

} // namespace StepReplay

#pragma once

#include "view/ElementPlace.h"
#include "view/StopSide.h"

class Document;

/// Where the stops and the elements near an offset are.
namespace Places {

/// The stop nearest to the offset on that side; -1 if there is none, and outside the text.
int nearestStop(const Document& document, int position, StopSide side);
/// The element whose tag holds the offset, or else the innermost around it.
int elementHolding(const Document& document, int position);
ElementPlace elementAt(const Document& document, int position);

} // namespace Places

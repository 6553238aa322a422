#pragma once

#include "foundation/String.h"

#include <vector>

class Document;

/// The page sequences of a document: fo:page-sequence, qfd:page-sequence-repeat and
/// qf:insert-document. Those that are children of the root are counted together from 0; a repeat
/// counts as one with all that stands in it.
namespace PageSequences {

/// The next one behind the position, be it counted or not; -1 if there is none.
int next(const Document& document, int position);
/// The one with that index; -1 if there are fewer.
int at(const Document& document, int index);
/// All of them in their order.
std::vector<int> all(const Document& document);
/// The index of the last counted one that begins at or before the position; -1 if none does, or
/// outside the root element.
int indexOf(const Document& document, int position);
/// The fo:page-sequence or else the qfd:page-sequence-repeat around the position; -1 in neither.
int around(const Document& document, int position);
/// The first flow in the one that begins there; -1 if it has none.
int firstFlowOf(const Document& document, int generator);
/// Whether the position is in a static content; with a flow name, in one of that flow.
bool isInStaticContent(const Document& document, int position, const Core::String& flowName);

} // namespace PageSequences

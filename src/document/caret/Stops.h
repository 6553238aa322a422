#pragma once

class Document;

namespace Stops {

int nextInCell(const Document& document, int position);
int previousInCell(const Document& document, int position);
/// Whether the stop lies in the cell around the position or, outside tables, in its flow or static
/// content.
bool isInCellAround(const Document& document, int position, int stop);
/// The position, or where it lies inside a tag or an entity the nearest stop before it.
int outsideMarkup(const Document& document, int position);
/// Whether the caret may stand there: in an editable element, or directly before or behind a
/// table.
bool canHoldCaret(const Document& document, int position);
/// The next or the previous stop: the nearest offset that can hold the caret and is not skipped
/// because nothing shows there. -1 if there is none or the position lies outside the text. With
/// `wrap` the walk goes on from the other end of the document, up to where it began. With
/// `mergeBoundaries` two stops that only the edge of an inline lies between count as one.
int next(const Document& document, int position, bool wrap, bool mergeBoundaries);
int previous(const Document& document, int position, bool wrap, bool mergeBoundaries);
/// The same without wrapping and merging.
int next(const Document& document, int position);
int previous(const Document& document, int position);
/// The position if it lies in a flow, else the nearest stop in that direction that does; -1 if
/// there is none.
int nextInFlow(const Document& document, int position);
int previousInFlow(const Document& document, int position, bool mergeBoundaries);
/// Moves the position over what is skipped, up to the first offset that is not. Answers whether
/// another element was met; with `crossElements` false the step into it is not taken.
bool skipBackward(const Document& document, int& position, bool crossElements);
bool skipForward(const Document& document, int& position, bool crossElements);
/// Whether the caret is at the first stop of its current element or, with `forward`, at the
/// last.
bool isCaretAtEdge(const Document& document, bool forward);
bool isSkipped(const Document& document, int position);

} // namespace Stops

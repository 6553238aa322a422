#pragma once

class Document;

namespace Moves {

/// Puts the caret to a position, -1 for none; with `extend` the pivot stays. Refused inside
/// markup, and where the selection would leave its flow or static content. Ends a run of
/// typing.
void to(Document& document, bool extend, int position);
/// Moves a caret that stands where none can to the next stop, else to the previous.
void toStop(Document& document);
/// To the next stop in the text, or else the previous, of the cell, flow or static content around.
/// Answers whether there is one.
bool toStopInCell(Document& document);
/// To the first stop of the first flow; without one there is no caret afterwards.
void toFirstFlow(Document& document);
/// To the first stop in the first flow of a page sequence, repeat or inserted document, which
/// are counted from 0; answers whether there is one.
bool toPageSequence(Document& document, int index);
void right(Document& document, bool extend, bool byWord, bool mergeBoundaries);
inline void right(Document& document) {
    right(document, false, false, false);
}
/// Where the page goes on elsewhere than the text, the caret follows it and selects nothing.
/// Answers whether this was such a step.
bool rightThroughTable(Document& document);
/// To the next or the previous stop; an object such as a graphic is passed whole. A caret in a
/// flow goes from flow to flow, one in a static content stays there; in a table it follows the
/// page, where the footer comes behind the body, and does not select on these jumps. Without
/// `extend` a selection collapses to its end in that direction, which is the whole move. With
/// `mergeBoundaries` two stops that only the edge of an inline lies between count as one. With
/// `byWord` the move is jumpToPreviousWord() or jumpToNextWord(), but for the table's jumps
/// and, to the right, the collapse. Ends a run of typing.
void left(Document& document, bool extend, bool byWord, bool mergeBoundaries);
inline void left(Document& document) {
    left(document, false, false, false);
}
/// The mirror of moveRightThroughTable().
bool leftThroughTable(Document& document);
/// Where a move from one position to another may end: from a flow, if not there then at the
/// nearest stop in a flow; from a static content only there. -1 if nowhere.
int landingRight(const Document& document, int from, int to);
int landingLeft(const Document& document, int from, int to, bool mergeBoundaries);
/// To the first or the last stop with text of the static content around the caret, or from
/// anywhere else of the document's flows. Without such a stop there is no caret afterwards.
/// While page masters are edited, the end is that of a static content only.
void home(Document& document, bool extend);
void end(Document& document, bool extend);

} // namespace Moves

#pragma once

class Document;

/// The moves of the caret. With `extend` the pivot stays, so that what lies between is selected.
/// Each move that a user makes ends a run of typing.
namespace Moves {

// To a place

/// Puts the caret to a position, -1 for none. Refused inside markup, and where the selection would
/// leave its flow or static content.
void to(Document& document, bool extend, int position);
/// To the first or the last stop with text of the static content around the caret, or from anywhere
/// else of the document's flows. Without such a stop there is no caret afterwards. While page
/// masters are edited, the end is that of a static content only.
void home(Document& document, bool extend);
void end(Document& document, bool extend);
/// To the first stop of the first flow; without one there is no caret afterwards.
void toFirstFlow(Document& document);
/// To the first stop in the first flow of a page sequence, repeat or inserted document, which are
/// counted from 0; answers whether there is one.
bool toPageSequence(Document& document, int index);

// Step by step

/// To the next or the previous stop; an object such as a graphic is passed whole. A caret in a flow
/// goes from flow to flow, one in a static content stays there; in a table it follows the page,
/// where the footer comes behind the body, and does not select on these jumps. Without `extend` a
/// selection collapses to its end in that direction, which is the whole move. With
/// `mergeBoundaries` two stops that only the edge of an inline lies between count as one. With
/// `byWord` the move is a step of Words, but for the table's jumps and, to the right, the collapse.
void right(Document& document, bool extend, bool byWord, bool mergeBoundaries);
void left(Document& document, bool extend, bool byWord, bool mergeBoundaries);
inline void right(Document& document) {
    right(document, false, false, false);
}
inline void left(Document& document) {
    left(document, false, false, false);
}
/// Where the page goes on elsewhere than the text, the caret follows it and selects nothing.
/// Answers whether this was such a step. To the right the caller tells the stop behind the caret.
bool rightThroughTable(Document& document, int nextStop);
bool leftThroughTable(Document& document);
/// Where a move from one position to another may end: from a flow, if not there then at the nearest
/// stop in a flow; from a static content only there. -1 if nowhere.
int landingRight(const Document& document, int from, int to);
int landingLeft(const Document& document, int from, int to, bool mergeBoundaries);

// Out of a place where a command has left the caret

/// Moves a caret that stands where none can to the next stop, else to the previous.
void toStop(Document& document);
/// To the next stop in the text, or else the previous, of the cell, flow or static content around.
/// Answers whether there is one.
bool toStopInCell(Document& document);
/// Takes caret and pivot out of markup. What was put in may have made the text around them a part
/// of a comment or a section, and a caret on the last unit that was replaced has landed one before
/// the place.
void outOfMarkup(Document& document);

} // namespace Moves

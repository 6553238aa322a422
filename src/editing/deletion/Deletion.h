#pragma once

#include "foundation/String.h"

class Document;

namespace Deletion {

void removeSelection(Document& document);
/// Delete one unit before or behind the position, which becomes where the caret belongs. They
/// record what they do.
void backward(Document& document, int& caret);
/// Backspace or, with `forward`, Delete, of a unit or with `wholeWord` a word. What is selected
/// goes first; a word then follows it. At the start of a block Backspace joins it to the block
/// before, at its end Delete joins the block behind; an object beside the caret goes whole.
/// Without a selection nothing happens where the caret cannot stand; nor outside the flows and
/// static contents, in a list label, or where a word ends in another table cell. A comment,
/// CDATA section or processing instruction that Backspace removes does not come back by undo.
/// One undo step.
void erase(Document& document, bool forward, bool wholeWord);
bool isInErasablePlace(const Document& document);
bool isInRegion(const Document& document, int position);
/// Removes the nearest element around the caret that has the name, with its content, if it lies
/// in a flow or static content; a sequence of conditions goes with its last one. What it leaves
/// empty keeps a place for the caret. One undo step.
void removeParent(Document& document, const Core::String& elementName);
void removeElementAround(Document& document, const Core::String& name, bool removeEmptyInlines);
/// What erase() does outside lists. The last argument is ignored.
void eraseText(Document& document, bool forward, bool wholeWord, bool);
/// Whether the element is the last block in its flow.
bool isLastBlockInFlow(const Document& document, int element);
/// Moves the caret off a place that a deletion left without a stop.
void settleCaret(Document& document);
void forward(Document& document, int& caret);
/// The sequence that would be left with no part, if the element is its last.
int withEmptiedSequence(const Document& document, int element);
/// Removes the selection or, without one, the unit at the caret. With `listHandled` lists are
/// treated as any other element. The answer is empty: what was removed goes to the history
/// piece by piece.
Core::String deleteSelection(Document& document, bool listHandled);
/// The same for the range from `start` up to but excluding `end`. Afterwards `start` is where
/// the caret belongs and `end` where the text behind the range begins.
Core::String deleteRange(Document& document, int& start, int& end, bool listHandled);

} // namespace Deletion

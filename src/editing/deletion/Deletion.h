#pragma once

#include "foundation/String.h"

class Document;
class XmlText;

/// Backspace and Delete, and the deletion of what is selected. What an element lost is made good:
/// one that shows nothing keeps a placeholder or goes, and blanks do not collapse.
namespace Deletion {

// Commands, each one undo step

/// Backspace or, with `forward`, Delete, of a unit or with `wholeWord` a word. What is selected
/// goes first; a word then follows it. At the start of a block Backspace joins it to the block
/// before, at its end Delete joins the block behind; an object beside the caret goes whole. Without
/// a selection nothing happens where the caret cannot stand; nor outside the flows and static
/// contents, in a list label, or where a word ends in another table cell. A comment, CDATA section
/// or processing instruction that Backspace removes does not come back by undo.
void erase(Document& document, bool forward, bool wholeWord);
void removeSelection(Document& document);
/// Removes the nearest element around the caret that has the name, with its content, if it lies in
/// a flow or static content; a sequence of conditions goes with its last one. What it leaves empty
/// keeps a place for the caret.
void removeParent(Document& document, const Core::String& elementName);

// Parts of a command, which record what they do. Who calls them makes one step of it.

/// What erase() does outside lists.
void eraseText(Document& document, bool forward, bool wholeWord);
/// Delete one unit before or behind the position, which becomes where the caret belongs.
void backward(Document& document, int& caret);
void forward(Document& document, int& caret);
/// Removes the selection or, without one, the unit at the caret. With `listHandled` lists are
/// treated as any other element. The answer is empty: what was removed goes to the history piece by
/// piece.
Core::String deleteSelection(Document& document, bool listHandled);
/// The same for the range from `start` up to but excluding `end`. Afterwards `start` is where the
/// caret belongs and `end` where the text behind the range begins.
Core::String deleteRange(Document& document, int& start, int& end, bool listHandled);
/// The work of removeParent(). With `removeEmptyInlines` inlines around that are left with nothing
/// to show go too.
void removeElementAround(Document& document, const Core::String& name, bool removeEmptyInlines);
/// Moves the caret off a place that a deletion left without a stop.
void settleCaret(Document& document);

// Places

/// Whether a key may delete where the caret stands.
bool isInErasablePlace(const Document& document);
/// Whether the position lies in a flow or static content.
bool isInRegion(const Document& document, int position);
/// Whether the element is the last block in its flow.
bool isLastBlockInFlow(const Document& document, int element);
/// The element or, if it is the last part of a sequence of conditions, that sequence.
int withEmptiedSequence(const Document& document, int element);

/// Whether anything is left to see of an element that holds what stands from `start` up to `end`.
bool showsBetween(const Document& document, int start, int end);
bool showsAt(const Document& document, int position);
/// Whether each start tag from `at` up to `end` has its closing tag there, and each closing tag its
/// start tag.
bool tagsMatch(const XmlText& text, int at, int end);

} // namespace Deletion

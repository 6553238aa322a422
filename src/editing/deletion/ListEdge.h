#pragma once

class Document;

/// What deletion asks of lists when it meets one. Deletion declares it and lists define it, since a
/// list's own deletion ends, item by item, in the deletion of text.
namespace ListEdge {

/// From `start` up to but excluding `end`.
struct Range {
    int start;
    int end;
};

/// Backspace or, with `forward`, Delete at the caret in a list: of a unit or with `wholeWord` a
/// word. At the start of an item it joins the item before, and what the first item holds moves out
/// before the list; at the end of an item the next one joins it, behind the last one the block or
/// the line that follows the list. In an only item that is empty, or at its start, Backspace ends
/// the list.
void erase(Document& document, bool forward, bool wholeWord);

/// Removes what lies in the list around `range.start` from there up to the end of the range: items
/// that lie wholly in it go as wholes, but one item alone stays, and so does the text of the
/// others. Afterwards the range begins at the caret, where the selection began or else where the
/// first part of the list went, and ends where the text behind it begins if that lies behind the
/// list, and else at the caret. Answers an offset from which on nothing of the list lies in the
/// range: the list's closing tag, or where it stood. Records what it does; the command around it is
/// the undo step.
int eraseRange(Document& document, Range& range);

} // namespace ListEdge

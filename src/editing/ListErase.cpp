// Backspace and Delete in a list: items join, or leave the list.

#include "document/EditableDocumentBuffer.h"
#include "editing/ListBuffer.h"
#include "editing/ListCommand.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;
using XmlScan::Text;

void ListBuffer::eraseTextFromListBuffer(bool forward, bool wholeWord) {
    const int item = getItemPos(document_.caretPos_);
    // A host can put the caret between the tags of an item, where Delete would take its label.
    if (item >= 0 && document_.isInErasablePlace() && document_.canHoldCaret(document_.caretPos_))
        carryOut([&] { eraseInItem(item, forward, wholeWord); });
}

void ListBuffer::eraseInItem(int item, bool forward, bool wholeWord) {
    const int caret = document_.caretPos_;
    if (isEmptyOnlyItem(item))
        unwrap(getListPos(item));
    else if (document_.hasSelectedText())
        eraseListSelection();
    else if (document_.inEditableElement(caret) &&
             (forward ? isAtEnd(caret) : isFirstPositionInItemBody(caret)) && isOwnItem(item))
        forward ? eraseForward(item) : eraseBackward(item);
    else
        document_.eraseTextFromBuffer(forward, wholeWord, true);
}

/// Whether the item is the only one of its list and the caret in its only, empty block.
bool ListBuffer::isEmptyOnlyItem(int item) const {
    const int block = emptyBlockAround(document_.caretPos_);
    const int body = getItemBodyPos(item);
    return block >= 0 && itemsOf(getListPos(item)).size() == 1 &&
           block == getFirstBlockInElement(body) && block == getLastBlockInElement(body);
}

/// Whether nothing but a non-breaking space, which may be a placeholder, stands behind the position
/// in the item.
bool ListBuffer::isAtEnd(int position) const {
    if (document_.nbspFollowedByWspaceAndElementCloseTagAt(position))
        position = document_.getLastPositionInElementContaining(position);
    return isLastPositionInItemBody(position);
}

// At the edges of an item

void ListBuffer::eraseBackward(int item) {
    const int list = getListPos(item);
    const int previous = getPreviousItemPos(item);
    if (itemsOf(list).size() == 1)
        unwrap(list);
    else if (previous < 0)
        moveItemOut(item);
    else
        joinItems(previous, item);
}

void ListBuffer::eraseForward(int item) {
    const int next = getNextItemPos(item);
    if (next >= 0)
        joinItems(item, next);
    else
        pullFollowingBlockIn(item);
}

/// What the first item holds moves out in front of the list.
void ListBuffer::moveItemOut(int item) {
    const int list = getListPos(item);
    const bool isNumbered = typeOf(list) == ListType::Numbering;
    const Range body = contentOf(getItemBodyPos(item));
    const String content = slice(body.start, body.end);
    const int caret = list + document_.caretPos_ - body.start;
    document_.recordCaret();
    document_.removeAndRecord(item, document_.positionBehindElement(item));
    document_.insertAndRecord(list, content);
    document_.setCaret(false, caret);
    if (isNumbered)
        renumber(list + content.length());
    document_.recordCaret();
}

// Joining items

/// The caret stays where it is in the text.
void ListBuffer::joinItems(int first, int second) {
    if (!hasOpenBody(first) || !hasOpenBody(second))
        return;
    const int list = getListPos(first);
    const bool isNumbered = typeOf(list) == ListType::Numbering;
    const int caret = document_.caretPos_;
    document_.recordCaret();
    const Move move = appendItem(first, second);
    document_.setCaret(false, caret < second ? std::min(caret, move.to)
                                             : move.to + std::max(0, caret - move.from));
    if (isNumbered)
        renumber(list);
    document_.recordCaret();
}

/// The block that begins what the second item holds continues the block that ends the first.
ListBuffer::Move ListBuffer::appendItem(int first, int second) {
    const int body = getItemBodyPos(first);
    const int secondBody = getItemBodyPos(second);
    const int last = getLastBlockInElement(body);
    const int head = blockThatBegins(secondBody);
    if (head < 0 || last < 0 || isInTableWithin(body, last))
        return appendBlocks(body, second);
    const int end = document_.startOfSkippedSpaces(closingTag(last));
    const int start = textStart(head);
    if (document_.getClosingTagsBetweenPositions(body, end) ==
        document_.getClosingTagsBetweenPositions(secondBody, start))
        document_.removeAndRecord(end, start);
    else
        moveContent(second, body, end);
    return {start, end};
}

/// For a first item that ends with a list of its own, in which the text then ends.
void ListBuffer::moveContent(int second, int body, int end) {
    const int secondBody = getItemBodyPos(second);
    const int head = blockThatBegins(secondBody);
    const String text = slice(textStart(head), closingTag(head));
    const String rest = slice(document_.positionBehindElement(head), closingTag(secondBody));
    document_.removeAndRecord(second, document_.positionBehindElement(second));
    document_.insertAndRecord(closingTag(body), rest);
    document_.insertAndRecord(end, text);
}

/// For items between which no text can be joined, since a table or a list lies there.
ListBuffer::Move ListBuffer::appendBlocks(int body, int second) {
    const Range content = contentOf(getItemBodyPos(second));
    const String blocks = slice(content.start, content.end);
    document_.removeAndRecord(second, document_.positionBehindElement(second));
    const int end = closingTag(body);
    document_.insertAndRecord(end, blocks);
    return {content.start, end};
}

bool ListBuffer::hasOpenBody(int item) const {
    return XmlScan::openingAt(document_.text_.view(), getItemBodyPos(item));
}

int ListBuffer::blockThatBegins(int body) const {
    const int child = document_.getFirstChildPosition(body);
    return child >= 0 && child == getFirstBlockInElement(body) ? child : -1;
}

bool ListBuffer::isInTableWithin(int body, int position) const {
    return document_.searchParent(L"fo:table", position, false, true, L"") > body;
}

/// Where the text of a block begins, behind white space that does not show.
int ListBuffer::textStart(int block) const {
    return document_.endOfSkippedSpaces(contentOf(block).start);
}

// At the end of a list

/// The block behind the list continues its last item. A placeholder that was all that either held
/// goes.
void ListBuffer::pullFollowingBlockIn(int item) {
    const Text text = document_.text_.view();
    const int behind = document_.positionBehindElement(getListPos(item));
    const int block = XmlScan::skipSpaces(text, behind);
    const int last = getLastBlockInElement(getItemBodyPos(item));
    if (XmlScan::tagName(text, block) != L"fo:block" || !XmlScan::openingAt(text, block) ||
        last < 0)
        return;
    const bool isEmpty = document_.elementContainsJustNonBreakingSpace(block);
    const String content = isEmpty ? String() : slice(textStart(block), closingTag(block));
    document_.recordCaret();
    document_.removeAndRecord(behind, document_.positionBehindElement(block));
    if (!content.empty())
        continueBlock(last, content);
    document_.recordCaret();
}

/// The caret stays before what comes in.
void ListBuffer::continueBlock(int block, const String& content) {
    const int end = closingTag(block);
    const int start = document_.elementContainsJustNonBreakingSpace(block)
                          ? document_.getNonBreakingSpacePosition(block)
                          : document_.startOfSkippedSpaces(end);
    const int caret = std::min(start, document_.caretPos_);
    document_.removeAndRecord(start, end);
    document_.insertAndRecord(start, content);
    document_.setCaret(false, caret);
}

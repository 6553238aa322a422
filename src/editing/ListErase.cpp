// Backspace and Delete in a list: items join, or leave the list.

#include "document/EditableDocumentBuffer.h"
#include "editing/BlockLevel.h"
#include "editing/ListBuffer.h"
#include "editing/ListCommand.h"
#include "text/NameList.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <array>

using Core::String;
using XmlScan::contains;
using XmlScan::Text;

namespace {

constexpr std::array<Text, 3> blockHolders{L"qfd:block-repeat", L"qfd:conditional-block",
                                           L"qfd:conditional-block-sequence"};

/// Whether an element begins there that stands on lines of its own.
bool endsLine(Text text, int position) {
    return isBlockLevelTag(text, position) ||
           contains(blockHolders, XmlScan::tagName(text, position));
}

} // namespace

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
    return block >= 0 && childrenOf(getListPos(item)).size() == 1 &&
           block == getFirstBlockInElement(body) && block == getLastBlockInElement(body);
}

/// Whether nothing but a non-breaking space, which may be a placeholder, stands behind the position
/// in the item.
bool ListBuffer::isAtEnd(int position) const {
    if (document_.nbspFollowedByWspaceAndElementCloseTagAt(position))
        position = document_.getLastPositionInElementContaining(position);
    return isLastPositionIn(getItemBodyPos(position), position);
}

// At the edges of an item

void ListBuffer::eraseBackward(int item) {
    const int list = getListPos(item);
    const int previous = neighborOf(item, childrenOf(list), -1);
    if (childrenOf(list).size() == 1)
        unwrap(list);
    else if (previous < 0)
        moveItemOut(item);
    else
        joinItems(previous, item);
}

void ListBuffer::eraseForward(int item) {
    const int next = neighborOf(item, childrenOf(getListPos(item)), 1);
    if (next >= 0)
        joinItems(item, next);
    else
        pullFollowingLineIn(item);
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

/// The caret stays where it is in the text. Nothing joins the items of a repeat.
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
        return moveContent(second, body, end);
    return {start, end};
}

/// For a first item that ends with a list of its own, in which the text then ends. Answers where
/// the part with the caret went, which is behind the text where that shows nothing.
ListBuffer::Move ListBuffer::moveContent(int second, int body, int end) {
    const int secondBody = getItemBodyPos(second);
    const int head = blockThatBegins(secondBody);
    const int start = textStart(head);
    const int behindHead = document_.positionBehindElement(head);
    const bool isCaretBehindHead = document_.caretPos_ >= behindHead;
    const String text = slice(start, closingTag(head));
    const String rest = slice(behindHead, closingTag(secondBody));
    const int bodyEnd = closingTag(body);
    document_.removeAndRecord(second, document_.positionBehindElement(second));
    document_.insertAndRecord(bodyEnd, rest);
    document_.insertAndRecord(end, text);
    return isCaretBehindHead ? Move{behindHead, bodyEnd + text.length()} : Move{start, end};
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

bool ListBuffer::hasOpenBody(int element) const {
    return isItem(element) && XmlScan::openingAt(document_.text_.view(), getItemBodyPos(element));
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

/// What follows the list continues its last item: the block there or, in a block around the list,
/// the line. At the end of an item that the list is the end of, the next one does.
void ListBuffer::pullFollowingLineIn(int item) {
    const Text text = document_.text_.view();
    int start = document_.positionBehindElement(getListPos(item));
    int line = XmlScan::skipSpaces(text, start);
    for (; isEdgeAroundList(line); line = XmlScan::skipSpaces(text, start))
        start = document_.getNextEditablePositionInXml(line);
    const int last = getLastBlockInElement(getItemBodyPos(item));
    const int outer = getItemPos(line);
    if (XmlScan::tagName(text, line) == L"/fo:list-item-body" && isOwnItem(outer))
        eraseForward(outer);
    else if (last >= 0 && opensBlock(line))
        continueBlock(last, {start, document_.positionBehindElement(line)}, textOf(line));
    else if (last >= 0 && beginsLine(line))
        continueBlock(last, {start, behindLineBreak(endOfLine(line))}, {line, endOfLine(line)});
}

/// Whether text or a line break stands there directly in a block.
bool ListBuffer::beginsLine(int position) const {
    return document_.getCurrentElementName(position) == L"fo:block" &&
           !document_.ignoredElementAtPosition(position) &&
           behindLineBreak(endOfLine(position)) > position;
}

/// What the block shows, which may be nothing.
ListBuffer::Range ListBuffer::textOf(int block) const {
    if (document_.elementContainsJustWhitespacesOrVoid(block))
        return {block, block};
    return {textStart(block), closingTag(block)};
}

bool ListBuffer::opensBlock(int position) const {
    const Text text = document_.text_.view();
    return XmlScan::tagName(text, position) == L"fo:block" && XmlScan::openingAt(text, position);
}

/// Whether a block ends at the position or one begins that holds a list, which stays in it.
bool ListBuffer::isEdgeAroundList(int position) const {
    if (!opensBlock(position))
        return XmlScan::tagName(document_.text_.view(), position) == L"/fo:block";
    const int list = document_.getNextElementByName(L"fo:list-block", position);
    return list >= 0 && list < closingTag(position);
}

/// Where the line that begins at the position ends: at a block or the like, or the end of what is
/// around it.
int ListBuffer::endOfLine(int position) const {
    const Text text = document_.text_.view();
    int tag = document_.getNextTagPosition(position);
    while (tag >= 0 && !XmlScan::closingAt(text, tag) && !endsLine(text, tag))
        tag = document_.getNextTagPosition(document_.positionBehindElement(tag));
    return tag;
}

/// A line break goes with the line that it ends.
int ListBuffer::behindLineBreak(int position) const {
    const Text text = document_.text_.view();
    const bool isBreak =
        XmlScan::tagName(text, position) == L"fo:block" && XmlScan::selfClosingAt(text, position);
    return isBreak ? document_.getNextEditablePositionInXml(position) : position;
}

/// The text moves to the end of the block, and what is around it goes. A placeholder that was all
/// that either held goes, and the caret stays before what comes in.
void ListBuffer::continueBlock(int block, const Range& around, const Range& text) {
    const Text old = document_.text_.view();
    const int behindPlaceholder = text.start + XmlScan::placeholderLength(old, text.start);
    const bool isEmpty = XmlScan::skipSpaces(old, behindPlaceholder) >= text.end;
    const String content = isEmpty ? String() : slice(text.start, text.end);
    const int caret = document_.caretPos_;
    document_.recordCaret();
    document_.removeAndRecord(around.start, around.end);
    if (!content.empty()) {
        const int end = closingTag(block);
        const int start = document_.elementContainsJustNonBreakingSpace(block)
                              ? document_.getNonBreakingSpacePosition(block)
                              : document_.startOfSkippedSpaces(end);
        document_.removeAndRecord(start, end);
        document_.insertAndRecord(start, content);
        document_.setCaret(false, std::min(start, caret));
    }
    document_.recordCaret();
}

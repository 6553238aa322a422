// Backspace and Delete in a list: items join, or leave the list.

#include "document/BlockLevel.h"
#include "document/Document.h"
#include "document/Edit.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/caret/Lines.h"
#include "document/caret/Stops.h"
#include "editing/deletion/Deletion.h"
#include "editing/lists/ListBuffer.h"
#include "editing/lists/Lists.h"
#include "text/Markup.h"
#include "text/Vocabulary.h"

#include <algorithm>

using Core::String;
using XmlScan::contains;

namespace {

/// What stood at `from` stands at `to`.
struct Move {
    int from;
    int to;
};

/// Whether an element begins there that stands on lines of its own.
bool endsLine(const XmlText& text, int position) {
    return isBlockLevelTag(text, position) ||
           contains(Vocabulary::blockHolders, text.tagName(position));
}

void eraseForward(Document& document, int item);

/// Whether the item is the only one of its list and the caret in its only, empty block.
bool isEmptyOnlyItem(const Document& document, int item) {
    const int block = Lists::emptyBlockAround(document, document.caret());
    const int body = Lists::bodyOf(document, item);
    return block >= 0 &&
           Lists::childrenOf(document, Lists::listAround(document, item)).size() == 1 &&
           block == Lists::firstBlockIn(document, body) &&
           block == Lists::lastBlockIn(document, body);
}

/// Whether nothing but a non-breaking space, which may be a placeholder, stands behind the position
/// in the item.
bool isAtEnd(const Document& document, int position) {
    if (document.text().isPlaceholderBeforeClosingTag(position))
        position = document.text().closingTagAround(position);
    return Lists::isLastPositionIn(document, Lists::bodyOf(document, position), position);
}

bool hasOpenBody(const Document& document, int element) {
    return Lists::isItem(document, element) &&
           document.text().openingAt(Lists::bodyOf(document, element));
}

int blockThatBegins(const Document& document, int body) {
    const int child = document.text().firstChild(body);
    return child >= 0 && child == Lists::firstBlockIn(document, body) ? child : -1;
}

bool isInTableWithin(const Document& document, int body, int position) {
    return document.text().ancestor(position, L"fo:table") > body;
}

/// For items between which no text can be joined, since a table or a list lies there.
Move appendBlocks(Document& document, int body, int second) {
    const Lists::Range content = Lists::contentOf(document, Lists::bodyOf(document, second));
    const String blocks = Lists::slice(document, content.start, content.end);
    Edit(document).remove(second, document.text().behindElement(second));
    const int end = Lists::closingTag(document, body);
    Edit(document).insert(end, blocks);
    return {content.start, end};
}

/// Where the text of a block begins, behind white space that does not show.
int textStart(const Document& document, int block) {
    return Lines::endOfSkipped(document, Lists::contentOf(document, block).start);
}

/// For a first item that ends with a list of its own, in which the text then ends. Answers where
/// the part with the caret went, which is behind the text where that shows nothing.
Move moveContent(Document& document, int second, int body, int end) {
    const int secondBody = Lists::bodyOf(document, second);
    const int head = blockThatBegins(document, secondBody);
    const int start = textStart(document, head);
    const int behindHead = document.text().behindElement(head);
    const bool isCaretBehindHead = document.caret() >= behindHead;
    const String text = Lists::slice(document, start, Lists::closingTag(document, head));
    const String rest = Lists::slice(document, behindHead, Lists::closingTag(document, secondBody));
    const int bodyEnd = Lists::closingTag(document, body);
    Edit(document).remove(second, document.text().behindElement(second));
    Edit(document).insert(bodyEnd, rest);
    Edit(document).insert(end, text);
    return isCaretBehindHead ? Move{behindHead, bodyEnd + text.length()} : Move{start, end};
}

/// The block that begins what the second item holds continues the block that ends the first.
Move appendItem(Document& document, int first, int second) {
    const int body = Lists::bodyOf(document, first);
    const int secondBody = Lists::bodyOf(document, second);
    const int last = Lists::lastBlockIn(document, body);
    const int head = blockThatBegins(document, secondBody);
    if (head < 0 || last < 0 || isInTableWithin(document, body, last))
        return appendBlocks(document, body, second);
    const int end = Lines::startOfSkipped(document, Lists::closingTag(document, last));
    const int start = textStart(document, head);
    if (Markup::openedBetween(document.text(), body, end) ==
        Markup::openedBetween(document.text(), secondBody, start))
        Edit(document).remove(end, start);
    else
        return moveContent(document, second, body, end);
    return {start, end};
}

/// The caret stays where it is in the text. Nothing joins the items of a repeat.
void joinItems(Document& document, int first, int second) {
    if (!hasOpenBody(document, first) || !hasOpenBody(document, second))
        return;
    const int list = Lists::listAround(document, first);
    const bool isNumbered = Lists::typeOf(document, list) == ListType::Numbering;
    const int caret = document.caret();
    document.recordCaret();
    const Move move = appendItem(document, first, second);
    document.setCaret(caret < second ? std::min(caret, move.to)
                                     : move.to + std::max(0, caret - move.from));
    if (isNumbered)
        Lists::renumber(document, list);
    document.recordCaret();
}

bool opensBlock(const Document& document, int position) {
    const XmlText& text = document.text();
    return text.tagName(position) == L"fo:block" && text.openingAt(position);
}

/// Whether a block ends at the position or one begins that holds a list, which stays in it.
bool isEdgeAroundList(const Document& document, int position) {
    if (!opensBlock(document, position))
        return document.text().tagName(position) == L"/fo:block";
    const int list = document.text().nextNamed(position, L"fo:list-block");
    return list >= 0 && list < Lists::closingTag(document, position);
}

/// The text moves to the end of the block, and what is around it goes. A placeholder that was all
/// that either held goes, and the caret stays before what comes in.
void continueBlock(Document& document, int block, const Lists::Range& around,
                   const Lists::Range& text) {
    const XmlText& old = document.text();
    const int behindPlaceholder = text.start + old.placeholderLength(text.start);
    const bool isEmpty = old.skipSpaces(behindPlaceholder) >= text.end;
    const String content = isEmpty ? String() : Lists::slice(document, text.start, text.end);
    const int caret = document.caret();
    document.recordCaret();
    Edit(document).remove(around.start, around.end);
    if (!content.empty()) {
        const int end = Lists::closingTag(document, block);
        const int start = document.text().holdsOnlyPlaceholder(block)
                              ? document.text().placeholderBehind(block)
                              : Lines::startOfSkipped(document, end);
        Edit(document).remove(start, end);
        Edit(document).insert(start, content);
        document.setCaret(std::min(start, caret));
    }
    document.recordCaret();
}

/// What the block shows, which may be nothing.
Lists::Range textOf(const Document& document, int block) {
    if (Placeholders::isVoid(document, block))
        return {block, block};
    return {textStart(document, block), Lists::closingTag(document, block)};
}

/// A line break goes with the line that it ends.
int behindLineBreak(const Document& document, int position) {
    const XmlText& text = document.text();
    const bool isBreak = text.tagName(position) == L"fo:block" && text.selfClosingAt(position);
    return isBreak ? document.text().next(position) : position;
}

/// Where the line that begins at the position ends: at a block or the like, or the end of what is
/// around it.
int endOfLine(const Document& document, int position) {
    const XmlText& text = document.text();
    int tag = document.text().nextTag(position);
    while (tag >= 0 && !text.closingAt(tag) && !endsLine(text, tag))
        tag = document.text().nextTag(document.text().behindElement(tag));
    return tag;
}

/// Whether text or a line break stands there directly in a block.
bool beginsLine(const Document& document, int position) {
    return document.text().nameAround(position) == L"fo:block" &&
           !document.text().ignoredAt(position) &&
           behindLineBreak(document, endOfLine(document, position)) > position;
}

/// What follows the list continues its last item: the block there or, in a block around the list,
/// the line. At the end of an item that the list is the end of, the next one does.
void pullFollowingLineIn(Document& document, int item) {
    const XmlText& text = document.text();
    int start = document.text().behindElement(Lists::listAround(document, item));
    int line = text.skipSpaces(start);
    for (; isEdgeAroundList(document, line); line = text.skipSpaces(start))
        start = document.text().next(line);
    const int last = Lists::lastBlockIn(document, Lists::bodyOf(document, item));
    const int outer = Lists::itemAround(document, line);
    const bool isAround = outer < item; // which it may not be where tags do not match
    if (text.tagName(line) == L"/fo:list-item-body" && isAround &&
        Lists::isOwnItem(document, outer))
        eraseForward(document, outer);
    else if (last >= 0 && opensBlock(document, line))
        continueBlock(document, last, {start, document.text().behindElement(line)},
                      textOf(document, line));
    else if (last >= 0 && beginsLine(document, line))
        continueBlock(document, last, {start, behindLineBreak(document, endOfLine(document, line))},
                      {line, endOfLine(document, line)});
}

void eraseForward(Document& document, int item) {
    const int next =
        Lists::neighborOf(item, Lists::childrenOf(document, Lists::listAround(document, item)), 1);
    if (next >= 0)
        joinItems(document, item, next);
    else
        pullFollowingLineIn(document, item);
}

/// What the first item holds moves out in front of the list.
void moveItemOut(Document& document, int item) {
    const int list = Lists::listAround(document, item);
    const bool isNumbered = Lists::typeOf(document, list) == ListType::Numbering;
    const Lists::Range body = Lists::contentOf(document, Lists::bodyOf(document, item));
    const String content = Lists::slice(document, body.start, body.end);
    const int caret = list + document.caret() - body.start;
    document.recordCaret();
    Edit(document).remove(item, document.text().behindElement(item));
    Edit(document).insert(list, content);
    document.setCaret(caret);
    if (isNumbered)
        Lists::renumber(document, list + content.length());
    document.recordCaret();
}

void eraseBackward(Document& document, int item) {
    const int list = Lists::listAround(document, item);
    const int previous = Lists::neighborOf(item, Lists::childrenOf(document, list), -1);
    if (Lists::childrenOf(document, list).size() == 1)
        Lists::unwrap(document, list);
    else if (previous < 0)
        moveItemOut(document, item);
    else
        joinItems(document, previous, item);
}

void eraseInItem(Document& document, int item, bool forward, bool wholeWord) {
    const int caret = document.caret();
    if (isEmptyOnlyItem(document, item))
        Lists::unwrap(document, Lists::listAround(document, item));
    else if (document.hasSelection())
        Lists::eraseSelection(document);
    else if (document.isInEditable(caret) &&
             (forward ? isAtEnd(document, caret)
                      : Lists::isFirstPositionInItemBody(document, caret)) &&
             Lists::isOwnItem(document, item))
        forward ? eraseForward(document, item) : eraseBackward(document, item);
    else
        Deletion::eraseText(document, forward, wholeWord);
}

} // namespace

void ListEdge::erase(Document& document, bool forward, bool wholeWord) {
    const int item = Lists::itemAround(document, document.caret());
    // A host can put the caret between the tags of an item, where Delete would take its label.
    if (item < 0 || !Deletion::isInErasablePlace(document) ||
        !Stops::canHoldCaret(document, document.caret()))
        return;
    RecordedCommand command(document);
    const std::size_t recorded = document.history.recordedCount();
    eraseInItem(document, item, forward, wholeWord);
    const bool didNothing = document.history.recordedCount() == recorded;
    if (didNothing || !command.mayStand())
        command.takeBack();
}

void ListBuffer::eraseTextFromListBuffer(bool forward, bool wholeWord) {
    ListEdge::erase(document_, forward, wholeWord);
}

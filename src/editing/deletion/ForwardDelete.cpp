#include "editing/deletion/ForwardDelete.h"

#include "document/Document.h"
#include "document/Edit.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/caret/Lines.h"
#include "document/caret/Stops.h"
#include "editing/deletion/Deletion.h"
#include "editing/deletion/ListEdge.h"
#include "text/XmlScan.h"

using Core::String;
using XmlScan::Text;

namespace {

/// Whether a line holds nothing but its placeholder.
bool isPlaceholder(String line) {
    line.trim();
    return line.view() == XmlScan::nbspEntity || line.view() == XmlScan::nbspCharacter;
}

} // namespace

int ForwardDelete::run() {
    while (playRound()) {
    }
    // What was emptied at the caret is repaired by who moves it there.
    return inside_ ? Placeholders::repair(document_, place_, true).map(caret_) : caret_;
}

bool ForwardDelete::playRound() {
    if (!document_.text().isValid(document_.caret()) ||
        !document_.text().isValid(document_.caret() + 1))
        return false;
    look();
    if (document_.text().onTagStart(position_))
        return removeAtTag();
    if (isPlaceholderElement())
        return takePlaceholder();
    if (document_.text().isPlaceholderBeforeClosingTag(position_))
        return removeTrailingPlaceholder();
    if (isLineBeforeAnother())
        return removeLine();
    return removeText();
}

bool ForwardDelete::removeAtTag() {
    if (isBeforeEmptyElement())
        return removeEmptyElement();
    if (document_.text().ignoredAt(position_))
        return removeMarkup();
    if (const int list = listBehind(); list >= 0)
        return eraseInFollowingList(list);
    if (isAtNestedBlock())
        return mergeNextBlockRun();
    const String name = document_.text().nameAt(position_);
    if (document_.names.isInline(name))
        return enterInline();
    if (document_.names.closesInline(name))
        return leaveInline();
    if (name == L"/fo:block")
        return joinFollowing();
    return removeObject();
}

void ForwardDelete::look() {
    position_ = Lines::endOfSkipped(document_, place_);
    element_ = document_.text().elementAround(position_);
}

// A soft break, a tab or another empty element

bool ForwardDelete::isBeforeEmptyElement() const {
    return document_.text().selfClosingAt(position_) && !document_.text().ignoredAt(position_);
}

/// A soft break that was the last thing in a block takes the block's boundary along, and one before
/// an empty line the placeholder of that.
bool ForwardDelete::removeEmptyElement() {
    const int behind = document_.text().next(position_);
    const int line = Lines::endOfSkipped(document_, behind);
    if (isBlockTag(position_) && Lines::isPlaceholderLine(document_, line) &&
        !Lines::isStart(document_, place_)) {
        Edit(document_).remove(place_, document_.text().next(line));
        return false;
    }
    if (isBlockTag(position_) && followsEmptyLine() && !Lines::isEnd(document_, behind))
        moveTo(document_.text().previous(Lines::startOfSkipped(document_, place_)));
    Edit(document_).remove(place_, Lines::endOfLayout(document_, behind));
    const int next = Lines::endOfSkipped(document_, place_);
    return !document_.text().selfClosingAt(next) &&
           document_.names.isBlock(document_.text().nameAt(next).substringAfter(L"/"));
}

/// Whether a line ends there that holds just a placeholder, with the caret behind that.
bool ForwardDelete::followsEmptyLine() const {
    const int before = document_.text().previous(Lines::startOfSkipped(document_, place_));
    return Lines::isPlaceholderLine(document_, before);
}

// A comment, CDATA section or processing instruction

bool ForwardDelete::removeMarkup() {
    Edit(document_).remove(place_, document_.text().next(position_));
    return false;
}

// The edges of a nested block

/// A block in an inline is no object that would go whole, with all its text.
bool ForwardDelete::isAtNestedBlock() const {
    if (!document_.text().closingAt(position_))
        return Lines::isNestedBlock(document_, position_) ||
               (isBlockTag(position_) && isInlineAt(element_));
    return document_.text().tagName(position_) == L"/fo:block" &&
           Lines::isNestedBlock(document_, element_);
}

// The edges of an inline

/// A soft break at the inline's start is not the character that the inline holds besides.
bool ForwardDelete::enterInline() {
    const int inside = document_.text().next(position_);
    const int first = stops_.next(position_);
    if (!Placeholders::holdsOneUnit(document_, position_, stops_) ||
        (inside < first && document_.text().selfClosingAt(Lines::endOfSkipped(document_, inside))))
        return goOnInside(inside);
    Edit(document_).remove(place_, document_.text().behindElement(position_));
    keepLine();
    return false;
}

/// Behind the mark of a footnote its note begins, which would go whole.
bool ForwardDelete::leaveInline() {
    if (Placeholders::isFootnoteMark(document_, element_))
        return false;
    if (!voids_.contains(element_) || document_.text().closingTag(element_) < 0)
        return goOnInside(document_.text().next(position_));
    removeWhole(element_);
    return true;
}

// The end of a block

bool ForwardDelete::joinFollowing() {
    return followingName() == L"fo:block" && mergeNextBlockRun();
}

/// The name of the tag behind the block, void blocks passed over.
String ForwardDelete::followingName() const {
    String name = document_.text().nextNeighborName(position_, true);
    int element = document_.text().nextNeighbor(position_, true);
    while (name == L"fo:block" && Placeholders::isVoid(document_, element)) {
        const int closing = document_.text().closingTag(element);
        name = document_.text().nextNeighborName(closing, false);
        element = document_.text().nextNeighbor(closing, false);
    }
    return name;
}

// A list

/// The list that the next line begins with, at the position or behind the edges of blocks; -1 if
/// text or something else comes first.
int ForwardDelete::listBehind() const {
    int tag = position_;
    while (isBlockTag(tag))
        tag = Lines::endOfSkipped(document_, document_.text().next(tag));
    return document_.text().tagName(tag) == L"fo:list-block" ? tag : -1;
}

/// The caret steps into the first item of the list, from where Backspace pulls the item out and
/// into the line. It takes the place of an empty block, and stays alone behind an empty line. A
/// list that the caret cannot enter goes whole.
bool ForwardDelete::eraseInFollowingList(int list) {
    const int first = Stops::next(document_, list);
    if (first < list || document_.text().closingTag(list) <= first) {
        Edit(document_).remove(list, document_.text().behindElement(list));
        Placeholders::repair(document_, list, true);
        return false;
    }
    const bool isEmpty = Placeholders::isVoid(document_, element_);
    const bool beginsLine =
        isBlockTag(document_.text().previous(Lines::startOfSkipped(document_, place_)));
    document_.recordCaret();
    document_.setCaret(first);
    const int length = document_.text().length();
    ListEdge::erase(document_, false, false);
    if (document_.text().length() != length) {
        if (isEmpty)
            Edit(document_).remove(element_, document_.text().behindElement(element_));
        else if (!beginsLine)
            Deletion::erase(document_, false, false);
        moveTo(document_.caret());
    }
    document_.recordCaret();
    return false;
}

// A table or another object

/// It goes whole.
bool ForwardDelete::removeObject() {
    const int closing = document_.text().closingTag(position_);
    if (document_.text().isValid(closing))
        Edit(document_).remove(place_, document_.text().next(closing));
    return false;
}

// A placeholder

bool ForwardDelete::isPlaceholderElement() const {
    return document_.text().placeholderLength(position_) > 0 &&
           document_.text().holdsOnlyPlaceholder(element_);
}

/// Takes the placeholder, so that the next round finds an empty block.
bool ForwardDelete::takePlaceholder() {
    if (Placeholders::isFootnoteMark(document_, element_))
        return false;
    if (isInlineAt(element_)) {
        removeWhole(element_);
        return false;
    }
    const int start = document_.text().next(element_);
    const int closing = document_.text().closingTag(element_);
    moveTo(start);
    Edit(document_).remove(start, closing);
    return true;
}

/// The placeholder at the end of a block stays where it is the only place for a caret. Where it is
/// all of the last line, what follows the block takes its place.
bool ForwardDelete::removeTrailingPlaceholder() {
    if (isOnlyContainersBefore(position_, element_))
        return false;
    const bool isLine = Lines::isPlaceholderLine(document_, position_);
    Edit(document_).remove(place_, document_.text().closingTag(element_));
    return isLine;
}

/// Whether a placeholder is all of a line that ends with a soft break, and another line follows.
bool ForwardDelete::isLineBeforeAnother() const {
    return Lines::isPlaceholderLine(document_, position_) &&
           document_.text().selfClosingAt(endOfPlaceholder()) &&
           !Lines::isEnd(document_, document_.text().next(endOfPlaceholder()));
}

bool ForwardDelete::removeLine() {
    const int behind = document_.text().next(endOfPlaceholder());
    Edit(document_).remove(place_, Lines::endOfLayout(document_, behind));
    return false;
}

/// Where the placeholder ends, with the white space behind it which does not show.
int ForwardDelete::endOfPlaceholder() const {
    return Lines::endOfSkipped(document_, document_.text().next(position_));
}

bool ForwardDelete::isOnlyContainersBefore(int position, int element) const {
    const XmlText& text = document_.text();
    int at = text.skipSpaces(text.next(element));
    while (at < position && text.tagName(at) == L"fo:block-container")
        at = text.skipSpaces(text.behindElement(at));
    return at >= position;
}

// Text

bool ForwardDelete::removeText() {
    if (isInlineAt(element_) && Placeholders::holdsOneUnit(document_, element_) &&
        !Placeholders::isFootnoteMark(document_, element_)) {
        removeWhole(element_);
        keepLine();
        return false;
    }
    const int next = Stops::next(document_, position_);
    return document_.text().elementAround(next) == element_ && removeCharacter(next);
}

/// A blank beside it that would collapse now is kept as a non-breaking space.
bool ForwardDelete::removeCharacter(int next) {
    const int end = endWithBlank(next);
    const int start = startWithBlank();
    const bool blankBefore = start < place_;
    const bool blankBehind = end > next;
    Edit(document_).remove(start, end);
    if (blankBehind)
        Edit(document_).insert(start, String(XmlScan::nbspCharacter));
    if (blankBefore)
        Edit(document_).insert(start, String(XmlScan::nbspCharacter));
    moveTo(blankBefore ? start + 1 : start);
    if (isBetweenBlocks(place_) || Lines::isEmptyBehindLineBreak(document_, place_))
        Edit(document_).insert(place_, String(XmlScan::nbspEntity));
    return false;
}

/// Where the blank that begins there ends, with the white space behind it which does not show.
int ForwardDelete::endWithBlank(int end) const {
    return Lines::isKeptBlank(document_, end, element_) ? Lines::endOfSkipped(document_, end + 1)
                                                        : end;
}

/// Where the blank before the character begins; the round's place if there is none.
int ForwardDelete::startWithBlank() const {
    const int spaces = Lines::startOfSkipped(document_, position_);
    const int blank = document_.text().previous(spaces);
    return Lines::isKeptBlank(document_, blank, element_) ? blank : place_;
}

bool ForwardDelete::isBetweenBlocks(int position) const {
    return isBlockTag(position) && isBlockTag(document_.text().previous(position));
}

// A line moved back

bool ForwardDelete::mergeNextBlockRun() {
    const int runEnd = isBlockTag(position_) ? findBlockRunEnd(position_) : -1;
    if (runEnd >= 0)
        moveTo(pullBlockRunBack({position_, runEnd}));
    return false;
}

/// The block tag that ends the first line behind the tags of blocks that begin at the position. -1
/// where something else ends before there is such a line.
int ForwardDelete::findBlockRunEnd(int tagPosition) const {
    int at = tagPosition;
    while (isBlockTag(at) || document_.text().ignoredAt(at))
        at = Lines::endOfSkipped(document_, document_.text().next(at));
    int tag = document_.text().nextTag(at);
    while (tag >= 0 && !isBlockTag(tag)) {
        if (document_.text().closingAt(tag))
            return -1;
        tag = document_.text().nextTag(document_.text().behindElement(tag));
    }
    return tag;
}

/// Moves the line to the end of what stands before the boundary; answers where that was.
int ForwardDelete::pullBlockRunBack(const BlockRun& run) {
    const int start = startOfRun(run);
    const String moved = Edit(document_).remove(start, run.runEnd);
    // The soft break that ended the line would begin an empty one.
    if (document_.text().selfClosingAt(start))
        Edit(document_).remove(start, Lines::endOfLayout(document_, document_.text().next(start)));
    const int emptied = removeEmptied(start, run.firstTag);
    if (mustStayApart(emptied))
        Edit(document_).insert(emptied, L"<fo:block/>");
    clearBoundary(emptied, run.firstTag);
    const int target = Lines::startOfLayout(document_, run.firstTag);
    Edit(document_).remove(target, run.firstTag);
    if (!isPlaceholder(moved))
        Edit(document_).insert(target, moved);
    else if (isBetweenBlocks(target) &&
             !Placeholders::isVoid(document_, document_.text().elementAround(target)))
        Edit(document_).insert(target, String(XmlScan::nbspEntity));
    return target;
}

/// Where the line begins, behind the last of the tags in front of it.
int ForwardDelete::startOfRun(const BlockRun& run) const {
    int tag = document_.text().previousTag(run.runEnd);
    while (tag > run.firstTag && !isBlockTag(tag)) {
        if (document_.text().closingAt(tag))
            tag = document_.text().elementAround(tag);
        tag = document_.text().previousTag(tag);
    }
    return Lines::endOfLayout(document_, document_.text().next(std::max(tag, run.firstTag)));
}

/// The blocks that the line left empty go, and the white space behind them which does not show.
int ForwardDelete::removeEmptied(int position, int firstTag) {
    int element = document_.text().elementAround(position);
    while (firstTag <= element && Placeholders::isVoid(document_, element)) {
        Edit(document_).remove(element, document_.text().behindElement(element));
        position = element;
        element = document_.text().elementAround(position);
    }
    Edit(document_).remove(position, Lines::endOfSkipped(document_, position));
    return position;
}

/// Whether the line that was taken out stood between two that would run into one.
bool ForwardDelete::mustStayApart(int position) const {
    const XmlText& text = document_.text();
    const auto isContent = [this](int tag) {
        const String name = document_.text().nameAt(tag).substringAfter(L"/");
        return name != L"fo:block" && document_.names.isEditable(name);
    };
    const int next = document_.text().nextTag(position);
    const int previous = document_.text().previousTag(position);
    const bool blankBehind = text.skipSpaces(position) >= next;
    const bool blankBefore = text.skipSpaces(document_.text().next(previous)) >= position;
    return (isContent(next) && isContent(previous)) || (!blankBehind && !blankBefore);
}

/// Removes the empty elements that stand between the boundary and the position.
void ForwardDelete::clearBoundary(int position, int firstTag) {
    int tag = document_.text().previousTag(position);
    while (tag > firstTag) {
        const bool closes = document_.text().closingAt(tag);
        if (!closes && !document_.text().selfClosingAt(tag)) {
            tag = document_.text().previousTag(tag);
            continue;
        }
        const int element = closes ? document_.text().elementAround(tag) : tag;
        const int end = Lines::endOfSkipped(document_, document_.text().next(tag));
        const int start = Lines::startOfSkipped(document_, element);
        tag = document_.text().previousTag(start);
        if (start > firstTag)
            Edit(document_).remove(start, end);
    }
}

// Small steps

/// The round's place, and with it the caret unless the deletion went on elsewhere behind it.
void ForwardDelete::moveTo(int position) {
    place_ = position;
    if (!inside_ || position < caret_)
        caret_ = position;
}

/// Deliberate: the caret stays before the edge of the inline, which the next round passes.
bool ForwardDelete::goOnInside(int position) {
    inside_ = true;
    place_ = position;
    return true;
}

void ForwardDelete::removeWhole(int element) {
    moveTo(element);
    Edit(document_).remove(element, document_.text().behindElement(element));
}

/// For an inline that was all of a line. One inside another was not.
void ForwardDelete::keepLine() {
    if (!inside_)
        moveTo(Placeholders::repairLine(document_, place_));
}

bool ForwardDelete::isInlineAt(int element) const {
    return document_.names.isInline(document_.text().tagName(element));
}

/// Whether the tag opens, closes or is a block.
bool ForwardDelete::isBlockTag(int position) const {
    return document_.text().nameAt(position).substringAfter(L"/") == L"fo:block";
}

void Deletion::forward(Document& document, int& caret) {
    caret = ForwardDelete(document, caret).run();
}

void EditableDocumentBuffer::deleteForward(int& caret) {
    Deletion::forward(*document_, caret);
}

#include "editing/ForwardDelete.h"

#include "document/EditableDocumentBuffer.h"
#include "editing/ListBuffer.h"
#include "editing/PlaceholderRepair.h"
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

void EditableDocumentBuffer::deleteForward(int& caret) {
    caret = ForwardDelete(*this, caret).run();
}

int ForwardDelete::run() {
    while (playRound()) {
    }
    // What was emptied at the caret is repaired by who moves it there.
    return inside_ ? buffer_.repairEmptied(place_, true).map(caret_) : caret_;
}

bool ForwardDelete::playRound() {
    if (buffer_.isOnInvalidPosition(buffer_.caretPos_) ||
        buffer_.isOnInvalidPosition(buffer_.caretPos_ + 1))
        return false;
    look();
    if (buffer_.onTagStartPosition(position_))
        return removeAtTag();
    if (isPlaceholderElement())
        return takePlaceholder();
    if (buffer_.nbspFollowedByWspaceAndElementCloseTagAt(position_))
        return removeTrailingPlaceholder();
    if (isLineBeforeAnother())
        return removeLine();
    return removeText();
}

bool ForwardDelete::removeAtTag() {
    if (isBeforeEmptyElement())
        return removeEmptyElement();
    if (buffer_.ignoredElementAtPosition(position_))
        return removeMarkup();
    if (const int list = listBehind(); list >= 0)
        return eraseInFollowingList(list);
    if (isAtNestedBlock())
        return mergeNextBlockRun();
    const String name = buffer_.getNameForTagAtPosition(position_, true);
    if (buffer_.isInlineEditableElementName(name))
        return enterInline();
    if (buffer_.isInlineEditableElementClosingTagName(name))
        return leaveInline();
    if (name == L"/fo:block")
        return joinFollowing();
    return removeObject();
}

void ForwardDelete::look() {
    position_ = buffer_.endOfSkippedSpaces(place_);
    element_ = buffer_.getCurrentElementPosition(position_);
}

// A soft break, a tab or another empty element

bool ForwardDelete::isBeforeEmptyElement() const {
    return buffer_.selfClosingTagAtPosition(position_) &&
           !buffer_.ignoredElementAtPosition(position_);
}

/// A soft break that was the last thing in a block takes the block's boundary along, and one before
/// an empty line the placeholder of that.
bool ForwardDelete::removeEmptyElement() {
    const int behind = buffer_.getNextEditablePositionInXml(position_);
    const int line = buffer_.endOfSkippedSpaces(behind);
    if (isBlockTag(position_) && buffer_.isPlaceholderLine(line) && !buffer_.isLineStart(place_)) {
        buffer_.removeAndRecord(place_, buffer_.getNextEditablePositionInXml(line));
        return false;
    }
    buffer_.removeAndRecord(place_, buffer_.endOfLayout(behind));
    const int next = buffer_.endOfSkippedSpaces(place_);
    return !buffer_.selfClosingTagAtPosition(next) &&
           buffer_.isBlockEditableElementName(
               buffer_.getNameForTagAtPosition(next, true).substringAfter(L"/"));
}

// A comment, CDATA section or processing instruction

bool ForwardDelete::removeMarkup() {
    buffer_.removeAndRecord(place_, buffer_.getNextEditablePositionInXml(position_));
    return false;
}

// The edges of a nested block

/// A block in an inline is no object that would go whole, with all its text.
bool ForwardDelete::isAtNestedBlock() const {
    if (!XmlScan::closingAt(buffer_.text_.view(), position_))
        return buffer_.imbricatedBlocksContext(position_) ||
               (isBlockTag(position_) && isInlineAt(element_));
    return buffer_.getNameForTagAtPosition(position_, true) == L"/fo:block" &&
           buffer_.imbricatedBlocksContext(element_);
}

// The edges of an inline

/// A soft break at the inline's start is not the character that the inline holds besides.
bool ForwardDelete::enterInline() {
    const int inside = buffer_.getNextEditablePositionInXml(position_);
    const int first = buffer_.getNextValidCaretPos(position_);
    if (!buffer_.editableElementContainsJustOneMoreChar(position_) ||
        (inside < first && buffer_.selfClosingTagAtPosition(buffer_.endOfSkippedSpaces(inside))))
        return goOnInside(inside);
    buffer_.removeAndRecord(place_, buffer_.positionBehindElement(position_));
    return false;
}

/// Behind the mark of a footnote its note begins, which would go whole.
bool ForwardDelete::leaveInline() {
    if (buffer_.isFootnoteMark(element_))
        return false;
    if (!buffer_.elementContainsJustWhitespacesOrVoid(element_))
        return goOnInside(buffer_.getNextEditablePositionInXml(position_));
    removeWhole(element_);
    return true;
}

// The end of a block

bool ForwardDelete::joinFollowing() {
    return followingName() == L"fo:block" && mergeNextBlockRun();
}

/// The name of the tag behind the block, void blocks passed over.
String ForwardDelete::followingName() const {
    String name = buffer_.getNextNeighborName(position_, true);
    int element = buffer_.getNextNeighborPosition(position_, true);
    while (name == L"fo:block" && buffer_.elementContainsJustWhitespacesOrVoid(element)) {
        const int closing = buffer_.getClosingTagForTagAtPosition(element);
        name = buffer_.getNextNeighborName(closing, false);
        element = buffer_.getNextNeighborPosition(closing, false);
    }
    return name;
}

// A list

/// The list that the next line begins with, at the position or behind the edges of blocks; -1 if
/// text or something else comes first.
int ForwardDelete::listBehind() const {
    int tag = position_;
    while (isBlockTag(tag))
        tag = buffer_.endOfSkippedSpaces(buffer_.getNextEditablePositionInXml(tag));
    return XmlScan::tagName(buffer_.text_.view(), tag) == L"fo:list-block" ? tag : -1;
}

/// The caret steps into the first item of the list, from where Backspace pulls the item out and
/// into the line. It takes the place of an empty block, and stays alone behind an empty line. A
/// list that the caret cannot enter goes whole.
bool ForwardDelete::eraseInFollowingList(int list) {
    const int first = buffer_.getNextValidCaretPos(list);
    if (first < list || buffer_.getClosingTagForTagAtPosition(list) <= first) {
        buffer_.removeAndRecord(list, buffer_.positionBehindElement(list));
        buffer_.repairEmptied(list, true);
        return false;
    }
    const bool isEmpty = buffer_.elementContainsJustWhitespacesOrVoid(element_);
    const bool beginsLine =
        isBlockTag(buffer_.getPreviousEditablePositionInXml(buffer_.startOfSkippedSpaces(place_)));
    buffer_.recordCaret();
    buffer_.setCaret(false, first);
    const int length = buffer_.text_.length();
    buffer_.getListBuffer().eraseTextFromListBuffer(false, false);
    if (buffer_.text_.length() != length) {
        if (isEmpty)
            buffer_.removeAndRecord(element_, buffer_.positionBehindElement(element_));
        else if (!beginsLine)
            buffer_.erase(false, false);
        moveTo(buffer_.caretPos_);
    }
    buffer_.recordCaret();
    return false;
}

// A table or another object

/// It goes whole.
bool ForwardDelete::removeObject() {
    const int closing = buffer_.getClosingTagForTagAtPosition(position_);
    if (!buffer_.isOnInvalidPosition(closing))
        buffer_.removeAndRecord(place_, buffer_.getNextEditablePositionInXml(closing));
    return false;
}

// A placeholder

bool ForwardDelete::isPlaceholderElement() const {
    return XmlScan::placeholderLength(buffer_.text_.view(), position_) > 0 &&
           buffer_.elementContainsJustNonBreakingSpace(element_);
}

/// Takes the placeholder, so that the next round finds an empty block.
bool ForwardDelete::takePlaceholder() {
    if (buffer_.isFootnoteMark(element_))
        return false;
    if (isInlineAt(element_)) {
        removeWhole(element_);
        return false;
    }
    const int start = buffer_.getNextEditablePositionInXml(element_);
    const int closing = buffer_.getClosingTagForTagAtPosition(element_);
    moveTo(start);
    buffer_.removeAndRecord(start, closing);
    return true;
}

/// The placeholder at the end of a block stays where it is the only place for a caret. Where it is
/// all of the last line, what follows the block takes its place.
bool ForwardDelete::removeTrailingPlaceholder() {
    if (isOnlyContainersBefore(position_, element_))
        return false;
    const bool isLine = buffer_.isPlaceholderLine(position_);
    buffer_.removeAndRecord(place_, buffer_.getClosingTagForTagAtPosition(element_));
    return isLine;
}

/// Whether a placeholder is all of a line that ends with a soft break, and another line follows.
bool ForwardDelete::isLineBeforeAnother() const {
    return buffer_.isPlaceholderLine(position_) &&
           buffer_.selfClosingTagAtPosition(endOfPlaceholder()) &&
           !buffer_.isLineEnd(buffer_.getNextEditablePositionInXml(endOfPlaceholder()));
}

bool ForwardDelete::removeLine() {
    const int behind = buffer_.getNextEditablePositionInXml(endOfPlaceholder());
    buffer_.removeAndRecord(place_, buffer_.endOfLayout(behind));
    return false;
}

/// Where the placeholder ends, with the white space behind it which does not show.
int ForwardDelete::endOfPlaceholder() const {
    return buffer_.endOfSkippedSpaces(buffer_.getNextEditablePositionInXml(position_));
}

bool ForwardDelete::isOnlyContainersBefore(int position, int element) const {
    const Text text = buffer_.text_.view();
    for (int at = buffer_.getNextEditablePositionInXml(element); at < position;
         at = buffer_.getNextEditablePositionInXml(at)) {
        if (String::isSpace(XmlScan::unitAt(text, at)))
            continue;
        if (XmlScan::tagName(text, at) != L"fo:block-container")
            return false;
        at = buffer_.getClosingTagForTagAtPosition(at);
    }
    return true;
}

// Text

bool ForwardDelete::removeText() {
    if (isInlineAt(element_) && buffer_.editableElementContainsJustOneMoreChar(element_) &&
        !buffer_.isFootnoteMark(element_)) {
        removeWhole(element_);
        return false;
    }
    const int next = buffer_.getNextValidCaretPos(position_);
    return buffer_.getCurrentElementPosition(next) == element_ && removeCharacter(next);
}

/// A blank beside it that would collapse now is kept as a non-breaking space.
bool ForwardDelete::removeCharacter(int next) {
    const int end = endWithBlank(next);
    const int start = startWithBlank();
    const bool blankBefore = start < place_;
    const bool blankBehind = end > next;
    buffer_.removeAndRecord(start, end);
    if (blankBehind)
        buffer_.insertAndRecord(start, String(XmlScan::nbspCharacter));
    if (blankBefore)
        buffer_.insertAndRecord(start, String(XmlScan::nbspCharacter));
    moveTo(blankBefore ? start + 1 : start);
    if (isBetweenBlocks(place_) || buffer_.isEmptyBehindLineBreak(place_))
        buffer_.insertAndRecord(place_, String(XmlScan::nbspEntity));
    return false;
}

/// Where the blank that begins there ends, with the white space behind it which does not show.
int ForwardDelete::endWithBlank(int end) const {
    return buffer_.isKeptBlank(end, element_) ? buffer_.endOfSkippedSpaces(end + 1) : end;
}

/// Where the blank before the character begins; the round's place if there is none.
int ForwardDelete::startWithBlank() const {
    const int spaces = buffer_.startOfSkippedSpaces(position_);
    const int blank = buffer_.getPreviousEditablePositionInXml(spaces);
    return buffer_.isKeptBlank(blank, element_) ? blank : place_;
}

bool ForwardDelete::isBetweenBlocks(int position) const {
    return isBlockTag(position) && isBlockTag(buffer_.getPreviousEditablePositionInXml(position));
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
    while (isBlockTag(at) || buffer_.ignoredElementAtPosition(at))
        at = buffer_.endOfSkippedSpaces(buffer_.getNextEditablePositionInXml(at));
    int tag = buffer_.getNextTagPosition(at);
    while (tag >= 0 && !isBlockTag(tag)) {
        if (XmlScan::closingAt(buffer_.text_.view(), tag))
            return -1;
        tag = buffer_.getNextTagPosition(buffer_.positionBehindElement(tag));
    }
    return tag;
}

/// Moves the line to the end of what stands before the boundary; answers where that was.
int ForwardDelete::pullBlockRunBack(const BlockRun& run) {
    const int start = startOfRun(run.runEnd);
    const String moved = buffer_.removeAndRecord(start, run.runEnd);
    // The soft break that ended the line would begin an empty one.
    if (buffer_.selfClosingTagAtPosition(start))
        buffer_.removeAndRecord(start,
                                buffer_.endOfLayout(buffer_.getNextEditablePositionInXml(start)));
    const int emptied = removeEmptied(start, run.firstTag);
    if (mustStayApart(emptied))
        buffer_.insertAndRecord(emptied, L"<fo:block/>");
    clearBoundary(emptied, run.firstTag);
    const int target = buffer_.startOfLayout(run.firstTag);
    buffer_.removeAndRecord(target, run.firstTag);
    if (!isPlaceholder(moved))
        buffer_.insertAndRecord(target, moved);
    else if (isBetweenBlocks(target) && !buffer_.elementContainsJustWhitespacesOrVoid(
                                            buffer_.getCurrentElementPosition(target)))
        buffer_.insertAndRecord(target, String(XmlScan::nbspEntity));
    return target;
}

int ForwardDelete::startOfRun(int runEnd) const {
    int tag = buffer_.getPreviousTagPosition(runEnd);
    while (!isBlockTag(tag)) {
        if (XmlScan::closingAt(buffer_.text_.view(), tag))
            tag = buffer_.getCurrentElementPosition(tag);
        tag = buffer_.getPreviousTagPosition(tag);
    }
    return buffer_.endOfLayout(buffer_.getNextEditablePositionInXml(tag));
}

/// The blocks that the line left empty go, and the white space behind them which does not show.
int ForwardDelete::removeEmptied(int position, int firstTag) {
    int element = buffer_.getCurrentElementPosition(position);
    while (firstTag <= element && buffer_.elementContainsJustWhitespacesOrVoid(element)) {
        buffer_.removeAndRecord(element, buffer_.positionBehindElement(element));
        position = element;
        element = buffer_.getCurrentElementPosition(position);
    }
    buffer_.removeAndRecord(position, buffer_.endOfSkippedSpaces(position));
    return position;
}

/// Whether the line that was taken out stood between two that would run into one.
bool ForwardDelete::mustStayApart(int position) const {
    const Text text = buffer_.text_.view();
    const auto isContent = [this](int tag) {
        const String name = buffer_.getNameForTagAtPosition(tag, true).substringAfter(L"/");
        return name != L"fo:block" && buffer_.elementIsEditable(name);
    };
    const int next = buffer_.getNextTagPosition(position);
    const int previous = buffer_.getPreviousTagPosition(position);
    const bool blankBehind = XmlScan::skipSpaces(text, position) >= next;
    const bool blankBefore =
        XmlScan::skipSpaces(text, buffer_.getNextEditablePositionInXml(previous)) >= position;
    return (isContent(next) && isContent(previous)) || (!blankBehind && !blankBefore);
}

/// Removes the empty elements that stand between the boundary and the position.
void ForwardDelete::clearBoundary(int position, int firstTag) {
    int tag = buffer_.getPreviousTagPosition(position);
    while (tag > firstTag) {
        const bool closes = XmlScan::closingAt(buffer_.text_.view(), tag);
        if (!closes && !buffer_.selfClosingTagAtPosition(tag)) {
            tag = buffer_.getPreviousTagPosition(tag);
            continue;
        }
        const int element = closes ? buffer_.getCurrentElementPosition(tag) : tag;
        const int end = buffer_.endOfSkippedSpaces(buffer_.getNextEditablePositionInXml(tag));
        const int start = buffer_.startOfSkippedSpaces(element);
        tag = buffer_.getPreviousTagPosition(start);
        if (start > firstTag)
            buffer_.removeAndRecord(start, end);
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
    buffer_.removeAndRecord(element, buffer_.positionBehindElement(element));
}

bool ForwardDelete::isInlineAt(int element) const {
    return buffer_.isInlineEditableElementName(buffer_.getNameForTagAtPosition(element, true));
}

/// Whether the tag opens, closes or is a block.
bool ForwardDelete::isBlockTag(int position) const {
    return buffer_.getNameForTagAtPosition(position, true).substringAfter(L"/") == L"fo:block";
}

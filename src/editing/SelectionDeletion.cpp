#include "editing/SelectionDeletion.h"

#include "document/CaretWalk.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"
#include "document/TextRewrite.h"
#include "document/WhitespaceAlg.h"
#include "editing/ListBuffer.h"
#include "editing/PlaceholderRepair.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;

SelectionDeletion::SelectionDeletion(EditableDocumentBuffer& buffer, int start, int end,
                                     int handledList)
    : buffer_(buffer), start_(start), end_(end), position_(start), handledList_(handledList) {}

void SelectionDeletion::run() {
    takeWholeElement();
    takeIndentation();
    buffer_.recordCaret();
    position_ = start_;
    // Every round passes or removes something, but in a text whose tags do not match one may come
    // back to where it was.
    for (int before = unitsAhead(); playRound(); before = unitsAhead())
        if (unitsAhead() >= before) {
            finishAtStart();
            return;
        }
}

/// An element that is selected from its first position to beyond its end goes with its tags, unless
/// it stands directly in the flow.
void SelectionDeletion::takeWholeElement() {
    const int element = buffer_.getCurrentElementPosition(start_);
    const int behind = buffer_.positionBehindElement(element);
    if (buffer_.canHoldCaret(element) && buffer_.getNextEditablePositionInXml(element) == start_ &&
        behind >= 0 && behind <= end_ && buffer_.getParentElementName(start_) != L"fo:flow")
        start_ = element;
}

/// The line feed and the tabs that indent the markup in front go along. Where they show, as the
/// blank between the words of a wrapped line does, they stay.
void SelectionDeletion::takeIndentation() {
    int indentation = start_;
    buffer_.deleteSpacesBetweenTags(indentation);
    const int element = buffer_.getCurrentElementPosition(indentation);
    BufferAlgorithms::WhitespaceAlg whitespace(buffer_);
    whitespace.load(element);
    for (int at = indentation; at < start_; ++at)
        if (!whitespace.isSkipped(at, element))
            return;
    start_ = indentation;
}

int SelectionDeletion::unitsAhead() const {
    return buffer_.text_.length() - position_;
}

bool SelectionDeletion::playRound() {
    if (isNothingEditableLeft())
        return finishAtStart();
    if (end_ <= position_)
        return finishAtCaret();
    if (const int list = listAround(position_); list >= 0)
        return deleteFromList(list);
    const int tag = buffer_.getNextTagPosition(position_);
    if (tag < 0 || tag >= end_)
        return deleteRestOfText();
    if (buffer_.getCurrentElementPosition(position_) < 0)
        return finishAtStart();
    if (deleteTextBefore(tag))
        return true;
    return XmlScan::closingAt(buffer_.text_.view(), position_) ? leaveElement() : takeChild();
}

bool SelectionDeletion::isNothingEditableLeft() const {
    if (buffer_.canHoldCaret(end_))
        return false;
    const int next = buffer_.getNextValidCaretPos(position_);
    return next < 0 || next > end_;
}

// A list

int SelectionDeletion::listAround(int position) const {
    const int list = buffer_.searchParent(L"fo:list-block", position, false, true, L"");
    return list > handledList_ ? list : -1;
}

bool SelectionDeletion::deleteFromList(int list) {
    if (!isWhollySelected(list))
        return passList();
    const int outer = listAround(list);
    return outer >= 0 && isWhollySelected(outer) ? deleteFromList(outer) : deleteWholeList(list);
}

bool SelectionDeletion::isWhollySelected(int list) const {
    const int last = buffer_.getPreviousValidCaretPos(buffer_.getClosingTagForTagAtPosition(list));
    return position_ <= buffer_.getNextValidCaretPos(list) && last <= end_;
}

bool SelectionDeletion::deleteWholeList(int list) {
    const int behind = buffer_.positionBehindElement(list);
    end_ = std::max(end_, behind);
    remove(list, behind);
    const PlaceholderRepair repaired = repair();
    if (repaired.insertedPlaceholder()) {
        start_ = repaired.placeholder;
        return true;
    }
    if (handledList_ >= 0 && start_ < position_ && end_ <= position_)
        return finishAtStart(); // the caret stays in its item
    start_ = stopNear(position_);
    if (start_ < position_)
        return finishAtStart();
    position_ = start_;
    return true;
}

/// What is left of the list stays, and the walk goes on behind it.
bool SelectionDeletion::passList() {
    ListBuffer::Range range{position_, end_};
    const int done = buffer_.getListBuffer().eraseRange(range);
    if (start_ == position_)
        start_ = range.start;
    end_ = range.end;
    position_ = buffer_.getNextValidCaretPos(done);
    if (position_ < 0)
        position_ = end_ = buffer_.getPreviousValidCaretPos(done);
    else if (end_ < position_)
        end_ = position_;
    else
        start_ = position_;
    return true;
}

// Text

bool SelectionDeletion::deleteRestOfText() {
    remove(position_, end_);
    if (buffer_.canHoldCaret(position_)) {
        repair();
        keepLineBetweenBlockTags();
    }
    return finishAtStart();
}

/// Removes the text up to the next tag. Answers whether an inline that this emptied went with it,
/// so that the walk is in another element now.
bool SelectionDeletion::deleteTextBefore(int tag) {
    if (position_ == tag)
        return false;
    remove(position_, tag);
    return buffer_.canHoldCaret(position_) && repair().removedInline();
}

/// A line between two blocks, or between two line breaks, keeps a place for the caret.
void SelectionDeletion::keepLineBetweenBlockTags() {
    const auto isBlockTag = [this](int position) {
        return buffer_.getNameForTagAtPosition(position, true).substringAfter(L"/") == L"fo:block";
    };
    if (!isBlockTag(position_) || !isBlockTag(buffer_.getPreviousEditablePositionInXml(position_)))
        return;
    start_ = position_;
    insertPlaceholderAtStart();
}

/// So does one behind a line break that nothing follows any more.
void SelectionDeletion::keepLineBehindLineBreak() {
    if (buffer_.isEmptyBehindLineBreak(start_))
        insertPlaceholderAtStart();
}

void SelectionDeletion::insertPlaceholderAtStart() {
    const String placeholder(XmlScan::nbspEntity);
    buffer_.insertXmlTextAtPosition(start_, placeholder);
    buffer_.recordInsertion(start_, placeholder);
    end_ += placeholder.length();
}

// The end of an element

bool SelectionDeletion::leaveElement() {
    // A nested block is joined before the place behind it is asked, where the caret could stand.
    if (buffer_.getNameForTagAtPosition(position_, true) == L"/fo:block" && hasSibling())
        return takeSibling();
    const int behind = buffer_.getNextEditablePositionInXml(position_);
    if (buffer_.canHoldCaret(behind)) {
        position_ = behind;
        return true;
    }
    if (hasSibling())
        return takeSibling();
    position_ = buffer_.getNextValidCaretPos(position_);
    return position_ >= 0 || finishAtStart();
}

/// Whether an element of the same kind follows. Cells are never joined, since the caret cannot
/// stand directly in them.
bool SelectionDeletion::hasSibling() const {
    return buffer_.canHoldCaret(position_) && L"/" + buffer_.getNextNeighborName(position_, true) ==
                                                  buffer_.getNameForTagAtPosition(position_, true);
}

bool SelectionDeletion::takeSibling() {
    const int sibling = buffer_.getNextNeighborPosition(position_, false);
    if (end_ <= sibling)
        return finishAtStart();
    if (end_ < buffer_.getClosingTagForTagAtPosition(sibling))
        return joinSibling(sibling);
    const int behind = buffer_.positionBehindElement(sibling);
    end_ = std::max(end_, behind);
    TextRewrite rewrite(buffer_);
    rewrite.replace(sibling, behind, {});
    if (buffer_.canHoldCaret(end_))
        takeFurtherSiblings(sibling, behind, rewrite);
    end_ += rewrite.apply();
    return true;
}

/// Those that stand in a row behind the sibling and wholly in the range go with it, and only white
/// space stays between.
void SelectionDeletion::takeFurtherSiblings(int sibling, int behind, TextRewrite& rewrite) const {
    const XmlScan::Text text = buffer_.text_.view();
    const XmlScan::Text name = XmlScan::tagName(text, sibling);
    for (;;) {
        const int next = XmlScan::skipSpaces(text, behind);
        behind = XmlScan::tagName(text, next) == name ? buffer_.positionBehindElement(next) : -1;
        if (behind < 0 || end_ <= behind)
            return;
        rewrite.replace(next, behind, {});
    }
}

/// The range ends in the sibling: its content joins this element. A placeholder that was all either
/// of them held goes.
bool SelectionDeletion::joinSibling(int sibling) {
    const int element = buffer_.getCurrentElementPosition(position_);
    int from = position_;
    int last = sibling;
    if (buffer_.elementContainsJustNonBreakingSpace(element))
        from = buffer_.getNonBreakingSpacePosition(element);
    if (buffer_.elementContainsJustNonBreakingSpace(sibling))
        last = buffer_.getNonBreakingSpacePosition(sibling);
    remove(from, buffer_.getNextEditablePositionInXml(last));
    buffer_.recordCaret();
    const PlaceholderRepair repaired = repair();
    if (!repaired.insertedPlaceholder())
        return true;
    start_ = repaired.placeholder;
    return finishAtStart();
}

// A tag in the range

bool SelectionDeletion::takeChild() {
    if (!buffer_.canHoldCaret(position_))
        return settle();
    const int closing = buffer_.getClosingTagForTagAtPosition(position_);
    const int behind = buffer_.getNextEditablePositionInXml(closing);
    if (behind <= end_)
        return deleteChild(behind);
    if (closing == end_) {
        remove(position_, behind);
        start_ = position_;
        repair();
        return finishAtStart();
    }
    position_ = buffer_.getNextEditablePositionInXml(position_);
    return true;
}

bool SelectionDeletion::deleteChild(int behind) {
    remove(position_, behind);
    repair();
    return settle();
}

/// Goes on from the next place where the caret can stand, if that lies in the range.
bool SelectionDeletion::settle() {
    if (buffer_.canHoldCaret(position_))
        return true;
    position_ = buffer_.getNextValidCaretPos(position_);
    return (position_ >= 0 && position_ <= end_) || finishAtStart();
}

// Changing the text

/// Removes from `from` up to but excluding `to`.
void SelectionDeletion::remove(int from, int to) {
    if (to <= from)
        return;
    buffer_.recordDeletion(from, buffer_.deleteXmlText(from, to - 1));
    for (int* offset : {&start_, &end_, &position_})
        if (*offset >= to)
            *offset -= to - from;
        else if (*offset > from)
            *offset = from;
}

/// Gives what was emptied its placeholder, over which the walk steps, or removes it if it is an
/// inline. A caret that belongs into what was emptied belongs before the placeholder.
PlaceholderRepair SelectionDeletion::repair() {
    const PlaceholderRepair repaired = buffer_.repairEmptied(position_, true);
    for (int* offset : {&start_, &end_, &position_})
        *offset = repaired.map(*offset);
    if (!repaired.insertedPlaceholder())
        return repaired;
    const int element = buffer_.getCurrentElementPosition(repaired.insertedStart);
    if (element < start_ && start_ <= buffer_.getClosingTagForTagAtPosition(element))
        start_ = repaired.placeholder;
    return repaired;
}

// The caret

bool SelectionDeletion::finishAtStart() {
    if (buffer_.canHoldCaret(start_))
        keepLineBehindLineBreak();
    const int position = buffer_.canHoldCaret(start_) ? start_ : stopNear(start_);
    const int element = buffer_.getCurrentElementPosition(position);
    buffer_.setCaret(false, buffer_.elementContainsJustNonBreakingSpace(element)
                                ? buffer_.getNonBreakingSpacePosition(element)
                                : position);
    buffer_.recordCaret();
    return false;
}

/// Deliberate: a caret at the end of the range stays there. After a deletion through several cells
/// it is then in the cell whose text follows.
bool SelectionDeletion::finishAtCaret() {
    start_ = position_ = std::max(buffer_.outsideMarkup(buffer_.caretPos_), start_);
    repair();
    return finishAtStart();
}

/// The position if it is a stop, else the next one in its flow or static content, else the
/// previous; -1 if there is none.
int SelectionDeletion::stopNear(int position) const {
    if (CaretWalk(buffer_, position).isStop())
        return position;
    const int next = buffer_.getNextValidCaretPos(position);
    if (buffer_.positionsAreInTheSameFlowElement(position, next))
        return next;
    const int previous = buffer_.getPreviousValidCaretPos(position);
    const bool isNearer = buffer_.positionsAreInTheSameFlowElement(position, previous);
    return isNearer || next < 0 ? previous : next;
}

// The commands

String EditableDocumentBuffer::deleteSelection(bool listHandled) {
    int start = getSelectionStartIndex();
    int end = hasSelectedText() ? selectionUpperEnd() : getNextEditablePositionInXml(caretPos_);
    return deleteSelectedXmlText(start, end, listHandled);
}

String EditableDocumentBuffer::deleteSelectedXmlText(int& start, int& end, bool listHandled) {
    if (isOnInvalidPosition(start) || isOnInvalidPosition(end))
        return {};
    SelectionDeletion deletion(*this, start, end, listHandled ? text_.length() : -1);
    deletion.run();
    start = deletion.start();
    end = deletion.end();
    return {};
}

void EditableDocumentBuffer::deleteContentAtPosition(bool keepSelection, int from, int to) {
    const auto isUnitStart = [this](int position) {
        return !isOnInvalidPosition(position) &&
               XmlScan::unitStart(text_.view(), position) == position;
    };
    if (from != -1 && (!isUnitStart(from) || !isUnitStart(to) || to < from || isOutOfReach(from)))
        return;
    RecordedCommand command(this);
    const int oldLength = text_.length();
    const int lower = getSelectionStartIndex();
    const int upper = selectionUpperEnd();
    recordCaret();
    setCaret(false, from);
    recordCaret();
    int start = from;
    int end = to;
    if (from == to)
        erase(true, false);
    else
        deleteSelectedXmlText(start, end, false);
    if (keepSelection)
        restoreSelection(lower, upper, from, text_.length() - oldLength);
    if (!command.mayStand())
        command.takeBack();
}

/// Selects again what was selected before the text changed its length from `place` on. An end that
/// would come to lie inside a tag goes to the stop before it, else to the caret.
void EditableDocumentBuffer::restoreSelection(int lower, int upper, int place, int change) {
    recordCaret();
    // Deliberate: a selection that begins at the place or before it keeps its offsets.
    const auto moved = [&](int offset) {
        const int target = place < lower ? std::max(place, offset + change) : offset;
        const int stop = outsideMarkup(std::min(target, text_.length() - 1));
        return stop < 0 ? caretPos_ : stop;
    };
    if (lower >= 0)
        selectRange(moved(lower), moved(upper));
    recordCaret();
}

bool EditableDocumentBuffer::selectionCrossTable() const {
    if (!hasSelectedText())
        return false;
    const int ofCaret = searchParent(L"fo:table", caretPos_, false, true, L"");
    const int ofPivot = searchParent(L"fo:table", selectionPivotPos_, false, true, L"");
    // Deliberate: true also outside any table; hosts disable their table commands by it.
    return ofCaret < 0 || ofPivot < 0 || ofCaret != ofPivot;
}

bool EditableDocumentBuffer::entireSelectionisInTheSameFloatingRegion() const {
    const Core::String container = L"fo:block-container";
    if (isOnInvalidPosition(caretPos_) || isOnInvalidPosition(selectionPivotPos_) ||
        !isInElementContext(container, caretPos_))
        return false;
    // Deliberate: it is not asked whether both ends lie in the same one; hosts have settled on
    // that.
    return !hasSelectedText() || searchParent(container, selectionPivotPos_, false, true, L"") != 0;
}

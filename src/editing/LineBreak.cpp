#include "editing/LineBreak.h"

#include "document/EditableDocumentBuffer.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;

LineBreak::LineBreak(EditableDocumentBuffer& buffer)
    : buffer_(buffer), table_(buffer.searchParent(L"fo:table", caret(), false, true, L"")),
      form_(buffer.searchParent(L"qf:form", caret(), false, true, L"")),
      container_(std::max(table_, form_)) {}

int LineBreak::run() {
    if (container_ < 0 || !(breakBeforeContainer() || breakBehindContainer()))
        breakInPlace();
    buffer_.leaveSkippedPlaceInLine();
    buffer_.recordCaret();
    return newBlock_;
}

/// At the very start of a table or a form: a line before it, where the caret goes.
bool LineBreak::breakBeforeContainer() {
    // Deliberate: of a table without a header but with a footer, the first position is the
    // footer's, which stands first in the text.
    if (caret() != buffer_.getNextValidCaretPos(container_))
        return false;
    const int place = caret();
    buffer_.recordCaret();
    buffer_.moveCaretLeft(false, false, false);
    if (hasLeftContainerFrom(place)) {
        const bool isInSameBlock = blockAround(caret()) == blockAround(container_);
        breakAtCaret();
        buffer_.recordCaret();
        if (newBlock_ >= 0 && (container_ == table_ || isInSameBlock))
            enterLineBefore();
        return true;
    }
    const int block = blockAroundForm();
    buffer_.setCaret(false, block < 0 ? place : buffer_.getNextEditablePositionInXml(block));
    if (block < 0)
        return false;
    breakAtCaret();
    buffer_.moveCaretLeft(false, false, false);
    return true;
}

/// The caret goes to the empty line that the break left before the container. Where text stands
/// there instead, the container's own block begins with such a line.
void LineBreak::enterLineBefore() {
    const int before = buffer_.getPreviousValidCaretPos(caret());
    for (const int place : {caret(), before, buffer_.getPreviousEditablePositionInXml(before)})
        if (buffer_.isPlaceholderLine(place))
            return buffer_.setCaret(false, place);
    const int start = caret();
    buffer_.insertAndRecord(start, String(XmlScan::nbspEntity));
    buffer_.setCaret(false, start);
}

/// At the very end: a line behind it.
bool LineBreak::breakBehindContainer() {
    const int footer =
        container_ == table_ ? buffer_.getNextChildByName(L"fo:table-footer", table_) : -1;
    const int end = buffer_.getClosingTagForTagAtPosition(footer < 0 ? container_ : footer);
    // What stands loose in a form ends with a stop on the closing tag itself.
    const bool endsLoose = !buffer_.isSkippedByCaret(end) && buffer_.canHoldCaret(end);
    if (caret() != (endsLoose ? end : buffer_.getPreviousValidCaretPos(end)))
        return false;
    const int place = caret();
    buffer_.recordCaret();
    buffer_.moveCaretRight(false, false, false);
    if (hasLeftContainerFrom(place)) {
        const bool isBeside = elementAt(caret()) == elementAt(container_);
        breakAtCaret();
        if (container_ == form_ && !isBeside)
            buffer_.moveCaretLeft(false, false, false);
        return true;
    }
    const int block = blockAroundForm();
    buffer_.setCaret(false, block < 0 ? place : buffer_.getClosingTagForTagAtPosition(block));
    if (block < 0)
        return false;
    breakAtCaret();
    return true;
}

/// Whether a move has taken the caret out of the container, and neither into another cell nor into
/// another flow or static content.
bool LineBreak::hasLeftContainerFrom(int place) const {
    return caret() != place && !buffer_.elementContainsPosition(container_, caret()) &&
           buffer_.positionsAreInTheSameFlowElement(place, caret()) &&
           (container_ == table_ ||
            buffer_.searchParent(L"fo:table-cell", place, false, true, L"") ==
                buffer_.searchParent(L"fo:table-cell", caret(), false, true, L""));
}

/// The block that holds the form, if that is the container; -1 if none.
int LineBreak::blockAroundForm() const {
    return container_ == form_ ? blockAround(form_) : -1;
}

int LineBreak::blockAround(int position) const {
    return buffer_.searchParent(L"fo:block", position, false, true, L"");
}

/// The placeholder of an empty block stays in the first half.
void LineBreak::breakInPlace() {
    const int element = elementAt(caret());
    if (buffer_.elementContainsJustNonBreakingSpace(element) &&
        !buffer_.isInlineEditableElementName(buffer_.getNameForTagAtPosition(element, true)) &&
        caret() == buffer_.getNonBreakingSpacePosition(element)) {
        buffer_.recordCaret();
        buffer_.setCaret(false, buffer_.getNextEditablePositionInXml(caret()));
    }
    breakAtCaret();
}

void LineBreak::breakAtCaret() {
    newBlock_ = buffer_.insertHardBreak();
}

int LineBreak::caret() const {
    return buffer_.caretPos_;
}

int LineBreak::elementAt(int position) const {
    return buffer_.getCurrentElementPosition(position);
}

// Setting the caret.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "text/XmlScan.h"

void EditableDocumentBuffer::setCaret(bool extend, int position) {
    if (position == -1 || editingDummyPage_ || !isOutOfReach(position))
        placeCaret(extend, position);
}

/// Whether the caret is kept out of there, as out of the flows while page masters are edited. What
/// would be edited there stays as it is.
bool EditableDocumentBuffer::isOutOfReach(int position) const {
    return pageMasterEditingMode_ && !isInElementContext(L"fo:static-content", position);
}

/// What setCaret() does where the caret is not kept out.
void EditableDocumentBuffer::placeCaret(bool extend, int position) {
    const bool hadSelection = hasSelectedText();
    if (position == -1 || editingDummyPage_) {
        caretPos_ = selectionPivotPos_ = -1;
        notifyCaretChanged();
        notifySelectionChanged();
        return;
    }
    if (caretPos_ != position) {
        if (extend && !positionsAreInTheSameFlowElement(caretPos_, position))
            return;
        caretPos_ = position;
        notifyCaretChanged();
    }
    if (!extend)
        selectionPivotPos_ = caretPos_;
    if (hadSelection || hasSelectedText())
        notifySelectionChanged();
}

void EditableDocumentBuffer::setCaretPos(bool extend, int position) {
    if (position != -1 &&
        (isOnInvalidPosition(position) || XmlScan::unitStart(text_.view(), position) != position))
        return;
    CommandScope scope(this);
    endKeyTypingSequence();
    setCaret(extend, position);
}

void EditableDocumentBuffer::adjustCaretToAnEditablePosition() {
    if (canHoldCaret(caretPos_) || moveCaretToStopInCell())
        return;
    const int before = caretPos_;
    moveCaretRight(false, false, false);
    if (caretPos_ == before)
        moveCaretLeft(false, false, false);
}

/// To the next stop in the text, or else the previous, of the cell, flow or static content around.
/// Answers whether there is one.
bool EditableDocumentBuffer::moveCaretToStopInCell() {
    const int next = nextStopInCell(caretPos_);
    const int stop = next >= 0 ? next : previousStopInCell(caretPos_);
    if (stop >= 0)
        setCaret(false, stop);
    return stop >= 0;
}

int EditableDocumentBuffer::nextStopInCell(int position) const {
    const int stop = getNextValidCaretPos(position);
    return isInCellAround(position, stop) ? stop : -1;
}

int EditableDocumentBuffer::previousStopInCell(int position) const {
    const int stop = getPreviousValidCaretPos(position);
    return isInCellAround(position, stop) ? stop : -1;
}

/// Whether the stop lies in the cell around the position or, outside tables, in its flow or static
/// content.
bool EditableDocumentBuffer::isInCellAround(int position, int stop) const {
    static const Core::StringArray holders{L"fo:table-cell", L"fo:flow", L"fo:static-content"};
    const int holder = searchFirstParent(holders, position, false, true, L"");
    int element = getCurrentElementPosition(stop);
    while (element > holder)
        element = getCurrentElementPosition(element);
    return holder >= 0 && element == holder;
}

// Setting the caret.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "text/XmlScan.h"

void EditableDocumentBuffer::setCaret(bool extend, int position) {
    const bool hadSelection = hasSelectedText();
    if (position == -1) {
        caretPos_ = selectionPivotPos_ = -1;
        notifyCaretChanged();
        notifySelectionChanged();
        return;
    }
    if (editingDummyPage_) {
        setCaret(false, -1);
        return;
    }
    if (pageMasterEditingMode_ && !isInElementContext(L"fo:static-content", position))
        return;
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
    if (canHoldCaret(caretPos_))
        return;
    const int before = caretPos_;
    moveCaretRight(false, false, false);
    if (caretPos_ == before)
        moveCaretLeft(false, false, false);
}

// The primitives that change the text, and the replay of what was recorded.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"

#include <utility>

using Core::String;

void EditableDocumentBuffer::insertXmlTextAtPosition(int position, const String& xml) {
    if (position < 0 || position > text_.length())
        return;
    CommandScope scope(this);
    const auto moved = [&](int offset) {
        return offset >= position ? offset + xml.length() : offset;
    };
    text_.insert(static_cast<unsigned>(position), xml);
    textChangedFrom(position);
    placeCaretAfterEdit(moved(caretPos_), moved(selectionPivotPos_));
}

String EditableDocumentBuffer::deleteXmlText(int start, int end) {
    if (isOnInvalidPosition(start) || isOnInvalidPosition(end) || end < start)
        return {};
    CommandScope scope(this);
    String removed = text_.subString(static_cast<unsigned>(start), static_cast<unsigned>(end));
    text_.erase(static_cast<unsigned>(start), static_cast<unsigned>(end - start + 1));
    textChangedFrom(start);
    placeCaretAfterEdit(offsetAfterDeletion(caretPos_, start, end),
                        offsetAfterDeletion(selectionPivotPos_, start, end));
    return removed;
}

String EditableDocumentBuffer::deleteContentAndAdjustCaret(int start, int end) {
    if (start < 0 || start > end || isOnInvalidPosition(end))
        return {};
    CommandScope scope(this);
    String removed = deleteXmlText(start, end - 1);
    adjustCaretToAnEditablePosition();
    setCaret(false, start);
    notifyBufferChanged();
    return removed;
}

/// Where an offset goes when `start` through `end` are deleted.
int EditableDocumentBuffer::offsetAfterDeletion(int offset, int start, int end) {
    if (offset <= start)
        return offset;
    // Deliberate: an offset exactly on `end` lands before `start`; callers have been arranged
    // around it.
    return offset < end ? start : offset - (end - start + 1);
}

void EditableDocumentBuffer::placeCaretAfterEdit(int caret, int pivot) {
    CommandScope scope(this); // the monitor hears of the text before the caret
    placeCaret(false, pivot); // also where it is kept out of: it goes along with its text
    if (caret != pivot)
        placeCaret(true, caret);
    notifyBufferChanged();
}

void EditableDocumentBuffer::executeAction(const EditAction& action) {
    CommandScope scope(this);
    const String& text = action.getString();
    const int position = action.getActionPosition();
    switch (action.getType()) {
    case EditAction::EditInsert:
        insertXmlTextAtPosition(position, text);
        break;
    case EditAction::EditDelete:
        deleteXmlText(position, position + text.length() - 1);
        break;
    case EditAction::EditContent:
        replaceText(text);
        notifyBufferChanged();
        break;
    case EditAction::EditCaret:
        replayCaret(action.getSelPivotPosition(), action.getCaretPosition());
        break;
    case EditAction::EditGroupStart:
    case EditAction::EditGroupEnd:
        break;
    }
    if (isOnInvalidPosition(caretPos_))
        moveCaretHome(false);
}

/// A caret that has stood where it is kept out of since before is put back there.
void EditableDocumentBuffer::replayCaret(int pivot, int caret) {
    if (caretPos_ != -1 && isOutOfReach(caretPos_)) {
        placeCaret(false, pivot);
        placeCaret(true, caret);
    } else {
        setCaret(false, pivot);
        setCaret(true, caret);
    }
}

void EditableDocumentBuffer::endKeyTypingSequence() {
    if (typingGroup_)
        editActionStack_.closeGroup(*std::exchange(typingGroup_, std::nullopt));
}

void EditableDocumentBuffer::undo() {
    CommandScope scope(this);
    endKeyTypingSequence();
    if (!canUndo())
        return;
    if (editActionStack_.nextUndoStepIsWhole())
        replayStep(&EditActionStack::getUndoAction, &EditActionStack::hasMoreUndoActions);
    else
        editActionStack_.clearUndoActionList();
}

void EditableDocumentBuffer::redo() {
    CommandScope scope(this);
    endKeyTypingSequence();
    if (canRedo())
        replayStep(&EditActionStack::getRedoAction, &EditActionStack::hasMoreRedoActions);
}

/// Replays one outermost group, or one record outside any. Markers were exchanged when they were
/// moved to this list, so that a group reads from its end to its start in both directions.
void EditableDocumentBuffer::replayStep(EditAction (EditActionStack::*take)(),
                                        bool (EditActionStack::*more)() const) {
    int depth = 0;
    do {
        const EditAction action = (editActionStack_.*take)();
        switch (action.getType()) {
        case EditAction::EditGroupEnd:
            ++depth;
            break;
        case EditAction::EditGroupStart:
            if (--depth == 0)
                return;
            break;
        default:
            executeAction(action);
            if (depth < 1)
                return;
        }
    } while ((editActionStack_.*more)());
}

/// The text as it stands: the offsets of the records around this one count in it, so an undone and
/// redone replacement must not bring back line ends that were converted.
void EditableDocumentBuffer::recordContent() {
    editActionStack_.addAction(EditAction(EditAction::EditContent, -1, -1, -1, text_));
}

void EditableDocumentBuffer::recordCaret() {
    editActionStack_.addAction(
        EditAction(EditAction::EditCaret, -1, caretPos_, selectionPivotPos_, L""));
}

void EditableDocumentBuffer::recordInsertion(int position, const String& xml) {
    editActionStack_.addAction(EditAction(EditAction::EditInsert, position, -1, -1, xml));
}

void EditableDocumentBuffer::recordDeletion(int position, const String& xml) {
    editActionStack_.addAction(EditAction(EditAction::EditDelete, position, -1, -1, xml));
}

#include "document/EditableDocumentBufferState.h"

#include "document/EditableDocumentBuffer.h"

EditableDocumentBufferState::EditableDocumentBufferState(EditableDocumentBuffer* buffer)
    : buffer_(buffer), text_(buffer->text_), caretPos_(buffer->caretPos_),
      selectionPivotPos_(buffer->selectionPivotPos_), editActionStack_(buffer->editActionStack_) {
    if (buffer->keyTypingGroup_)
        typingGroup_ = buffer->keyTypingGroup_->group_;
}

EditableDocumentBufferState::~EditableDocumentBufferState() = default;

void EditableDocumentBufferState::restorePreviousState() {
    buffer_->keyTypingGroup_ =
        nullptr; // before the stack: what this closes is taken back with the rest
    buffer_->text_ = text_;
    buffer_->textChangedFrom(0);
    buffer_->caretPos_ = caretPos_;
    buffer_->selectionPivotPos_ = selectionPivotPos_;
    buffer_->editActionStack_.restore(editActionStack_);
    if (typingGroup_)
        buffer_->keyTypingGroup_.reset(
            new EditActionGroup(&buffer_->editActionStack_, *typingGroup_));
}

void EditableDocumentBufferState::recordReplacement() {
    EditActionStack& history = buffer_->editActionStack_;
    buffer_->endKeyTypingSequence();
    const int tracked = history.retrieveTrackingPos(); // which the records have kept valid
    history.restore(editActionStack_);
    if (typingGroup_)
        history.closeGroup(*typingGroup_);
    const EditActionGroup group(buffer_);
    history.addAction(
        EditAction(EditAction::EditCaret, -1, caretPos_, selectionPivotPos_, Core::String()));
    history.addAction(EditAction(EditAction::EditContent, -1, -1, -1, text_));
    buffer_->recordContent();
    buffer_->recordCaret();
    history.startTrackingPos(tracked);
}

#include "document/EditableDocumentBufferState.h"

#include <utility>

EditableDocumentBufferState::EditableDocumentBufferState(EditableDocumentBuffer* buffer)
    : buffer_(buffer), text_(buffer->text_), caretPos_(buffer->caretPos_),
      selectionPivotPos_(buffer->selectionPivotPos_), editActionStack_(buffer->editActionStack_),
      typingGroup_(buffer->typingGroup_), selectedElementName_(buffer->selectedElementName_),
      search_(buffer->search_), pageMasterEditingMode_(buffer->pageMasterEditingMode_),
      editingDummyPage_(buffer->editingDummyPage_) {}

EditableDocumentBufferState::~EditableDocumentBufferState() = default;

/// Everything is moved, for it may be a failed allocation that is being taken back.
void EditableDocumentBufferState::restorePreviousState() noexcept {
    buffer_->text_ = std::move(text_);
    buffer_->textChangedFrom(0);
    buffer_->caretPos_ = caretPos_;
    buffer_->selectionPivotPos_ = selectionPivotPos_;
    buffer_->editActionStack_.restore(std::move(editActionStack_));
    buffer_->typingGroup_ = typingGroup_;
    buffer_->selectedElementName_ = std::move(selectedElementName_);
    buffer_->search_ = std::move(search_);
    buffer_->pageMasterEditingMode_ = pageMasterEditingMode_;
    buffer_->editingDummyPage_ = editingDummyPage_;
}

void EditableDocumentBufferState::recordReplacement() {
    EditActionStack& history = buffer_->editActionStack_;
    buffer_->endKeyTypingSequence();
    const int tracked = history.retrieveTrackingPos(); // which the records have kept valid
    history.restore(std::move(editActionStack_));
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

#include "document/EditableDocumentBufferState.h"

#include "document/Document.h"
#include "document/history/EditActionGroup.h"

#include <utility>

using Core::String;

struct EditableDocumentBufferState::State {
    explicit State(const Document& document)
        : text(document.text().mark()), version(document.versions().mark()),
          caret(document.caret()), pivot(document.pivot()), history(document.history),
          typingGroup(document.typingGroup), selectedElementName(document.selectedElementName),
          search(document.search), modes(document.modes) {}

    TextMark text;
    TextVersions::Mark version;
    int caret;
    int pivot;
    EditActionStack history;
    std::optional<unsigned> typingGroup;
    String selectedElementName;
    Document::RunningSearch search;
    Document::Modes modes;
};

EditableDocumentBufferState::EditableDocumentBufferState(EditableDocumentBuffer* buffer)
    : EditableDocumentBufferState(Document::of(*buffer)) {}

EditableDocumentBufferState::EditableDocumentBufferState(Document& document)
    : document_(document), before_(std::make_unique<State>(document)) {}

EditableDocumentBufferState::~EditableDocumentBufferState() = default;

bool EditableDocumentBufferState::hasChanged() const {
    return !document_.text().isAsAt(before_->text) ||
           document_.history.recordedCount() != before_->history.recordedCount();
}

const TextMark& EditableDocumentBufferState::text() const {
    return before_->text;
}

/// Everything is moved, for it may be a failed allocation that is being taken back.
void EditableDocumentBufferState::restorePreviousState() noexcept {
    document_.goBackTo(before_->text, before_->version, before_->caret, before_->pivot);
    document_.history.restore(std::move(before_->history));
    document_.typingGroup = before_->typingGroup;
    document_.selectedElementName = std::move(before_->selectedElementName);
    document_.search = std::move(before_->search);
    document_.modes = before_->modes;
}

void EditableDocumentBufferState::recordReplacement() {
    EditActionStack& history = document_.history;
    document_.endTyping();
    const int tracked = history.retrieveTrackingPos(); // which the records have kept valid
    history.restore(std::move(before_->history));
    if (before_->typingGroup)
        history.closeGroup(*before_->typingGroup);
    const EditActionGroup group(document_);
    history.addAction(
        EditAction(EditAction::EditCaret, -1, before_->caret, before_->pivot, String()));
    history.addAction(
        EditAction(EditAction::EditContent, -1, -1, -1, document_.text().contentAt(before_->text)));
    document_.recordContent();
    document_.recordCaret();
    history.startTrackingPos(tracked);
}

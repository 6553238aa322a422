#include "document/RecordedCommand.h"

#include "document/MarkupChange.h"

namespace {

/// For the group, which begins behind the run of typing and not within it.
EditableDocumentBuffer* afterTyping(EditableDocumentBuffer* buffer) {
    buffer->endKeyTypingSequence();
    return buffer;
}

} // namespace

RecordedCommand::RecordedCommand(EditableDocumentBuffer* buffer)
    : buffer_(buffer), scope_(buffer), before_(buffer), oldText_(buffer->getContent()),
      group_(afterTyping(buffer)) {}

/// The step is closed before the monitor hears.
RecordedCommand::~RecordedCommand() noexcept(false) {
    group_.reset();
    if (!scope_.isFailing() && !buffer_->getEditActionStack().nextUndoStepIsWhole() &&
        buffer_->getContent() != oldText_)
        before_.recordReplacement();
}

bool RecordedCommand::keepsWellFormed() const {
    return MarkupChange(oldText_, buffer_->getContent()).keepsWellFormed();
}

void RecordedCommand::takeBack() {
    before_.restorePreviousState();
    scope_.discardNotices();
}

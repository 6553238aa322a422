#pragma once

#include "document/EditActionGroup.h"
#include "document/EditableDocumentBuffer.h"
#include "document/EditableDocumentBufferState.h"
#include "document/FreezeNotifications.h"
#include "foundation/String.h"

/// The scope of a command that is one undo step and is taken back whole when it fails: notices are
/// held back, the run of typing ends, and what is recorded belongs to one group.
class RecordedCommand {
public:
    explicit RecordedCommand(EditableDocumentBuffer* buffer);

    /// Whether the document is as well formed as it was before the command.
    bool keepsWellFormed() const;

    /// Brings back text, caret, history and the run of typing; the monitor hears nothing of the
    /// command.
    void takeBack();

private:
    EditableDocumentBuffer* buffer_;
    FreezeNotifications freeze_;
    EditableDocumentBufferState before_;
    Core::String oldText_;
    EditActionGroup
        group_; // the last to begin, so that the step is closed before the monitor hears
};

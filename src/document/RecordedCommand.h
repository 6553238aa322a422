#pragma once

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBufferState.h"
#include "document/history/EditActionGroup.h"

#include <optional>

/// The scope of a command that is one undo step and is taken back whole when it fails: notices are
/// held back, the run of typing ends, and what is recorded belongs to one group. A command with
/// more records than the history holds is recorded as one replacement of the text, so that it can
/// be undone like any other.
class RecordedCommand {
public:
    explicit RecordedCommand(Document& document);
    /// Raises when the step cannot be recorded; then nothing has happened.
    ~RecordedCommand() noexcept(false);

    RecordedCommand(const RecordedCommand&) = delete;
    RecordedCommand& operator=(const RecordedCommand&) = delete;

    /// Whether the document may be edited and is as well formed as it was before the command, and
    /// no flow was edited while page masters are.
    bool mayStand() const;

    /// Brings back text, caret, history and the run of typing; the monitor hears nothing of the
    /// command.
    void takeBack();

private:
    Document& document_;
    CommandScope scope_;
    EditableDocumentBufferState before_;
    std::optional<EditActionGroup> group_;
};

/// Makes a change as one undo step; answers whether it stood. One that would break the document is
/// taken back.
template <typename Change>
bool carryOut(Document& document, Change change) {
    RecordedCommand command(document);
    change();
    if (command.mayStand())
        return true;
    command.takeBack();
    return false;
}

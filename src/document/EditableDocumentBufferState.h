#pragma once

#include "document/history/EditActionStack.h"
#include "foundation/Api.h"
#include "foundation/String.h"

#include <memory>

class Document;
class EditableDocumentBuffer;
class TextMark;

/// A snapshot of a buffer from which a command that failed takes everything back: text, caret,
/// pivot, both lists of the history, the open groups, the typing run, the running search and the
/// modes. Of the text it holds a mark and the lists are shared with the buffer, so that a snapshot
/// costs the same for every document. It must not outlive the buffer.
class FORME_API EditableDocumentBufferState {
public:
    explicit EditableDocumentBufferState(EditableDocumentBuffer* buffer);
    explicit EditableDocumentBufferState(Document& document);
    virtual ~EditableDocumentBufferState();

    EditableDocumentBufferState(const EditableDocumentBufferState&) = delete;
    EditableDocumentBufferState& operator=(const EditableDocumentBufferState&) = delete;

    /// Writes everything back without telling the monitor, which uses the snapshot up. A group that
    /// was opened since the snapshot adds nothing to the history when its scope ends.
    void restorePreviousState() noexcept;

    /// Whether text or history are no longer what they were.
    bool hasChanged() const;

    /// The text as it was.
    const TextMark& text() const;

    /// Puts one undo step, the replacement of the text as it was by what it is now, in the place of
    /// all that was recorded since the snapshot.
    void recordReplacement();

private:
    struct State;

    Document& document_;
    std::unique_ptr<State> before_;
};

#pragma once

#include "document/EditableDocumentBufferState.h"
#include "document/FreezeNotifications.h"

#include <optional>

class Document;

/// The scope of a public operation. The monitor hears when it ends. If it ends by an exception,
/// whatever raised it, the operation has not happened: the outermost scope takes everything back,
/// and the monitor hears nothing.
class CommandScope {
public:
    explicit CommandScope(Document& document);
    ~CommandScope();

    CommandScope(const CommandScope&) = delete;
    CommandScope& operator=(const CommandScope&) = delete;

    /// Whether an exception is what ends the scope.
    bool isFailing() const;

    /// Lets the monitor hear nothing of what happened so far.
    void discardNotices() { freeze_.discard(); }

private:
    Document& document_;
    std::optional<EditableDocumentBufferState> before_; // only in the outermost scope
    FreezeNotifications freeze_;
    int exceptions_;
};

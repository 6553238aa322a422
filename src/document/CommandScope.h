#pragma once

#include "document/EditableDocumentBufferState.h"
#include "document/FreezeNotifications.h"

#include <optional>

class Document;

/// The scope of a public operation. The monitor hears when it ends. If it ends by an exception,
/// whatever raised it, the operation has not happened: the outermost scope takes everything back,
/// and the monitor hears nothing. The same becomes of one that changes text or history of a
/// document which was protected from editing when the outermost scope began: it is refused in
/// silence.
class CommandScope {
public:
    /// Whom the protection of a document holds back.
    enum class Protection {
        Respected,
        PassedOver ///< by what gives the document another text, or lifts the protection itself
    };

    explicit CommandScope(Document& document, Protection protection = Protection::Respected);
    ~CommandScope();

    CommandScope(const CommandScope&) = delete;
    CommandScope& operator=(const CommandScope&) = delete;

    /// Whether an exception is what ends the scope.
    bool isFailing() const;

    /// Lets the monitor hear nothing of what happened so far.
    void discardNotices() { freeze_.discard(); }

private:
    bool isRefused() const;

    Document& document_;
    std::optional<EditableDocumentBufferState> before_; // only in the outermost scope
    FreezeNotifications freeze_;
    int exceptions_;
};

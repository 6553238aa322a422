#pragma once

#include "document/IEditableBufferMonitor.h"
#include "foundation/Api.h"

class Document;
class EditableDocumentBuffer;

/// A scope in which a buffer's monitor hears nothing. When the scope ends, the monitor that was
/// there at its beginning is put back, also in the place of one installed meanwhile, and hears at
/// most once of each kind of change: text, caret, selection, in this order. Scopes nest: an inner
/// one tells the outer one.
class FORME_API FreezeNotifications : public IEditableBufferMonitor {
public:
    explicit FreezeNotifications(EditableDocumentBuffer* buffer);
    explicit FreezeNotifications(Document& document);
    ~FreezeNotifications() override;

    FreezeNotifications(const FreezeNotifications&) = delete;
    FreezeNotifications& operator=(const FreezeNotifications&) = delete;

    /// Whether anything changed since the scope began.
    bool isChanged() const { return bufferChanged_ || caretChanged_ || selectionChanged_; }

    /// Forgets what changed since the scope began, for a command that took everything back.
    void discard() { bufferChanged_ = caretChanged_ = selectionChanged_ = false; }

    void onBufferChanged() override { bufferChanged_ = true; }
    void onCaretChanged() override { caretChanged_ = true; }
    void onSelectionChanged() override { selectionChanged_ = true; }

private:
    Document& document_;
    IEditableBufferMonitor* savedMonitor_;
    bool bufferChanged_ = false;
    bool caretChanged_ = false;
    bool selectionChanged_ = false;
};

#include "document/FreezeNotifications.h"

#include "document/EditableDocumentBuffer.h"

IEditableBufferMonitor::~IEditableBufferMonitor() = default;

FreezeNotifications::FreezeNotifications(EditableDocumentBuffer* buffer)
    : buffer_(buffer), savedMonitor_(buffer->getMonitor()) {
    buffer_->setMonitor(this);
}

FreezeNotifications::~FreezeNotifications() {
    buffer_->setMonitor(savedMonitor_);
    if (bufferChanged_)
        buffer_->notifyBufferChanged();
    if (caretChanged_)
        buffer_->notifyCaretChanged();
    if (selectionChanged_)
        buffer_->notifySelectionChanged();
}

#include "document/FreezeNotifications.h"

#include "document/Document.h"

IEditableBufferMonitor::~IEditableBufferMonitor() = default;

FreezeNotifications::FreezeNotifications(EditableDocumentBuffer* buffer)
    : FreezeNotifications(Document::of(*buffer)) {}

FreezeNotifications::FreezeNotifications(Document& document)
    : document_(document), savedMonitor_(document.monitor) {
    document_.monitor = this;
}

FreezeNotifications::~FreezeNotifications() {
    document_.monitor = savedMonitor_;
    if (bufferChanged_)
        document_.notifyBufferChanged();
    if (caretChanged_)
        document_.notifyCaretChanged();
    if (selectionChanged_)
        document_.notifySelectionChanged();
}

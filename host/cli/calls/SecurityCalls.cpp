// Who may edit the document.

#include "calls/Calls.h"
#include "calls/Rows.h"

#include <forme/channels/SecurityBuffer.h>

std::vector<Operation> Calls::security() {
    using S = SecurityBuffer;
    const OpenedRows<S> buffer("security");
    return {
        buffer.openMade(
            +[](Session& session) { return SmartPtr<S>(new S(&session.document())); },
            +[](S&) { return OpenedObjects::Tree(); }),
        buffer.close(),
        buffer("isProtectedFromEditing", &S::isProtectedFromEditing),
        buffer("setProtectedFromEditing", &S::setProtectedFromEditing, {"protected"}),
        buffer("getSettings", &S::getSettings),
        buffer("setSettings", &S::setSettings, {"settings"}),
        buffer("commitChangesToEditableBuffer", &S::commitChangesToEditableBuffer),
        buffer("commit", &S::commitChangesToEditableBuffer),
    };
}

#pragma once

#include "foundation/Api.h"

/// What a host implements to hear of changes. Calls come on the caller's thread, while the
/// operation that made the change returns: at most one of each kind for one public operation, in
/// this order. A call must not throw and must not edit the document.
class FORME_API IEditableBufferMonitor {
public:
    virtual void onBufferChanged() = 0;
    virtual void onCaretChanged() = 0;
    virtual void onSelectionChanged() = 0;
    virtual ~IEditableBufferMonitor();
};

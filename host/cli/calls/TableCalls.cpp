// The cache for a host's view of the table around the caret.

#include "calls/Calls.h"
#include "calls/Rows.h"

using D = EditableDocumentBuffer;

std::vector<Operation> Calls::tables() {
    const auto document = documentRows();
    return {
        document("updateCacheOnBufferChange", &D::updateCacheOnBufferChange),
        document("updateCacheOnCaretChange", &D::updateCacheOnCaretChange),
        document("updateCacheOnSelectionChange", &D::updateCacheOnSelectionChange),
        document("tableBufferCacheNull", &D::tableBufferCacheNull),
        document("updateTableBufferCache", &D::updateTableBufferCache),
    };
}

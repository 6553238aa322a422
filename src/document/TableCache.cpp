// The cached table around the caret.

#include "document/EditableDocumentBuffer.h"

int EditableDocumentBuffer::tableAroundCaret() const {
    return searchParent(L"fo:table", caretPos_, false, true, L"");
}

void EditableDocumentBuffer::updateCacheOnBufferChange() {
    if (tableAroundCaret() < 0)
        tableBufferCache_ = nullptr;
}

void EditableDocumentBuffer::updateCacheOnCaretChange() {
    if (tableAroundCaret() < 0)
        tableBufferCache_ = nullptr;
}

void EditableDocumentBuffer::updateCacheOnSelectionChange() {}

void EditableDocumentBuffer::updateTableBufferCache() {
    tableBufferCache_ = nullptr;
}

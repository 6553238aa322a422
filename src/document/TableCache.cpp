// The cached table around the caret.

#include "document/TableCache.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"

namespace {

int tableAroundCaret(const Document& document) {
    return document.text().ancestor(document.caret(), L"fo:table");
}

} // namespace

void TableCache::onBufferChange(Document& document) {
    if (tableAroundCaret(document) < 0)
        document.tableCache = nullptr;
}

void EditableDocumentBuffer::updateCacheOnBufferChange() {
    TableCache::onBufferChange(*document_);
}

void EditableDocumentBuffer::updateCacheOnCaretChange() {
    Document& document = *document_;
    if (tableAroundCaret(document) < 0)
        document.tableCache = nullptr;
}

void EditableDocumentBuffer::updateCacheOnSelectionChange() {}

void EditableDocumentBuffer::updateTableBufferCache() {
    Document& document = *document_;
    document.tableCache = nullptr;
}

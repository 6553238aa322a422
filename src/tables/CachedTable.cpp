#include "tables/CachedTable.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/Stops.h"
#include "foundation/xml/ParseException.h"
#include "tables/Table.h"
#include "tables/TablePlaces.h"
#include "tables/TableSelection.h"

namespace {

int tableAroundCaret(const Document& document) {
    return TablePlaces::tableAround(document.text(), document.caret());
}

/// The table around the position, which a negative one leaves to the caret.
int tableAt(const Document& document, int position) {
    return position < 0 ? tableAroundCaret(document)
                        : TablePlaces::tableAround(document.text(), position);
}

} // namespace

CachedTable::CachedTable(Document& document, int table)
    : document_(document), buffer_(new EditableTableBuffer(document, table)) {}

const CachedTable* CachedTable::of(const Document& document) {
    return static_cast<const CachedTable*>(document.tableCache.get());
}

bool CachedTable::isAt(int table) const {
    return start() == table &&
           buffer_->getDocumentBufferEnd() == document_.text().lastOffsetOf(table);
}

SmartPtr<EditableTableBuffer> CachedTable::open(Document& document, int position) {
    const int around = tableAt(document, position);
    if (const CachedTable* cached = of(document); cached && cached->isAt(around))
        return cached->buffer_;
    // One that is only selected is read anew, since the caret has left it.
    const int table = around >= 0 ? around : TableSelection::selected(document);
    if (table < 0)
        return nullptr;
    CommandScope scope(document);
    const XmlText& text = document.text();
    const bool isMeant = position >= 0 && around >= 0;
    if (isMeant && !text.elementContains(table, document.caret())) {
        document.endTyping();
        document.setCaret(Stops::next(document, table));
    }
    document.tableCache.reset(new CachedTable(document, table));
    return of(document)->buffer_;
}

void CachedTable::renew(Document& document) {
    document.tableCache.reset();
    const int table = tableAroundCaret(document);
    if (table >= 0)
        open(document, document.text().next(table));
}

void CachedTable::onBufferChange(Document& document) {
    const int table = tableAroundCaret(document);
    if (!of(document) || of(document)->start() != table || table < 0)
        renew(document);
}

void CachedTable::onCaretChange(Document& document) {
    const CachedTable* cached = of(document);
    if (!cached)
        return;
    if (cached->start() != tableAroundCaret(document)) {
        renew(document);
    } else {
        cached->buffer_->table().findEnd();
        cached->buffer_->table().findCaret();
    }
}

void CachedTable::onSelectionChange(Document& document) {
    const CachedTable* cached = of(document);
    if (cached && cached->start() == tableAroundCaret(document) && document.hasSelection())
        cached->buffer_->table().findSelectionEnd();
}

/// A text may be anything; a table that cannot be read is not kept.
void CachedTable::followText() {
    Document& document = document_;
    if (start() == tableAroundCaret(document))
        return;
    try {
        renew(document);
    } catch (const Xml::ParseException&) {
        document.tableCache.reset();
    }
}

SmartPtr<EditableTableBuffer> EditableDocumentBuffer::getEditableTableBuffer(int position) {
    return CachedTable::open(*document_, position);
}

void EditableDocumentBuffer::updateTableBufferCache() {
    CachedTable::renew(*document_);
}

bool EditableDocumentBuffer::tableBufferCacheNull() const {
    return !document_->tableCache;
}

bool EditableDocumentBuffer::caretIsInsideSameTable() const {
    const CachedTable* cached = CachedTable::of(*document_);
    return cached && cached->start() == tableAroundCaret(*document_);
}

void EditableDocumentBuffer::updateCacheOnBufferChange() {
    CachedTable::onBufferChange(*document_);
}

void EditableDocumentBuffer::updateCacheOnCaretChange() {
    CachedTable::onCaretChange(*document_);
}

void EditableDocumentBuffer::updateCacheOnSelectionChange() {
    CachedTable::onSelectionChange(*document_);
}

// Tables and cells as places for the caret: Tab, whole tables as the selection, and where in its
// table a position is.

#include "tables/TableSelection.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/Stops.h"
#include "tables/CachedTable.h"
#include "tables/TabOrder.h"
#include "tables/Table.h"
#include "tables/TablePlaces.h"

using Core::String;
using Type = TableRowGroupType;

namespace {

int cellAroundCaret(const Document& document) {
    return document.text().ancestor(document.caret(), L"fo:table-cell");
}

void goToCell(Document& document, int cell) {
    document.setCaret(Stops::next(document, cell));
}

/// Whether the caret's group ends with a row that can be entered.
bool endsInCells(const Table& table) {
    const TableTree::Elements& rows = table.model().group(table.caret.caret.group).rows;
    return !rows.empty() && !TableTree::cellsOf(*rows.back()).empty();
}

bool addRowBelow(Document& document) {
    const SmartPtr<EditableTableBuffer> buffer = CachedTable::open(document, -1);
    if (!buffer)
        return false; // a cell that stands in no table
    buffer->insertRow(false);
    if (!endsInCells(buffer->table())) {
        buffer->updateTableBuffer(); // else a host that keeps it would commit the row
        return false;
    }
    buffer->commitChangesToEditableBuffer();
    return true;
}

} // namespace

int TableSelection::selected(const Document& document) {
    const XmlText& text = document.text();
    const int first = document.hasSelection() ? text.skipSpaces(document.selectionStart()) : -1;
    const int table = text.onTagStart(first) ? text.nextTag(first) : -1;
    if (text.tagName(table) != L"fo:table")
        return -1;
    const int behind = text.behindElement(table);
    const int end = document.selectionEnd();
    return behind <= end && end <= text.skipSpaces(behind) ? table : -1;
}

bool EditableDocumentBuffer::caretIsInsideTable() const {
    return TablePlaces::tableAround(document_->text(), document_->caret()) >= 0;
}

bool EditableDocumentBuffer::selectionCrossTable() const {
    const Document& document = *document_;
    // Deliberate: true also outside any table; hosts disable their table commands by it.
    return document.hasSelection() &&
           !document.text().areInSameElement(L"fo:table", document.caret(), document.pivot());
}

bool EditableDocumentBuffer::hasSelectedTable() const {
    return TableSelection::selected(*document_) >= 0;
}

void EditableDocumentBuffer::selectTable(const String& path) {
    Document& document = *document_;
    CommandScope scope(document);
    document.endTyping();
    if (path.empty() && hasSelectedTable())
        return;
    const XmlText& text = document.text();
    const int table = path.empty() ? TablePlaces::tableAround(text, document.caret())
                                   : text.elementNamedByPath(path, document.caret());
    if (table >= 0)
        document.select(table, text.behindElement(table));
}

void EditableDocumentBuffer::moveCaretNextCell(bool /*ignored*/, bool addRow) {
    Document& document = *document_;
    CommandScope scope(document);
    document.endTyping();
    int next = TabOrder::next(document.text(), cellAroundCaret(document));
    if (next < 0 && addRow && cellAroundCaret(document) >= 0 && addRowBelow(document))
        next = TabOrder::next(document.text(), cellAroundCaret(document));
    if (next >= 0)
        goToCell(document, next);
}

void EditableDocumentBuffer::moveCaretPrevCell(bool /*ignored*/) {
    Document& document = *document_;
    CommandScope scope(document);
    document.endTyping();
    const int previous = TabOrder::previous(document.text(), cellAroundCaret(document));
    if (previous >= 0)
        goToCell(document, previous);
}

int EditableDocumentBuffer::getNextCellPosition(int cell, bool sameRow) const {
    return sameRow ? TabOrder::nextInRow(document_->text(), cell)
                   : TabOrder::next(document_->text(), cell);
}

int EditableDocumentBuffer::getPrevCellPosition(int cell, bool sameRow) const {
    return sameRow ? TabOrder::previousInRow(document_->text(), cell)
                   : TabOrder::previous(document_->text(), cell);
}

Type EditableDocumentBuffer::getTableRowGroupTypeFrom(int position, int table) const {
    const XmlText& text = document_->text();
    return TablePlaces::groupOf(text, TablePlaces::cellAround(text, position, table));
}

int EditableDocumentBuffer::getTableRowGroupPosition(int table, Type group) const {
    const std::vector<int> groups =
        TablePlaces::groupsOf(document_->text(), table, group == Type::None ? Type::Body : group);
    return groups.empty() ? -1 : groups.front();
}

int EditableDocumentBuffer::getNextRowElement(int position) const {
    return document_->text().nextNamed(position,
                                       Core::StringArray{L"fo:table-row", L"qfd:table-row-repeat"});
}

int EditableDocumentBuffer::getRowPosFromTableRowGroup(int groupElement, int row) const {
    const std::vector<int> rows = TablePlaces::rowsOf(document_->text(), groupElement);
    return row >= 0 && row < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(row)]
                                                           : -1;
}

String EditableDocumentBuffer::getRowTagNameForRowContaining(int position) const {
    const XmlText& text = document_->text();
    return text.nameAt(
        text.ancestor(position, Core::StringArray{L"fo:table-row", L"qfd:table-row-repeat"}));
}

int EditableDocumentBuffer::getTableRowNumberFrom(int position, int table, Type& group) const {
    const XmlText& text = document_->text();
    const int cell = TablePlaces::cellAround(text, position, table);
    group = TablePlaces::groupOf(text, cell);
    return group == Type::None ? -1 : TablePlaces::rowNumberOf(text, cell);
}

int EditableDocumentBuffer::getCellNumberOnRow(int position, int table) const {
    const XmlText& text = document_->text();
    return TablePlaces::cellNumberOf(text, TablePlaces::cellAround(text, position, table));
}

int EditableDocumentBuffer::getCellPositionInTable(int table, int row, int column, Type group,
                                                   int rows, int columns,
                                                   EditableTableBuffer* tableBuffer) const {
    return tableBuffer
               ? tableBuffer->table().cellPosition(table, {group, row, column}, rows, columns)
               : -1;
}

std::map<std::pair<int, int>, bool>
EditableDocumentBuffer::buildSpanMatrix(int /*table*/, int rows, int columns,
                                        EditableTableBuffer* tableBuffer) const {
    if (!tableBuffer)
        return {};
    // Deliberate: it is the group of that buffer's caret, whatever the caller asks about.
    const Type group = tableBuffer->table().caret.caret.group;
    return tableBuffer->getSpanOverMatrixFromRowGroupMatrix(group, rows, columns);
}

int EditableDocumentBuffer::getColSpanFromCell(int cell) const {
    return TablePlaces::columnSpanOf(document_->text(), cell);
}

int EditableDocumentBuffer::getRowSpanFromCell(int cell) const {
    return TablePlaces::rowSpanOf(document_->text(), cell);
}

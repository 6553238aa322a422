#include "tables/EditableTableBuffer.h"

#include "document/Document.h"
#include "tables/BorderShorthand.h"
#include "tables/CellContent.h"
#include "tables/CellSelection.h"
#include "tables/ColumnWidths.h"
#include "tables/SelectedElements.h"
#include "tables/Table.h"
#include "tables/TableBorders.h"
#include "tables/TableColumns.h"
#include "tables/TablePlaces.h"
#include "tables/TableRows.h"
#include "trees/DocumentSeam.h"

using Core::String;
using Xml::Element;
using Xml::Node;
using Type = TableRowGroupType;

namespace {

std::list<Node*> nodesOf(const TableTree::Elements& elements) {
    return {elements.begin(), elements.end()};
}

CellSelection selectionOf(const Table& table) {
    return {table.model(), table.caret.caret, table.caret.end, table.columnCount};
}

TableBorders bordersOf(const Table& table) {
    return {table.model(), table.borderInfo};
}

template <typename Change>
void changeBorders(Element* cell, Change change) {
    if (!cell)
        return;
    CellBorders borders(*cell);
    change(borders);
    borders.write();
}

Element* asElement(Node* node) {
    return node && node->is_element() ? static_cast<Element*>(node) : nullptr;
}

const Element* asElement(const Node* node) {
    return node && node->is_element() ? static_cast<const Element*>(node) : nullptr;
}

} // namespace

EditableTableBuffer::EditableTableBuffer(Document& document, int table)
    : DOMBasedBuffer(document), table_(std::make_unique<Table>(document, fragment(), table)) {}

EditableTableBuffer::~EditableTableBuffer() = default;

void EditableTableBuffer::updateTableBuffer() {
    table_->update();
}

void EditableTableBuffer::commitChangesToEditableBuffer() {
    table_->commit();
}

// Where the caret is

int EditableTableBuffer::getCaretRow() const {
    return table_->caret.caret.row;
}

int EditableTableBuffer::getCaretCol() const {
    return table_->caret.caret.column;
}

void EditableTableBuffer::resetCellsSelection() {
    table_->caret.end = table_->caret.caret;
}

// The table

Element* EditableTableBuffer::getTableElement() const {
    return &table_->root();
}

bool EditableTableBuffer::hasHeader() const {
    return getTableRowGroupNode(getTableElement(), Type::Header);
}

bool EditableTableBuffer::hasFooter() const {
    return getTableRowGroupNode(getTableElement(), Type::Footer);
}

Element* EditableTableBuffer::getTableRowGroupNode(const Element* table, Type group) {
    const TableTree::Elements groups =
        table ? TableTree::groupsOf(*table, group) : TableTree::Elements();
    return groups.empty() ? nullptr : groups.front();
}

int EditableTableBuffer::getColumnCount() const {
    return table_->columnCount;
}

int EditableTableBuffer::countColumns() const {
    return TableTree::countTableColumns(table_->root());
}

int EditableTableBuffer::countColumns(const Element* row) {
    return row ? TableTree::countColumns(*row) : 0;
}

int EditableTableBuffer::getPhysicalColumnCount() const {
    return static_cast<int>(TableTree::columnsOf(table_->root()).size());
}

int EditableTableBuffer::getRowCount(Type group) const {
    return static_cast<int>(TableTree::rowsOf(table_->root(), group).size());
}

std::list<Node*> EditableTableBuffer::getRowsFromTableRowGroup(Element* group) {
    return group ? nodesOf(TableTree::rowsOf(*group)) : std::list<Node*>();
}

Element* EditableTableBuffer::getRowFromTableRowGroup(const Element* table, int row, Type group) {
    const TableTree::Elements rows =
        table ? TableTree::rowsOf(*table, group) : TableTree::Elements();
    return row >= 0 && row < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(row)]
                                                           : nullptr;
}

// Cells

int EditableTableBuffer::getCellCountForRow(const Element* row) {
    return row ? static_cast<int>(TableTree::cellsOf(*row).size()) : 0;
}

Element* EditableTableBuffer::getCellElementAt(int row, int column, Type group) const {
    return table_->model().cellAt({group, row, column});
}

Element* EditableTableBuffer::getCellFromRow(const Element* row, int column) {
    return row ? TableTree::cellBeginningAt(*row, column) : nullptr;
}

Element* EditableTableBuffer::getTableCellFromRow(const Element* row, int index) {
    const TableTree::Elements cells = row ? TableTree::cellsOf(*row) : TableTree::Elements();
    return index >= 0 && index < static_cast<int>(cells.size())
               ? cells[static_cast<std::size_t>(index)]
               : nullptr;
}

int EditableTableBuffer::getCellPosInRow(const Element* cell, const Element* row) {
    return cell && row ? TableTree::indexOf(*cell, *row) : -1;
}

int EditableTableBuffer::getTableColumnNumberFrom(int documentPosition, int row, Type group) const {
    return table_->columnAt(documentPosition, group, row);
}

// What is selected

std::list<Node*> EditableTableBuffer::getSelectedCells() const {
    return nodesOf(selectionOf(*table_).cells());
}

std::list<Node*> EditableTableBuffer::getSelectedRows() const {
    return nodesOf(selectionOf(*table_).rows());
}

std::vector<int> EditableTableBuffer::getSelectedColumns() const {
    return selectionOf(*table_).columns();
}

std::list<Node*> EditableTableBuffer::getColumns(const std::vector<int>& columns) const {
    return nodesOf(TableTree::columnsAt(table_->root(), columns));
}

bool EditableTableBuffer::allRowsSelected() const {
    const Document& document = table_->document();
    const auto& [caret, end] = table_->caret;
    const int last = table_->model().group(Type::Body).rowCount() - 1;
    const bool isInOneTable =
        !document.hasSelection() ||
        document.text().areInSameElement(L"fo:table", document.caret(), document.pivot());
    return isInOneTable && caret.group == Type::Body && end.group == Type::Body && !hasHeader() &&
           !hasFooter() && std::minmax(caret.row, end.row) == std::minmax(0, last);
}

// Where columns and rows stand in the document

Core::Vector<int> EditableTableBuffer::getTableColumnPositionsInTableBuffer() const {
    const std::vector<int> columns = TablePlaces::childrenNamed(
        table_->document().text(), getDocumentBufferStart(), L"fo:table-column");
    return {columns.begin(), columns.end()};
}

Core::Vector<int> EditableTableBuffer::getTableRowPositionsInTableBuffer(Type group) const {
    const XmlText& text = table_->document().text();
    std::vector<int> rows = TablePlaces::rowsOf(text, getDocumentBufferStart(), group);
    std::erase_if(rows, [&](int row) { return !TablePlaces::isRow(text, row); });
    return {rows.begin(), rows.end()};
}

// Rows

void EditableTableBuffer::insertRow(bool above) {
    table_->changeFresh([&] { TableRows(*table_).insert(above); });
}

void EditableTableBuffer::insertHeaderRow() {
    table_->changeFresh([&] { TableRows(*table_).insertInto(Type::Header); });
}

void EditableTableBuffer::insertFooterRow() {
    table_->changeFresh([&] { TableRows(*table_).insertInto(Type::Footer); });
}

void EditableTableBuffer::deleteRows(bool update) {
    if (update && !table_->update())
        return;
    TableRows(*table_).removeSelected();
    table_->rebuild();
}

bool EditableTableBuffer::deleteRow(Type group, int row) {
    bool deleted = false;
    table_->changeFresh([&] { deleted = TableRows(*table_).remove(group, row); });
    return deleted;
}

bool EditableTableBuffer::canDeleteRow() const {
    return TableRows(*table_).canRemove();
}

// Columns

void EditableTableBuffer::insertColumn(bool after) {
    table_->changeFresh([&] { TableColumns(*table_).insert(after); });
}

void EditableTableBuffer::deleteColumn() {
    table_->changeFresh([&] { TableColumns(*table_).remove(); });
}

bool EditableTableBuffer::canDeleteColumn() const {
    return TableColumns(*table_).canRemove();
}

// Spans

void EditableTableBuffer::increaseColSpan() {
    table_->changeFresh([&] { CellSpans(table_->model(), table_->caret).mergeColumns(); });
}

void EditableTableBuffer::increaseRowSpan() {
    table_->changeFresh([&] { CellSpans(table_->model(), table_->caret).mergeRows(); });
}

void EditableTableBuffer::decreaseColSpan() {
    table_->changeFresh([&] { CellSpans(table_->model(), table_->caret).splitColumn(); });
}

void EditableTableBuffer::decreaseRowSpan() {
    table_->changeFresh([&] { CellSpans(table_->model(), table_->caret).splitRow(); });
}

bool EditableTableBuffer::canIncreaseColSpan() const {
    return CellSpans(table_->model(), table_->caret).canMergeColumns();
}

bool EditableTableBuffer::canIncreaseRowSpan() const {
    return CellSpans(table_->model(), table_->caret).canMergeRows();
}

bool EditableTableBuffer::canDecreaseColSpan() const {
    return CellSpans(table_->model(), table_->caret).canSplitColumn();
}

bool EditableTableBuffer::canDecreaseRowSpan() const {
    return CellSpans(table_->model(), table_->caret).canSplitRow();
}

// Borders

void EditableTableBuffer::setBordersInfo(const BorderInfo& info) {
    table_->borderInfo = info;
}

void EditableTableBuffer::setBorderToSelectedCells(CellBorderType type) {
    if (table_->update())
        processSelectedCells(type, BordersOperation::Set);
}

void EditableTableBuffer::removeBorderFromSelectedCells(CellBorderType type) {
    if (table_->update())
        processSelectedCells(type, BordersOperation::Remove);
}

bool EditableTableBuffer::selectedCellsHasBorder(CellBorderType type) const {
    const std::vector<CellPlace> places = selectionOf(*table_).places();
    return !places.empty() && bordersOf(*table_).has(places, type);
}

bool EditableTableBuffer::processSelectedCells(CellBorderType type, BordersOperation operation) {
    if (operation == BordersOperation::Query)
        return selectedCellsHasBorder(type);
    const std::vector<CellPlace> places = selectionOf(*table_).places();
    TableBorders borders = bordersOf(*table_);
    if (operation == BordersOperation::Set)
        borders.set(places, type);
    else
        borders.remove(places, type);
    borders.write();
    return !places.empty();
}

void EditableTableBuffer::cellSetBorder(int row, int column, Type group, CellBorderType type) {
    TableBorders borders = bordersOf(*table_);
    borders.set(CellPlace{group, row, column}, type);
    borders.write();
}

void EditableTableBuffer::cellRemoveBorder(int row, int column, Type group, CellBorderType type) {
    TableBorders borders = bordersOf(*table_);
    borders.remove(CellPlace{group, row, column}, type);
    borders.write();
}

bool EditableTableBuffer::cellHasBorder(int row, int column, Type group,
                                        CellBorderType type) const {
    return bordersOf(*table_).has(CellPlace{group, row, column}, type);
}

bool EditableTableBuffer::cellHasSpecificBorder(Element* cell, CellBorderType type) {
    return cell && CellBorders(*cell).has(type);
}

void EditableTableBuffer::setSpecificBorderToCell(Element* cell, CellBorderType type,
                                                  const String& style) {
    changeBorders(cell,
                  [&](CellBorders& borders) { borders.set(type, style, table_->borderInfo); });
}

void EditableTableBuffer::removeSpecificBorderFromCell(Element* cell, CellBorderType type) {
    changeBorders(cell, [&](CellBorders& borders) { borders.remove(type); });
}

String EditableTableBuffer::getBorderStyleFromCell(Element* cell, CellBorderType type) {
    return cell ? CellBorders(*cell).styleOf(type) : String();
}

void EditableTableBuffer::removeAllBordersFromCell(Element* cell) {
    changeBorders(cell, [](CellBorders& borders) { borders.removeAll(); });
}

String EditableTableBuffer::getBorderAttributeName(CellBorderType type) {
    return CellBorders::styleName(type);
}

String EditableTableBuffer::getBorderColorAttributeName(CellBorderType type) {
    return CellBorders::colorName(type);
}

String EditableTableBuffer::getBorderWidthAttributeName(CellBorderType type) {
    return CellBorders::widthName(type);
}

void EditableTableBuffer::parseBorder(const String& text, String& width, String& style,
                                      String& color) {
    BorderInfo info{width, color, style};
    BorderShorthand::parse(text, info);
    width = info.width;
    style = info.style;
    color = info.color;
}

void EditableTableBuffer::setDefaultUnit(String& value) {
    value = ColumnWidths::withUnit(value);
}

// Properties

String EditableTableBuffer::getPropertyFromSelectedElements(const String& name,
                                                            TableElements kind) const {
    return SelectedElements(*table_, kind).common(name);
}

void EditableTableBuffer::setPropertyToSelectedElements(const PropertyCollection& properties,
                                                        bool update, TableElements kind) {
    if (update && !table_->update())
        return;
    SelectedElements(*table_, kind).set(properties);
    table_->rebuild();
}

void EditableTableBuffer::removePropertyFromSelectedElements(const std::vector<String>& names,
                                                             bool update, TableElements kind) {
    if (update && !table_->update())
        return;
    SelectedElements(*table_, kind).remove(names);
    table_->rebuild();
}

// What the commands are made of

String EditableTableBuffer::getNamespaces() const {
    Document& document = table_->document();
    return DocumentSeam(&document).declarationsMissingAt(getDocumentBufferStart(),
                                                         document.caret());
}

void EditableTableBuffer::rebuildEntireRowGroupMx() {
    table_->rebuild();
}

void EditableTableBuffer::buildRowGroupMx(Type group) {
    table_->rebuild(group);
}

std::map<std::pair<int, int>, bool>
EditableTableBuffer::getSpanOverMatrixFromRowGroupMatrix(Type group, int rows, int columns) const {
    std::map<std::pair<int, int>, bool> covered;
    rows = std::min(rows, getRowCount(group));
    columns = std::min(columns, getColumnCount());
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            if (table_->isCovered({group, row, column}))
                covered[{row, column}] = true;
    return covered;
}

void EditableTableBuffer::insertRow(Element* row, bool above) {
    if (row)
        TableRows(*table_).insertAt(*row, above);
    table_->rebuild();
}

Element* EditableTableBuffer::insertCell(Element* cell, bool before) {
    if (!cell || !cell->get_parent())
        return nullptr;
    Element& added = CellContent::addLike(*cell, before);
    table_->rebuild();
    return &added;
}

void EditableTableBuffer::deleteColumnInRowGroup(Type group) {
    TableColumns(*table_).removeFrom(group);
    table_->rebuild();
}

bool EditableTableBuffer::canDeleteColumnInRowGroup(Type group) const {
    return TableColumns(*table_).canRemoveFrom(group);
}

void EditableTableBuffer::adjustTableColumnsAfterInsertion(int index) {
    TableColumns(*table_).insertColumnElement(index);
}

void EditableTableBuffer::recreateTableColumns() {
    TableColumns(*table_).makeColumnElements();
}

void EditableTableBuffer::assignNewColumnNumbers() {
    TableColumns(*table_).numberColumnElements();
}

void EditableTableBuffer::increaseSpan(bool columns) {
    CellSpans spans(table_->model(), table_->caret);
    if (columns)
        spans.mergeColumns();
    else
        spans.mergeRows();
    table_->rebuild();
}

int EditableTableBuffer::getColSpanFromCell(const Element* cell) {
    return cell ? TableTree::columnSpanOf(*cell) : 0;
}

int EditableTableBuffer::getRowSpanFromCell(const Element* cell) {
    return cell ? TableTree::rowSpanOf(*cell) : 0;
}

bool EditableTableBuffer::hasColumnSpan(const Element* cell) {
    return getColSpanFromCell(cell) > 1;
}

bool EditableTableBuffer::hasRowSpan(const Element* cell) {
    return getRowSpanFromCell(cell) > 1;
}

void EditableTableBuffer::setColSpanToCell(Element* cell, int span) {
    if (cell)
        TableTree::setColumnSpan(*cell, span);
}

void EditableTableBuffer::setRowSpanToCell(Element* cell, int span) {
    if (cell)
        TableTree::setRowSpan(*cell, span);
}

void EditableTableBuffer::removeTextFromCell(Node* cell) {
    if (Element* element = asElement(cell))
        CellContent::removeText(*element);
    table_->rebuild();
}

void EditableTableBuffer::replaceTextWithNonBreakingSpaceForNode(Element* element) {
    if (element)
        CellContent::leavePlaceholder(*element);
    table_->rebuild();
}

void EditableTableBuffer::importBlocks(Node* target, Node* source) {
    Element* to = asElement(target);
    const Element* from = asElement(source);
    if (to && from && to != from)
        CellContent::importBlocks(*to, *from);
    table_->rebuild();
}

bool EditableTableBuffer::isBlockWithNoText(const Node* node) {
    const Element* element = asElement(node);
    return element && CellContent::isWithoutText(*element);
}

bool EditableTableBuffer::cellElementContainsJustNonBreakingSpace(const Element* element) {
    return element && CellContent::isJustPlaceholder(*element);
}

void EditableTableBuffer::removeIdFromElement(Element* element, bool recursive) {
    if (element && recursive)
        CellContent::removeIds(*element);
    else if (element)
        element->remove_attribute(L"id");
}

#include "tables/EditableTableBuffer.h"

#include "document/Document.h"
#include "foundation/xml/DomParser.h"
#include "tables/BorderShorthand.h"
#include "tables/CellContent.h"
#include "tables/CellSelection.h"
#include "tables/ColumnWidths.h"
#include "tables/ElementFormat.h"
#include "tables/RepeatRows.h"
#include "tables/RowAttributes.h"
#include "tables/RowGroups.h"
#include "tables/RowMarks.h"
#include "tables/SelectedElements.h"
#include "tables/Table.h"
#include "tables/TableBorders.h"
#include "tables/TableColumns.h"
#include "tables/TableFormat.h"
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

/// Carries out a command on the table as the document has it now.
template <typename Command>
void onFreshTable(Table& table, Command command) {
    if (!table.update())
        return;
    command();
    table.rebuild();
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

const Element* caretRowOf(const Table& table) {
    return table.model().rowAt(table.caret.caret.group, table.caret.caret.row);
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
    onFreshTable(*table_, [&] { TableRows(*table_).insert(above); });
}

void EditableTableBuffer::insertHeaderRow() {
    onFreshTable(*table_, [&] { TableRows(*table_).insertInto(Type::Header); });
}

void EditableTableBuffer::insertFooterRow() {
    onFreshTable(*table_, [&] { TableRows(*table_).insertInto(Type::Footer); });
}

void EditableTableBuffer::deleteRows(bool update) {
    if (update && !table_->update())
        return;
    TableRows(*table_).removeSelected();
    table_->rebuild();
}

bool EditableTableBuffer::deleteRow(Type group, int row) {
    bool deleted = false;
    onFreshTable(*table_, [&] { deleted = TableRows(*table_).remove(group, row); });
    return deleted;
}

bool EditableTableBuffer::canDeleteRow() const {
    return TableRows(*table_).canRemove();
}

// Columns

void EditableTableBuffer::insertColumn(bool after) {
    onFreshTable(*table_, [&] { TableColumns(*table_).insert(after); });
}

void EditableTableBuffer::deleteColumn() {
    onFreshTable(*table_, [&] { TableColumns(*table_).remove(); });
}

bool EditableTableBuffer::canDeleteColumn() const {
    return TableColumns(*table_).canRemove();
}

// Spans

void EditableTableBuffer::increaseColSpan() {
    onFreshTable(*table_, [&] { CellSpans(table_->model(), table_->caret).mergeColumns(); });
}

void EditableTableBuffer::increaseRowSpan() {
    onFreshTable(*table_, [&] { CellSpans(table_->model(), table_->caret).mergeRows(); });
}

void EditableTableBuffer::decreaseColSpan() {
    onFreshTable(*table_, [&] { CellSpans(table_->model(), table_->caret).splitColumn(); });
}

void EditableTableBuffer::decreaseRowSpan() {
    onFreshTable(*table_, [&] { CellSpans(table_->model(), table_->caret).splitRow(); });
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

// Groups of rows

bool EditableTableBuffer::currentRowIsInGroup() const {
    return isRowInGroup(caretRowOf(*table_));
}

bool EditableTableBuffer::isRowInGroup(const Element* row) {
    return row && RowMarks::isMember(*row);
}

bool EditableTableBuffer::currentRowIsGroupHeader() const {
    const Element* row = caretRowOf(*table_);
    return row && RowMarks::isHeading(*row);
}

bool EditableTableBuffer::currentRowIsLastFromGroup() const {
    return RowGroups(*table_).isLastMember();
}

Element* EditableTableBuffer::getRowGroupHeader() const {
    return RowGroups(*table_).heading();
}

String EditableTableBuffer::getGroupXPath() const {
    return RowGroups(*table_).path();
}

String EditableTableBuffer::getPreviousGroupXpath() const {
    const Element* heading = RowGroups(*table_).headingBefore();
    return heading ? RowMarks::valueOf(*heading, L"xpath") : String();
}

void EditableTableBuffer::getGroupProperties(String& xpath, String& groupBy, bool& merge) const {
    const auto group = RowGroups(*table_).group();
    if (!group)
        return;
    xpath = group->xpath;
    groupBy = group->groupBy;
    merge = group->merge;
}

void EditableTableBuffer::insertGroupRow(bool above, const String& xpath, const String& groupBy,
                                         bool merge) {
    onFreshTable(*table_, [&] { RowGroups(*table_).insert(above, {xpath, groupBy, merge}); });
}

void EditableTableBuffer::convertToGroup(const String& xpath, const String& groupBy, bool merge,
                                         const String& rowXPath) {
    onFreshTable(*table_, [&] { RowGroups(*table_).convert({xpath, groupBy, merge}, rowXPath); });
}

void EditableTableBuffer::addCurrentRowToGroup(const String& groupXPath) {
    onFreshTable(*table_, [&] { RowGroups(*table_).join(groupXPath); });
}

void EditableTableBuffer::ungroupCurrentRow(const String& fromXPath, const String& toXPath) {
    onFreshTable(*table_, [&] { RowGroups(*table_).leave(fromXPath, toXPath); });
}

void EditableTableBuffer::editGroup(const String& xpath, const String& groupBy, bool merge) {
    RowGroups(*table_).edit({xpath, groupBy, merge});
}

void EditableTableBuffer::deleteGroup() {
    RowGroups(*table_).remove();
    table_->rebuild();
}

void EditableTableBuffer::deleteGroupReferences(Element* heading) {
    if (heading)
        RowMarks::freeMembers(*heading);
}

bool EditableTableBuffer::canGroupCurrentRow() const {
    return RowGroups(*table_).canJoin();
}

bool EditableTableBuffer::canInsertGroupAbove() const {
    return RowGroups(*table_).canInsertAbove();
}

bool EditableTableBuffer::canInsertGroupBelow() const {
    return RowGroups(*table_).canInsertBelow();
}

// Single rows that are repeated

bool EditableTableBuffer::caretIsInRepeatingTableRow() const {
    return currentRowIsRepeatingRow();
}

bool EditableTableBuffer::currentRowIsRepeatingRow() const {
    return RepeatRows(*table_).isRepeated();
}

void EditableTableBuffer::convertCurrentRowToRepeatingRow(const String& xpath) {
    onFreshTable(*table_, [&] { RepeatRows(*table_).repeat(xpath); });
}

void EditableTableBuffer::setRepeatingRowPath(const String& xpath) {
    onFreshTable(*table_, [&] { RepeatRows(*table_).setPath(xpath); });
}

void EditableTableBuffer::convertToStaticRow() {
    onFreshTable(*table_, [&] { RepeatRows(*table_).makeStatic(); });
}

// Widths

String EditableTableBuffer::getColumnWidth(int column) const {
    return ColumnWidths(*table_).of(column);
}

void EditableTableBuffer::setColumnWidth(int column, const String& width, bool update) {
    if (!update || table_->update())
        ColumnWidths(*table_).set(column, width);
}

void EditableTableBuffer::removeColumnWidth(int column, bool update) {
    if (!update || table_->update())
        ColumnWidths(*table_).remove(column);
}

void EditableTableBuffer::setWidthAtColNo(int columnNumber, const String& width, bool update) {
    if (!update || table_->update())
        ColumnWidths(*table_).setByNumber(columnNumber, width);
}

String EditableTableBuffer::getCrtColumnWidth() const {
    return getColumnWidth(getCaretCol());
}

void EditableTableBuffer::setCrtColumnWidth(const String& width) {
    setColumnWidth(getCaretCol(), width, true);
}

void EditableTableBuffer::removeCrtColumnWidth() {
    removeColumnWidth(getCaretCol(), true);
}

void EditableTableBuffer::changeTableColWidth(const String& width) {
    onFreshTable(*table_, [&] { ColumnWidths(*table_).resize(width); });
}

void EditableTableBuffer::changeTableColWidth(const String& width, float delta) {
    onFreshTable(*table_, [&] { ColumnWidths(*table_).resize(width, delta); });
}

void EditableTableBuffer::updateColumnWidths() {
    onFreshTable(*table_, [&] { ColumnWidths(*table_).normalise(); });
}

bool EditableTableBuffer::columnHasProportionalValSize(int column) const {
    return ColumnWidths(*table_).isShare(column);
}

int EditableTableBuffer::getNextProportionalWithCol(int column) const {
    return ColumnWidths(*table_).nextShare(column);
}

int EditableTableBuffer::getPrevProportionalWithCol(int column) const {
    return ColumnWidths(*table_).previousShare(column);
}

// Heights of rows

void EditableTableBuffer::setRowHeight(int row, const String& height, Type group) {
    RowAttributes(*table_).write(group, row, L"height", height);
}

void EditableTableBuffer::setOverFlowHidden(int row, const String& value, Type group) {
    RowAttributes(*table_).write(group, row, L"overflow", value);
}

String EditableTableBuffer::getRowHeight(int row, Type group) const {
    const Element* element = table_->model().rowAt(group, row);
    return element ? RowMarks::valueOf(*element, L"height") : String();
}

void EditableTableBuffer::removeRowHeight(int row, Type group) {
    if (Element* element = table_->update() ? table_->model().rowAt(group, row) : nullptr)
        RowMarks::remove(*element, L"height");
}

String EditableTableBuffer::getCrtRowHeight() const {
    return getRowHeight(getCaretRow(), table_->caret.caret.group);
}

void EditableTableBuffer::setCrtRowHeight(const String& height) {
    setRowHeight(getCaretRow(), height, table_->caret.caret.group);
}

void EditableTableBuffer::removeCrtRowHeight() {
    removeRowHeight(getCaretRow(), table_->caret.caret.group);
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

// Formats

void EditableTableBuffer::applyFormat(const SmartPtr<Core::IO::Stream>& stream) {
    if (!table_->update())
        return;
    Xml::DomParser parser;
    parser.parseStream(stream);
    applyTableFormat(TableFormat::templateIn(*parser.getDocument()->getRootNode()));
}

void EditableTableBuffer::applyTableFormat(const Element* pattern) {
    if (pattern)
        TableFormat::apply(table_->root(), *pattern);
}

void EditableTableBuffer::applyTableRowGroupFormat(Element* group, const Element* pattern) {
    if (group && pattern)
        TableFormat::applyToGroup(*group, *pattern);
}

void EditableTableBuffer::applyRowFormat(Element* row, const Element* pattern) {
    if (row && pattern)
        TableFormat::applyToRow(*row, *pattern);
}

void EditableTableBuffer::applyElementFormat(Element* element, const Element* pattern, bool clear) {
    if (element && pattern)
        ElementFormat::apply(*element, *pattern, clear);
}

// What the commands are made of

String EditableTableBuffer::getNamespaces() const {
    Document& document = table_->document();
    return DocumentSeam(document).declarationsMissingAt(getDocumentBufferStart(), document.caret());
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

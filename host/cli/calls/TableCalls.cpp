// Tables: where a caret stands in one, Tab, and the table that is edited as a tree.

#include "calls/BorderWire.h"
#include "calls/Calls.h"
#include "calls/Rows.h"
#include "calls/TreeWire.h"

#include <forme/foundation/Encoder.h>
#include <forme/foundation/Exception.h>
#include <forme/foundation/MemoryStream.h>
#include <forme/tables/EditableTableBuffer.h>

template <>
struct Wire<TableRowGroupType> {
    static constexpr const char* name = "row group (0 header, 1 body, 2 footer, 3 none)";
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= 3;
    }
    static TableRowGroupType read(const Json& value) {
        return static_cast<TableRowGroupType>(value.get<int>());
    }
    static Json write(TableRowGroupType value) { return static_cast<int>(value); }
};

template <>
struct Wire<float> {
    static constexpr const char* name = "number";
    static bool matches(const Json& value) { return value.is_number(); }
    static float read(const Json& value) { return value.get<float>(); }
};

/// Coordinates for which something holds.
template <>
struct Wire<std::map<std::pair<int, int>, bool>> {
    static constexpr const char* name = "list of [row, column]";
    static Json write(const std::map<std::pair<int, int>, bool>& coordinates) {
        Json list = Json::array();
        for (const auto& [place, holds] : coordinates)
            if (holds)
                list.push_back({place.first, place.second});
        return list;
    }
};

/// Of the document's operations on a table's buffer: the one that requests have opened.
template <>
struct Wire<EditableTableBuffer*> {
    static constexpr const char* name = "\"table\", the open one";
    static bool matches(const Json& value) { return value == "table"; }
    static EditableTableBuffer* read(const Json& value, Session& session) {
        return static_cast<EditableTableBuffer*>(session.opened().at(value));
    }
};

namespace {

using D = EditableDocumentBuffer;
using E = EditableTableBuffer;
using Core::String;

OpenedObjects::Tree treeOf(E& table) {
    return [&table] { return table.getTableElement(); };
}

std::tuple<int, TableRowGroupType> rowNumberFrom(D& document, int position, int table) {
    TableRowGroupType group{};
    const int row = document.getTableRowNumberFrom(position, table, group);
    return {row, group};
}

BorderInfo borderIn(E&, const Core::String& border) {
    BorderInfo info;
    E::parseBorder(border, info.width, info.style, info.color);
    return info;
}

Core::String withDefaultUnit(E&, Core::String value) {
    E::setDefaultUnit(value);
    return value;
}

/// The template's text in the place of a stream.
void applyFormat(E& table, const Core::String& document) {
    table.applyFormat(SmartPtr<Core::IO::Stream>(
        new Core::IO::MemoryStream(Core::Encoder::convertStringToUTF8(document))));
}

std::tuple<String, String, bool> groupProperties(E& table) {
    std::tuple<String, String, bool> group;
    auto& [xpath, groupBy, merge] = group;
    table.getGroupProperties(xpath, groupBy, merge);
    return group;
}

} // namespace

std::vector<Operation> Calls::tables() {
    const auto document = documentRows();
    const OpenedRows<E> table("table");
    return {
        document("updateCacheOnBufferChange", &D::updateCacheOnBufferChange),
        document("updateCacheOnCaretChange", &D::updateCacheOnCaretChange),
        document("updateCacheOnSelectionChange", &D::updateCacheOnSelectionChange),
        document("tableBufferCacheNull", &D::tableBufferCacheNull),
        document("updateTableBufferCache", &D::updateTableBufferCache),

        document("caretIsInsideTable", &D::caretIsInsideTable),
        document("caretIsInsideSameTable", &D::caretIsInsideSameTable),
        document("hasSelectedTable", &D::hasSelectedTable),
        document("selectionCrossTable", &D::selectionCrossTable),
        document("selectTable", &D::selectTable, {"path"}),
        document("moveCaretNextCell", &D::moveCaretNextCell, {"ignored", "addRow"}),
        document("moveCaretPrevCell", &D::moveCaretPrevCell, {"ignored"}),
        document("getNextCellPosition", &D::getNextCellPosition, {"cell", "sameRow"}),
        document("getPrevCellPosition", &D::getPrevCellPosition, {"cell", "sameRow"}),
        document("getTableRowGroupTypeFrom", &D::getTableRowGroupTypeFrom, {"position", "table"}),
        document("getTableRowGroupPosition", &D::getTableRowGroupPosition, {"table", "group"}),
        document("getNextRowElement", &D::getNextRowElement, {"position"}),
        document("getRowPosFromTableRowGroup", &D::getRowPosFromTableRowGroup,
                 {"groupElement", "row"}),
        document("getRowTagNameForRowContaining", &D::getRowTagNameForRowContaining, {"position"}),
        document.made("getTableRowNumberFrom", &rowNumberFrom, {"position", "table"}),
        document("getCellNumberOnRow", &D::getCellNumberOnRow, {"position", "table"}),
        document("getCellPositionInTable", &D::getCellPositionInTable,
                 {"tableStart", "row", "column", "group", "rows", "columns", "table"}),
        document("buildSpanMatrix", &D::buildSpanMatrix,
                 {"tableStart", "rows", "columns", "table"}),
        document("getColSpanFromCell", &D::getColSpanFromCell, {"cell"}),
        document("getRowSpanFromCell", &D::getRowSpanFromCell, {"cell"}),

        table.open<int>(&D::getEditableTableBuffer, &treeOf, {"position"}),
        table.close(),
        table("updateTableBuffer", &E::updateTableBuffer),
        table("commitChangesToEditableBuffer", &E::commitChangesToEditableBuffer),
        table("commit", &E::commitChangesToEditableBuffer),
        table("getDocumentBufferStart", &E::getDocumentBufferStart),
        table("getDocumentBufferEnd", &E::getDocumentBufferEnd),
        table("getAttributeValue", &E::getAttributeValue, {"element", "name", "prefix"}),
        table("getElementByName", &E::getElementByName, {"parent", "name"}),
        table("getElementProperties", &E::getElementProperties, {"element"}),
        table("setElementProperties", &E::setElementProperties, {"element", "properties"}),

        // What is there
        table("getCaretRow", &E::getCaretRow),
        table("getCaretCol", &E::getCaretCol),
        table("resetCellsSelection", &E::resetCellsSelection),
        table("getTableElement", &E::getTableElement),
        table("hasHeader", &E::hasHeader),
        table("hasFooter", &E::hasFooter),
        table("getTableRowGroupNode", &E::getTableRowGroupNode, {"table", "group"}),
        table("getColumnCount", &E::getColumnCount),
        table("countColumns", static_cast<int (E::*)() const>(&E::countColumns)),
        table("countColumns", static_cast<int (*)(const Xml::Element*)>(&E::countColumns), {"row"}),
        table("getPhysicalColumnCount", &E::getPhysicalColumnCount),
        table("getRowCount", &E::getRowCount, {"group"}),
        table("getRowsFromTableRowGroup", &E::getRowsFromTableRowGroup, {"group"}),
        table("getRowFromTableRowGroup", &E::getRowFromTableRowGroup, {"table", "row", "group"}),
        table("getCellCountForRow", &E::getCellCountForRow, {"row"}),
        table("getCellElementAt", &E::getCellElementAt, {"row", "column", "group"}),
        table("getCellFromRow", &E::getCellFromRow, {"row", "column"}),
        table("getTableCellFromRow", &E::getTableCellFromRow, {"row", "index"}),
        table("getCellPosInRow", &E::getCellPosInRow, {"cell", "row"}),
        table("getTableColumnNumberFrom", &E::getTableColumnNumberFrom,
              {"documentPosition", "row", "group"}),
        table("getSelectedCells", &E::getSelectedCells),
        table("getSelectedRows", &E::getSelectedRows),
        table("getSelectedColumns", &E::getSelectedColumns),
        table("getColumns", &E::getColumns, {"columns"}),
        table("allRowsSelected", &E::allRowsSelected),
        table("getTableColumnPositionsInTableBuffer", &E::getTableColumnPositionsInTableBuffer),
        table("getTableRowPositionsInTableBuffer", &E::getTableRowPositionsInTableBuffer,
              {"group"}),

        // Rows and columns
        table("insertRow", overload<void(bool)>(&E::insertRow), {"above"}),
        table("insertHeaderRow", &E::insertHeaderRow),
        table("insertFooterRow", &E::insertFooterRow),
        table("deleteRows", &E::deleteRows, {"update"}),
        table("deleteRow", &E::deleteRow, {"group", "row"}),
        table("canDeleteRow", &E::canDeleteRow),
        table("insertColumn", &E::insertColumn, {"after"}),
        table("deleteColumn", &E::deleteColumn),
        table("canDeleteColumn", &E::canDeleteColumn),

        // Spans
        table("increaseColSpan", &E::increaseColSpan),
        table("increaseRowSpan", &E::increaseRowSpan),
        table("decreaseColSpan", &E::decreaseColSpan),
        table("decreaseRowSpan", &E::decreaseRowSpan),
        table("canIncreaseColSpan", &E::canIncreaseColSpan),
        table("canIncreaseRowSpan", &E::canIncreaseRowSpan),
        table("canDecreaseColSpan", &E::canDecreaseColSpan),
        table("canDecreaseRowSpan", &E::canDecreaseRowSpan),

        // Heights of rows, borders and formats
        table("setRowHeight", &E::setRowHeight, {"row", "height", "group"}),
        table("setOverFlowHidden", &E::setOverFlowHidden, {"row", "value", "group"}),
        table("getRowHeight", &E::getRowHeight, {"row", "group"}),
        table("removeRowHeight", &E::removeRowHeight, {"row", "group"}),
        table("getCrtRowHeight", &E::getCrtRowHeight),
        table("setCrtRowHeight", &E::setCrtRowHeight, {"height"}),
        table("removeCrtRowHeight", &E::removeCrtRowHeight),
        table("setBordersInfo", &E::setBordersInfo, {"info"}),
        table("setBorderToSelectedCells", &E::setBorderToSelectedCells, {"border"}),
        table("removeBorderFromSelectedCells", &E::removeBorderFromSelectedCells, {"border"}),
        table("selectedCellsHasBorder", &E::selectedCellsHasBorder, {"border"}),
        table("processSelectedCells", &E::processSelectedCells, {"border", "operation"}),
        table("cellSetBorder", &E::cellSetBorder, {"row", "column", "group", "border"}),
        table("cellRemoveBorder", &E::cellRemoveBorder, {"row", "column", "group", "border"}),
        table("cellHasBorder", &E::cellHasBorder, {"row", "column", "group", "border"}),
        table("getBorderAttributeName", &E::getBorderAttributeName, {"border"}),
        table("getBorderColorAttributeName", &E::getBorderColorAttributeName, {"border"}),
        table("getBorderWidthAttributeName", &E::getBorderWidthAttributeName, {"border"}),
        table.made("parseBorder", &borderIn, {"border"}),
        table.made("setDefaultUnit", &withDefaultUnit, {"value"}),
        table("getPropertyFromSelectedElements", &E::getPropertyFromSelectedElements,
              {"name", "elements"}),
        table("setPropertyToSelectedElements", &E::setPropertyToSelectedElements,
              {"properties", "update", "elements"}),
        table("removePropertyFromSelectedElements", &E::removePropertyFromSelectedElements,
              {"names", "update", "elements"}),
        table.made("applyFormat", &applyFormat, {"document"}),
        table("cellHasSpecificBorder", &E::cellHasSpecificBorder, {"cell", "border"}),
        table("setSpecificBorderToCell", &E::setSpecificBorderToCell, {"cell", "border", "style"}),
        table("removeSpecificBorderFromCell", &E::removeSpecificBorderFromCell, {"cell", "border"}),
        table("getBorderStyleFromCell", &E::getBorderStyleFromCell, {"cell", "border"}),
        table("removeAllBordersFromCell", &E::removeAllBordersFromCell, {"cell"}),
        table("applyTableFormat", &E::applyTableFormat, {"pattern"}),
        table("applyTableRowGroupFormat", &E::applyTableRowGroupFormat, {"group", "pattern"}),
        table("applyRowFormat", &E::applyRowFormat, {"row", "pattern"}),
        table("applyElementFormat", &E::applyElementFormat, {"element", "pattern", "clear"}),

        // Groups of rows, and single rows that are repeated
        table("currentRowIsInGroup", &E::currentRowIsInGroup),
        table("isRowInGroup", &E::isRowInGroup, {"row"}),
        table("currentRowIsGroupHeader", &E::currentRowIsGroupHeader),
        table("currentRowIsLastFromGroup", &E::currentRowIsLastFromGroup),
        table("getRowGroupHeader", &E::getRowGroupHeader),
        table("getGroupXPath", &E::getGroupXPath),
        table("getPreviousGroupXpath", &E::getPreviousGroupXpath),
        table.made("getGroupProperties", &groupProperties),
        table("insertGroupRow", &E::insertGroupRow, {"above", "xpath", "groupBy", "merge"}),
        table("convertToGroup", &E::convertToGroup, {"xpath", "groupBy", "merge", "rowXPath"}),
        table("addCurrentRowToGroup", &E::addCurrentRowToGroup, {"groupXPath"}),
        table("ungroupCurrentRow", &E::ungroupCurrentRow, {"fromXPath", "toXPath"}),
        table("editGroup", &E::editGroup, {"xpath", "groupBy", "merge"}),
        table("deleteGroup", &E::deleteGroup),
        table("deleteGroupReferences", &E::deleteGroupReferences, {"heading"}),
        table("canGroupCurrentRow", &E::canGroupCurrentRow),
        table("canInsertGroupAbove", &E::canInsertGroupAbove),
        table("canInsertGroupBelow", &E::canInsertGroupBelow),
        table("caretIsInRepeatingTableRow", &E::caretIsInRepeatingTableRow),
        table("currentRowIsRepeatingRow", &E::currentRowIsRepeatingRow),
        table("convertCurrentRowToRepeatingRow", &E::convertCurrentRowToRepeatingRow, {"xpath"}),
        table("setRepeatingRowPath", &E::setRepeatingRowPath, {"xpath"}),
        table("convertToStaticRow", &E::convertToStaticRow),

        // Widths
        table("getColumnWidth", &E::getColumnWidth, {"column"}),
        table("setColumnWidth", &E::setColumnWidth, {"column", "width", "update"}),
        table("removeColumnWidth", &E::removeColumnWidth, {"column", "update"}),
        table("setWidthAtColNo", &E::setWidthAtColNo, {"columnNumber", "width", "update"}),
        table("getCrtColumnWidth", &E::getCrtColumnWidth),
        table("setCrtColumnWidth", &E::setCrtColumnWidth, {"width"}),
        table("removeCrtColumnWidth", &E::removeCrtColumnWidth),
        table("changeTableColWidth", overload<void(const String&)>(&E::changeTableColWidth),
              {"width"}),
        table("changeTableColWidth", overload<void(const String&, float)>(&E::changeTableColWidth),
              {"width", "delta"}),
        table("updateColumnWidths", &E::updateColumnWidths),
        table("columnHasProportionalValSize", &E::columnHasProportionalValSize, {"column"}),
        table("getNextProportionalWithCol", &E::getNextProportionalWithCol, {"column"}),
        table("getPrevProportionalWithCol", &E::getPrevProportionalWithCol, {"column"}),

        // What the commands are made of
        table("getNamespaces", &E::getNamespaces),
        table("rebuildEntireRowGroupMx", &E::rebuildEntireRowGroupMx),
        table("buildRowGroupMx", &E::buildRowGroupMx, {"group"}),
        table("getSpanOverMatrixFromRowGroupMatrix", &E::getSpanOverMatrixFromRowGroupMatrix,
              {"group", "rows", "columns"}),
        table("insertRow", overload<void(Xml::Element*, bool)>(&E::insertRow), {"row", "above"}),
        table("insertCell", &E::insertCell, {"cell", "before"}),
        table("deleteColumnInRowGroup", &E::deleteColumnInRowGroup, {"group"}),
        table("canDeleteColumnInRowGroup", &E::canDeleteColumnInRowGroup, {"group"}),
        table("adjustTableColumnsAfterInsertion", &E::adjustTableColumnsAfterInsertion, {"index"}),
        table("recreateTableColumns", &E::recreateTableColumns),
        table("assignNewColumnNumbers", &E::assignNewColumnNumbers),
        table("increaseSpan", &E::increaseSpan, {"columns"}),
        table("getColSpanFromCell", &E::getColSpanFromCell, {"cell"}),
        table("getRowSpanFromCell", &E::getRowSpanFromCell, {"cell"}),
        table("hasColumnSpan", &E::hasColumnSpan, {"cell"}),
        table("hasRowSpan", &E::hasRowSpan, {"cell"}),
        table("setColSpanToCell", &E::setColSpanToCell, {"cell", "span"}),
        table("setRowSpanToCell", &E::setRowSpanToCell, {"cell", "span"}),
        table("removeTextFromCell", &E::removeTextFromCell, {"cell"}),
        table("replaceTextWithNonBreakingSpaceForNode", &E::replaceTextWithNonBreakingSpaceForNode,
              {"element"}),
        table("importBlocks", &E::importBlocks, {"target", "source"}),
        table("isBlockWithNoText", &E::isBlockWithNoText, {"node"}),
        table("cellElementContainsJustNonBreakingSpace",
              &E::cellElementContainsJustNonBreakingSpace, {"element"}),
        table("removeIdFromElement", &E::removeIdFromElement, {"element", "recursive"}),
    };
}

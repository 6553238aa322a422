// Tables: where a caret stands in one, Tab, and the table that is edited as a tree.

#include "calls/BorderWire.h"
#include "calls/Calls.h"
#include "calls/Rows.h"

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

namespace {

using D = EditableDocumentBuffer;
using E = EditableTableBuffer;

/// The table around the caret, or which is selected; the document keeps it. What is changed in it
/// reaches the document when the table is committed.
E& tableOf(Session& session) {
    const auto table = session.document().getEditableTableBuffer(-1);
    if (!table)
        throw Core::Exception(L"the caret is in no table");
    return *table;
}

int rowNumberFrom(D& document, int position, int table) {
    TableRowGroupType group;
    return document.getTableRowNumberFrom(position, table, group);
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

/// Whether a table begins around the position, or with -1 the caret.
bool openTable(D& document, int position) {
    return static_cast<bool>(document.getEditableTableBuffer(position));
}

} // namespace

std::vector<Operation> Calls::tables() {
    const auto document = documentRows();
    const Rows table([](Session& session) -> E& { return tableOf(session); }, "table");
    return {
        document("updateCacheOnBufferChange", &D::updateCacheOnBufferChange),
        document("updateCacheOnCaretChange", &D::updateCacheOnCaretChange),
        document("updateCacheOnSelectionChange", &D::updateCacheOnSelectionChange),
        document("tableBufferCacheNull", &D::tableBufferCacheNull),
        document("updateTableBufferCache", &D::updateTableBufferCache),

        document("caretIsInsideTable", &D::caretIsInsideTable),
        document("caretIsInsideSameTable", &D::caretIsInsideSameTable),
        document("hasSelectedTable", &D::hasSelectedTable),
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
        document("getColSpanFromCell", &D::getColSpanFromCell, {"cell"}),
        document("getRowSpanFromCell", &D::getRowSpanFromCell, {"cell"}),

        document.made("table.open", &openTable, {"position"}),
        table("update", &E::updateTableBuffer),
        table("commit", &E::commitChangesToEditableBuffer),
        table("getCaretRow", &E::getCaretRow),
        table("getCaretCol", &E::getCaretCol),
        table("getColumnCount", &E::getColumnCount),
        table("getRowCount", &E::getRowCount, {"group"}),
        table("hasHeader", &E::hasHeader),
        table("hasFooter", &E::hasFooter),
        table("allRowsSelected", &E::allRowsSelected),
        table("insertRow", &E::insertRow, {"above"}),
        table("insertHeaderRow", &E::insertHeaderRow),
        table("insertFooterRow", &E::insertFooterRow),
        table("deleteRows", &E::deleteRows, {"update"}),
        table("deleteRow", &E::deleteRow, {"group", "row"}),
        table("canDeleteRow", &E::canDeleteRow),
        table("insertColumn", &E::insertColumn, {"after"}),
        table("deleteColumn", &E::deleteColumn),
        table("canDeleteColumn", &E::canDeleteColumn),
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
    };
}

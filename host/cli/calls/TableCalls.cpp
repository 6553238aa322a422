// Tables: where a caret stands in one, Tab, and the table that is edited as a tree.

#include "calls/Calls.h"
#include "calls/Rows.h"

#include <forme/foundation/Exception.h>
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
    };
}

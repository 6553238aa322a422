#pragma once

#include "foundation/SmartPtr.h"
#include "foundation/Stream.h"
#include "foundation/Vector.h"
#include "tables/BorderInfo.h"
#include "tables/CellBorderType.h"
#include "tables/TableElements.h"
#include "tables/TableRowGroupType.h"
#include "trees/DOMBasedBuffer.h"

#include <list>
#include <map>
#include <memory>
#include <utility>
#include <vector>

class Table;

/// A table of the document that is edited as a tree. A host takes it for one command, gives the
/// command and commits it:
///
///     const auto table = document->getEditableTableBuffer(-1);
///     table->insertRow(true);
///     table->commitChangesToEditableBuffer();
///
/// Rows are numbered from 0 in their row group; several bodies together are the body, and cells
/// that stand in a header or footer directly are one row. Columns are logical: they count the
/// columns that spans take. A cell is answered for each coordinate that it covers.
///
/// A command reads the table from the document first, so that one that was not committed is lost
/// when the next is given. Where the caret is in no cell of the table, and where the table has
/// gone, commands change nothing. Questions read nothing: they are answered for the table, caret
/// and selection as they were read last. What is read of the document counts 16-bit code units.
class FORME_API EditableTableBuffer : public DOMBasedBuffer {
public:
    ~EditableTableBuffer() override;

    EditableTableBuffer(const EditableTableBuffer&) = delete;
    EditableTableBuffer& operator=(const EditableTableBuffer&) = delete;

    // Reading and writing back

    /// Reads the table from the document again, with caret and selection. A caret outside of tables
    /// goes into this one. Where the table is gone the one around the caret is read, if any.
    void updateTableBuffer();
    /// Writes the table back as one undo step. Caret and selection go to their cells, or where the
    /// cell is gone to the first place in the table; a caret outside of the table stays. Raises a
    /// Core::Exception, and changes nothing, where the table in the document is no longer the one
    /// that was read.
    void commitChangesToEditableBuffer() override;

    // Where the caret is

    /// -1 outside of the table's cells; the column is 0 in the table but in no cell.
    int getCaretRow() const;
    int getCaretCol() const;
    /// Lets nothing but the caret's cell be selected, in this buffer.
    void resetCellsSelection();

    // The table

    Xml::Element* getTableElement() const;
    bool hasHeader() const;
    bool hasFooter() const;
    /// The first element of the group; null without one.
    static Xml::Element* getTableRowGroupNode(const Xml::Element* table, TableRowGroupType group);
    /// The largest sum of the column spans of one row's own cells.
    int getColumnCount() const;
    int countColumns() const;
    /// The sum of the column spans of the row's own cells; 0 for null.
    static int countColumns(const Xml::Element* row);
    /// How many fo:table-column elements there are.
    int getPhysicalColumnCount() const;
    int getRowCount(TableRowGroupType group) const;
    /// The rows of one group element.
    static std::list<Xml::Node*> getRowsFromTableRowGroup(Xml::Element* group);
    /// Null where the group has not so many rows.
    static Xml::Element* getRowFromTableRowGroup(const Xml::Element* table, int row,
                                                 TableRowGroupType group);

    // Cells. Elements may be null and give null, -1 or 0.

    static int getCellCountForRow(const Xml::Element* row);
    /// The cell that covers a coordinate; null where none does.
    Xml::Element* getCellElementAt(int row, int column, TableRowGroupType group) const;
    /// The row's own cell that begins in a column, counting the spans of its own cells only.
    static Xml::Element* getCellFromRow(const Xml::Element* row, int column);
    /// The row's own cell of that index, and the index of a cell.
    static Xml::Element* getTableCellFromRow(const Xml::Element* row, int index);
    static int getCellPosInRow(const Xml::Element* cell, const Xml::Element* row);
    /// The logical column of a position in the document that lies in the row; 0 where none is.
    int getTableColumnNumberFrom(int documentPosition, int row, TableRowGroupType group) const;

    // What is selected, from the caret's cell to that of the selection's other end. It runs in
    // reading order, and is nothing where one end is in no row group.

    /// A cell with spans once for each of its coordinates that is selected. Where several rows are,
    /// those of the two ends come first; of two groups the header comes first, then the body.
    std::list<Xml::Node*> getSelectedCells() const;
    std::list<Xml::Node*> getSelectedRows() const;
    /// In ascending order; all columns where more than two rows are concerned.
    std::vector<int> getSelectedColumns() const;
    /// The fo:table-column elements with these numbers, each once and in the order of the table.
    std::list<Xml::Node*> getColumns(const std::vector<int>& columns) const;
    /// Whether the selection, or without one the caret's row, takes all rows of a table that is
    /// nothing but a body.
    bool allRowsSelected() const;

    // Where columns and rows stand in the document, by the `<` of their tags. They are those of the
    // table as it was last committed.

    Core::Vector<int> getTableColumnPositionsInTableBuffer() const;
    Core::Vector<int> getTableRowPositionsInTableBuffer(TableRowGroupType group) const;

    // Rows

    /// Adds an empty row above or below the caret's, with cells like those. A cell above it that
    /// spans rows spans one more for each of its columns. Above, a repeated row gives a plain one;
    /// below the last row of a group of rows the new one stands outside of that group.
    void insertRow(bool above);
    /// Adds a row to the header, or the footer, which is made if the table has none.
    void insertHeaderRow();
    void insertFooterRow();
    /// Deletes the selected rows; one body row stays. A header or footer goes with its last row.
    /// Without `update` the table is not read again before.
    void deleteRows(bool update);
    /// Whether a row was deleted, or a header or footer with its only row, whatever number is
    /// given.
    bool deleteRow(TableRowGroupType group, int row);
    /// Whether the caret's row can go without leaving spans that lack a row.
    bool canDeleteRow() const;

    // Columns

    /// Adds a column of empty cells behind or before the caret's. A cell that spans columns takes
    /// one more instead, if the new one comes behind. The new fo:table-column is like the one
    /// before it. Not in a table whose cells tell their columns or rows by themselves.
    void insertColumn(bool after);
    /// Deletes the cells in the caret's column, whatever they span.
    void deleteColumn();
    /// Whether no cell that spans columns stands in the caret's column, as far as the first rows of
    /// the groups and the caret's row tell.
    bool canDeleteColumn() const;

    // Spans

    /// Merges the caret's cell with the one to its right, in the last column with that to its left.
    void increaseColSpan();
    /// Merges the caret's cell with the one below, in the last row with that above.
    void increaseRowSpan();
    /// Gives the last column, or row, of the caret's cell to a new cell.
    void decreaseColSpan();
    void decreaseRowSpan();
    /// Whether a host may offer them. Merging at an edge is never offered.
    bool canIncreaseColSpan() const;
    bool canIncreaseRowSpan() const;
    bool canDecreaseColSpan() const;
    bool canDecreaseRowSpan() const;

    // Groups of rows, in a template. A group is a heading, which is a qfd:table-row-repeat with the
    // path of the group, a grouping key and an id, and the rows behind it that name the id. What is
    // asked and done concerns the caret's row and the group that it belongs to.

    bool currentRowIsInGroup() const;
    /// The same for any row; false for null.
    static bool isRowInGroup(const Xml::Element* row);
    /// Whether the row is a heading.
    bool currentRowIsGroupHeader() const;
    /// Whether the row belongs to a group and the next one to none.
    bool currentRowIsLastFromGroup() const;
    /// The heading, which may be the row itself; null where the row belongs to no group.
    Xml::Element* getRowGroupHeader() const;
    /// The heading's path; "/" where the row belongs to no group.
    Core::String getGroupXPath() const;
    /// The path of the nearest heading before the row, whether the row belongs to its group or not;
    /// empty without one.
    Core::String getPreviousGroupXpath() const;
    /// Tells what the row's heading says, or else the nearest one before it; without any the
    /// arguments stay as they are.
    void getGroupProperties(Core::String& xpath, Core::String& groupBy, bool& merge) const;

    /// Adds a group of a heading and one member: above the row both are empty, below it both hold
    /// copies of what the row holds. `groupBy` is the grouping key, and `merge` lets rows of the
    /// data that have the same key be written as one.
    void insertGroupRow(bool above, const Core::String& xpath, const Core::String& groupBy,
                        bool merge);
    /// Makes the row, with a path of its own, the first member of a new group. The heading is an
    /// empty row above it.
    void convertToGroup(const Core::String& xpath, const Core::String& groupBy, bool merge,
                        const Core::String& rowXPath);
    /// Lets the row join the group that the row directly above heads or belongs to. The path of a
    /// repeated row, which counted from `groupXPath` as that of the group does, is written as it is
    /// reached from the group.
    void addCurrentRowToGroup(const Core::String& groupXPath);
    /// Takes the row out of its group. The path of a repeated row, which counted from `fromXPath`,
    /// is written as it is reached from `toXPath`.
    void ungroupCurrentRow(const Core::String& fromXPath, const Core::String& toXPath);
    /// Changes what the heading says. The table is not read again before.
    void editGroup(const Core::String& xpath, const Core::String& groupBy, bool merge);
    /// Removes the heading; the members stay as rows without a group. Nothing happens where the
    /// heading is the only body row. The table is not read again before.
    void deleteGroup();
    /// Lets the rows behind the heading name it no more.
    static void deleteGroupReferences(Xml::Element* heading);
    /// Whether a host may offer addCurrentRowToGroup(), and insertGroupRow() above and below.
    bool canGroupCurrentRow() const;
    bool canInsertGroupAbove() const;
    bool canInsertGroupBelow() const;

    // Single rows that are repeated for each node of the data that a path leads to

    /// Both the same: whether the caret's row is repeated.
    bool caretIsInRepeatingTableRow() const;
    bool currentRowIsRepeatingRow() const;
    void convertCurrentRowToRepeatingRow(const Core::String& xpath);
    /// Gives the row a path, whether it is repeated or not.
    void setRepeatingRowPath(const Core::String& xpath);
    /// Makes the row a plain one without path. What it says of groups stays.
    void convertToStaticRow();

    // Widths, as the fo:table-column elements tell them: a length, "30%", or a share of what other
    // columns leave, "proportional-column-width(30)", as percentages are written. With `update` the
    // table is read again before. A column that the table has no element for stays without.

    /// Empty where the column has none.
    Core::String getColumnWidth(int column) const;
    void setColumnWidth(int column, const Core::String& width, bool update);
    void removeColumnWidth(int column, bool update);
    /// Gives the column with that column-number the width as a share, whatever it is; one is made
    /// of the nearest column with a lower number where none has it.
    void setWidthAtColNo(int columnNumber, const Core::String& width, bool update);
    /// The same for the caret's column.
    Core::String getCrtColumnWidth() const;
    void setCrtColumnWidth(const Core::String& width);
    void removeCrtColumnWidth();
    /// Resizes the caret's column; a number alone counts inches. Where it and another column have
    /// shares that one makes up for it, so that the sum stays; nothing happens where it would be
    /// left without any. The width is `delta` larger than told; not below 0.
    void changeTableColWidth(const Core::String& width);
    void changeTableColWidth(const Core::String& width, float delta);
    /// Writes shares and percentages as numbers of which the sum is 100; nothing happens where a
    /// column has something else.
    void updateColumnWidths();
    bool columnHasProportionalValSize(int column) const;
    /// The nearest column with a share behind, or before, that column, once around the table; -1
    /// without one. Going back, column 0 is not looked at.
    int getNextProportionalWithCol(int column) const;
    int getPrevProportionalWithCol(int column) const;

    // Heights of rows, and what else the text tells of them. What is set is written into the
    // document at once, as one undo step, and the table is read again, so that what was not
    // committed is lost. The row behind the group's last raises a Core::Exception; any other that
    // is not there, and cells that stand in a header or footer directly, stay as they are.

    void setRowHeight(int row, const Core::String& height, TableRowGroupType group);
    /// "hidden" for one, which cuts off what has no room in the row.
    void setOverFlowHidden(int row, const Core::String& value, TableRowGroupType group);
    /// Empty where the row says none, and for no row.
    Core::String getRowHeight(int row, TableRowGroupType group) const;
    /// In the tree, as other commands do.
    void removeRowHeight(int row, TableRowGroupType group);
    /// The same for the caret's row.
    Core::String getCrtRowHeight() const;
    void setCrtRowHeight(const Core::String& height);
    void removeCrtRowHeight();

    // Borders, which are attributes of the cells. An edge between two cells is told by both, and
    // commands on it write on both; below the header comes the body, below that the footer. A
    // command says which edge, or with All and Style all four. None stands for the opposite: to set
    // it removes all four edges, to remove it draws them, and the cells have it that have none.

    enum class BordersOperation { Set = 0, Remove = 1, Query = 2 };

    /// Width and colour of the borders that are set from now on; what is empty is not written.
    void setBordersInfo(const BorderInfo& info);

    /// The selected cells, or the caret's. A cell with `border-style` keeps that when borders are
    /// set; when one is removed it is written as single ones, and so is `border`. A neighbour that
    /// takes more rows or columns than the edge is long is not told of an edge that is set.
    void setBorderToSelectedCells(CellBorderType type);
    void removeBorderFromSelectedCells(CellBorderType type);
    /// Whether all of them have it. The table is not read again before.
    bool selectedCellsHasBorder(CellBorderType type) const;
    /// Any of the three; the table is not read again before. Answers true where something is
    /// selected, or to a query whether all cells have it.
    bool processSelectedCells(CellBorderType type, BordersOperation operation);

    /// One cell, given by its first coordinate; any other coordinate of it, and one without a cell,
    /// leaves everything as it is. The table is not read again before.
    void cellSetBorder(int row, int column, TableRowGroupType group, CellBorderType type);
    void cellRemoveBorder(int row, int column, TableRowGroupType group, CellBorderType type);
    /// Also true for an edge that `border-style` or `border` tells.
    bool cellHasBorder(int row, int column, TableRowGroupType group, CellBorderType type) const;

    // One cell by itself, null for none; its neighbours are not told. None and All are no
    // attributes, so that nothing has them.

    /// Whether the attribute says a style other than "none".
    static bool cellHasSpecificBorder(Xml::Element* cell, CellBorderType type);
    /// Sets style, and width and colour as they were told, unless the cell has `border-style`.
    void setSpecificBorderToCell(Xml::Element* cell, CellBorderType type,
                                 const Core::String& style);
    /// Removes the style; width and colour stay.
    static void removeSpecificBorderFromCell(Xml::Element* cell, CellBorderType type);
    /// What `border-style` says, or else the attribute; empty where neither says anything.
    static Core::String getBorderStyleFromCell(Xml::Element* cell, CellBorderType type);
    /// Removes all styles, `border-style` and `border`.
    static void removeAllBordersFromCell(Xml::Element* cell);

    /// The names of the attributes, without prefix; empty for None and All.
    static Core::String getBorderAttributeName(CellBorderType type);
    static Core::String getBorderColorAttributeName(CellBorderType type);
    static Core::String getBorderWidthAttributeName(CellBorderType type);
    /// Takes the value of a `border` apart, whose words may stand in any order. What it does not
    /// tell stays; reading ends at a word that is none of the three, or the second of its kind.
    static void parseBorder(const Core::String& text, Core::String& width, Core::String& style,
                            Core::String& color);
    /// Adds "in" to a value that ends in no unit; an empty one stays.
    static void setDefaultUnit(Core::String& value);

    // Properties of what is selected. Names may have the prefix "fo:". With `update` the table is
    // read again before.

    /// What all of them have, upper and lower case aside, as the first of them writes it; empty
    /// where they differ or one has none.
    Core::String getPropertyFromSelectedElements(const Core::String& name,
                                                 TableElements kind) const;
    /// To align columns, or the table, takes the alignment of their cells off.
    void setPropertyToSelectedElements(const PropertyCollection& properties, bool update,
                                       TableElements kind);
    void removePropertyFromSelectedElements(const std::vector<Core::String>& names, bool update,
                                            TableElements kind);

    // The format of another table. It takes the place of the table's own: all attributes that say
    // how something looks, and no others.

    /// That of the first table in a small document, which stands in the first block of its flow, or
    /// of a container there; without one nothing happens. The stream is read to its end; raises an
    /// Xml::ParseException where it cannot be parsed.
    void applyFormat(const SmartPtr<Core::IO::Stream>& stream);
    /// Row groups that the other table lacks keep their format.
    void applyTableFormat(const Xml::Element* pattern);
    /// All rows become like the first row of the other group.
    static void applyTableRowGroupFormat(Xml::Element* group, const Xml::Element* pattern);
    /// The first three cells of the other row are for the cells at the left end, in the middle and
    /// at the right end; with fewer the cells stay as they are.
    static void applyRowFormat(Xml::Element* row, const Xml::Element* pattern);
    /// Without `clear` the element keeps what the other does not say.
    static void applyElementFormat(Xml::Element* element, const Xml::Element* pattern, bool clear);

    // What the commands are made of. The table is not read again before. Of elements, null and what
    // is no part of a table changes nothing.

    /// The declarations of namespaces, each with a blank before it, that are in force at the caret
    /// and that the table's own tag lacks.
    Core::String getNamespaces() const;
    /// Looks at the rows and cells of the tree again, or of one group; a host that has changed the
    /// tree itself needs it before it asks about cells.
    void rebuildEntireRowGroupMx();
    void buildRowGroupMx(TableRowGroupType group);
    /// The coordinates, row and column, of a group that are taken by a cell which begins elsewhere,
    /// up to but excluding `rows` and `columns`.
    std::map<std::pair<int, int>, bool>
    getSpanOverMatrixFromRowGroupMatrix(TableRowGroupType group, int rows, int columns) const;

    /// insertRow() at a row of this table instead of the caret's.
    void insertRow(Xml::Element* row, bool above);
    /// A new cell like that one, beside it.
    Xml::Element* insertCell(Xml::Element* cell, bool before);
    /// Deletes the cells in the caret's column in one group and leaves the fo:table-column elements
    /// alone.
    void deleteColumnInRowGroup(TableRowGroupType group);
    bool canDeleteColumnInRowGroup(TableRowGroupType group) const;

    /// A new fo:table-column for a column that was inserted there, counted from 0; what all columns
    /// need where there was none. At 0 none is made where there was none.
    void adjustTableColumnsAfterInsertion(int index);
    /// As many fo:table-column elements as the table has columns, in front of its first child and
    /// with the attributes of that.
    void recreateTableColumns();
    /// Gives the fo:table-column elements the numbers from 1.
    void assignNewColumnNumbers();

    /// Merges the caret's cell as increaseColSpan() or increaseRowSpan() does.
    void increaseSpan(bool columns);
    /// 1 where the cell says nothing that can be read, 0 for null.
    static int getColSpanFromCell(const Xml::Element* cell);
    static int getRowSpanFromCell(const Xml::Element* cell);
    static bool hasColumnSpan(const Xml::Element* cell);
    static bool hasRowSpan(const Xml::Element* cell);
    static void setColSpanToCell(Xml::Element* cell, int span);
    static void setRowSpanToCell(Xml::Element* cell, int span);

    /// Leaves a cell its first block with a no-break space in it: the other blocks and the lists
    /// go, anything else stays.
    void removeTextFromCell(Xml::Node* cell);
    /// Leaves an element nothing but a no-break space.
    void replaceTextWithNonBreakingSpaceForNode(Xml::Element* element);
    /// Copies what the source cell holds, but for blocks without text, to the end of the target. A
    /// block with a no-break space that was all of the target's goes if anything was copied.
    void importBlocks(Xml::Node* target, Xml::Node* source);
    /// Whether the node holds no element, and no text but white space around one no-break space.
    static bool isBlockWithNoText(const Xml::Node* node);
    /// Whether the element holds one no-break space and nothing else, white space included.
    static bool cellElementContainsJustNonBreakingSpace(const Xml::Element* element);
    /// Removes the id, with `recursive` those of all elements within too.
    static void removeIdFromElement(Xml::Element* element, bool recursive);

    // For the library's own commands, which hosts have no use for

    /// The table that begins at the position. Hosts ask
    /// EditableDocumentBuffer::getEditableTableBuffer(), which knows the one around the caret.
    EditableTableBuffer(Document& document, int table);
    /// What the operations work on.
    Table& table() const { return *table_; }

private:
    std::unique_ptr<Table> table_;
};

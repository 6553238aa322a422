#pragma once

#include "tables/Table.h"

/// Adds rows to a table and deletes them. The tree changes and the caret goes along; the model
/// stays as it was. Where the caret has no cell nothing happens.
class TableRows {
public:
    explicit TableRows(Table& table) : table_(table), model_(table.model()), caret_(table.caret) {}

    /// An empty row above or below the caret's.
    void insert(bool above);
    /// The same at a row of this table, wherever the caret is; nothing at any other element.
    void insertAt(const Xml::Element& row, bool above);
    /// One at the end of the header, or the footer, which is made if there is none.
    void insertInto(TableRowGroupType type);

    /// Deletes the rows from the caret's to that of the selection's end.
    void removeSelected();
    /// Whether the row is deleted. The last body row stays, and a header or footer goes with its
    /// last row.
    bool remove(TableRowGroupType type, int row);
    /// Whether no span reaches over the edges of the caret's row.
    bool canRemove() const;

private:
    void insertAt(TableRowGroupType type, int number, bool above);
    Xml::Element* rowOfItsOwn(TableRowGroupType type, int number);
    void insertAbove(Xml::Element& row, TableRowGroupType type, int number);
    void insertBelow(Xml::Element& row, TableRowGroupType type, int number);
    void raiseRowSpans(TableRowGroupType type, int row);
    void makeGroup(TableRowGroupType type);
    void removeDown(TableRowGroupType type, int last, int first);
    void removeAcrossGroups();
    int rowCount(TableRowGroupType type) const;

    Table& table_;
    const TableModel& model_;
    TableCaret& caret_;
};

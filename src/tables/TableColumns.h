#pragma once

#include "tables/Table.h"

/// Adds a column to a table and deletes one. The tree changes and the caret goes along; the model
/// stays as it was. Where the caret has no cell, and in a table whose cells tell by themselves
/// which columns or rows they stand in, nothing happens.
class TableColumns {
public:
    explicit TableColumns(Table& table)
        : table_(table), model_(table.model()), caret_(table.caret) {}

    /// Empty cells behind or before the caret's column; a cell that spans columns takes the new one
    /// behind it.
    void insert(bool after);
    /// The caret's column.
    void remove();
    /// Its cells in one group, and nothing else.
    void removeFrom(TableRowGroupType type);
    /// Whether no cell reaches over its edges, as far as is looked at.
    bool canRemove() const;
    /// The same as far as one group tells; true in one without rows.
    bool canRemoveFrom(TableRowGroupType type) const;

    // The elements that stand for the columns

    /// One for a column that was inserted there, like the one before it.
    void insertColumnElement(int index);
    /// One for each column, in front of what stands first in the table and with its attributes.
    void makeColumnElements();
    void numberColumnElements();

private:
    bool mayChange() const;
    void insertIn(TableRowGroupType type, bool after);
    void removeIn(TableRowGroupType type);
    bool canRemoveIn(TableRowGroupType type) const;
    bool isCrossed(TableRowGroupType type, int row) const;
    void writeOutRepeated();

    Table& table_;
    const TableModel& model_;
    TableCaret& caret_;
};

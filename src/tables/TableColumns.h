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
    /// Whether no cell reaches over its edges, as far as is looked at.
    bool canRemove() const;

private:
    bool mayChange() const;
    void insertIn(TableRowGroupType type, bool after);
    void removeIn(TableRowGroupType type);
    bool canRemoveIn(TableRowGroupType type) const;
    bool isCrossed(TableRowGroupType type, int row) const;
    void writeOutRepeated();
    void insertColumnElement(int index);
    void makeColumnElements();
    void numberColumnElements();

    Table& table_;
    const TableModel& model_;
    TableCaret& caret_;
};

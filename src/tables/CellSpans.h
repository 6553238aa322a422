#pragma once

#include "tables/TableModel.h"

/// Where caret and selection stand in a table. Both ends are the same when nothing is selected.
struct TableCaret {
    CellPlace caret;
    CellPlace end;
};

/// Merges the caret's cell with a neighbour, and splits it. The tree changes and the caret goes
/// along with its cell; the model stays as it was. Where there is no cell, and in a table whose
/// cells tell by themselves which columns or rows they stand in, nothing happens.
class CellSpans {
public:
    CellSpans(const TableModel& model, TableCaret& caret);

    /// With the cell to the right, whose content follows; in the last column with that to the left.
    void mergeColumns();
    /// With the cell below; in the last row with that above, whose place the merged cell takes.
    void mergeRows();
    /// Gives the last of its columns to a new cell behind it.
    void splitColumn();
    /// Makes a new cell in the last row that the cell takes, which it no longer does.
    void splitRow();

    // Whether a host may offer them. Merging at an edge is never offered.
    bool canMergeColumns() const;
    bool canMergeRows() const;
    bool canSplitColumn() const;
    bool canSplitRow() const;

private:
    Xml::Element* cellOf(int row, int column) const;
    Xml::Element* below() const;
    void mergeWithLeft();
    void mergeWithAbove();
    void makeCellIn(int row);
    int rowCount() const { return model_.group(caret_.caret.group).rowCount(); }

    const TableModel& model_;
    TableCaret& caret_;
    Xml::Element* cell_; // null where nothing may happen
};

#pragma once

#include "tables/TableModel.h"

#include <vector>

/// What is selected of a table between the caret's cell and the cell of the selection's other end,
/// which may be the same: a run in reading order and no rectangle. Where one end is in no row group
/// nothing is selected.
class CellSelection {
public:
    /// The model must outlive the selection. `columnCount` tells where rows end.
    CellSelection(const TableModel& model, const CellPlace& caret, const CellPlace& end,
                  int columnCount);

    /// The coordinates, holes included. Where several rows are selected, those of the two ends come
    /// first and the whole rows after them; of two groups the header comes first, then the body.
    std::vector<CellPlace> places() const;
    /// The cells there in the same order: one with spans once for each coordinate that it covers.
    TableTree::Elements cells() const;
    /// The rows from end to end, in the order of the text.
    TableTree::Elements rows() const;
    /// The logical columns in ascending order; all of them where more than two rows, or two that
    /// are no neighbours, are concerned.
    std::vector<int> columns() const;

private:
    bool isNone() const;
    bool isInOneGroup() const { return first_.group == last_.group; }
    std::vector<CellPlace> placesInOneGroup() const;
    void addColumns(std::vector<CellPlace>& places, const CellPlace& from, int lastColumn) const;
    void addRows(std::vector<CellPlace>& places, TableRowGroupType group, int first,
                 int behind) const;
    void addToEndOfGroup(std::vector<CellPlace>& places, const CellPlace& from) const;
    void addFromStartOfGroup(std::vector<CellPlace>& places, const CellPlace& to) const;

    const TableModel& model_;
    int columnCount_;
    TableRowGroupType caretGroup_;
    CellPlace first_; // the two ends in the order of the text
    CellPlace last_;
};

#pragma once

#include "foundation/xml/Element.h"
#include "tables/TallCells.h"

#include <vector>

/// Which cell covers a coordinate of a row group. A coordinate is a row and a logical column, which
/// counts the columns that spans take; rows and columns are numbered from 0.
///
/// The matrix tells of the tree as it was when the matrix was built. Building costs what the cells
/// are, and a question the logarithm of that; no span costs more because its number is large.
class RowGroupMatrix {
public:
    RowGroupMatrix() = default;
    /// The rows of a group, those of each of its bodies by themselves: no row span goes from one
    /// into the next, but at the end of the last it may reach past the rows. `columns` are those of
    /// the whole table, behind which no cell makes way for another.
    RowGroupMatrix(const std::vector<std::vector<Xml::Element*>>& bodies, int columns);

    /// Null for a hole, and outside the group; a coordinate past its rows or columns may be covered
    /// by a span that is too large.
    Xml::Element* cellAt(int row, int column) const;

private:
    /// The columns, `end` excluded, that a cell takes in the row it begins in.
    struct Cell {
        int start;
        int end;
        Xml::Element* element;
    };

    class FreeColumns;

    void addRow(const Xml::Element& row, int lastRow, FreeColumns& freeColumns);
    int rowCount() const { return static_cast<int>(rowStarts_.size()); }

    std::vector<Cell> cells_;            // of all rows, from left to right
    std::vector<std::size_t> rowStarts_; // the first cell of each row
    TallCells tall_;
};

#include "tables/RowGroupMatrix.h"

#include "tables/TableTree.h"

#include <algorithm>
#include <climits>
#include <unordered_map>

using Xml::Element;

/// Finds columns that no cell of a row above takes, row by row from the first one on. How far it
/// came from a column is remembered with the last row in which that holds, so that rows do not pass
/// the same cells one by one.
class RowGroupMatrix::FreeColumns {
public:
    FreeColumns(const TallCells& tall, int columns) : tall_(tall), columns_(columns) {}

    /// The first at or behind `column`; what stands behind the table's last one is free.
    int from(int row, int column) {
        Covered covered{column, INT_MAX};
        while (covered.end < columns_) {
            const Covered next = coveredFrom(row, covered.end);
            if (next.end <= covered.end)
                break;
            covered = {std::min(next.end, columns_), std::min(next.last, covered.last)};
        }
        if (covered.end > column)
            known_[column] = covered;
        return covered.end;
    }

private:
    struct Covered {
        int end;
        int last; // row
    };

    Covered coveredFrom(int row, int column) const {
        const auto known = known_.find(column);
        if (known != known_.end() && known->second.last >= row)
            return known->second;
        const TallCells::Found above = tall_.at(row, column);
        return {above.end, above.last};
    }

    const TallCells& tall_;
    int columns_;
    std::unordered_map<int, Covered> known_;
};

RowGroupMatrix::RowGroupMatrix(const std::vector<std::vector<Element*>>& bodies, int columns) {
    int rows = 0;
    for (const auto& body : bodies)
        rows += static_cast<int>(body.size());
    tall_ = TallCells(rows + TableTree::longestOverhang);
    FreeColumns freeColumns(tall_, columns);
    for (const auto& body : bodies) {
        const int behind = rowCount() + static_cast<int>(body.size());
        const int overhang = behind == rows ? TableTree::longestOverhang : 0;
        for (const Element* row : body)
            addRow(*row, behind - 1 + overhang, freeColumns);
    }
}

void RowGroupMatrix::addRow(const Element& row, int lastRow, FreeColumns& freeColumns) {
    const int number = rowCount();
    rowStarts_.push_back(cells_.size());
    int column = 0;
    for (Element* cell : TableTree::cellsOf(row)) {
        column = freeColumns.from(number, column);
        const int height = std::min(TableTree::rowSpanOf(*cell), lastRow - number + 1);
        const int end =
            std::min(column + TableTree::columnSpanOf(*cell), INT_MAX - TableTree::widestSpan);
        if (end > column && height > 0)
            cells_.push_back({column, end, cell});
        if (end > column && height > 1)
            tall_.add(number + 1, number + height - 1, column, end, cell);
        column = end;
    }
}

Element* RowGroupMatrix::cellAt(int row, int column) const {
    if (row < 0 || column < 0)
        return nullptr;
    if (row < rowCount()) {
        const std::size_t number = static_cast<std::size_t>(row);
        const auto at = [&](std::size_t index) {
            return cells_.begin() + static_cast<std::ptrdiff_t>(index);
        };
        const auto end = at(row + 1 < rowCount() ? rowStarts_[number + 1] : cells_.size());
        const auto own =
            std::upper_bound(at(rowStarts_[number]), end, column,
                             [](int sought, const Cell& cell) { return sought < cell.end; });
        if (own != end && own->start <= column)
            return own->element;
    }
    return tall_.at(row, column).cell;
}

#include "tables/RowGroupMatrix.h"

#include "tables/TableTree.h"

#include <algorithm>
#include <climits>

using Xml::Element;

RowGroupMatrix::RowGroupMatrix(const std::vector<std::vector<Element*>>& bodies, int columns) {
    int rows = 0;
    for (const auto& body : bodies)
        rows += static_cast<int>(body.size());
    tall_ = TallCells(rows + TableTree::longestOverhang);
    for (const auto& body : bodies) {
        const int behind = rowCount() + static_cast<int>(body.size());
        const int overhang = behind == rows ? TableTree::longestOverhang : 0;
        for (const Element* row : body)
            addRow(*row, behind - 1 + overhang, columns);
    }
}

void RowGroupMatrix::addRow(const Element& row, int lastRow, int columns) {
    const int number = rowCount();
    rowStarts_.push_back(cells_.size());
    int column = 0;
    for (Element* cell : TableTree::cellsOf(row)) {
        column = freeColumn(number, column, columns);
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

/// The first column at or behind `column` that no cell of a row above takes, or the last one of the
/// table and those behind it.
int RowGroupMatrix::freeColumn(int row, int column, int columns) const {
    while (column < columns) {
        const TallCells::Found above = tall_.at(row, column);
        if (!above.cell)
            return column;
        column = std::min(above.end, columns);
    }
    return column;
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

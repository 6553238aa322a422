#include "export/TableGrid.h"

#include <algorithm>

TableGrid::Cell TableGrid::place(const Cell& wanted) {
    Cell cell = wanted;
    if (cell.column <= 0 || cell.column > mostColumns || isTaken(cell.column)) {
        cell.column = next_;
        while (isTaken(cell.column))
            ++cell.column;
    }
    int columns = 1;
    while (columns < cell.columns && cell.column + columns <= mostColumns &&
           !isTaken(cell.column + columns))
        ++columns;
    cell.columns = columns;
    if (cell.column > mostColumns)
        cell.rows = 1;
    next_ = cell.column + columns;
    columns_ = std::max(columns_, next_ - 1);
    const auto behind = static_cast<std::size_t>(std::min(next_ - 1, mostColumns));
    taken_.resize(std::max(taken_.size(), behind));
    for (int column = cell.column; column < next_ && column <= mostColumns; ++column)
        taken_[static_cast<std::size_t>(column) - 1] = cell.rows;
    added_.push_back({cell.rows, cell.rows - 1});
    return cell;
}

void TableGrid::endRow(bool stays) {
    for (int& rows : taken_)
        rows = std::max(rows - 1, 0);
    for (Span& span : spans_) {
        --span.below;
        if (!stays)
            shorten(span, 1);
    }
    spans_.insert(spans_.end(), added_.begin(), added_.end());
    std::erase_if(spans_, [](const Span& span) { return span.below == 0; });
    added_.clear();
    next_ = 1;
}

void TableGrid::endGroup() {
    for (Span& span : spans_)
        shorten(span, span.below);
    spans_.clear();
}

bool TableGrid::isTaken(int column) const {
    return column <= static_cast<int>(taken_.size()) &&
           taken_[static_cast<std::size_t>(column) - 1] > 0;
}

void TableGrid::shorten(Span& span, int rows) {
    span.rows -= rows;
    if (span.text)
        *span.text = std::to_string(span.rows);
}

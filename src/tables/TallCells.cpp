#include "tables/TallCells.h"

#include <algorithm>
#include <iterator>

void TallCells::add(int first, int last, int start, int end, Xml::Element* cell) {
    const Stretch stretch{start, last, added_++, cell};
    lastRow_ = std::max(lastRow_, last);
    // From the leaves up: a node at the border whose sibling lies outside stands for itself.
    for (int from = first + rows_, to = last + 1 + rows_; from < to; from /= 2, to /= 2) {
        if (from % 2 == 1)
            put(nodes_[from++], end, stretch);
        if (to % 2 == 1)
            put(nodes_[--to], end, stretch);
    }
}

TallCells::Found TallCells::at(int row, int column) const {
    Found found;
    if (row < 0 || row > lastRow_)
        return found;
    int order = -1;
    for (int node = row + rows_; node > 0; node /= 2) {
        const auto known = nodes_.find(node);
        if (known == nodes_.end())
            continue;
        const auto next = known->second.upper_bound(column);
        if (next == known->second.end() || next->second.start > column ||
            next->second.order < order)
            continue;
        order = next->second.order;
        found = {next->second.cell, next->first, next->second.last};
    }
    return found;
}

/// Lets no stretch reach over the column.
void TallCells::cut(Columns& columns, int at) {
    const auto over = columns.upper_bound(at);
    if (over == columns.end() || over->second.start >= at)
        return;
    columns.emplace(at, over->second);
    over->second.start = at;
}

void TallCells::put(Columns& columns, int end, const Stretch& stretch) {
    cut(columns, stretch.start);
    cut(columns, end);
    columns.erase(columns.upper_bound(stretch.start), columns.upper_bound(end));
    columns.emplace(end, stretch);
}

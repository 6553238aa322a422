#pragma once

#include "foundation/xml/Element.h"

#include <map>
#include <unordered_map>

/// The cells of a row group that reach into rows below their own, found by coordinate. Where
/// several cover one, the last that was added counts.
///
/// A tree over the rows, in which each node stands for a stretch of them twice as long as those of
/// its two children. A cell is kept at the few nodes that together are the rows which it reaches
/// into, so that neither the size of a span nor the number of rows makes it cost more.
class TallCells {
public:
    /// Rows are numbered from 0 up to but excluding `rows`.
    explicit TallCells(int rows = 0) : rows_(rows) {}

    /// Adds a cell that reaches into the rows `first` through `last` and takes the columns from
    /// `start` up to but excluding `end`, which must not be empty.
    void add(int first, int last, int start, int end, Xml::Element* cell);

    struct Found {
        Xml::Element* cell = nullptr;
        int end = 0;  ///< the column behind those from the coordinate on that it surely covers
        int last = 0; ///< the last row in which it does
    };
    /// What covers a coordinate; a null cell where nothing does.
    Found at(int row, int column) const;

private:
    struct Stretch {
        int start;
        int last;  ///< row that the cell reaches into
        int order; ///< which of all cells added
        Xml::Element* cell;
    };
    /// Columns that belong to one cell each, by the column behind them.
    using Columns = std::map<int, Stretch>;

    static void cut(Columns& columns, int at);
    static void put(Columns& columns, int end, const Stretch& stretch);

    std::unordered_map<int, Columns> nodes_; // node 1 is the top, 2n and 2n + 1 are below n
    int rows_;
    int added_ = 0;
    int lastRow_ = -1; // that a cell reaches into
};

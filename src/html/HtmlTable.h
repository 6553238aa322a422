#pragma once

#include <string>
#include <utility>
#include <vector>

/// A table as it is read from HTML, and as markup: a grid in which each cell has its place and each
/// row the same columns.
class HtmlTable {
public:
    enum class Group { Header, Body, Footer };

    struct Cell {
        std::wstring attributes; ///< but for the spans, each with a blank before it
        std::wstring content;    ///< blocks
        int columns = 1;
        int rows = 1; ///< 0 for all that are left in the group
    };

    void beginColumn(int width, int count);
    void beginGroup(Group group) { group_ = group; }
    void beginRow() { rowsOf(group_).emplace_back(); }
    /// Behind the last cell of the last row.
    void add(Cell cell);
    /// Blocks that stand in front of the table.
    void addCaption(const std::wstring& blocks) { caption_ += blocks; }

    /// The caption and the table; the caption alone where there is no cell.
    std::wstring markup();

private:
    using Row = std::vector<Cell>;
    using Rows = std::vector<Row>;

    Rows& rowsOf(Group group) { return groups_[static_cast<std::size_t>(group)]; }
    std::wstring columnsMarkup(std::size_t count) const;

    Rows groups_[3];
    Group group_ = Group::Body;
    std::vector<int> widths_; // of columns, as far as they are told
    std::wstring caption_;
};

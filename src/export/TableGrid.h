#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// Which columns the cells of a group of rows take. Where a row goes, because no cell begins in it,
/// or where there are not so many, the cells reach less far down.
class TableGrid {
public:
    struct Cell {
        int column = 0; ///< from 1 on; 0 for the next that is free
        int columns = 1;
        int rows = 1;
    };

    /// Puts a cell into the present row: where it wants to be if that is free, and as far as the
    /// columns behind are free.
    Cell place(const Cell& wanted);
    /// The cell put last says in that text over how many rows it reaches, which is changed with it.
    void note(std::string* rows) { added_.back().text = rows; }
    void endRow(bool stays);
    void endGroup();

    /// No table that can be read has more columns: no span reaches further, or is there.
    static constexpr int mostColumns = 1000;

    /// How many columns there are, as far as a cell has reached.
    int columns() const { return columns_; }

private:
    struct Span {
        int rows;
        int below; ///< of these, those that have not come yet
        std::string* text = nullptr;
    };

    bool isTaken(int column) const;
    static void shorten(Span& span, int rows);

    std::vector<int> taken_;  // of each column, for how many rows from the present one on
    std::vector<Span> spans_; // of cells in rows above
    std::vector<Span> added_; // of the present row
    int columns_ = 0;
    int next_ = 1; // the column behind the cell put last
};

#pragma once

/// Which elements of a table a command on properties is about.
enum class TableElements {
    Cells = 0,   ///< the selected ones, here and below
    Rows = 1,
    Columns = 2, ///< the fo:table-column elements
    Table = 3    ///< the table itself, whatever is selected
};

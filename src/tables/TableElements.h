#pragma once

/// Which elements of a table a command on properties is about.
enum class TableElements {
    Cells = 0,   ///< the selected cells
    Rows = 1,    ///< the selected rows
    Columns = 2, ///< the fo:table-column elements of the selected columns
    Table = 3    ///< the table itself, whatever is selected
};

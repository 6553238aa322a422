#pragma once

/// The groups that a table's rows stand in. In the text they stand in the order header, footer,
/// body; a reader meets the footer last.
enum class TableRowGroupType {
    Header = 0,
    Body = 1,
    Footer = 2,
    None = 3 ///< in no row group of this table
};

#pragma once

#include "tables/Table.h"

/// Properties of a row, `height` for one, which are written into the document's text at once.
/// Cells that stand in a header or footer directly are no row that could have them.
class RowAttributes {
public:
    explicit RowAttributes(Table& table) : table_(table) {}

    /// Gives the row of the document the formatting property, which is named without prefix, as one
    /// undo step; then the table is read anew. The row behind the last one raises a
    /// Core::Exception, any other that is not there changes nothing.
    void write(TableRowGroupType group, int row, const Core::String& name,
               const Core::String& value);

private:
    int positionOf(TableRowGroupType group, int row) const;

    Table& table_;
};

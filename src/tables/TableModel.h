#pragma once

#include "foundation/xml/Element.h"
#include "tables/RowGroupMatrix.h"
#include "tables/TableRowGroupType.h"
#include "tables/TableTree.h"

#include <array>

/// A coordinate of a table: a row group, a row in it and a logical column, which counts the columns
/// that spans take. Rows and columns are numbered from 0; -1 and None stand for no place.
struct CellPlace {
    TableRowGroupType group = TableRowGroupType::None;
    int row = -1;
    int column = -1;

    bool operator==(const CellPlace&) const = default;
};

/// A table by its row groups, as they were when the model was built: editing commands ask it about
/// the table before the change, and have it built anew afterwards.
class TableModel {
public:
    struct RowGroup {
        TableTree::Elements rows;
        RowGroupMatrix matrix;

        int rowCount() const { return static_cast<int>(rows.size()); }
    };

    explicit TableModel(Xml::Element& table);
    /// Looks at one group of the tree again.
    void rebuild(TableRowGroupType type);

    Xml::Element& table() const { return *table_; }
    /// Empty for None and for a group that the table has not.
    const RowGroup& group(TableRowGroupType type) const;
    /// Null where there is none.
    Xml::Element* rowAt(TableRowGroupType type, int row) const;
    Xml::Element* cellAt(const CellPlace& place) const;
    /// Whether a cell tells by itself which column or row it stands in, so that it would not follow
    /// when others move.
    bool hasPlacedCells() const;
    /// The largest sum of the column spans of one row's own cells.
    int columnCount() const { return columnCount_; }

private:
    Xml::Element* table_;
    int columnCount_;
    std::array<RowGroup, 4> groups_; // by type; the last one stays empty
};

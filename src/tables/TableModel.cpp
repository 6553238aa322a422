#include "tables/TableModel.h"

using Xml::Element;

TableModel::TableModel(Element& table)
    : table_(&table), columnCount_(TableTree::countTableColumns(table)) {
    for (const TableRowGroupType type :
         {TableRowGroupType::Body, TableRowGroupType::Header, TableRowGroupType::Footer}) {
        RowGroup& group = groups_[static_cast<std::size_t>(type)];
        std::vector<TableTree::Elements> bodies;
        for (Element* element : TableTree::groupsOf(table, type)) {
            bodies.push_back(TableTree::rowsOf(*element));
            group.rows.insert(group.rows.end(), bodies.back().begin(), bodies.back().end());
        }
        group.matrix = RowGroupMatrix(bodies, columnCount_);
    }
}

const TableModel::RowGroup& TableModel::group(TableRowGroupType type) const {
    return groups_[static_cast<std::size_t>(type)];
}

Element* TableModel::rowAt(TableRowGroupType type, int row) const {
    const RowGroup& rows = group(type);
    return row >= 0 && row < rows.rowCount() ? rows.rows[static_cast<std::size_t>(row)] : nullptr;
}

Element* TableModel::cellAt(const CellPlace& place) const {
    return group(place.group).matrix.cellAt(place.row, place.column);
}

#include "tables/TableModel.h"

#include <algorithm>

using Xml::Element;

TableModel::TableModel(Element& table)
    : table_(&table), columnCount_(TableTree::countTableColumns(table)) {
    for (const TableRowGroupType type :
         {TableRowGroupType::Body, TableRowGroupType::Header, TableRowGroupType::Footer})
        rebuild(type);
}

void TableModel::rebuild(TableRowGroupType type) {
    RowGroup group;
    std::vector<TableTree::Elements> bodies;
    for (Element* element : TableTree::groupsOf(*table_, type)) {
        bodies.push_back(TableTree::rowsOf(*element));
        group.rows.insert(group.rows.end(), bodies.back().begin(), bodies.back().end());
    }
    group.matrix = RowGroupMatrix(bodies, columnCount_);
    groups_[static_cast<std::size_t>(type)] = std::move(group);
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

bool TableModel::hasPlacedCells() const {
    const auto isPlaced = [](const Element* cell) {
        return cell->get_attribute(L"column-number") || cell->get_attribute(L"starts-row") ||
               cell->get_attribute(L"ends-row");
    };
    const auto holdsPlaced = [&](const Element* row) {
        const TableTree::Elements cells = TableTree::cellsOf(*row);
        return std::any_of(cells.begin(), cells.end(), isPlaced);
    };
    return std::any_of(groups_.begin(), groups_.end(), [&](const RowGroup& group) {
        return std::any_of(group.rows.begin(), group.rows.end(), holdsPlaced);
    });
}

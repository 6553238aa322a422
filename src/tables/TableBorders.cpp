#include "tables/TableBorders.h"

#include <algorithm>
#include <array>
#include <utility>

using Xml::Element;
using Group = TableRowGroupType;
using Border = CellBorderType;

namespace {

bool isEdge(Border type) {
    return type == Border::Bottom || type == Border::Top || type == Border::Left ||
           type == Border::Right;
}

bool isAllEdges(Border type) {
    return type == Border::All || type == Border::Style;
}

bool isUpright(Border edge) {
    return edge == Border::Left || edge == Border::Right;
}

Border oppositeOf(Border edge) {
    switch (edge) {
    case Border::Bottom:
        return Border::Top;
    case Border::Top:
        return Border::Bottom;
    case Border::Left:
        return Border::Right;
    default:
        return Border::Left;
    }
}

/// A body by itself where there are several.
const Element* groupOf(const Element* row) {
    return TableTree::isRow(*row) ? row->get_parent() : row;
}

} // namespace

void TableBorders::set(const CellPlace& place, Border type) {
    if (type == Border::None)
        remove(place, Border::Style);
    else if (isAllEdges(type))
        for (const Border edge : {Border::Top, Border::Bottom, Border::Left, Border::Right})
            setEdge(place, edge);
    else if (isEdge(type))
        setEdge(place, type);
}

void TableBorders::setEdge(const CellPlace& place, Border edge) {
    Element* cell = model_.cellAt(place);
    if (!cell || !isFirstPlace(place, *cell) || bordersOf(*cell).has(Border::Style))
        return;
    bordersOf(*cell).set(edge, L"solid", info_);
    const auto spanAlong = isUpright(edge) ? TableTree::rowSpanOf : TableTree::columnSpanOf;
    for (Element* neighbour : neighbours(place, edge))
        if (spanAlong(*neighbour) < 2)
            bordersOf(*neighbour).set(oppositeOf(edge), L"solid", info_);
}

void TableBorders::remove(const CellPlace& place, Border type) {
    if (type == Border::None)
        set(place, Border::Style);
    else if (isAllEdges(type))
        for (const Border edge : {Border::Top, Border::Bottom, Border::Right, Border::Left})
            removeEdge(place, edge);
    else if (isEdge(type))
        removeEdge(place, type);
}

void TableBorders::removeEdge(const CellPlace& place, Border edge) {
    Element* cell = model_.cellAt(place);
    if (!cell || !isFirstPlace(place, *cell))
        return;
    CellBorders& own = bordersOf(*cell);
    own.dissolve(edge, info_);
    if (own.has(edge))
        own.remove(edge);
    const Border opposite = oppositeOf(edge);
    for (Element* neighbour : neighbours(place, edge)) {
        CellBorders& borders = bordersOf(*neighbour);
        const bool hasStyle = borders.has(Border::Style);
        borders.dissolve(opposite, info_);
        if (!hasStyle)
            borders.remove(opposite);
        else if (edge != Border::Left)
            return; // Deliberate: the neighbours behind it keep theirs, but to the left they do
                    // not.
    }
}

bool TableBorders::has(const CellPlace& place, Border type) const {
    Element* cell = model_.cellAt(place);
    if (!cell)
        return false;
    const CellBorders borders(*cell);
    const auto hasEdge = [&](Border edge) { return borders.has(edge); };
    constexpr std::array edges{Border::Bottom, Border::Top, Border::Left, Border::Right};
    const bool hasShorthand = borders.has(Border::Style) || borders.has(Border::Border);
    if (type == Border::None)
        return !hasShorthand && std::none_of(edges.begin(), edges.end(), hasEdge);
    if (type == Border::All)
        return hasShorthand || std::all_of(edges.begin(), edges.end(), hasEdge);
    return hasShorthand || borders.has(type);
}

void TableBorders::set(const std::vector<CellPlace>& places, Border type) {
    for (const CellPlace& place : places)
        set(place, type);
}

void TableBorders::remove(const std::vector<CellPlace>& places, Border type) {
    for (const CellPlace& place : places)
        remove(place, type);
}

bool TableBorders::has(const std::vector<CellPlace>& places, Border type) const {
    return std::all_of(places.begin(), places.end(), [&](const CellPlace& place) {
        return !model_.cellAt(place) || has(place, type);
    });
}

void TableBorders::write() {
    for (auto& [cell, borders] : changed_)
        borders.write();
    changed_.clear();
}

CellBorders& TableBorders::bordersOf(Element& cell) {
    const auto found = changed_.find(&cell);
    return found != changed_.end() ? found->second : changed_.emplace(&cell, cell).first->second;
}

bool TableBorders::isFirstPlace(const CellPlace& place, const Element& cell) const {
    const auto& [group, row, column] = place;
    return (TableTree::rowSpanOf(cell) < 2 || model_.cellAt({group, row - 1, column}) != &cell) &&
           (TableTree::columnSpanOf(cell) < 2 || model_.cellAt({group, row, column - 1}) != &cell);
}

/// The cells on the other side of an edge of the cell that begins at the place; one that is longer
/// than a coordinate once for each.
TableTree::Elements TableBorders::neighbours(const CellPlace& place, Border edge) const {
    const Element& cell = *model_.cellAt(place);
    switch (edge) {
    case Border::Bottom:
        return neighboursInRow(place, place.row + heightOf(place, cell));
    case Border::Top:
        return neighboursInRow(place, place.row - 1);
    case Border::Left:
        return neighboursInColumn(place, place.column - 1);
    default:
        return neighboursInColumn(place, place.column + TableTree::columnSpanOf(cell));
    }
}

/// Deliberate: where none is, the other group is looked into at the cell's first column.
TableTree::Elements TableBorders::neighboursInRow(const CellPlace& place, int row) const {
    const Element& cell = *model_.cellAt(place);
    Element* const across = cellAcrossGroups(place, row < place.row ? Border::Top : Border::Bottom);
    TableTree::Elements found;
    for (int step = 0; step < TableTree::columnSpanOf(cell); ++step) {
        Element* beside = model_.cellAt({place.group, row, place.column + step});
        if (beside || across)
            found.push_back(beside ? beside : across);
    }
    return found;
}

TableTree::Elements TableBorders::neighboursInColumn(const CellPlace& place, int column) const {
    const int behind = place.row + heightOf(place, *model_.cellAt(place));
    TableTree::Elements found;
    for (int row = place.row; row < behind; ++row)
        if (Element* beside = model_.cellAt({place.group, row, column}))
            found.push_back(beside);
    return found;
}

/// The cell of the group that is seen above or below, where the body stands between header and
/// footer.
Element* TableBorders::cellAcrossGroups(const CellPlace& place, Border edge) const {
    const auto firstOf = [&](Group group) { return model_.cellAt({group, 0, place.column}); };
    const auto lastOf = [&](Group group) {
        return model_.cellAt({group, model_.group(group).rowCount() - 1, place.column});
    };
    const bool isBelow = edge == Border::Bottom;
    if (place.group == Group::Body)
        return isBelow ? firstOf(Group::Footer) : lastOf(Group::Header);
    if (place.group == Group::Header)
        return isBelow ? firstOf(Group::Body) : nullptr;
    return isBelow ? nullptr : lastOf(Group::Body);
}

/// How many rows the cell takes. It reaches into no other body, and past the last row only as far
/// as counts.
int TableBorders::heightOf(const CellPlace& place, const Element& cell) const {
    const TableTree::Elements& rows = model_.group(place.group).rows;
    if (place.row >= static_cast<int>(rows.size()))
        return 1;
    const auto first = rows.begin() + place.row;
    const auto behind = std::partition_point(
        first, rows.end(), [&](const Element* row) { return groupOf(row) == groupOf(*first); });
    const int overhang = behind == rows.end() ? TableTree::longestOverhang : 0;
    return std::min(TableTree::rowSpanOf(cell), static_cast<int>(behind - first) + overhang);
}

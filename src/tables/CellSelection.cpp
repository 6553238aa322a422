#include "tables/CellSelection.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

using Type = TableRowGroupType;

/// In the text the footer stands before the body.
int orderOf(Type group) {
    return group == Type::Body ? 2 : group == Type::Footer ? 1 : 0;
}

bool standsBefore(const CellPlace& a, const CellPlace& b) {
    const auto key = [](const CellPlace& place) {
        return std::tuple(orderOf(place.group), place.row, place.column);
    };
    return key(a) < key(b);
}

} // namespace

CellSelection::CellSelection(const TableModel& model, const CellPlace& caret, const CellPlace& end,
                             int columnCount)
    : model_(model), columnCount_(columnCount), caretGroup_(caret.group), first_(caret),
      last_(end) {
    if (standsBefore(last_, first_))
        std::swap(first_, last_);
}

std::vector<CellPlace> CellSelection::places() const {
    if (isNone())
        return {};
    if (isInOneGroup())
        return placesInOneGroup();
    std::vector<CellPlace> places;
    if (first_.group == Type::Header) {
        addToEndOfGroup(places, first_);
        addFromStartOfGroup(places, last_);
    } else {
        // Deliberate: a reader meets the body before the footer.
        addFromStartOfGroup(places, last_);
        addToEndOfGroup(places, first_);
    }
    return places;
}

std::vector<CellPlace> CellSelection::placesInOneGroup() const {
    std::vector<CellPlace> places;
    if (first_.row == last_.row) {
        addColumns(places, first_, last_.column);
        return places;
    }
    addColumns(places, first_, columnCount_ - 1);
    addColumns(places, {last_.group, last_.row, 0}, last_.column);
    addRows(places, first_.group, first_.row + 1, last_.row);
    return places;
}

TableTree::Elements CellSelection::cells() const {
    TableTree::Elements cells;
    for (const CellPlace& place : places())
        if (Xml::Element* cell = model_.cellAt(place))
            cells.push_back(cell);
    return cells;
}

TableTree::Elements CellSelection::rows() const {
    TableTree::Elements rows;
    // Deliberate: also in the other group a row is taken from the caret's, if that has so many.
    const auto add = [&](int first, int last) {
        last = std::min(last, model_.group(caretGroup_).rowCount() - 1);
        for (int row = first; row <= last; ++row)
            if (Xml::Element* element = model_.rowAt(caretGroup_, row))
                rows.push_back(element);
    };
    if (isNone())
        return rows;
    if (isInOneGroup()) {
        add(first_.row, last_.row);
    } else {
        add(first_.row, model_.group(first_.group).rowCount() - 1);
        add(0, last_.row);
    }
    return rows;
}

std::vector<int> CellSelection::columns() const {
    if (isNone())
        return {};
    const bool isOneRow = isInOneGroup() && first_.row == last_.row;
    const bool areNeighbours = isInOneGroup() && first_.row + 1 == last_.row;
    const auto isSelected = [&](int column) {
        if (isOneRow)
            return first_.column <= column && column <= last_.column;
        return !areNeighbours || first_.column <= column || column <= last_.column;
    };
    std::vector<int> columns;
    for (int column = 0; column < columnCount_; ++column)
        if (isSelected(column))
            columns.push_back(column);
    return columns;
}

bool CellSelection::isNone() const {
    return first_.group == Type::None || last_.group == Type::None;
}

void CellSelection::addColumns(std::vector<CellPlace>& places, const CellPlace& from,
                               int lastColumn) const {
    for (int column = from.column; column <= lastColumn; ++column)
        places.push_back({from.group, from.row, column});
}

/// The rows from `first` up to but excluding `behind`.
void CellSelection::addRows(std::vector<CellPlace>& places, Type group, int first,
                            int behind) const {
    for (int row = first; row < behind; ++row)
        addColumns(places, {group, row, 0}, columnCount_ - 1);
}

void CellSelection::addToEndOfGroup(std::vector<CellPlace>& places, const CellPlace& from) const {
    addColumns(places, from, columnCount_ - 1);
    addRows(places, from.group, from.row + 1, model_.group(from.group).rowCount());
}

void CellSelection::addFromStartOfGroup(std::vector<CellPlace>& places, const CellPlace& to) const {
    addColumns(places, {to.group, to.row, 0}, to.column);
    addRows(places, to.group, 0, to.row);
}

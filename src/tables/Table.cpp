#include "tables/Table.h"

#include "document/Document.h"
#include "document/caret/Stops.h"
#include "tables/TablePlaces.h"

#include <algorithm>

using Type = TableRowGroupType;

Table::Table(Document& document, Fragment& fragment, int table)
    : document_(document), fragment_(fragment) {
    read(table);
}

bool Table::update() {
    const XmlText& text = document_.text();
    const int around = TablePlaces::tableAround(text, document_.caret());
    if (!stands() && around < 0)
        return false;
    const int table = stands() ? fragment_.start() : around;
    if (around < 0) {
        document_.endTyping();
        document_.setCaret(Stops::next(document_, table));
    }
    read(table);
    return true;
}

bool Table::stands() const {
    return document_.text().tagName(fragment_.start()) == L"fo:table";
}

void Table::read(int table) {
    fragment_.read(table);
    rebuild();
    columnCount = model_->columnCount();
    caret.caret = placeAt(document_.caret());
    const bool endsInBody = caret.caret.group == Type::Header || caret.caret.group == Type::Body;
    caret.end = endPlace(endsInBody ? Type::Body : Type::Footer);
}

Xml::Element* Table::rowOfItsOwn(const CellPlace& place) {
    Xml::Element* row = model_->rowAt(place.group, place.row);
    if (!row || TableTree::isRow(*row))
        return row;
    TableTree::putCellsIntoRow(*row);
    rebuild();
    return model_->rowAt(place.group, place.row);
}

void Table::findCaret() {
    caret.caret = caret.end = placeAt(document_.caret());
}

/// Deliberate: behind the table a selection ends in another group than when the table is read, the
/// header's in the footer and the footer's in the body.
void Table::findSelectionEnd() {
    caret.end = endPlace(caret.caret.group == Type::Header ? Type::Footer : Type::Body);
}

CellPlace Table::placeAt(int position) const {
    const XmlText& text = document_.text();
    if (!text.elementContains(fragment_.start(), position))
        return {};
    const int cell = TablePlaces::cellAround(text, position, fragment_.start());
    if (cell < 0)
        return {Type::None, -1, 0};
    const Type group = TablePlaces::groupOf(text, cell);
    const int row = group == Type::None ? -1 : TablePlaces::rowNumberOf(text, cell);
    return {group, row, columnAt(position, group, row)};
}

int Table::columnAt(int position, Type group, int row) const {
    const XmlText& text = document_.text();
    const int cell = TablePlaces::cellAround(text, position, fragment_.start());
    const Xml::Element* element = model_->rowAt(group, row);
    const int index = cell < 0 ? -1 : TablePlaces::cellNumberOf(text, cell);
    if (!element || index < 0)
        return 0;
    const TableTree::Elements cells = TableTree::cellsOf(*element);
    int column = 0;
    while (const Xml::Element* found = model_->cellAt({group, row, column})) {
        if (index < static_cast<int>(cells.size()) &&
            found == cells[static_cast<std::size_t>(index)])
            return column;
        ++column;
    }
    return 0;
}

/// The place of the pivot or, where that is outside of the table, the end of the table that the
/// selection leaves it by; behind it that is the end of the group.
CellPlace Table::endPlace(Type groupBehind) const {
    const int pivot = document_.pivot();
    const CellPlace& from = caret.caret;
    if (!document_.hasSelection() || from.column < 0)
        return from;
    if (pivot >= fragment_.end())
        return {groupBehind, model_->group(groupBehind).rowCount() - 1, columnCount - 1};
    if (pivot > fragment_.start())
        return placeAt(pivot);
    for (const Type group : {Type::Header, Type::Footer})
        if (!TableTree::groupsOf(root(), group).empty())
            return {group, 0, 0};
    return {Type::Body, 0, 0};
}

void Table::commit() {
    const int caretBefore = document_.caret();
    fragment_.commit({{caretBefore, caretBefore}, [this] { return caretAfterCommit(); }});
}

/// With the first stops of the caret's cell and of the one at the selection's other end. Where the
/// cell is gone that is the table's first stop.
std::optional<CaretPlace> Table::caretAfterCommit() const {
    if (caret.caret.column < 0)
        return std::nullopt;
    const int cell = cellPosition(caret.caret);
    if (cell < 0) {
        const int stop = Stops::next(document_, fragment_.start());
        return CaretPlace{stop < 0 ? fragment_.start() : stop, -1};
    }
    const bool selects = caret.end.column >= 0 && caret.end != caret.caret;
    const int end = selects ? cellPosition(caret.end) : -1;
    return CaretPlace{Stops::next(document_, cell), end < 0 ? -1 : Stops::next(document_, end)};
}

int Table::cellPosition(const CellPlace& place) const {
    return cellPosition(fragment_.start(), place, model_->group(caret.caret.group).rowCount(),
                        columnCount);
}

int Table::cellPosition(int table, const CellPlace& place, int rows, int columns) const {
    const XmlText& text = document_.text();
    const Type group = place.group == Type::None ? Type::Body : place.group;
    const std::vector<int> rowsOfGroup = TablePlaces::rowsOf(text, table, group);
    if (place.row < 0 || place.row >= static_cast<int>(rowsOfGroup.size()))
        return -1;
    const int row = rowsOfGroup[static_cast<std::size_t>(place.row)];
    int column = 0;
    for (const int cell : TablePlaces::cellsOf(text, row)) {
        while (place.row < rows && column < columns &&
               isCovered({caret.caret.group, place.row, column}))
            ++column;
        if (column == place.column)
            return cell;
        column += std::clamp(TablePlaces::columnSpanOf(text, cell), 0, TableTree::widestSpan);
    }
    return -1;
}

bool Table::isCovered(const CellPlace& place) const {
    const Xml::Element* cell = model_->cellAt(place);
    return cell && (cell->get_parent() != model_->rowAt(place.group, place.row) ||
                    cell == model_->cellAt({place.group, place.row, place.column - 1}));
}

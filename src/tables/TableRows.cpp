#include "tables/TableRows.h"

#include "tables/CellContent.h"
#include "tables/ElementFormat.h"
#include "tables/RowContent.h"
#include "tables/RowMarks.h"

#include <algorithm>
#include <climits>

using Core::String;
using Xml::Element;
using Type = TableRowGroupType;

namespace {

/// The new row that a copy becomes when its cells are emptied. It has no cell where one reaches
/// into it from the row that it was copied from.
void emptyBelow(Element& row) {
    for (Element* cell : TableTree::cellsOf(row))
        if (TableTree::rowSpanOf(*cell) > 1)
            row.remove_child(cell);
        else
            CellContent::renew(*cell);
}

/// A row copied from a member at the end of its group stands outside of it, and one copied from a
/// heading is its first member.
void joinGroup(Element& copy, const Element& source) {
    const Element* next = RowMarks::next(copy);
    if (RowMarks::isMember(copy) && (!next || !RowMarks::isMember(*next)))
        RowMarks::remove(copy, L"parent-group");
    const String id = RowMarks::valueOf(source, L"id");
    if (copy.get_attribute(L"is-group-heading") && !id.empty())
        RowMarks::set(copy, L"parent-group", id, L"qfd");
}

/// The element that a row stands in, which is the row itself where cells stand in it directly.
Element* groupOf(Element* row) {
    return row && TableTree::isRow(*row) ? row->get_parent() : row;
}

/// An empty cell that looks like another and is as wide.
void addCellLike(const Element& pattern, Element& row) {
    auto& cell = static_cast<Element&>(*row.import_node(&pattern, false));
    cell.set_namespace(L"fo");
    ElementFormat::apply(cell, pattern, true);
    RowMarks::remove(cell, L"number-rows-spanned");
    CellContent::renew(cell);
}

} // namespace

int TableRows::rowCount(Type type) const {
    return model_.group(type).rowCount();
}

void TableRows::insert(bool above) {
    if (model_.cellAt(caret_.caret))
        insertAt(caret_.caret.group, caret_.caret.row, above);
}

void TableRows::insertAt(const Element& row, bool above) {
    for (const Type type : {Type::Header, Type::Body, Type::Footer}) {
        const TableTree::Elements& rows = model_.group(type).rows;
        const auto found = std::find(rows.begin(), rows.end(), &row);
        if (found != rows.end())
            return insertAt(type, static_cast<int>(found - rows.begin()), above);
    }
}

void TableRows::insertAt(Type type, int number, bool above) {
    Element* row = rowOfItsOwn(type, number);
    if (row && above)
        insertAbove(*row, type, number);
    else if (row)
        insertBelow(*row, type, number);
}

Element* TableRows::rowOfItsOwn(Type type, int number) {
    return table_.rowOfItsOwn({type, number, 0});
}

void TableRows::insertAbove(Element& row, Type type, int number) {
    const Element* before = model_.rowAt(type, number - 1);
    if (before && before->get_parent() == row.get_parent())
        raiseRowSpans(type, number - 1);
    RowContent::copyBehind(row); // which is the old row from now on
    RowMarks::makePlain(row);
    RowContent::renew(row);
    if (caret_.caret.group != type || caret_.caret.row < number)
        return;
    if (caret_.end.row == caret_.caret.row)
        ++caret_.end.row;
    ++caret_.caret.row;
}

void TableRows::insertBelow(Element& row, Type type, int number) {
    Element& added = RowContent::copyBehind(row);
    joinGroup(added, row);
    RowMarks::makePlain(added);
    CellContent::removeIds(added);
    emptyBelow(added);
    raiseRowSpans(type, number);
}

/// Deliberate: a cell that is met at several columns is raised once for each, and whether it
/// reaches into the new row is not looked at.
void TableRows::raiseRowSpans(Type type, int row) {
    for (int column = 0; column < table_.columnCount; ++column) {
        Element* cell = model_.cellAt({type, row, column});
        const int span = cell ? TableTree::rowSpanOf(*cell) : 0;
        if (span > 1 && span < INT_MAX)
            TableTree::setRowSpan(*cell, span + 1);
    }
}

void TableRows::insertInto(Type type) {
    if (TableTree::groupsOf(model_.table(), type).empty()) {
        makeGroup(type);
        return;
    }
    const int last = rowCount(type) - 1;
    if (Element* row = rowOfItsOwn(type, last))
        insertBelow(*row, type, last);
}

/// Like the first row with cells of the group that it will stand before.
void TableRows::makeGroup(Type type) {
    Element& table = model_.table();
    const bool isBeforeFooter =
        type == Type::Header && !TableTree::groupsOf(table, Type::Footer).empty();
    const Type next = isBeforeFooter ? Type::Footer : Type::Body;
    const TableTree::Elements& rows = model_.group(next).rows;
    const auto pattern = std::find_if(rows.begin(), rows.end(), [](const Element* row) {
        return !TableTree::cellsOf(*row).empty();
    });
    if (pattern == rows.end())
        return;
    Element* place = TableTree::groupsOf(table, next).front();
    auto& group = static_cast<Element&>(*table.import_node_as_prev_sibling(place, place, false));
    group.set_name(type == Type::Header ? L"table-header" : L"table-footer");
    group.set_namespace(L"fo");
    RowMarks::remove(group, L"id");
    Element& row = *group.add_child(L"table-row", L"fo");
    for (const Element* cell : TableTree::cellsOf(**pattern))
        addCellLike(*cell, row);
}

/// Deliberate: of a header or footer of one row any number is that of the row.
bool TableRows::remove(Type type, int row) {
    const bool isOnly = rowCount(type) == 1;
    if (isOnly && type != Type::Body)
        row = 0;
    if (!model_.rowAt(type, row) || (isOnly && type == Type::Body))
        return false;
    removeDown(type, row, row);
    return true;
}

/// The rows from `last` back to `first`, as far as there are any. The last body row stays; a header
/// or footer goes with its last row, and one of several bodies with its own last.
void TableRows::removeDown(Type type, int last, int first) {
    if (rowCount(type) > 1)
        rowOfItsOwn(type, rowCount(type) - 1);
    int left = rowCount(type);
    last = std::min(last, left - 1);
    const Element* behind = groupOf(model_.rowAt(type, last + 1));
    for (int number = last; number >= std::max(first, 0); --number) {
        Element* row = model_.rowAt(type, number);
        Element* group = groupOf(row);
        if (left-- == 1 && type == Type::Body)
            return;
        RowMarks::freeMembers(*row);
        const bool isEmptied = group != behind && group != groupOf(model_.rowAt(type, number - 1));
        (isEmptied ? group : row)->get_parent()->remove_child(isEmptied ? group : row);
    }
}

void TableRows::removeSelected() {
    const CellPlace caret = caret_.caret;
    const CellPlace end = caret_.end;
    if (caret.group == Type::None || end.group == Type::None)
        return;
    if (caret.group == end.group)
        removeDown(caret.group, std::max(caret.row, end.row), std::min(caret.row, end.row));
    else
        removeAcrossGroups();
    const auto rows = TableTree::rowsOf(model_.table(), caret.group);
    caret_.caret.row = std::min(caret.row - 1, static_cast<int>(rows.size()) - 1);
    caret_.caret.row = std::max(caret_.caret.row, 0);
    if (rows.empty())
        caret_.caret = {Type::Body, 0, caret.column};
    caret_.end = caret_.caret;
}

void TableRows::removeAcrossGroups() {
    const auto rowIn = [this](Type type) {
        return caret_.caret.group == type ? caret_.caret.row : caret_.end.row;
    };
    const bool hasHeader = caret_.caret.group == Type::Header || caret_.end.group == Type::Header;
    const bool hasBody = caret_.caret.group == Type::Body || caret_.end.group == Type::Body;
    if (!hasHeader) {
        removeDown(Type::Body, rowIn(Type::Body), 0);
        removeDown(Type::Footer, rowCount(Type::Footer) - 1, rowIn(Type::Footer));
        return;
    }
    removeDown(Type::Header, rowCount(Type::Header) - 1, rowIn(Type::Header));
    if (hasBody)
        removeDown(Type::Body, std::min(rowIn(Type::Body), rowCount(Type::Body) - 2), 0);
    else
        removeDown(Type::Footer, rowIn(Type::Footer), 0);
}

bool TableRows::canRemove() const {
    const auto [group, row, column] = caret_.caret;
    const Element* element = model_.rowAt(group, row);
    if (!element || (group == Type::Body && rowCount(group) == 1) || RowMarks::isHeading(*element))
        return false;
    for (int at = 0; const Element* cell = model_.cellAt({group, row, at}); ++at)
        if (cell == model_.cellAt({group, row - 1, at}) ||
            cell == model_.cellAt({group, row + 1, at}))
            return false;
    return true;
}

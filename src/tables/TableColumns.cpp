#include "tables/TableColumns.h"

#include "foundation/Format.h"
#include "tables/CellContent.h"
#include "tables/RowMarks.h"

#include <algorithm>
#include <array>
#include <set>

using Core::String;
using Xml::Element;
using Xml::Node;
using Type = TableRowGroupType;

namespace {

constexpr std::array groupTypes = {Type::Header, Type::Body, Type::Footer};

void copyColumnBehind(Element& column) {
    CellContent::removeIds(static_cast<Element&>(
        *column.get_parent()->import_node_as_sibling(&column, &column, true)));
}

} // namespace

bool TableColumns::mayChange() const {
    return model_.cellAt(caret_.caret) && !model_.hasPlacedCells();
}

void TableColumns::insert(bool after) {
    if (!mayChange())
        return;
    for (const Type type : groupTypes)
        insertIn(type, after);
    int& column = caret_.caret.column;
    const int index = after ? column + 1 : column;
    if (!after) {
        ++column;
        if (caret_.end.column != column) // Deliberate: it may stay beside the caret's.
            ++caret_.end.column;
    }
    ++table_.columnCount;
    insertColumnElement(index);
}

/// Deliberate: a cell that spans columns is met once for each row that it covers.
void TableColumns::insertIn(Type type, bool after) {
    const int column = caret_.caret.column;
    for (int row = 0; row < model_.group(type).rowCount(); ++row) {
        Element* cell = model_.cellAt({type, row, column});
        if (!cell)
            continue;
        const int span = TableTree::columnSpanOf(*cell);
        if (span > 1 && after) {
            TableTree::setColumnSpan(*cell, span + 1);
        } else if (span > 1) {
            TableTree::setColumnSpan(CellContent::addLike(*cell, true), 1);
        } else {
            CellContent::addLike(*cell, !after);
            while (model_.cellAt({type, row + 1, column}) == cell &&
                   row + 1 < model_.group(type).rowCount())
                ++row;
        }
    }
}

void TableColumns::insertColumnElement(int index) {
    writeOutRepeated();
    const TableTree::Elements columns = TableTree::columnsOf(model_.table());
    if (columns.empty()) {
        if (index > 0)
            makeColumnElements();
        return;
    }
    const int last = static_cast<int>(columns.size()) - 1;
    copyColumnBehind(*columns[static_cast<std::size_t>(std::clamp(index, 1, last + 1) - 1)]);
    numberColumnElements();
}

/// Each column that stands for several becomes these.
void TableColumns::writeOutRepeated() {
    for (Element* column : TableTree::columnsOf(model_.table())) {
        int count = 1;
        Core::Format::parseInt(RowMarks::valueOf(*column, L"number-columns-repeated"), count);
        if (count < 2)
            continue;
        RowMarks::remove(*column, L"number-columns-repeated");
        for (count = std::min(count, TableTree::widestSpan); count > 1; --count)
            copyColumnBehind(*column);
    }
}

/// Deliberate: they carry the attributes of what stands first in the table.
void TableColumns::makeColumnElements() {
    const auto children = model_.table().get_children();
    const auto first = std::find_if(children.begin(), children.end(),
                                    [](const Node* child) { return child->is_element(); });
    for (int count = table_.columnCount; first != children.end() && count > 0; --count) {
        auto& column = static_cast<Element&>(
            *model_.table().import_node_as_prev_sibling(*first, *first, false));
        column.set_name(L"table-column");
        column.set_namespace(L"fo");
        CellContent::removeIds(column);
    }
}

void TableColumns::numberColumnElements() {
    int number = 0;
    for (Element* column : TableTree::columnsOf(model_.table()))
        column->set_attribute(L"column-number", String::formatS(++number));
}

void TableColumns::remove() {
    if (!mayChange())
        return;
    for (const Type type : groupTypes)
        removeIn(type);
    --table_.columnCount;
    writeOutRepeated();
    int& column = caret_.caret.column;
    const TableTree::Elements columns = TableTree::columnsOf(model_.table());
    if (column < static_cast<int>(columns.size())) {
        model_.table().remove_child(columns[static_cast<std::size_t>(column)]);
        numberColumnElements();
    }
    column = std::max(column - 1, 0);
    caret_.end = caret_.caret;
}

void TableColumns::removeFrom(Type type) {
    if (mayChange())
        removeIn(type);
}

void TableColumns::removeIn(Type type) {
    std::set<const Element*> removed;
    for (int row = 0; row < model_.group(type).rowCount(); ++row) {
        Element* cell = model_.cellAt({type, row, caret_.caret.column});
        if (cell && removed.insert(cell).second)
            cell->get_parent()->remove_child(cell);
    }
}

bool TableColumns::canRemove() const {
    return mayChange() && table_.columnCount > 1 &&
           std::all_of(groupTypes.begin(), groupTypes.end(),
                       [this](Type type) { return canRemoveIn(type); });
}

bool TableColumns::canRemoveFrom(Type type) const {
    return !model_.hasPlacedCells() && canRemoveIn(type);
}

/// Deliberate: no row is looked at but the first and, in place of each other one, the caret's.
bool TableColumns::canRemoveIn(Type type) const {
    const int rows = model_.group(type).rowCount();
    return !(rows > 0 && isCrossed(type, 0)) && !(rows > 1 && isCrossed(type, caret_.caret.row));
}

bool TableColumns::isCrossed(Type type, int row) const {
    const int column = caret_.caret.column;
    const Element* cell = model_.cellAt({type, row, column});
    return cell && (cell == model_.cellAt({type, row, column - 1}) ||
                    cell == model_.cellAt({type, row, column + 1}));
}

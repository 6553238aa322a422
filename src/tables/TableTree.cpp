#include "tables/TableTree.h"

#include "foundation/Format.h"

#include <algorithm>
#include <climits>
#include <set>

using Core::String;
using Xml::Element;
using Xml::Node;

namespace TableTree {

namespace {

String nameOf(TableRowGroupType type) {
    switch (type) {
    case TableRowGroupType::Header:
        return L"table-header";
    case TableRowGroupType::Body:
        return L"table-body";
    case TableRowGroupType::Footer:
        return L"table-footer";
    case TableRowGroupType::None:
        break;
    }
    return {};
}

Elements elementsNamed(const Element& parent, const String& name) {
    Elements found;
    for (Node* child : parent.get_children(name))
        if (child->is_element())
            found.push_back(static_cast<Element*>(child));
    return found;
}

int spanOf(const Element& cell, const String& name) {
    int span = 1;
    if (const Xml::Attribute* attribute = cell.get_attribute(name))
        Core::Format::parseInt(attribute->get_value(), span);
    return std::max(span, 0);
}

} // namespace

Elements groupsOf(const Element& table, TableRowGroupType type) {
    if (type == TableRowGroupType::None)
        return {};
    Elements groups = elementsNamed(table, nameOf(type));
    if (type != TableRowGroupType::Body && groups.size() > 1)
        groups.erase(groups.begin() + 1, groups.end());
    return groups;
}

bool isRow(const Element& element) {
    const String name = element.get_name();
    return name == L"table-row" || name == L"table-row-repeat";
}

Elements rowsOf(Element& group) {
    const bool takesCells = group.get_name() != L"table-body";
    Elements rows;
    for (Node* child : group.get_children()) {
        if (!child->is_element())
            continue;
        auto* element = static_cast<Element*>(child);
        if (isRow(*element)) {
            rows.push_back(element);
        } else if (takesCells && element->get_name() == L"table-cell") {
            rows.push_back(&group);
            break;
        }
    }
    return rows;
}

Elements rowsOf(const Element& table, TableRowGroupType type) {
    Elements rows;
    for (Element* group : groupsOf(table, type)) {
        const Elements own = rowsOf(*group);
        rows.insert(rows.end(), own.begin(), own.end());
    }
    return rows;
}

void putCellsIntoRow(Element& group) {
    const Elements cells = cellsOf(group);
    if (cells.empty())
        return;
    Element* row = group.add_node_as_prev_sibling(cells.front(), L"table-row", L"fo");
    for (Element* cell : cells) {
        row->import_node(cell, true);
        group.remove_child(cell);
    }
}

Elements columnsOf(const Element& table) {
    return elementsNamed(table, L"table-column");
}

Elements columnsAt(const Element& table, const std::vector<int>& numbers) {
    const std::set<int> meant(numbers.begin(), numbers.end());
    Elements found;
    int number = 0;
    for (Element* column : columnsOf(table))
        if (meant.contains(number++))
            found.push_back(column);
    return found;
}

Elements cellsOf(const Element& row) {
    return elementsNamed(row, L"table-cell");
}

int columnSpanOf(const Element& cell) {
    return std::min(spanOf(cell, L"number-columns-spanned"), widestSpan);
}

int rowSpanOf(const Element& cell) {
    return spanOf(cell, L"number-rows-spanned");
}

void setColumnSpan(Element& cell, int span) {
    cell.set_attribute(L"number-columns-spanned", String::formatS(span));
}

void setRowSpan(Element& cell, int span) {
    cell.set_attribute(L"number-rows-spanned", String::formatS(span));
}

int countColumns(const Element& row) {
    int columns = 0;
    for (const Element* cell : cellsOf(row))
        columns = std::min(columns + columnSpanOf(*cell), INT_MAX - widestSpan);
    return columns;
}

int countTableColumns(const Element& table) {
    int columns = 0;
    for (const TableRowGroupType type :
         {TableRowGroupType::Header, TableRowGroupType::Body, TableRowGroupType::Footer})
        for (const Element* row : rowsOf(table, type))
            columns = std::max(columns, countColumns(*row));
    return columns;
}

Element* cellBeginningAt(const Element& row, int column) {
    int start = 0;
    for (Element* cell : cellsOf(row)) {
        if (start == column)
            return cell;
        start = std::min(start + columnSpanOf(*cell), INT_MAX - widestSpan);
    }
    return nullptr;
}

int indexOf(const Element& cell, const Element& row) {
    const Elements cells = cellsOf(row);
    const auto found = std::find(cells.begin(), cells.end(), &cell);
    return found == cells.end() ? -1 : static_cast<int>(found - cells.begin());
}

} // namespace TableTree

#include "tables/TablePlaces.h"

#include "foundation/Format.h"

#include <algorithm>

using Core::String;
using XmlScan::Text;

namespace TablePlaces {

namespace {

bool isElement(const XmlText& text, int tag) {
    return text.openingAt(tag) || text.selfClosingAt(tag);
}

/// The child element at or behind a place between the parent's children; -1 behind the last.
int childFrom(const XmlText& text, int position) {
    const int tag = text.nextTag(position);
    return isElement(text, tag) ? tag : -1;
}

int firstChild(const XmlText& text, int parent) {
    return text.openingAt(parent) ? childFrom(text, text.next(parent)) : -1;
}

int childBehind(const XmlText& text, int child) {
    return childFrom(text, text.behindElement(child));
}

TableRowGroupType groupNamed(Text name) {
    if (name == L"fo:table-header")
        return TableRowGroupType::Header;
    if (name == L"fo:table-body")
        return TableRowGroupType::Body;
    return name == L"fo:table-footer" ? TableRowGroupType::Footer : TableRowGroupType::None;
}

int placeIn(const std::vector<int>& elements, int element) {
    const auto found = std::find(elements.begin(), elements.end(), element);
    return found == elements.end() ? -1 : static_cast<int>(found - elements.begin());
}

int spanOf(const XmlText& text, int cell, Text name) {
    int span = 1;
    for (int at = text.nextAttribute(cell); at >= 0; at = text.nextAttribute(at)) {
        const Text attribute = text.attributeName(at);
        if (attribute == name || attribute.substr(attribute.find(L':') + 1) == name)
            Core::Format::parseInt(String(text.attributeValue(at)), span);
        if (attribute == name)
            break;
    }
    return span;
}

} // namespace

int tableAround(const XmlText& text, int position) {
    return text.ancestor(position, L"fo:table");
}

std::vector<int> childrenNamed(const XmlText& text, int parent, Text name) {
    std::vector<int> found;
    for (int child = firstChild(text, parent); child >= 0; child = childBehind(text, child))
        if (text.tagName(child) == name)
            found.push_back(child);
    return found;
}

std::vector<int> groupsOf(const XmlText& text, int table, TableRowGroupType type) {
    switch (type) {
    case TableRowGroupType::Header:
        return childrenNamed(text, table, L"fo:table-header");
    case TableRowGroupType::Body:
        return childrenNamed(text, table, L"fo:table-body");
    case TableRowGroupType::Footer:
        return childrenNamed(text, table, L"fo:table-footer");
    case TableRowGroupType::None:
        break;
    }
    return {};
}

bool isRow(const XmlText& text, int element) {
    const Text name = text.tagName(element);
    return name == L"fo:table-row" || name == L"qfd:table-row-repeat";
}

std::vector<int> rowsOf(const XmlText& text, int group) {
    const bool takesCells = text.tagName(group) != L"fo:table-body";
    std::vector<int> rows;
    for (int child = firstChild(text, group); child >= 0; child = childBehind(text, child)) {
        if (isRow(text, child)) {
            rows.push_back(child);
        } else if (takesCells && text.tagName(child) == L"fo:table-cell") {
            rows.push_back(group);
            break;
        }
    }
    return rows;
}

std::vector<int> rowsOf(const XmlText& text, int table, TableRowGroupType type) {
    std::vector<int> groups = groupsOf(text, table, type);
    if (type != TableRowGroupType::Body && groups.size() > 1)
        groups.erase(groups.begin() + 1, groups.end());
    std::vector<int> rows;
    for (const int group : groups) {
        const std::vector<int> own = rowsOf(text, group);
        rows.insert(rows.end(), own.begin(), own.end());
    }
    return rows;
}

std::vector<int> cellsOf(const XmlText& text, int row) {
    return childrenNamed(text, row, L"fo:table-cell");
}

int cellAround(const XmlText& text, int position, int table) {
    // From the `<` of a table within, it is the cell around that which is met.
    int inner = tableAround(text, position);
    while (table >= 0 && inner >= 0 && inner != table) {
        position = inner;
        inner = tableAround(text, inner);
    }
    const int cell = text.ancestor(position, L"fo:table-cell");
    return inner >= 0 && cell > inner ? cell : -1;
}

TableRowGroupType groupOf(const XmlText& text, int cell) {
    int parent = text.elementAround(cell);
    if (isRow(text, parent))
        parent = text.elementAround(parent);
    return groupNamed(text.tagName(parent));
}

int rowNumberOf(const XmlText& text, int cell) {
    return placeIn(rowsOf(text, tableAround(text, cell), groupOf(text, cell)),
                   text.elementAround(cell));
}

int cellNumberOf(const XmlText& text, int cell) {
    return placeIn(cellsOf(text, text.elementAround(cell)), cell);
}

int columnSpanOf(const XmlText& text, int cell) {
    return spanOf(text, cell, L"number-columns-spanned");
}

int rowSpanOf(const XmlText& text, int cell) {
    return spanOf(text, cell, L"number-rows-spanned");
}

} // namespace TablePlaces

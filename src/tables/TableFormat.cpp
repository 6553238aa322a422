#include "tables/TableFormat.h"

#include "foundation/xml/DomParser.h"
#include "tables/EditableTableBuffer.h"
#include "tables/ElementFormat.h"
#include "tables/Table.h"
#include "tables/TableTree.h"
#include "trees/DOMBasedBuffer.h"

#include <vector>

using Xml::Element;

namespace {

const Element* child(const Element* parent, const wchar_t* name) {
    return parent ? DOMBasedBuffer::getElementByName(parent, name) : nullptr;
}

/// The formats for a cell of a row, the last of which wins.
std::vector<const Element*> formatsOf(const TableTree::Elements& cells, std::size_t index,
                                      const TableTree::Elements& pattern) {
    const Element* left = pattern[0];
    const Element* middle = pattern[1];
    const Element* right = pattern[2];
    const bool isFirst = index == 0;
    const bool isLast = index + 1 == cells.size();
    const bool isWide = TableTree::columnSpanOf(*cells[index]) > 1;
    if (isFirst && isLast)
        return {right, middle, left};
    if (isFirst)
        return isWide ? std::vector{middle, left} : std::vector{left};
    if (isLast)
        return isWide ? std::vector{right, middle} : std::vector{right};
    return {middle};
}

} // namespace

const Element* TableFormat::templateIn(const Element& document) {
    const Element* flow = child(child(&document, L"page-sequence"), L"flow");
    const Element* container = child(flow, L"block-container");
    return child(child(container ? container : flow, L"block"), L"table");
}

void TableFormat::apply(Element& table, const Element& pattern) {
    ElementFormat::apply(table, pattern, true);
    for (const TableRowGroupType type :
         {TableRowGroupType::Header, TableRowGroupType::Footer, TableRowGroupType::Body}) {
        const TableTree::Elements patterns = TableTree::groupsOf(pattern, type);
        for (Element* group : TableTree::groupsOf(table, type))
            if (!patterns.empty())
                applyToGroup(*group, *patterns.front());
    }
}

void TableFormat::applyToGroup(Element& group, const Element& pattern) {
    if (const Element* first = child(&pattern, L"table-row"))
        for (Element* row : TableTree::rowsOf(group))
            applyToRow(*row, *first);
}

void TableFormat::applyToRow(Element& row, const Element& pattern) {
    ElementFormat::apply(row, pattern, true);
    const TableTree::Elements patterns = TableTree::cellsOf(pattern);
    const TableTree::Elements cells = TableTree::cellsOf(row);
    for (std::size_t index = 0; patterns.size() >= 3 && index < cells.size(); ++index) {
        bool isFirst = true;
        for (const Element* format : formatsOf(cells, index, patterns)) {
            ElementFormat::apply(*cells[index], *format, isFirst);
            isFirst = false;
        }
    }
}

void EditableTableBuffer::applyFormat(const SmartPtr<Core::IO::Stream>& stream) {
    if (!table_->update())
        return;
    Xml::DomParser parser;
    parser.parseStream(stream);
    applyTableFormat(TableFormat::templateIn(*parser.getDocument()->getRootNode()));
}

void EditableTableBuffer::applyTableFormat(const Element* pattern) {
    if (pattern)
        TableFormat::apply(table_->root(), *pattern);
}

void EditableTableBuffer::applyTableRowGroupFormat(Element* group, const Element* pattern) {
    if (group && pattern)
        TableFormat::applyToGroup(*group, *pattern);
}

void EditableTableBuffer::applyRowFormat(Element* row, const Element* pattern) {
    if (row && pattern)
        TableFormat::applyToRow(*row, *pattern);
}

void EditableTableBuffer::applyElementFormat(Element* element, const Element* pattern, bool clear) {
    if (element && pattern)
        ElementFormat::apply(*element, *pattern, clear);
}

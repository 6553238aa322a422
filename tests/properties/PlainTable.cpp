#include "properties/PlainTable.h"

#include "foundation/Format.h"
#include "foundation/Wide.h"
#include "foundation/XmlTesting.h"
#include "foundation/xml/EntityReferenceNode.h"
#include "foundation/xml/TextNode.h"
#include "text/Prolog.h"
#include "text/XmlText.h"

#include <algorithm>
#include <sstream>

using Core::String;
using Xml::Element;
using Xml::Node;
using Type = TableRowGroupType;

namespace {

constexpr int manyColumns = 1000;

std::vector<const Element*> childrenOf(const Element& parent, const char* name) {
    std::vector<const Element*> found;
    for (const Node* child : parent.get_children(name))
        if (child->is_element())
            found.push_back(static_cast<const Element*>(child));
    return found;
}

String attributeOf(const Element& element, const char* name) {
    const Xml::Attribute* found = element.get_attribute(name);
    return found ? found->get_value() : String();
}

int spanOf(const Element& cell, const char* name) {
    int span = 1;
    Core::Format::parseInt(attributeOf(cell, name), span);
    return std::max(span, 0);
}

void addText(const Node& node, std::wstring& text) {
    if (node.is_text())
        text += wide(static_cast<const Xml::TextNode&>(node).get_content());
    else if (dynamic_cast<const Xml::EntityReferenceNode*>(&node))
        text += L"&" + wide(node.get_name());
    else
        text += L" ";
    if (node.is_element())
        for (const Node* child : node.get_children())
            addText(*child, text);
    if (node.is_element())
        text += L" ";
}

std::wstring writtenAlone(const Node& node) {
    const SmartPtr<Xml::XmlDocument> alone(new Xml::XmlDocument);
    alone->createRootNodeByImport(&node, true);
    return wide(alone->writeToString());
}

std::wstring contentOf(const Element& cell) {
    const std::wstring text = writtenAlone(cell);
    return text.substr(text.find(L'>') + 1);
}

/// Of the element that begins there, in units.
std::size_t lengthOf(const String& document, int element) {
    XmlText text;
    text.assign(document);
    return static_cast<std::size_t>(text.behindElement(element) - element);
}

/// The element, behind the document's type for its entities.
SmartPtr<Xml::XmlDocument> parsed(const String& document, int element, std::size_t length) {
    const std::wstring type(XmlScan::prologOf(document.view()).documentType);
    const String text(
        type + std::wstring(document.view().substr(static_cast<std::size_t>(element), length)));
    return parse(Core::Encoder::convertStringToUTF8(text).view());
}

} // namespace

std::multiset<std::wstring> wordsOf(const Node& node) {
    std::wstring text;
    addText(node, text);
    std::replace(text.begin(), text.end(), L'\xA0', L' ');
    std::wistringstream stream(text);
    std::multiset<std::wstring> words;
    for (std::wstring word; stream >> word;)
        words.insert(word);
    return words;
}

std::multiset<std::wstring> wordsOf(const PlainTable::Cells& cells) {
    std::multiset<std::wstring> words;
    for (const PlainTable::Cell* cell : cells)
        words.insert(cell->words.begin(), cell->words.end());
    return words;
}

PlainTable::Cells PlainTable::Group::ownCells(int row) const {
    Cells found;
    for (const auto& cell : cells)
        if (cell->row == row)
            found.push_back(cell.get());
    return found;
}

PlainTable::Cells PlainTable::Group::cellsIn(int column) const {
    Cells found;
    for (const auto& [place, cell] : matrix)
        if (place.second == column && std::find(found.begin(), found.end(), cell) == found.end())
            found.push_back(cell);
    return found;
}

PlainTable::PlainTable(const String& document, int table)
    : length_(lengthOf(document, table)), tree_(parsed(document, table, length_)) {
    for (const Type type : {Type::Header, Type::Body, Type::Footer})
        readRows(type);
    for (Group& group : groups_)
        for (const Element* row : group.rows) {
            int columns = 0;
            for (const Element* cell : childrenOf(*row, "table-cell"))
                columns += std::min(spanOf(*cell, "number-columns-spanned"), manyColumns);
            columns_ = std::max(columns_, columns);
        }
    for (Group& group : groups_)
        fill(group);
}

void PlainTable::readRows(Type type) {
    const char* const names[] = {"table-header", "table-body", "table-footer"};
    auto elements = childrenOf(*tree_->getRootNode(), names[static_cast<int>(type)]);
    if (type != Type::Body && elements.size() > 1)
        elements.erase(elements.begin() + 1, elements.end());
    Group& group = groups_[static_cast<std::size_t>(type)];
    for (const Element* element : elements) {
        for (const Node* child : element->get_children()) {
            const String name = child->get_name();
            if (name == "table-row" || name == "table-row-repeat")
                group.rows.push_back(static_cast<const Element*>(child));
            if (name != "table-cell" || type == Type::Body)
                continue;
            group.rows.push_back(element);
            break;
        }
        group.bodyEnds.resize(group.rows.size(), static_cast<int>(group.rows.size()));
    }
}

void PlainTable::fill(Group& group) {
    for (std::size_t row = 0; row < group.rows.size(); ++row) {
        int column = 0;
        for (const Element* element : childrenOf(*group.rows[row], "table-cell")) {
            const auto number = static_cast<int>(row);
            while (column < columns_ && group.matrix.contains({number, column}))
                ++column;
            auto cell = std::make_unique<Cell>(Cell{
                element, number, column,
                std::min(spanOf(*element, "number-columns-spanned"), manyColumns),
                spanOf(*element, "number-rows-spanned"), wordsOf(*element), contentOf(*element)});
            for (const char* name : {"column-number", "starts-row", "ends-row"})
                isStrange_ = isStrange_ || element->get_attribute(name);
            isStrange_ = isStrange_ || spanOf(*element, "number-columns-spanned") > manyColumns;
            column += cell->columns;
            place(group, std::move(cell));
        }
    }
    for (int row = 0; row < static_cast<int>(group.rows.size()); ++row)
        for (int column = 0; column < columns_; ++column)
            group.isBalanced = group.isBalanced && group.matrix.contains({row, column});
}

void PlainTable::place(Group& group, std::unique_ptr<Cell> cell) {
    const int end = group.bodyEnds[static_cast<std::size_t>(cell->row)];
    if (cell->rows < 1 || cell->columns < 1 || cell->rows > end - cell->row ||
        cell->column + cell->columns > columns_)
        group.isBalanced = false;
    for (int row = cell->row; row < end && row - cell->row < cell->rows; ++row)
        for (int column = cell->column; column < cell->column + cell->columns; ++column) {
            const Cell*& there = group.matrix[{row, column}];
            group.isBalanced = group.isBalanced && !there;
            there = cell.get();
        }
    group.cells.push_back(std::move(cell));
}

bool PlainTable::isBalanced() const {
    return !isStrange_ && columns_ < manyColumns &&
           std::all_of(groups_.begin(), groups_.end(),
                       [](const Group& group) { return group.isBalanced; });
}

bool PlainTable::hasSpans() const {
    const Cells all = cells();
    return std::any_of(all.begin(), all.end(),
                       [](const Cell* cell) { return cell->columns > 1 || cell->rows > 1; });
}

PlainTable::Cells PlainTable::cells() const {
    Cells all;
    for (const Group& group : groups_)
        for (const auto& cell : group.cells)
            all.push_back(cell.get());
    return all;
}

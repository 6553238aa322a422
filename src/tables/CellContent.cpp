#include "tables/CellContent.h"

#include "foundation/xml/EntityReferenceNode.h"

#include <algorithm>
#include <list>

using Core::String;
using Xml::Element;
using Xml::Node;

namespace {

const String placeholder(L'\xA0', 1);

bool isNamed(const Node* node, const wchar_t* name) {
    return node->is_element() && node->get_name() == name;
}

bool isBlock(const Node* node) {
    return isNamed(node, L"block");
}

bool isList(const Node* node) {
    return isNamed(node, L"list-block");
}

bool isReference(const Node* node) {
    return dynamic_cast<const Xml::EntityReferenceNode*>(node);
}

String textOf(const Node* node) {
    return node->is_text() ? static_cast<const Xml::TextNode*>(node)->get_content() : String();
}

bool isWhiteSpace(const Node* node) {
    return node->is_text() && textOf(node).trim().empty();
}

/// Whether a reader sees something of it that is not white space, and be it a placeholder.
bool shows(const Node* node) {
    return node->is_element() || isReference(node) || (node->is_text() && !isWhiteSpace(node));
}

template <typename Predicate>
void removeChildren(Element& element, Predicate isRemoved) {
    for (Node* child : element.get_children())
        if (isRemoved(child))
            element.remove_child(child);
}

} // namespace

void CellContent::leavePlaceholder(Element& element) {
    removeChildren(element, [](const Node* child) {
        return child->is_element() || child->is_text() || isReference(child);
    });
    element.set_child_text(placeholder);
}

void CellContent::removeText(Element& cell) {
    const std::list<Node*> children = cell.get_children();
    const auto first = std::find_if(children.begin(), children.end(), isBlock);
    Element& kept =
        first == children.end() ? *cell.add_child(L"block", L"fo") : *static_cast<Element*>(*first);
    removeChildren(cell, [&kept](const Node* child) {
        return child != &kept && (isBlock(child) || isList(child));
    });
    leavePlaceholder(kept);
}

void CellContent::renew(Element& cell) {
    removeIds(cell);
    removeChildren(cell, [](const Node* child) { return !isBlock(child); });
    removeText(cell);
}

Element& CellContent::addLike(Element& cell, bool before) {
    Element* row = cell.get_parent();
    Node* copy = before ? row->import_node_as_prev_sibling(&cell, &cell, true)
                        : row->import_node_as_sibling(&cell, &cell, true);
    Element& added = static_cast<Element&>(*copy);
    renew(added);
    return added;
}

bool CellContent::isWithoutText(const Element& block) {
    String text;
    for (const Node* child : block.get_children()) {
        if (child->is_element() || isReference(child))
            return false;
        text += textOf(child);
    }
    text.trim();
    return text.empty() || text == placeholder || text == L"&#x00A0;";
}

bool CellContent::isJustPlaceholder(const Element& block) {
    const std::list<Node*> children = block.get_children();
    if (children.size() != 1)
        return false;
    const String text = textOf(children.front());
    return text == placeholder || text == L"&#x00A0;";
}

void CellContent::importBlocks(Element& target, const Element& source) {
    std::list<Node*> moved = source.get_children();
    moved.remove_if([](const Node* child) {
        return isWhiteSpace(child) ||
               (isBlock(child) && isWithoutText(static_cast<const Element&>(*child)));
    });
    std::list<Node*> empty = target.get_children();
    empty.remove_if([](const Node* child) {
        return !(isBlock(child) || isList(child)) ||
               !isWithoutText(static_cast<const Element&>(*child));
    });
    const bool givesWay = empty.size() == 1 && isBlock(empty.front()) &&
                          isJustPlaceholder(static_cast<const Element&>(*empty.front()));
    if (givesWay && std::any_of(moved.begin(), moved.end(), shows))
        target.remove_child(empty.front());
    for (const Node* child : moved)
        target.import_node(child, true);
}

void CellContent::removeIds(Element& element) {
    element.remove_attribute(L"id");
    for (Node* child : element.get_children())
        if (child->is_element())
            removeIds(static_cast<Element&>(*child));
}

#include "pages/PaginationNodes.h"

#include "foundation/xml/Element.h"

#include <iterator>

using Xml::Element;
using Xml::Node;

std::list<Node*> PaginationNodes::of(const Element& root) {
    std::list<Node*> nodes = root.get_children();
    nodes.remove_if(
        [](const Node* node) { return !hasFlows(*node) && !isInsertedDocument(*node); });
    return nodes;
}

Element* PaginationNodes::at(const Element& root, int index) {
    const std::list<Node*> nodes = of(root);
    return index < 0 || index >= static_cast<int>(nodes.size())
               ? nullptr
               : static_cast<Element*>(*std::next(nodes.begin(), index));
}

bool PaginationNodes::isSequence(const Node& node) {
    return node.is_element() && node.get_name() == L"page-sequence";
}

bool PaginationNodes::isRepeat(const Node& node) {
    return node.is_element() && node.get_name() == L"page-sequence-repeat";
}

bool PaginationNodes::isInsertedDocument(const Node& node) {
    return node.is_element() && node.get_name() == L"insert-document";
}

bool PaginationNodes::hasFlows(const Node& node) {
    return isSequence(node) || isRepeat(node);
}

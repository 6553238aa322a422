#pragma once

#include <list>

namespace Xml {
class Element;
class Node;
} // namespace Xml

/// The elements that make pages, as children of the document's root: page-sequence,
/// page-sequence-repeat and insert-document, counted together from 0.
namespace PaginationNodes {

/// In their order. What stands in another element, be it one of these, is none.
std::list<Xml::Node*> of(const Xml::Element& root);
/// The one with that index; null if there is none.
Xml::Element* at(const Xml::Element& root, int index);

bool isSequence(const Xml::Node& node);
bool isRepeat(const Xml::Node& node);
bool isInsertedDocument(const Xml::Node& node);
/// Whether the node has static contents and a flow of its own.
bool hasFlows(const Xml::Node& node);

} // namespace PaginationNodes

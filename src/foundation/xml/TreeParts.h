#pragma once

#include "foundation/xml/Element.h"
#include "foundation/xml/Node.h"
#include "foundation/xml/XmlDocument.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

/// The way of the parser, the writer and the tree's own classes to each other's fields, which hosts
/// have no business with. A caller that takes a tree apart by these keeps it whole.
namespace Xml {

struct Node::Parts {
    using Kind = Node::Kind;
    using Name = Node::Name;

    static Kind kind(const Node& node) { return node.kind_; }
    /// Null for content without a name.
    static const Name& name(const Node& node) { return node.name_; }
    /// Of an attribute its element, of what stands outside the root the document's content.
    static Node* parent(const Node& node) { return node.parent_; }
    static void setParent(Node& node, Node* parent) { node.parent_ = parent; }
    static Node* next(const Node& node) { return node.next_; }
    static Node* firstChild(const Node& node) { return node.firstChild_; }
    static Node* lastChild(const Node& node) { return node.lastChild_; }

    /// At the end when `place` is null; answers the node.
    static Node* insertBefore(Node& parent, Node* place, std::unique_ptr<Node> node) {
        return parent.insertBefore(place, std::move(node));
    }
    static Node* append(Node& parent, std::unique_ptr<Node> node) {
        return parent.append(std::move(node));
    }
    static std::unique_ptr<Node> takeOut(Node& parent, Node* child) {
        return parent.takeOut(child);
    }
    /// Raises for null and for an attribute.
    static std::unique_ptr<Node> copyOf(const Node* source, bool recursive) {
        return Node::copyOf(source, recursive);
    }
};

struct Element::Parts {
    using Attributes = std::vector<std::unique_ptr<Attribute>>;

    /// Declarations of namespaces too, in the order written.
    static const Attributes& attributes(const Element& element) { return element.attributes_; }
    static void reserveAttributes(Element& element, std::size_t count) {
        element.attributes_.reserve(count);
    }
    static Attribute* addAttribute(Element& element, Name name, const Core::String& value) {
        return element.addAttribute(std::move(name), value);
    }
    /// All but the declarations, and those that no call could set again, for they have two colons.
    static void removeAttributes(Element& element) { element.removeAttributes(); }
    /// One of the attributes has another name now.
    static void noteRenamed(Element& element) { element.indexByName(); }
    /// Raises when the name could not be written.
    static std::unique_ptr<Element> make(const Core::String& name, const Core::String& prefix) {
        return Element::make(name, prefix);
    }
    /// With its attributes and without its content.
    static std::unique_ptr<Element> copyTag(const Element& element) { return element.copyTag(); }
};

struct XmlDocument::Parts {
    /// What stands around the root, and the root.
    static Node& content(XmlDocument& document) { return document.content_; }
    static const Node& content(const XmlDocument& document) { return document.content_; }
    static void setRoot(XmlDocument& document, Element* root) { document.root_ = root; }
    static void setVersion(XmlDocument& document, const Core::String& version) {
        document.version_ = version;
    }
    /// The markup of each, from "name" or "% name".
    static const std::map<Core::String, Core::String>&
    entityDeclarations(const XmlDocument& document) {
        return document.entityDeclarations_;
    }
};

} // namespace Xml

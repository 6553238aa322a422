#include "foundation/xml/Node.h"

#include "foundation/Exception.h"
#include "foundation/xml/CDataNode.h"
#include "foundation/xml/CommentNode.h"
#include "foundation/xml/DocumentTypeNode.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/EntityReferenceNode.h"
#include "foundation/xml/ProcessingInstructionNode.h"
#include "foundation/xml/QualifiedName.h"
#include "foundation/xml/TreeParts.h"

#include <utility>

namespace Xml {

Node::~Node() {
    destroyChain(firstChild_);
}

// Puts the children of each node in front of what is still to be destroyed, so that no depth of
// nesting needs stack or memory.
void Node::destroyChain(Node* first) noexcept {
    while (first) {
        Node* node = first;
        first = node->next_;
        if (node->firstChild_) {
            node->lastChild_->next_ = first;
            first = std::exchange(node->firstChild_, nullptr);
        }
        delete node;
    }
}

Core::String Node::get_name() const {
    return name_ ? name_->local : Core::String();
}

void Node::set_name(const Core::String& name) {
    if (!isRenamable())
        return;
    name_ = std::make_shared<QualifiedName>(QualifiedName::checked(name, name_->prefix));
    if (isAttribute(this) && parent_)
        Element::Parts::noteRenamed(static_cast<Element&>(*parent_));
}

Core::String Node::get_namespace_prefix() const {
    return name_ ? name_->prefix : Core::String();
}

void Node::set_namespace(const Core::String& prefix) {
    if (!isRenamable())
        return;
    QualifiedName::checked(name_->local, prefix);
    name_ = std::make_shared<QualifiedName>(QualifiedName{prefix, name_->local});
}

Element* Node::get_parent() const {
    return parent_ && parent_->is_element() ? static_cast<Element*>(parent_) : nullptr;
}

std::list<Node*> Node::get_children(const Core::String& name) const {
    QualifiedName wanted = QualifiedName::split(name);
    std::list<Node*> children;
    for (Node* child = firstChild_; child; child = child->next_) {
        bool matches =
            name.empty() || (child->name_ && child->name_->local == wanted.local &&
                             (wanted.prefix.empty() || child->name_->prefix == wanted.prefix));
        if (matches)
            children.push_back(child);
    }
    return children;
}

Element* Node::add_child(const Core::String& name, const Core::String& prefix) {
    requireElement();
    return static_cast<Element*>(append(Element::Parts::make(name, prefix)));
}

Element* Node::add_node_as_prev_sibling(Node* before, const Core::String& name,
                                        const Core::String& prefix) {
    requireChild(before);
    return static_cast<Element*>(insertBefore(before, Element::Parts::make(name, prefix)));
}

void Node::remove_child(Node* child) {
    if (is_element() && isChild(child))
        takeOut(child);
}

Node* Node::import_node(const Node* source, bool recursive) {
    requireElement();
    return importBefore(nullptr, source, recursive);
}

Node* Node::import_node_as_sibling(const Node* source, Node* after, bool recursive) {
    requireChild(after);
    return importBefore(after->next_, source, recursive);
}

Node* Node::import_node_as_prev_sibling(const Node* source, Node* before, bool recursive) {
    requireChild(before);
    return importBefore(before, source, recursive);
}

Node* Node::importBefore(Node* place, const Node* source, bool recursive) {
    // The analyser loses sight of the owner when a pointer to a kind of node becomes one to Node.
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    return insertBefore(place, copyOf(source, recursive));
}

std::map<Core::String, Core::String> Node::get_namespace_defs() const {
    std::map<Core::String, Core::String> definitions;
    if (!is_element())
        return definitions;
    for (const auto& attribute : Element::Parts::attributes(*static_cast<const Element*>(this))) {
        const QualifiedName& name = *Parts::name(*attribute);
        if (name.declaresNamespace())
            definitions[name.prefix.empty() ? Core::String() : name.local] = attribute->get_value();
    }
    return definitions;
}

Node* Node::insertBefore(Node* place, std::unique_ptr<Node> node) {
    Node* added = node.release();
    Node* before = place ? place->previous_ : lastChild_;
    added->parent_ = this;
    added->previous_ = before;
    added->next_ = place;
    (before ? before->next_ : firstChild_) = added;
    (place ? place->previous_ : lastChild_) = added;
    return added;
}

std::unique_ptr<Node> Node::takeOut(Node* child) {
    (child->previous_ ? child->previous_->next_ : firstChild_) = child->next_;
    (child->next_ ? child->next_->previous_ : lastChild_) = child->previous_;
    child->parent_ = child->previous_ = child->next_ = nullptr;
    return std::unique_ptr<Node>(child);
}

void Node::requireElement() const {
    if (!is_element())
        throw Core::Exception(L"only an element can be given children");
}

void Node::requireChild(const Node* node) const {
    requireElement();
    if (!isChild(node))
        throw Core::Exception(L"the node to insert beside is no child of \"" + name_->local +
                              L"\"");
}

std::unique_ptr<Node> Node::copyOf(const Node* source, bool recursive) {
    if (!source || isAttribute(source))
        throw Core::Exception(L"only an element or content can be imported as a child");
    return recursive ? source->copyWithContent() : source->copyAlone();
}

std::unique_ptr<Node> Node::copyAlone() const {
    auto content = [this] { return static_cast<const ContentNode*>(this)->get_content(); };
    switch (kind_) {
    case Kind::Element:
        return Element::Parts::copyTag(*static_cast<const Element*>(this));
    case Kind::Text:
        return std::make_unique<TextNode>(content());
    case Kind::CData:
        return std::make_unique<CDataNode>(content());
    case Kind::Comment:
        return std::make_unique<CommentNode>(content());
    case Kind::ProcessingInstruction:
        return std::make_unique<ProcessingInstructionNode>(name_, content());
    case Kind::EntityReference:
        return std::make_unique<EntityReferenceNode>(name_);
    case Kind::Document:
    case Kind::DocumentType:
    case Kind::Attribute:
        break;
    }
    throw Core::Exception(L"a document type cannot be imported");
}

// Walks the source in document order with the copy in step; no recursion, so no limit of depth.
std::unique_ptr<Node> Node::copyWithContent() const {
    std::unique_ptr<Node> result = copyAlone();
    const Node* from = this;
    Node* to = result.get();
    while (true) {
        if (from->firstChild_) {
            from = from->firstChild_;
            to = to->append(from->copyAlone());
            continue;
        }
        while (from != this && !from->next_) {
            from = from->parent_;
            to = to->parent_;
        }
        if (from == this)
            return result;
        from = from->next_;
        to = to->parent_->append(from->copyAlone());
    }
}

} // namespace Xml

#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

#include <list>
#include <map>
#include <memory>
#include <utility>

namespace Xml {

class Element;
struct QualifiedName;

/// A part of an XmlDocument: an element, an attribute, or content between the tags.
///
/// Nodes belong to their document. A pointer to one stays valid until the node, or an element
/// around it, is removed or the document dies. Namespace arguments are prefixes such as "fo", not
/// URIs; an empty one means no prefix. A name may hold its prefix itself, as in "fo:block", and
/// this one wins.
///
/// What makes a node throws Core::Exception when the name could not be written as an XML name.
class FORME_API Node {
public:
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    virtual ~Node();

    /// The name without its prefix, the target of a processing instruction, the name of a
    /// referenced entity; empty for the other content.
    Core::String get_name() const;
    /// Renames an element or attribute, which keeps its prefix unless `name` holds one. Other nodes
    /// stay as they are.
    void set_name(const Core::String& name);
    /// The prefix as written; empty without one.
    Core::String get_namespace_prefix() const;
    /// Gives an element or attribute another prefix, or none. Other nodes stay as they are.
    void set_namespace(const Core::String& prefix);

    /// The element around this node, or of this attribute; null for what stands outside the root
    /// element and for the root element.
    Element* get_parent() const;
    /// The neighbours, of whatever kind; null at the end, and for an attribute.
    Node* get_next_sibling() const { return next_; }
    Node* get_previous_sibling() const { return previous_; }
    /// The children of that local name in order (and of that prefix, if `name` holds one); all of
    /// them, content included, for an empty name. Grandchildren are not looked at.
    std::list<Node*> get_children(const Core::String& name = Core::String()) const;
    bool has_children() const { return firstChild_ != nullptr; }

    bool is_element() const { return kind_ == Kind::Element; }
    /// True for text and for CDATA sections; the node is then a TextNode.
    bool is_text() const { return kind_ == Kind::Text || kind_ == Kind::CData; }

    /// Appends a new element. Throws Core::Exception when this node is no element; so do all the
    /// operations below that make a node.
    Element* add_child(const Core::String& name, const Core::String& prefix = Core::String());
    /// Makes a new element directly before the child `before`. Throws Core::Exception when `before`
    /// is no child of this node.
    Element* add_node_as_prev_sibling(Node* before, const Core::String& name,
                                      const Core::String& prefix = Core::String());
    /// Removes a child with all that it holds. Nothing happens when `child` is no child of this
    /// node.
    void remove_child(Node* child);

    /// Appends a copy of `source`, which may belong to another document or hold this node. An
    /// element's copy has its attributes and namespace declarations; its content too if
    /// `recursive`. Throws Core::Exception when `source` is null or an attribute.
    Node* import_node(const Node* source, bool recursive);
    /// The same with the copy directly behind the child `after`, which must be a child of this
    /// node.
    Node* import_node_as_sibling(const Node* source, Node* after, bool recursive);
    /// The same with the copy directly before the child `before`, which must be a child of this
    /// node.
    Node* import_node_as_prev_sibling(const Node* source, Node* before, bool recursive);

    /// The namespace declarations that stand in this element's own start tag, from prefix to URI.
    /// The default namespace has the empty prefix.
    std::map<Core::String, Core::String> get_namespace_defs() const;

    /// The library's own way to the fields.
    struct Parts;

protected:
    enum class Kind : unsigned char {
        Document,
        DocumentType,
        Element,
        Attribute,
        Text,
        CData,
        Comment,
        ProcessingInstruction,
        EntityReference,
    };
    using Name = std::shared_ptr<const QualifiedName>;

    Node(Kind kind, Name name) : name_(std::move(name)), kind_(kind) {}

private:
    Node* insertBefore(Node* place, std::unique_ptr<Node> node); // at the end when `place` is null
    Node* append(std::unique_ptr<Node> node) { return insertBefore(nullptr, std::move(node)); }
    Node* importBefore(Node* place, const Node* source, bool recursive);
    std::unique_ptr<Node> takeOut(Node* child);
    bool isChild(const Node* node) const {
        return node && node->parent_ == this && !isAttribute(node);
    }
    static bool isAttribute(const Node* node) { return node->kind_ == Kind::Attribute; }
    bool isRenamable() const { return kind_ == Kind::Element || kind_ == Kind::Attribute; }
    void requireElement() const;
    void requireChild(const Node* node) const;
    std::unique_ptr<Node> copyAlone() const;
    std::unique_ptr<Node> copyWithContent() const;
    static std::unique_ptr<Node> copyOf(const Node* source, bool recursive);
    static void destroyChain(Node* first) noexcept;

    Node* parent_ = nullptr;
    Node* previous_ = nullptr;
    Node* next_ = nullptr;
    Node* firstChild_ = nullptr;
    Node* lastChild_ = nullptr;
    Name name_; // null for content without a name; shared by the nodes of one parsed text
    Kind kind_;
};

} // namespace Xml

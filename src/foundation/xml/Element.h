#pragma once

#include "foundation/xml/Attribute.h"
#include "foundation/xml/TextNode.h"

#include <list>
#include <map>
#include <memory>
#include <vector>

namespace Xml {

/// An element with its attributes, namespace declarations and children.
///
/// An attribute without a prefix counts as being in its element's own prefix. All operations look
/// an attribute up in the same way, so that what one call wrote every other call finds: without a
/// prefix, the attribute of that local name that has none, or else the first one with any prefix;
/// with a prefix, the attribute with exactly that one, or else the one without a prefix if the
/// prefix is the element's own. Only what writes without a prefix passes those by whose prefix is
/// another than the element's own, since it would change what they say.
///
/// Namespace declarations are no attributes: only get_namespace_defs() tells them.
class FORME_API Element : public Node {
public:
    explicit Element(Name name) : Node(Kind::Element, std::move(name)) {}
    ~Element() override;

    /// Null if absent.
    Attribute* get_attribute(const Core::String& name,
                             const Core::String& prefix = Core::String()) const;
    /// Gives the attribute that is found the new value, in its place and under the name it has, or
    /// appends one. The name "xmlns:x" makes or changes a namespace declaration, and answers it.
    Attribute* set_attribute(const Core::String& name, const Core::String& value,
                             const Core::String& prefix = Core::String());
    /// False if there is none. Namespace declarations stay.
    bool remove_attribute(const Core::String& name, const Core::String& prefix = Core::String());
    /// In the order in which they are written.
    std::list<Attribute*> get_attributes() const;

    /// The first child that is text or a CDATA section; null if there is none.
    TextNode* get_child_text() const;
    /// Makes `text` the text of this element: its first text takes it, further text children go,
    /// and all other children stay. An empty one removes the text.
    void set_child_text(const Core::String& text);
    /// Adds text behind the last child. Text that stands there already is extended and answered.
    TextNode* add_child_text(const Core::String& text);

    /// The element's own prefix; empty without one.
    Core::String getNSPrefix() const { return get_namespace_prefix(); }

    /// The library's own way to the fields.
    struct Parts;

private:
    static std::unique_ptr<Element> make(const Core::String& name, const Core::String& prefix);
    std::unique_ptr<Element> copyTag() const;
    Attribute* addAttribute(Name name, const Core::String& value);
    Attribute* findAttribute(const QualifiedName& wanted) const;
    Attribute* findToSet(const QualifiedName& wanted) const;
    Attribute* findExactly(const QualifiedName& wanted) const;
    Attribute* findWithAnyPrefix(const Core::String& local) const;
    template <typename IsMeant>
    Attribute* findLocal(const Core::String& local, IsMeant isMeant) const;
    void removeAttributes();
    void indexByName();

    /// By local names; of those that share one, in the order written.
    using ByName = std::multimap<Core::String, Attribute*>;

    std::vector<std::unique_ptr<Attribute>> attributes_; // declarations too, in the order written
    std::unique_ptr<ByName> byName_;                     // once there are many
};

} // namespace Xml

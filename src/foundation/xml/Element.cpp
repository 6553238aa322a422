#include "foundation/xml/Element.h"

#include "foundation/xml/QualifiedName.h"
#include "foundation/xml/TreeParts.h"

#include <algorithm>

namespace Xml {

namespace {

/// So many are sooner looked through than looked up.
constexpr std::size_t few = 32;

} // namespace

Element::~Element() = default;

std::unique_ptr<Element> Element::make(const Core::String& name, const Core::String& prefix) {
    auto checked = std::make_shared<QualifiedName>(QualifiedName::checked(name, prefix));
    return std::make_unique<Element>(std::move(checked));
}

std::unique_ptr<Element> Element::copyTag() const {
    auto copy = std::make_unique<Element>(Node::Parts::name(*this));
    copy->attributes_.reserve(attributes_.size());
    for (const auto& attribute : attributes_)
        copy->addAttribute(Node::Parts::name(*attribute), attribute->get_value());
    return copy;
}

Attribute* Element::get_attribute(const Core::String& name, const Core::String& prefix) const {
    QualifiedName wanted = QualifiedName::split(name);
    if (wanted.prefix.empty())
        wanted.prefix = prefix;
    return findAttribute(wanted);
}

Attribute* Element::set_attribute(const Core::String& name, const Core::String& value,
                                  const Core::String& prefix) {
    QualifiedName wanted = QualifiedName::checked(name, prefix);
    requireXmlText(value);
    Attribute* found = wanted.declaresNamespace() ? findExactly(wanted) : findToSet(wanted);
    if (!found)
        return addAttribute(std::make_shared<QualifiedName>(std::move(wanted)), value);
    found->set_value(value);
    return found;
}

bool Element::remove_attribute(const Core::String& name, const Core::String& prefix) {
    Attribute* found = get_attribute(name, prefix);
    if (!found)
        return false;
    if (byName_)
        std::erase_if(*byName_, [found](const auto& entry) { return entry.second == found; });
    std::erase_if(attributes_, [found](const auto& attribute) { return attribute.get() == found; });
    return true;
}

void Element::removeAttributes() {
    std::erase_if(attributes_, [](const auto& attribute) {
        const QualifiedName& name = *Node::Parts::name(*attribute);
        return !name.declaresNamespace() && QualifiedName::split(name.local).prefix.empty();
    });
    indexByName();
}

std::list<Attribute*> Element::get_attributes() const {
    std::list<Attribute*> attributes;
    for (const auto& attribute : attributes_)
        if (!Node::Parts::name(*attribute)->declaresNamespace())
            attributes.push_back(attribute.get());
    return attributes;
}

TextNode* Element::get_child_text() const {
    for (Node* child = Node::Parts::firstChild(*this); child; child = Node::Parts::next(*child))
        if (child->is_text())
            return static_cast<TextNode*>(child);
    return nullptr;
}

void Element::set_child_text(const Core::String& text) {
    requireXmlText(text);
    TextNode* kept = text.empty() ? nullptr : get_child_text();
    for (Node *child = Node::Parts::firstChild(*this), *next; child; child = next) {
        next = Node::Parts::next(*child);
        if (child->is_text() && child != kept)
            remove_child(child);
    }
    if (kept)
        kept->set_content(text);
    else if (!text.empty())
        add_child_text(text);
}

TextNode* Element::add_child_text(const Core::String& text) {
    requireXmlText(text);
    Node* const child = Node::Parts::lastChild(*this);
    if (!child || Node::Parts::kind(*child) != Kind::Text)
        return static_cast<TextNode*>(Node::Parts::append(*this, std::make_unique<TextNode>(text)));
    auto* last = static_cast<TextNode*>(child);
    last->set_content(last->get_content() + text);
    return last;
}

Attribute* Element::addAttribute(Name name, const Core::String& value) {
    attributes_.push_back(std::make_unique<Attribute>(std::move(name), value));
    Attribute* const added = attributes_.back().get();
    Node::Parts::setParent(*added, this);
    if (byName_)
        byName_->emplace(added->get_name(), added);
    else
        indexByName();
    return added;
}

void Element::indexByName() {
    byName_.reset();
    if (attributes_.size() <= few)
        return;
    byName_ = std::make_unique<ByName>();
    for (const auto& attribute : attributes_)
        byName_->emplace(attribute->get_name(), attribute.get());
}

Attribute* Element::findAttribute(const QualifiedName& wanted) const {
    if (wanted.declaresNamespace())
        return nullptr;
    if (Attribute* exact = findExactly(wanted))
        return exact;
    if (wanted.prefix.empty())
        return findWithAnyPrefix(wanted.local);
    return wanted.prefix == getNSPrefix() ? findExactly({Core::String(), wanted.local}) : nullptr;
}

Attribute* Element::findToSet(const QualifiedName& wanted) const {
    if (!wanted.prefix.empty())
        return findAttribute(wanted);
    Attribute* bare = findExactly(wanted);
    return bare ? bare : findExactly({Node::Parts::name(*this)->prefix, wanted.local});
}

Attribute* Element::findExactly(const QualifiedName& wanted) const {
    return findLocal(wanted.local,
                     [&](const QualifiedName& name) { return name.prefix == wanted.prefix; });
}

Attribute* Element::findWithAnyPrefix(const Core::String& local) const {
    return findLocal(local, [](const QualifiedName& name) { return !name.declaresNamespace(); });
}

/// The first in the order written.
template <typename IsMeant>
Attribute* Element::findLocal(const Core::String& local, IsMeant isMeant) const {
    if (byName_) {
        const auto [first, last] = byName_->equal_range(local);
        const auto found = std::find_if(first, last, [&](const auto& entry) {
            return isMeant(*Node::Parts::name(*entry.second));
        });
        return found == last ? nullptr : found->second;
    }
    for (const auto& attribute : attributes_) {
        const QualifiedName& name = *Node::Parts::name(*attribute);
        if (name.local == local && isMeant(name))
            return attribute.get();
    }
    return nullptr;
}

} // namespace Xml

#include "templates/TemplateElements.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "trees/Elements.h"

using Core::String;
using Xml::Element;

namespace {

constexpr const wchar_t* ownPrefix = L"qfd";

/// What a prefix stands for at an element; empty where nothing declares it.
String addressOf(const Element* element, const String& prefix) {
    for (; element; element = element->get_parent()) {
        const auto declared = element->get_namespace_defs();
        if (const auto found = declared.find(prefix); found != declared.end())
            return found->second;
    }
    return {};
}

bool isOwn(const Element& element) {
    const String prefix = element.getNSPrefix();
    return prefix.empty() || prefix == ownPrefix ||
           addressOf(&element, prefix) == addressOf(&element, ownPrefix);
}

} // namespace

String TemplateElements::valueOf(const Element& element, const wchar_t* name) {
    const Xml::Attribute* attribute = element.get_attribute(name);
    return attribute ? attribute->get_value() : String();
}

std::vector<Element*> TemplateElements::childrenOf(const Element& parent, const String& name) {
    std::vector<Element*> children = Elements::childrenOf(parent, name);
    std::erase_if(children, [](const Element* child) { return !isOwn(*child); });
    return children;
}

void TemplateElements::removeAll(Element& parent, const String& name) {
    for (Element* child : childrenOf(parent, name))
        parent.remove_child(child);
}

Element& TemplateElements::append(Element& parent, const wchar_t* name) {
    return *parent.add_child(name, ownPrefix);
}

void TemplateElements::requireText(std::initializer_list<String> values) {
    for (const String& value : values)
        Xml::requireXmlText(value);
}

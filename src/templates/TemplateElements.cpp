#include "templates/TemplateElements.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "trees/Elements.h"

using Core::String;
using Xml::Element;

String TemplateElements::valueOf(const Element& element, const wchar_t* name) {
    const Xml::Attribute* attribute = element.get_attribute(name);
    return attribute ? attribute->get_value() : String();
}

void TemplateElements::removeAll(Element& parent, const String& name) {
    for (Element* child : Elements::childrenOf(parent, name))
        parent.remove_child(child);
}

Element& TemplateElements::append(Element& parent, const wchar_t* name) {
    return *parent.add_child(name, L"qfd");
}

void TemplateElements::requireText(std::initializer_list<String> values) {
    for (const String& value : values)
        Xml::requireXmlText(value);
}

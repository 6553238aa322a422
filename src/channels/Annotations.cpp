#include "channels/Annotations.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "trees/Elements.h"

using Core::String;
using Xml::Element;
using Xml::Node;

std::list<Node*> Annotations::in(const Element& root) {
    const auto found = Elements::childrenOf(root, L"annotation");
    return {found.begin(), found.end()};
}

Element* Annotations::find(const Element& root, const String& id) {
    for (Element* annotation : Elements::childrenOf(root, L"annotation")) {
        const Xml::Attribute* own = annotation->get_attribute(L"id");
        if ((own ? own->get_value() : String()) == id)
            return annotation;
    }
    return nullptr;
}

Element& Annotations::add(Element& root, const String& id, const String& prefix) {
    Element& annotation = *root.add_child(L"annotation", qf);
    annotation.set_attribute(L"id", id, prefix);
    return annotation;
}

std::list<Node*> Annotations::scripts(const Element* annotation) {
    if (!annotation)
        return {};
    const auto found = Elements::childrenOf(*annotation, L"javascript");
    return {found.begin(), found.end()};
}

void Annotations::addScript(Element& root, const String& id, const String& script,
                            const String& outputType) {
    for (const String& text : {id, script, outputType})
        Xml::requireXmlText(text);
    Element* const own = find(root, id);
    Element* const added = (own ? *own : add(root, id, qf)).add_child(L"javascript", qf);
    added->set_child_text(script);
    added->set_attribute(L"output-type", outputType, qf);
}

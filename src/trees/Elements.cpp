#include "trees/Elements.h"

#include "foundation/xml/Element.h"

std::vector<Xml::Element*> Elements::childrenOf(const Xml::Node& parent, const Core::String& name) {
    std::vector<Xml::Element*> found;
    for (Xml::Node* child : parent.get_children(name))
        if (child->is_element())
            found.push_back(static_cast<Xml::Element*>(child));
    return found;
}

Core::String Elements::valueOf(const Xml::Element& element, const Core::String& name) {
    const Xml::Attribute* attribute = element.get_attribute(name);
    return attribute ? attribute->get_value() : Core::String();
}

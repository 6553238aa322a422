#include "trees/DOMBasedBuffer.h"

#include "foundation/values/PropertiesHelper.h"
#include "foundation/xml/TreeParts.h"
#include "trees/Fragment.h"

#include <algorithm>

using Core::String;
using Xml::Attribute;
using Xml::Element;
using Xml::Node;

namespace {

String prefixOf(const Attribute& attribute, const Element& element) {
    const String own = attribute.get_namespace_prefix();
    return own.empty() ? element.getNSPrefix() : own;
}

} // namespace

DOMBasedBuffer::DOMBasedBuffer(Document& document)
    : fragment_(std::make_unique<Fragment>(&document)) {}

DOMBasedBuffer::DOMBasedBuffer() : fragment_(std::make_unique<Fragment>(nullptr)) {}

DOMBasedBuffer::DOMBasedBuffer(const DOMBasedBuffer& other)
    : Object(other), fragment_(std::make_unique<Fragment>(*other.fragment_)) {}

DOMBasedBuffer& DOMBasedBuffer::operator=(const DOMBasedBuffer& other) {
    *fragment_ = Fragment(*other.fragment_);
    return *this;
}

DOMBasedBuffer::~DOMBasedBuffer() = default;

int DOMBasedBuffer::getDocumentBufferStart() const {
    return fragment_->start();
}

int DOMBasedBuffer::getDocumentBufferEnd() const {
    return fragment_->end();
}

String DOMBasedBuffer::getAttributeValue(const Element* element, const String& name,
                                         const String& prefix) {
    const Attribute* attribute = element ? element->get_attribute(name, prefix) : nullptr;
    return attribute ? attribute->get_value() : String();
}

Element* DOMBasedBuffer::getElementByName(const Element* parent, const String& name) {
    if (!parent)
        return nullptr;
    const auto children = parent->get_children(name);
    const auto found = std::find_if(children.begin(), children.end(), [&](const Node* child) {
        return child->is_element() && child->get_name() == name;
    });
    return found == children.end() ? nullptr : static_cast<Element*>(*found);
}

PropertyCollection DOMBasedBuffer::getElementProperties(const Element* element) {
    PropertyCollection properties;
    if (!element)
        return properties;
    for (const Attribute* attribute : element->get_attributes()) {
        const String prefix = prefixOf(*attribute, *element);
        const String name = attribute->get_name();
        properties.addProperty(
            EditableProperty(prefix.empty() ? name : prefix + L":" + name, attribute->get_value()),
            true);
    }
    return properties;
}

void DOMBasedBuffer::setElementProperties(Element* element, const PropertyCollection& properties) {
    if (!element)
        return;
    Element::Parts::removeAttributes(*element);
    for (EditableProperty property : properties.getPropertyList()) {
        const String prefix = property.getNamespace();
        property.removeNamespaceFromName();
        element->set_attribute(property.getName(), property.getValue(),
                               prefix == element->getNSPrefix() ? String() : prefix);
    }
}

void DOMBasedBuffer::collapseShorthands(bool removeDefaults) {
    collapseElementAttributes(fragment_->root(), removeDefaults);
}

void DOMBasedBuffer::collapseElementAttributes(Element* element, bool removeDefaults) {
    if (!element)
        return;
    PropertyCollection properties = getElementProperties(element);
    if (removeDefaults)
        PropertiesHelper::removeDefaultValues(properties);
    PropertiesHelper::collapseShorthands(properties);
    setElementProperties(element, properties);
    for (Node* child : element->get_children())
        if (child->is_element())
            collapseElementAttributes(static_cast<Element*>(child), removeDefaults);
}

void DOMBasedBuffer::expandShorthands() {
    expandElementAttributes(fragment_->root());
}

void DOMBasedBuffer::expandElementAttributes(Element* element) {
    if (!element)
        return;
    PropertyCollection properties = getElementProperties(element);
    PropertiesHelper::expandShorthands(properties);
    setElementProperties(element, properties);
    for (Node* child : element->get_children())
        if (child->is_element())
            expandElementAttributes(static_cast<Element*>(child));
}

void DOMBasedBuffer::readExpanded(int element) {
    fragment_->read(element);
    expandShorthands();
    fragment_->setAsRead(collapsedText(true));
}

String DOMBasedBuffer::collapsedText(bool removeDefaults) {
    const SmartPtr<Xml::XmlDocument> copy(new Xml::XmlDocument);
    collapseElementAttributes(copy->createRootNodeByImport(fragment_->root(), true),
                              removeDefaults);
    return Fragment::textOf(*copy);
}

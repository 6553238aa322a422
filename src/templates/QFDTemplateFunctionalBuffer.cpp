#include "templates/QFDTemplateFunctionalBuffer.h"

#include "document/Document.h"
#include "templates/AttributeEntries.h"
#include "templates/GlobalXslt.h"
#include "templates/Locales.h"
#include "templates/Scripts.h"
#include "templates/TemplateData.h"
#include "templates/Variables.h"

using Core::String;
using Core::Vector;
using Xml::Element;

QFDTemplateFunctionalBuffer::QFDTemplateFunctionalBuffer(EditableDocumentBuffer* document)
    : data_(std::make_unique<TemplateData>(Document::of(document))) {}

QFDTemplateFunctionalBuffer::~QFDTemplateFunctionalBuffer() = default;

void QFDTemplateFunctionalBuffer::commitChangesToDocumentBuffer() {
    data_->commit();
}

Element* QFDTemplateFunctionalBuffer::getQFDDocumentElement() const {
    return &data_->root();
}

// Scripts

Vector<ManagedScript> QFDTemplateFunctionalBuffer::getScripts() const {
    return Scripts::of(data_->root(), data_->documentType());
}

void QFDTemplateFunctionalBuffer::overrideScripts(const Vector<ManagedScript>& scripts) {
    Scripts::override(data_->root(), scripts);
}

Element* QFDTemplateFunctionalBuffer::getScriptByNamespacePrefix(const String& prefix) const {
    return Scripts::withPrefix(data_->root(), prefix);
}

// Variables

Vector<QFDVariable> QFDTemplateFunctionalBuffer::getVariables() const {
    return Variables::of(data_->root());
}

void QFDTemplateFunctionalBuffer::overrideVariables(const Vector<QFDVariable>& variables) {
    Variables::override(data_->root(), variables);
}

// Values that are computed

QFDAttributeCollection QFDTemplateFunctionalBuffer::getQFDAttributes() const {
    return AttributeEntries::of(data_->root());
}

void QFDTemplateFunctionalBuffer::setQFDAttributes(const QFDAttributeCollection& entries) {
    AttributeEntries::override(data_->root(), entries);
}

bool QFDTemplateFunctionalBuffer::overrideQFDAttributesId(const String& oldId,
                                                          const String& newId) {
    return AttributeEntries::changeId(data_->root(), oldId, newId);
}

QFDAttribute QFDTemplateFunctionalBuffer::getQFDAttributeFromXmlNode(const Xml::Node* node) const {
    const bool isElement = node && node->is_element();
    return isElement ? AttributeEntries::read(static_cast<const Element&>(*node)) : QFDAttribute();
}

void QFDTemplateFunctionalBuffer::addXmlNodeFromQFDAttributeToRootNode(const QFDAttribute& entry,
                                                                       Xml::Node* root) {
    if (root && root->is_element() && !entry.getObjectID().empty())
        AttributeEntries::append(static_cast<Element&>(*root), entry);
}

// Languages

Vector<QFDTemplateLocale> QFDTemplateFunctionalBuffer::getQFDLocales() const {
    return Locales::of(data_->root());
}

QFDTemplateLocale QFDTemplateFunctionalBuffer::getDefaultQFDLocale() const {
    return Locales::defaultOf(data_->root());
}

void QFDTemplateFunctionalBuffer::insertOrEditQFDLocale(const String& id, const String& file,
                                                        const String& name) {
    Locales::set(data_->root(), {id, file, name});
}

void QFDTemplateFunctionalBuffer::deleteQFDLocale(const String& id) {
    Locales::remove(data_->root(), id);
}

// The style sheet

Element* QFDTemplateFunctionalBuffer::getGlobalXslt() const {
    return GlobalXslt::holderIn(data_->root());
}

Element* QFDTemplateFunctionalBuffer::getXsltInGlobalXslt() const {
    return GlobalXslt::in(data_->root());
}

String QFDTemplateFunctionalBuffer::getGlobalXsltText() const {
    return GlobalXslt::textIn(data_->root());
}

void QFDTemplateFunctionalBuffer::overrideGlobalXsltText(const String& text) {
    GlobalXslt::override(data_->root(), text, data_->documentType());
}

// Namespaces

std::map<String, String> QFDTemplateFunctionalBuffer::getNamespaces() const {
    return data_->root().get_namespace_defs();
}

String QFDTemplateFunctionalBuffer::getNamespacesAsString() const {
    return GlobalXslt::declarationsOf(data_->root());
}

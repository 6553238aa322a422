#include "templates/PropertyValueHandler.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "templates/TemplateValues.h"

using Core::String;

void PropertyValueHandler::read(const SmartPtr<EditableDocumentBuffer>& document,
                                PropertyValueEx& value) {
    if (value.getObjectID().empty())
        return;
    Document& opened = Document::of(*document);
    if (TemplateValues::mayBeIn(opened))
        TemplateValues::complete(value, TemplateValues::entriesOf(opened));
    TemplateValues::unwrapLink(value);
}

void PropertyValueHandler::read(const SmartPtr<EditableDocumentBuffer>& document,
                                const PropertyCollection& properties, PropertyValueEx& value) {
    const String id = properties.getPropertyValue(L"fo:id");
    if (!id.empty())
        value.setObjectID(id);
    value.setStaticValue(properties.getPropertyValue(value.getPropertyName()));
    read(document, value);
}

void PropertyValueHandler::read(const SmartPtr<EditableDocumentBuffer>& document,
                                const String& path, PropertyValueEx& value) {
    read(document, document->getProperties(path), value);
}

void PropertyValueHandler::write(const PropertyValueEx& value,
                                 const SmartPtr<EditableDocumentBuffer>& document) {
    TemplateValues::write(Document::of(*document), {&value, 1});
}

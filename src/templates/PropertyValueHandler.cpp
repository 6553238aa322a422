#include "templates/PropertyValueHandler.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "templates/TemplateValues.h"
#include "text/Markup.h"

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
        value.setObjectID(Markup::unescaped(id.view()));
    const String asWritten = properties.getPropertyValue(value.getPropertyName());
    const bool isLink =
        !value.getObjectID().empty() && TemplateValues::isLink(value.getPropertyName());
    value.setStaticValue(isLink ? Markup::unescaped(asWritten.view()) : asWritten);
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

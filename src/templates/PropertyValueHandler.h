#pragma once

#include "foundation/Api.h"
#include "foundation/SmartPtr.h"
#include "foundation/String.h"
#include "foundation/values/PropertyCollection.h"
#include "foundation/values/PropertyValueEx.h"

class EditableDocumentBuffer;

/// Reads and writes values of attributes that may be computed. The static value and the id stand on
/// the element; an expression, or rows with conditions, stand in the template's data under that id
/// and the attribute's name:
///
///     PropertyValueEx source(L"fo:src", L"");
///     PropertyValueHandler::read(document, document->getProperties(path), source);
///     source.setType(PropertyValueType::Dynamic);
///     source.setDynamicValue(L"customer/photo");
///     PropertyValueHandler::write(source, document);
///
/// Only a document whose root is "qfd:document" has template data, ahead of its page masters.
/// Elsewhere all values are static, and writing does nothing. Data that are not well formed raise
/// an Xml::ParseException. A document that is needed and null raises Core::NullPointerException.
class FORME_API PropertyValueHandler {
public:
    /// Fills in type, expression and rows of a value that has its name and object id. Without an
    /// object id nothing happens. A dynamic value is one entry without a condition; from an entry
    /// with a condition on all are rows, those without one included. Where the value is a link
    /// ("fo:src", "qf:src", "qfd:src", "qf:preview-src", "fo:background-image"), "url('a.png')" in
    /// its static value becomes "a.png". A value that turns out static keeps the expression that it
    /// had, which then says nothing.
    static void read(const SmartPtr<EditableDocumentBuffer>& document, PropertyValueEx& value);
    /// The same with the static value and, if there is one, the id "fo:id" of these properties, as
    /// they stand in a tag: entities in the id and in a link are decoded.
    static void read(const SmartPtr<EditableDocumentBuffer>& document,
                     const PropertyCollection& properties, PropertyValueEx& value);
    /// The same with the properties that EditableDocumentBuffer::getProperties() gives.
    static void read(const SmartPtr<EditableDocumentBuffer>& document, const Core::String& path,
                     PropertyValueEx& value);

    /// Writes expression or rows, or takes away what there was of them if the value is static; the
    /// static value is the element's and not touched. A row keeps only the one of its values that
    /// its flag says. One undo step, which leaves all other entries as they stand; nothing at
    /// all where the document says so already, where the value has no object id, or, in silence,
    /// where the document may not be edited. A text with a character that XML has no way to write
    /// raises a Core::Exception, and nothing changes.
    static void write(const PropertyValueEx& value,
                      const SmartPtr<EditableDocumentBuffer>& document);
};

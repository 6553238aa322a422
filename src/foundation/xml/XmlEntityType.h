#pragma once

namespace Xml {

/// The kinds of entity that a document type can declare.
enum class XmlEntityType {
    Internal,          ///< a text of its own, referred to as "&name;"
    External,          ///< a text elsewhere, referred to as "&name;"
    Unparsed,          ///< something elsewhere that is not XML, named in attributes
    InternalParameter, ///< a text of its own, referred to as "%name;" within the document type
    ExternalParameter, ///< a text elsewhere, referred to as "%name;" within the document type
};

} // namespace Xml

#pragma once

#include "foundation/Api.h"
#include "foundation/Object.h"
#include "foundation/String.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/Node.h"
#include "foundation/xml/XmlEntityType.h"

#include <map>

namespace Xml {

/// A tree of nodes, which belong to it and die with it. Hold it in a SmartPtr.
///
/// Around the root element it keeps the comments, processing instructions, document type and white
/// space of the text that it was read from.
class FORME_API XmlDocument : public Core::Object {
public:
    explicit XmlDocument(const Core::String& version = L"1.0");
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;
    ~XmlDocument() override;

    /// The version of XML that the document was made or declared with.
    Core::String getVersion() const { return version_; }

    /// Null while there is none.
    Element* getRootNode() const { return root_; }
    /// Makes the root element, in the place of the one there was, which dies with all it holds. A
    /// `uri` that is not empty is declared on it for the prefix, or as the default namespace
    /// without one. Throws Core::Exception when the name could not be written as an XML name.
    Element* createRootNode(const Core::String& name, const Core::String& uri = Core::String(),
                            const Core::String& prefix = Core::String());
    /// Makes the root element as a copy of `source`, which may belong to this or another document:
    /// its attributes and namespace declarations, and its content too if `recursive`. Throws
    /// Core::Exception when `source` is no element.
    Element* createRootNodeByImport(const Node* source, bool recursive);

    /// The document as text, without an XML declaration. The text is the same for every encoding.
    ///
    /// A line break follows the root's start tag, unless it has no content or one stands there
    /// already, and its closing tag. Attributes stand in double quotes, an element without children
    /// is self-closing, U+00A0 in text comes out as "&#x00A0;". But for this and the choice of
    /// quotes, references and white space within tags, a document that was read is written as it
    /// was.
    Core::String writeToString(const Core::String& encoding = L"UTF-8") const;

    /// Declares an entity in the document type, which is made if there is none, in the place of an
    /// earlier declaration.
    ///
    /// The text of an internal entity is `content`, as XML: an "&" or "<" in it is markup. All
    /// other kinds are found by `systemId`, which must not be empty, and `publicId`, which may;
    /// `content` then names the notation of an unparsed entity and is not looked at else. Throws
    /// Core::Exception when the declaration could not be written.
    void setEntityDeclaration(const Core::String& name, XmlEntityType type,
                              const Core::String& publicId, const Core::String& systemId,
                              const Core::String& content);

    /// The declaration that belongs before writeToString() in a file of that encoding, with a line
    /// break behind it. An empty encoding is left out.
    static Core::String getXmlDeclaration(const Core::String& encoding);

    /// The library's own way to the fields.
    struct Parts;

private:
    struct Content : Node {
        Content() : Node(Kind::Document, nullptr) {}
    };

    Element* replaceRoot(std::unique_ptr<Node> root);

    Core::String version_;
    Content content_; // what stands around the root, and the root
    Element* root_ = nullptr;
    std::map<Core::String, Core::String> entityDeclarations_; // from "name" or "% name"
};

} // namespace Xml

#pragma once

#include "foundation/SmartPtr.h"
#include "foundation/String.h"
#include "foundation/xml/MarkupReader.h"
#include "foundation/xml/TreeParts.h"
#include "foundation/xml/XmlDocument.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace Xml {

/// Builds a document from one UTF-8 text.
class TreeBuilder : public MarkupReader {
public:
    /// The text must outlive the builder.
    TreeBuilder(std::string_view text, bool substituteEntities);
    ~TreeBuilder() override;

    /// Reads the text, once. Throws Failure.
    SmartPtr<XmlDocument> build();

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    void startElement(const char* name, const char** attributes) override;
    void endElement(const char* name) override;
    void addText(const char* text, int length) override;
    void addEntityReference(const char* name) override;
    void endDocumentType() override;
    void startCData();
    void endCData();
    void addComment(const char* text);
    void addInstruction(const char* target, const char* data);
    void readDeclaration(const char* version, const char* encoding, int standalone);
    void readUnhandled(const char* text, int length);
    void setHandlers(bool substituteEntities);
    void flushText();
    void add(std::unique_ptr<Node> node);
    Node::Parts::Name nameOf(std::string_view name);
    std::string gapBehind(std::string_view target) const;
    bool isOutsideRoot() const { return current_ == &XmlDocument::Parts::content(*document_); }

    SmartPtr<XmlDocument> document_;
    Node* current_;           // the node whose children are being read
    std::string pendingText_; // read, but not yet a node
    bool declared_ = false;   // an XML declaration was read
    bool inDocumentType_ = false;
    std::size_t documentTypeStart_ = 0;
    std::unordered_map<std::string, Node::Parts::Name, Hash, std::equal_to<>> names_;
};

} // namespace Xml

#pragma once

#include "foundation/SmartPtr.h"
#include "foundation/String.h"
#include "foundation/xml/TreeParts.h"
#include "foundation/xml/XmlDocument.h"

#include <exception>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

struct XML_ParserStruct;

namespace Xml {

/// Builds a document from the events of Expat, which reads one UTF-8 text. Depth, the number of
/// entities and what they expand to are bounded, and nothing outside the text is ever read.
class TreeBuilder {
public:
    /// Why and where, as a byte offset, a text was refused.
    struct Failure {
        std::size_t offset;
        Core::String reason;
    };

    /// The text must outlive the builder.
    TreeBuilder(std::string_view text, bool substituteEntities);
    ~TreeBuilder();

    /// Reads the text, once. Throws Failure.
    SmartPtr<XmlDocument> build();

private:
    template <auto Handler>
    struct Forward;
    struct FreeParser {
        void operator()(XML_ParserStruct* parser) const;
    };
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    void startElement(const char* name, const char** attributes);
    void endElement(const char* name);
    void addText(const char* text, int length);
    void startCData();
    void endCData();
    void addComment(const char* text);
    void addInstruction(const char* target, const char* data);
    void readDeclaration(const char* version, const char* encoding, int standalone);
    void readUnhandled(const char* text, int length);
    void endDocumentType();
    void declareEntity(const char* name, int isParameter, const char* value, int length,
                       const char* base, const char* systemId, const char* publicId,
                       const char* notation);
    void skipEntity(const char* name, int isParameter);

    void setHandlers(bool substituteEntities);
    void parse();
    void flushText();
    void add(std::unique_ptr<Node> node);
    void requireDeclaredEntities(std::string_view tag) const;
    Node::Parts::Name nameOf(std::string_view name);
    std::string gapBehind(std::string_view target) const;
    std::string_view currentMarkup() const;
    std::size_t offset() const;
    bool isOutsideRoot() const { return current_ == &XmlDocument::Parts::content(*document_); }
    [[noreturn]] void fail(const Core::String& reason) const;
    [[noreturn]] void failWithParserError() const;

    std::string_view text_;
    std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
    SmartPtr<XmlDocument> document_;
    Node* current_;           // the node whose children are being read
    int depth_ = 0;           // of current_; the root element has 1
    std::string pendingText_; // read, but not yet a node
    bool declared_ = false;   // an XML declaration was read
    bool inDocumentType_ = false;
    bool hasDocumentType_ = false;
    std::size_t documentTypeStart_ = 0;
    std::set<std::string, std::less<>> entities_; // the general ones that the text declares
    int entityCount_ = 0;
    std::unordered_map<std::string, Node::Parts::Name, Hash, std::equal_to<>> names_;
    std::exception_ptr thrown_; // by a handler; it must not pass through the parser's frames
};

} // namespace Xml

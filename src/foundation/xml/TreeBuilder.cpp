#include "foundation/xml/TreeBuilder.h"

#include "foundation/Encoder.h"
#include "foundation/xml/CDataNode.h"
#include "foundation/xml/CommentNode.h"
#include "foundation/xml/DocumentTypeNode.h"
#include "foundation/xml/EntityReferenceNode.h"
#include "foundation/xml/ProcessingInstructionNode.h"
#include "foundation/xml/QualifiedName.h"

#include <expat.h>

#include <algorithm>
#include <utility>

namespace Xml {

namespace {

Core::String decode(std::string_view utf8) {
    return Core::Encoder::convertUTF8ToString(utf8);
}

/// Line ends as XML reads them, each as one line feed.
std::string withLineFeeds(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool pair = text.substr(i).starts_with("\r\n");
        if (!pair)
            result += text[i] == '\r' ? '\n' : text[i];
    }
    return result;
}

} // namespace

TreeBuilder::TreeBuilder(std::string_view text, bool substituteEntities)
    : MarkupReader(text), document_(new XmlDocument),
      current_(&XmlDocument::Parts::content(*document_)) {
    setHandlers(substituteEntities);
}

TreeBuilder::~TreeBuilder() = default;

SmartPtr<XmlDocument> TreeBuilder::build() {
    read();
    flushText();
    return document_;
}

void TreeBuilder::setHandlers(bool substituteEntities) {
    XML_SetCdataSectionHandler(parser(), Forward<&TreeBuilder::startCData>::call,
                               Forward<&TreeBuilder::endCData>::call);
    XML_SetCommentHandler(parser(), Forward<&TreeBuilder::addComment>::call);
    XML_SetProcessingInstructionHandler(parser(), Forward<&TreeBuilder::addInstruction>::call);
    XML_SetXmlDeclHandler(parser(), Forward<&TreeBuilder::readDeclaration>::call);
    auto setDefault = substituteEntities ? XML_SetDefaultHandlerExpand : XML_SetDefaultHandler;
    setDefault(parser(), Forward<&TreeBuilder::readUnhandled>::call);
}

void TreeBuilder::startElement(const char* name, const char** attributes) {
    flushText();
    auto element = std::make_unique<Element>(nameOf(name));
    // Attributes that a document type adds are left out: the text does not have them.
    int specified = XML_GetSpecifiedAttributeCount(parser());
    Element::Parts::reserveAttributes(*element, static_cast<std::size_t>(specified) / 2);
    for (int i = 0; i < specified; i += 2)
        Element::Parts::addAttribute(*element, nameOf(attributes[i]), decode(attributes[i + 1]));
    if (isOutsideRoot())
        XmlDocument::Parts::setRoot(*document_, element.get());
    current_ = Node::Parts::append(*current_, std::move(element));
}

void TreeBuilder::endElement(const char*) {
    flushText();
    current_ = Node::Parts::parent(*current_);
}

void TreeBuilder::addText(const char* text, int length) {
    pendingText_.append(text, static_cast<std::size_t>(length));
}

void TreeBuilder::startCData() {
    flushText();
}

void TreeBuilder::endCData() {
    add(std::make_unique<CDataNode>(decode(std::exchange(pendingText_, {}))));
}

void TreeBuilder::addComment(const char* text) {
    if (!inDocumentType_)
        add(std::make_unique<CommentNode>(decode(text)));
}

void TreeBuilder::addInstruction(const char* target, const char* data) {
    if (!inDocumentType_)
        add(std::make_unique<ProcessingInstructionNode>(nameOf(target),
                                                        decode(gapBehind(target) + data)));
}

void TreeBuilder::readDeclaration(const char* version, const char*, int) {
    declared_ = true;
    if (version)
        XmlDocument::Parts::setVersion(*document_, decode(version));
}

// Gets white space outside the root and, piece by piece, the document type. White space behind the
// declaration goes with it.
void TreeBuilder::readUnhandled(const char* text, int length) {
    std::string_view piece(text, static_cast<std::size_t>(length));
    if (inDocumentType_ || !isOutsideRoot())
        return;
    if (piece == "<!DOCTYPE") {
        flushText();
        inDocumentType_ = true;
        documentTypeStart_ = offset();
    } else if (!declared_ || XmlDocument::Parts::content(*document_).has_children()) {
        pendingText_ += piece;
    }
}

void TreeBuilder::endDocumentType() {
    std::string_view declaration =
        text().substr(documentTypeStart_, offset() + 1 - documentTypeStart_);
    inDocumentType_ = false;
    add(std::make_unique<DocumentTypeNode>(decode(declaration)));
}

void TreeBuilder::addEntityReference(const char* name) {
    add(std::make_unique<EntityReferenceNode>(nameOf(name)));
}

void TreeBuilder::flushText() {
    if (pendingText_.empty())
        return;
    std::string text = std::exchange(pendingText_, {});
    Node::Parts::append(*current_, std::make_unique<TextNode>(
                                       decode(isOutsideRoot() ? withLineFeeds(text) : text)));
}

void TreeBuilder::add(std::unique_ptr<Node> node) {
    flushText();
    Node::Parts::append(*current_, std::move(node));
}

Node::Parts::Name TreeBuilder::nameOf(std::string_view name) {
    auto known = names_.find(name);
    if (known == names_.end())
        known =
            names_
                .emplace(name, std::make_shared<QualifiedName>(QualifiedName::split(decode(name))))
                .first;
    return known->second;
}

/// The white space between the target and the data of the instruction being read.
std::string TreeBuilder::gapBehind(std::string_view target) const {
    std::string_view markup = currentMarkup();
    if (!markup.starts_with("<?"))
        return " "; // it stands in an entity, whose text is not at hand
    markup.remove_prefix(std::min(2 + target.size(), markup.size()));
    std::size_t end = std::min(markup.find_first_not_of(" \t\r\n"), markup.size());
    return withLineFeeds(markup.substr(0, end));
}

} // namespace Xml

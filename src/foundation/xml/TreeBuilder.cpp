#include "foundation/xml/TreeBuilder.h"

#include "foundation/Encoder.h"
#include "foundation/xml/CDataNode.h"
#include "foundation/xml/CommentNode.h"
#include "foundation/xml/DocumentTypeNode.h"
#include "foundation/xml/EntityReferenceNode.h"
#include "foundation/xml/ProcessingInstructionNode.h"
#include "foundation/xml/QualifiedName.h"

#define XML_DTD 1 // without it the header hides the limits on entities
#include <expat.h>

#include <algorithm>
#include <new>
#include <utility>

namespace Xml {

namespace {

constexpr int kMaximumDepth = 4096;
// Entities may nest as deep as there are entities, and the parser recurses over them.
constexpr int kMaximumEntities = 1024;
// Up to this size nothing is refused; beyond it, entities may make the text so many times as long.
constexpr unsigned long long kUncheckedBytes = 1 << 20;
constexpr float kMaximumAmplification = 8.0F;
// The parser takes its input in pieces, because it counts them in an int.
constexpr std::size_t kPieceBytes = 1 << 28;

Core::String decode(std::string_view utf8) {
    return Core::Encoder::convertUTF8ToString(utf8);
}

bool isPredefined(std::string_view entity) {
    return entity == "amp" || entity == "lt" || entity == "gt" || entity == "quot" ||
           entity == "apos";
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

int refuseExternalEntity(XML_Parser, const char*, const char*, const char*, const char*) {
    return XML_STATUS_ERROR;
}

} // namespace

/// The C function that hands an event on to a member function.
template <typename... Arguments, void (TreeBuilder::*Handler)(Arguments...)>
struct TreeBuilder::Forward<Handler> {
    static void call(void* self, Arguments... arguments) noexcept {
        auto& builder = *static_cast<TreeBuilder*>(self);
        if (builder.thrown_)
            return;
        try {
            (builder.*Handler)(arguments...);
        } catch (...) {
            builder.thrown_ = std::current_exception();
            XML_StopParser(builder.parser_.get(), XML_FALSE);
        }
    }
};

void TreeBuilder::FreeParser::operator()(XML_ParserStruct* parser) const {
    XML_ParserFree(parser);
}

TreeBuilder::TreeBuilder(std::string_view text, bool substituteEntities)
    : text_(text), parser_(XML_ParserCreate("UTF-8")), document_(new XmlDocument),
      current_(&XmlDocument::Parts::content(*document_)) {
    if (!parser_)
        throw std::bad_alloc();
    setHandlers(substituteEntities);
}

TreeBuilder::~TreeBuilder() = default;

SmartPtr<XmlDocument> TreeBuilder::build() {
    parse();
    flushText();
    return document_;
}

void TreeBuilder::setHandlers(bool substituteEntities) {
    XML_Parser parser = parser_.get();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, Forward<&TreeBuilder::startElement>::call,
                          Forward<&TreeBuilder::endElement>::call);
    XML_SetCharacterDataHandler(parser, Forward<&TreeBuilder::addText>::call);
    XML_SetCdataSectionHandler(parser, Forward<&TreeBuilder::startCData>::call,
                               Forward<&TreeBuilder::endCData>::call);
    XML_SetCommentHandler(parser, Forward<&TreeBuilder::addComment>::call);
    XML_SetProcessingInstructionHandler(parser, Forward<&TreeBuilder::addInstruction>::call);
    XML_SetXmlDeclHandler(parser, Forward<&TreeBuilder::readDeclaration>::call);
    XML_SetEndDoctypeDeclHandler(parser, Forward<&TreeBuilder::endDocumentType>::call);
    XML_SetEntityDeclHandler(parser, Forward<&TreeBuilder::declareEntity>::call);
    XML_SetSkippedEntityHandler(parser, Forward<&TreeBuilder::skipEntity>::call);
    XML_SetExternalEntityRefHandler(parser, refuseExternalEntity);
    auto setDefault = substituteEntities ? XML_SetDefaultHandlerExpand : XML_SetDefaultHandler;
    setDefault(parser, Forward<&TreeBuilder::readUnhandled>::call);
    XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser, kMaximumAmplification);
    XML_SetBillionLaughsAttackProtectionActivationThreshold(parser, kUncheckedBytes);
}

void TreeBuilder::parse() {
    for (std::size_t start = 0; start == 0 || start < text_.size(); start += kPieceBytes) {
        std::string_view piece = text_.substr(start, kPieceBytes);
        bool last = start + piece.size() == text_.size();
        XML_Status status =
            XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), last);
        if (thrown_)
            std::rethrow_exception(thrown_);
        if (status != XML_STATUS_OK)
            failWithParserError();
    }
}

void TreeBuilder::startElement(const char* name, const char** attributes) {
    if (depth_ == kMaximumDepth)
        fail(L"elements are nested more than " + Core::String::formatS(kMaximumDepth) + L" deep");
    if (hasDocumentType_)
        requireDeclaredEntities(currentMarkup());
    flushText();
    auto element = std::make_unique<Element>(nameOf(name));
    // Attributes that a document type adds are left out: the text does not have them.
    int specified = XML_GetSpecifiedAttributeCount(parser_.get());
    Element::Parts::reserveAttributes(*element, static_cast<std::size_t>(specified) / 2);
    for (int i = 0; i < specified; i += 2)
        Element::Parts::addAttribute(*element, nameOf(attributes[i]), decode(attributes[i + 1]));
    if (isOutsideRoot())
        XmlDocument::Parts::setRoot(*document_, element.get());
    current_ = Node::Parts::append(*current_, std::move(element));
    ++depth_;
}

void TreeBuilder::endElement(const char*) {
    flushText();
    current_ = Node::Parts::parent(*current_);
    --depth_;
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
        text_.substr(documentTypeStart_, offset() + 1 - documentTypeStart_);
    inDocumentType_ = false;
    hasDocumentType_ = true;
    add(std::make_unique<DocumentTypeNode>(decode(declaration)));
}

void TreeBuilder::declareEntity(const char* name, int isParameter, const char*, int, const char*,
                                const char*, const char*, const char*) {
    if (++entityCount_ > kMaximumEntities)
        fail(L"more than " + Core::String::formatS(kMaximumEntities) + L" entity declarations");
    if (!isParameter)
        entities_.emplace(name);
}

void TreeBuilder::skipEntity(const char* name, int isParameter) {
    if (isParameter)
        return;
    if (!entities_.contains(std::string_view(name)))
        fail(L"undefined entity");
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

// When a document type points outside, the parser drops references to undeclared entities from
// attribute values without a word.
void TreeBuilder::requireDeclaredEntities(std::string_view tag) const {
    std::size_t start = 0;
    while ((start = tag.find('&', start)) != std::string_view::npos) {
        std::string_view entity = tag.substr(start + 1, tag.find(';', start) - start - 1);
        if (!entity.starts_with('#') && !isPredefined(entity) && !entities_.contains(entity))
            fail(L"undefined entity");
        ++start;
    }
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

std::string_view TreeBuilder::currentMarkup() const {
    return text_.substr(offset(), static_cast<std::size_t>(XML_GetCurrentByteCount(parser_.get())));
}

std::size_t TreeBuilder::offset() const {
    XML_Index index = XML_GetCurrentByteIndex(parser_.get());
    return std::min(index < 0 ? 0 : static_cast<std::size_t>(index), text_.size());
}

void TreeBuilder::fail(const Core::String& reason) const {
    throw Failure{offset(), reason};
}

void TreeBuilder::failWithParserError() const {
    XML_Error error = XML_GetErrorCode(parser_.get());
    if (error == XML_ERROR_NO_MEMORY)
        throw std::bad_alloc();
    if (error == XML_ERROR_AMPLIFICATION_LIMIT_BREACH)
        fail(L"the entities expand to too much text");
    if (error == XML_ERROR_EXTERNAL_ENTITY_HANDLING)
        fail(L"reference to an entity outside the text, which is never read");
    throw Failure{offset(), XML_ErrorString(error)};
}

} // namespace Xml

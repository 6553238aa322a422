#include "foundation/xml/MarkupReader.h"

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

bool isPredefined(std::string_view entity) {
    return entity == "amp" || entity == "lt" || entity == "gt" || entity == "quot" ||
           entity == "apos";
}

int refuseExternalEntity(XML_Parser, const char*, const char*, const char*, const char*) {
    return XML_STATUS_ERROR;
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// How many code units the byte begins: a character of four bytes is a surrogate pair.
int unitsOf(char byte) {
    if (isContinuation(byte))
        return 0;
    return static_cast<unsigned char>(byte) >= 0xF0 ? 2 : 1;
}

} // namespace

void MarkupReader::FreeParser::operator()(XML_ParserStruct* parser) const {
    XML_ParserFree(parser);
}

MarkupReader::MarkupReader(std::string_view text)
    : text_(text), parser_(XML_ParserCreate("UTF-8")) {
    if (!parser_)
        throw std::bad_alloc();
    XML_Parser parser = parser_.get();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, Forward<&MarkupReader::openElement>::call,
                          Forward<&MarkupReader::closeElement>::call);
    XML_SetCharacterDataHandler(parser, Forward<&MarkupReader::addText>::call);
    XML_SetEndDoctypeDeclHandler(parser, Forward<&MarkupReader::closeDocumentType>::call);
    XML_SetEntityDeclHandler(parser, Forward<&MarkupReader::declareEntity>::call);
    XML_SetSkippedEntityHandler(parser, Forward<&MarkupReader::skipEntity>::call);
    XML_SetExternalEntityRefHandler(parser, refuseExternalEntity);
    XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser, kMaximumAmplification);
    XML_SetBillionLaughsAttackProtectionActivationThreshold(parser, kUncheckedBytes);
}

MarkupReader::~MarkupReader() = default;

void MarkupReader::read() {
    for (std::size_t start = 0; start == 0 || start < text_.size(); start += kPieceBytes) {
        std::string_view piece = text_.substr(start, kPieceBytes);
        bool last = start + piece.size() == text_.size();
        XML_Status status =
            XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), last);
        if (thrown_)
            std::rethrow_exception(thrown_);
        if (hasEnded_)
            return;
        if (status != XML_STATUS_OK)
            failWithParserError();
    }
}

void MarkupReader::endHere() {
    hasEnded_ = true;
    XML_StopParser(parser_.get(), XML_FALSE);
}

void MarkupReader::openElement(const char* name, const char** attributes) {
    if (depth_ == kMaximumDepth)
        fail(L"elements are nested more than " + Core::String::formatS(kMaximumDepth) + L" deep");
    if (hasDocumentType_)
        requireDeclaredEntities(currentMarkup());
    startElement(name, attributes);
    ++depth_;
}

void MarkupReader::closeElement(const char* name) {
    endElement(name);
    --depth_;
}

void MarkupReader::closeDocumentType() {
    hasDocumentType_ = true;
    endDocumentType();
}

void MarkupReader::declareEntity(const char* name, int isParameter, const char*, int, const char*,
                                 const char*, const char*, const char*) {
    if (++entityCount_ > kMaximumEntities)
        fail(L"more than " + Core::String::formatS(kMaximumEntities) + L" entity declarations");
    if (!isParameter)
        entities_.emplace(name);
}

void MarkupReader::skipEntity(const char* name, int isParameter) {
    if (isParameter)
        return;
    if (!entities_.contains(std::string_view(name)))
        fail(L"undefined entity");
    addEntityReference(name);
}

// When a document type points outside, the parser drops references to undeclared entities from
// attribute values without a word.
void MarkupReader::requireDeclaredEntities(std::string_view tag) const {
    std::size_t start = 0;
    while ((start = tag.find('&', start)) != std::string_view::npos) {
        std::string_view entity = tag.substr(start + 1, tag.find(';', start) - start - 1);
        if (!entity.starts_with('#') && !isPredefined(entity) && !entities_.contains(entity))
            fail(L"undefined entity");
        ++start;
    }
}

std::string_view MarkupReader::currentMarkup() const {
    return text_.substr(offset(), static_cast<std::size_t>(XML_GetCurrentByteCount(parser_.get())));
}

std::size_t MarkupReader::offset() const {
    XML_Index index = XML_GetCurrentByteIndex(parser_.get());
    return std::min(index < 0 ? 0 : static_cast<std::size_t>(index), text_.size());
}

void MarkupReader::stop(std::exception_ptr thrown) noexcept {
    thrown_ = std::move(thrown);
    XML_StopParser(parser_.get(), XML_FALSE);
}

void MarkupReader::fail(const Core::String& reason) const {
    throw Failure{offset(), reason};
}

void MarkupReader::failWithParserError() const {
    XML_Error error = XML_GetErrorCode(parser_.get());
    if (error == XML_ERROR_NO_MEMORY)
        throw std::bad_alloc();
    if (error == XML_ERROR_AMPLIFICATION_LIMIT_BREACH)
        fail(L"the entities expand to too much text");
    if (error == XML_ERROR_EXTERNAL_ENTITY_HANDLING)
        fail(L"reference to an entity outside the text, which is never read");
    throw Failure{offset(), XML_ErrorString(error)};
}

ParseException located(const Core::String& source, std::string_view text,
                       const MarkupReader::Failure& failure) {
    int line = 1;
    int column = 1;
    for (std::size_t i = 0; i < failure.offset; ++i) {
        bool ends = text[i] == '\n' || (text[i] == '\r' && !text.substr(i + 1).starts_with('\n'));
        line += ends ? 1 : 0;
        column = ends ? 1 : column + unitsOf(text[i]);
    }
    return ParseException(source, line, column, failure.reason);
}

} // namespace Xml

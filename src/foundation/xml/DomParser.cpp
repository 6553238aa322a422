#include "foundation/xml/DomParser.h"

#include "foundation/Encoder.h"
#include "foundation/FileStream.h"
#include "foundation/MemoryStream.h"
#include "foundation/XmlReader.h"
#include "foundation/xml/AttributeLineBreaks.h"
#include "foundation/xml/ParseException.h"
#include "foundation/xml/TreeBuilder.h"

namespace Xml {

namespace {

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// How many code units the byte begins: a character of four bytes is a surrogate pair.
int unitsOf(char byte) {
    if (isContinuation(byte))
        return 0;
    return static_cast<unsigned char>(byte) >= 0xF0 ? 2 : 1;
}

ParseException locate(const Core::String& source, std::string_view text,
                      const TreeBuilder::Failure& failure) {
    int line = 1;
    int column = 1;
    for (std::size_t i = 0; i < failure.offset; ++i) {
        bool ends = text[i] == '\n' || (text[i] == '\r' && !text.substr(i + 1).starts_with('\n'));
        line += ends ? 1 : 0;
        column = ends ? 1 : column + unitsOf(text[i]);
    }
    return ParseException(source, line, column, failure.reason);
}

SmartPtr<XmlDocument> build(std::string_view text, bool keepLineBreaks, bool substituteEntities) {
    if (!keepLineBreaks)
        return TreeBuilder(text, substituteEntities).build();
    AttributeLineBreaks kept(text);
    try {
        return TreeBuilder(kept.text(), substituteEntities).build();
    } catch (TreeBuilder::Failure& failure) {
        failure.offset = kept.sourceOffset(failure.offset);
        throw;
    }
}

} // namespace

DomParser::~DomParser() = default;

void DomParser::parseStream(const SmartPtr<Core::IO::Stream>& stream) {
    document_ = nullptr;
    Core::ByteArray bytes =
        Core::Encoder::convertStringToUTF8(Core::IO::XmlReader(stream).readToEnd());
    try {
        document_ = build(bytes.view(), keepsLineBreaks(), getSubstituteEntities());
    } catch (const TreeBuilder::Failure& failure) {
        throw locate(stream->name(), bytes.view(), failure);
    }
}

void DomParser::parseFile(const Core::String& path) {
    document_ = nullptr;
    parseStream(SmartPtr<Core::IO::Stream>(new Core::IO::FileStream(path, false, false, false)));
}

void DomParser::parseMemory(const unsigned char* bytes, std::size_t count) {
    parseStream(
        SmartPtr<Core::IO::Stream>(new Core::IO::MemoryStream(Core::ByteArray(bytes, count))));
}

} // namespace Xml

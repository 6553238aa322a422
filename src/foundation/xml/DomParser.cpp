#include "foundation/xml/DomParser.h"

#include "foundation/Encoder.h"
#include "foundation/FileStream.h"
#include "foundation/MemoryStream.h"
#include "foundation/XmlReader.h"
#include "foundation/xml/AttributeLineBreaks.h"
#include "foundation/xml/TreeBuilder.h"

namespace Xml {

namespace {

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
        throw located(stream->name(), bytes.view(), failure);
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

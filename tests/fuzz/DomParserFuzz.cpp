// Any bytes are either parsed or refused with a reason, and a tree that was written and read again
// is written in the same way.

#include "foundation/DomParser.h"
#include "foundation/Encoder.h"
#include "foundation/Exception.h"

#include <cstdint>
#include <cstdlib>

namespace {

struct Options {
    bool substituteEntities;
    bool keepLineBreaks;
};

SmartPtr<Xml::XmlDocument> parse(const unsigned char* data, std::size_t size, Options options) {
    Xml::DomParser parser;
    parser.setSubstituteEntities(options.substituteEntities);
    parser.allowNewLineInAttribute(options.keepLineBreaks);
    parser.parseMemory(data, size);
    return parser.getDocument();
}

void requireStable(const Core::String& written, Options options) {
    const Core::ByteArray bytes = Core::Encoder::convertStringToUTF8(written);
    if (parse(bytes.ptr(), bytes.size(), options)->writeToString() != written)
        std::abort();
}

} // namespace

/// The first byte chooses the options.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const Options options{(data[0] & 1) != 0, (data[0] & 2) != 0};
    SmartPtr<Xml::XmlDocument> document;
    try {
        document = parse(data + 1, size - 1, options);
    } catch (const Core::Exception& refusal) {
        if (refusal.getMessage().empty())
            std::abort();
        return 0;
    }
    requireStable(document->writeToString(), options);
    return 0;
}

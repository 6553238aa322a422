// Any bytes are either parsed or refused with a reason, and a tree that was written and read again
// is written in the same way.

#include "foundation/Encoder.h"
#include "foundation/Exception.h"
#include "foundation/xml/DomParser.h"

#include <cstdint>
#include <cstdlib>

/// The first byte chooses the options.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const auto written = [options = data[0]](const unsigned char* bytes, std::size_t count) {
        Xml::DomParser parser;
        parser.setSubstituteEntities((options & 1) != 0);
        parser.allowNewLineInAttribute((options & 2) != 0);
        parser.parseMemory(bytes, count);
        return parser.getDocument()->writeToString();
    };
    Core::String once;
    try {
        once = written(data + 1, size - 1);
    } catch (const Core::Exception& refusal) {
        if (refusal.getMessage().empty())
            std::abort();
        return 0;
    }
    const Core::ByteArray bytes = Core::Encoder::convertStringToUTF8(once);
    if (written(bytes.ptr(), bytes.size()) != once)
        std::abort();
    return 0;
}

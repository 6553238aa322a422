// Any bytes are either read or refused with a reason, and what was read is text that can be saved.

#include "foundation/Encoder.h"
#include "foundation/Exception.h"
#include "foundation/MemoryStream.h"
#include "foundation/XmlReader.h"

#include <cstdint>
#include <cstdlib>

using namespace Core;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    String text;
    try {
        text = IO::XmlReader(new IO::MemoryStream(ByteArray(data, size))).readToEnd();
    } catch (const Exception& refusal) {
        if (refusal.getMessage().empty())
            std::abort();
        return 0;
    }
    const ByteArray saved = Encoder::convertStringToUTF8(text);
    if (Encoder::convertUTF8ToString(saved.view()) != text)
        std::abort();
    return 0;
}

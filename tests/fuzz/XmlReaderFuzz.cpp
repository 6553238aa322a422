// Any bytes are either read or refused with a reason, and what was read is text that can be saved.

#include "foundation/Encoder.h"
#include "foundation/Exception.h"
#include "foundation/MemoryStream.h"
#include "foundation/XmlReader.h"

#include <cstdint>
#include <cstdlib>

using namespace Core;

namespace {

void requireSavable(const String& text) {
    const ByteArray saved = Encoder::convertStringToUTF8(text);
    if (Encoder::convertUTF8ToString(saved.view()) != text)
        std::abort();
}

bool read(const std::uint8_t* data, std::size_t size, String& text) {
    SmartPtr<IO::Stream> stream(new IO::MemoryStream(ByteArray(data, size)));
    try {
        text = IO::XmlReader(stream).readToEnd();
        return true;
    } catch (const Exception& refusal) {
        if (refusal.getMessage().empty())
            std::abort();
        return false;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    String text;
    if (read(data, size, text))
        requireSavable(text);
    return 0;
}

// The scanners are given any text, well formed or not, and any position. They answer with a
// position within the text or with none, and they come to an end.

#include "text/EveryQuestion.h"

#include <cstdint>
#include <cstdlib>
#include <string>

/// The first two bytes choose the position, before the text's start and behind its end included.
/// Bytes above 0x7F become single units, among them U+00A0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t longest = 4096; // a question may look at the whole text, many times
    if (size < 2 || size > longest)
        return 0;
    XmlText text;
    text.assign(Core::String(std::wstring(data + 2, data + size)));
    text.setRootName(L"fo:root");
    const int range = text.length() + 5;
    if (!brokenAnswer(text, (data[0] + 256 * data[1]) % range - 2).empty())
        std::abort();
    return 0;
}

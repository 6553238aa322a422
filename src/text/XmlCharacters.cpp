#include "text/XmlCharacters.h"

#include "foundation/Transcoding.h"

using Core::Transcoding::isHighSurrogate;
using Core::Transcoding::isLowSurrogate;

namespace {

bool isForbidden(wchar_t unit) noexcept {
    const bool isControl = unit < L' ' && unit != L'\t' && unit != L'\n' && unit != L'\r';
    return isControl || unit >= 0xFFFE || isHighSurrogate(unit) || isLowSurrogate(unit);
}

} // namespace

std::size_t XmlCharacters::countForbidden(TextView text) noexcept {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isPair =
            isHighSurrogate(text[at]) && at + 1 < text.size() && isLowSurrogate(text[at + 1]);
        if (isPair)
            ++at;
        else if (isForbidden(text[at]))
            ++count;
    }
    return count;
}

#include "text/TagEnds.h"

#include "foundation/String.h"

#include <algorithm>

using namespace XmlScan;

namespace {

/// To read so many units again is cheaper than to remember them.
constexpr int shortDistance = 256;

int length(Text text) noexcept {
    return static_cast<int>(text.size());
}

/// The first unit from `from` up to `end` that ends the name of a tag; -1 if none.
int nameEndBetween(Text text, int from, int end) noexcept {
    for (int at = from; at < end; ++at) {
        const wchar_t unit = unitAt(text, at);
        if (unit == L'>' || unit == L'/' || Core::String::isSpace(unit))
            return at;
    }
    return -1;
}

} // namespace

bool TagEnds::selfClosingAt(Text text, int position) noexcept {
    if (!onTagStart(text, position))
        return false;
    const int end = tagEnd(text, position);
    return end > position && unitAt(text, end - 1) == L'/';
}

int TagEnds::tagEnd(Text text, int from) noexcept {
    Quotes quotes = NoQuotes;
    const int near = std::min(from + shortDistance, length(text));
    const int end = tagEndBetween(text, from, near, quotes);
    if (end >= 0 || near == length(text))
        return end;
    readBack(text, from);
    std::optional<int>& known = ends_[NoQuotes];
    if (!known)
        known = tagEndBetween(text, near, length(text), quotes);
    return *known;
}

/// What is known from `read_` on tells what is known from a place before it.
void TagEnds::readBack(Text text, int from) noexcept {
    Ends ends;
    for (const Quotes start : {NoQuotes, DoubleQuotes, SingleQuotes}) {
        if (from > read_)
            break;
        Quotes quotes = start;
        const int end = tagEndBetween(text, from, read_, quotes);
        ends[start] = end < 0 ? ends_[quotes] : end;
    }
    read_ = from;
    ends_ = ends;
}

Text TagEnds::tagName(Text text, int position) noexcept {
    if (!onTagStart(text, position))
        return {};
    // From the second unit on, so that the "/" of a closing tag is part of its name.
    const int end = nameEnd(text, position + 2);
    return end < 0 ? Text() : slice(text, position + 1, end);
}

int TagEnds::nameEnd(Text text, int from) noexcept {
    const int near = std::min(from + shortDistance, length(text));
    const int end = nameEndBetween(text, from, near);
    if (end >= 0 || near >= length(text))
        return end;
    if (from < nameRead_ || from > nameEnd_) {
        const int readTo = from < nameRead_ ? nameRead_ : length(text);
        const int found = nameEndBetween(text, near, readTo);
        if (found >= 0 || from > nameEnd_)
            nameEnd_ = found < 0 ? length(text) : found;
        nameRead_ = from;
    }
    return nameEnd_ < length(text) ? nameEnd_ : -1;
}

void TagEnds::forget() noexcept {
    *this = {};
}

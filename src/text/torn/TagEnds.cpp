#include "text/torn/TagEnds.h"

#include "foundation/String.h"
#include "text/TagQuotes.h"
#include "text/torn/ReadAgain.h"

#include <algorithm>
#include <utility>
#include <vector>

using namespace XmlScan;

namespace {

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

bool TagEnds::selfClosingAt(Text text, int position) {
    if (!onTagStart(text, position))
        return false;
    const int end = tagEnd(text, position);
    return end > position && unitAt(text, end - 1) == L'/';
}

int TagEnds::tagEnd(Text text, int from) {
    Quotes quotes = NoQuotes;
    const int near = std::min(from + ReadAgain::units, length(text));
    const int end = tagEndBetween(text, from, near, quotes);
    return end >= 0 || near == length(text) ? end : farTagEnd(text, from);
}

/// Goes on from quote to quote until the tag ends, or where it is known how one goes on.
int TagEnds::farTagEnd(Text text, int from) {
    std::vector<std::pair<int, int>> met; // the first and the last of each stretch
    int end = -1;
    for (int at = from; at < length(text);) {
        const auto known = stretches_.lower_bound(at);
        const int first = at;
        const int unread = known == stretches_.end() ? length(text) : known->second.first;
        while (at < unread && unitAt(text, at) != L'>' && quotesOf(unitAt(text, at)) == NoQuotes)
            ++at;
        if (known != stretches_.end() && at >= unread) {
            known->second.first = std::min(first, unread);
            end = known->second.end;
            break;
        }
        met.emplace_back(first, at);
        const wchar_t last = at < length(text) ? unitAt(text, at) : L'>';
        if (last == L'>')
            end = at < length(text) ? at : -1;
        const int quote = last == L'>' ? -1 : find(text, last, at + 1);
        at = quote < 0 ? length(text) : quote + 1;
    }
    for (const auto& [first, last] : met)
        stretches_.insert_or_assign(last, Stretch{first, end});
    return end;
}

Text TagEnds::tagName(Text text, int position) noexcept {
    if (!onTagStart(text, position))
        return {};
    // From the second unit on, so that the "/" of a closing tag is part of its name.
    const int end = nameEnd(text, position + 2);
    return end < 0 ? Text() : slice(text, position + 1, end);
}

int TagEnds::nameEnd(Text text, int from) noexcept {
    const int near = std::min(from + ReadAgain::units, length(text));
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

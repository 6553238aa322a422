#pragma once

#include "text/XmlScan.h"

#include <cstddef>

namespace XmlScan {

/// In which quotes of a tag a scan stands.
enum Quotes : std::size_t { NoQuotes, DoubleQuotes, SingleQuotes, QuotesCount };

inline Quotes quotesOf(wchar_t unit) noexcept {
    return unit == L'"' ? DoubleQuotes : unit == L'\'' ? SingleQuotes : NoQuotes;
}

/// The first `>` from `from` up to `end` that stands in no quotes; -1 if none. `quotes` tells in
/// which the scan begins and then in which it ends.
inline int tagEndBetween(Text text, int from, int end, Quotes& quotes) noexcept {
    for (int at = from; at < end; ++at) {
        const wchar_t unit = unitAt(text, at);
        if (quotes == NoQuotes && unit == L'>')
            return at;
        if (quotes == NoQuotes)
            quotes = quotesOf(unit);
        else if (quotes == quotesOf(unit))
            quotes = NoQuotes;
    }
    return -1;
}

} // namespace XmlScan

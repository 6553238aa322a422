#include "text/XmlScan.h"

#include "foundation/String.h"

namespace XmlScan {

namespace {

bool isQuote(wchar_t unit) {
    return unit == L'"' || unit == L'\'';
}

bool isTagSpace(wchar_t unit) {
    return unit == L' ' || unit == L'\t' || unit == L'\n' || unit == L'\r';
}

} // namespace

int nextAttribute(Text text, int position) noexcept {
    bool gap = false;
    for (int at = position; isValid(text, at); ++at) {
        const wchar_t unit = unitAt(text, at);
        if (isTagSpace(unit)) {
            gap = true;
        } else if (isQuote(unit)) {
            const int closing = find(text, unit, at + 1);
            if (closing < 0)
                return -1;
            at = closing;
            gap = true; // an attribute may follow the quote with no blank between
        } else if (unit == L'/' || unit == L'>' || standsAt(text, instructionEnd, at)) {
            return -1;
        } else if (unit != L'=' && unit != L'?' && gap) {
            return at;
        }
    }
    return -1;
}

int previousAttribute(Text text, int position) noexcept {
    // Deliberate: quotes are not tracked in this direction, so an "=" in a value counts as one
    // between a name and its value.
    bool sawEquals = false;
    for (int at = position; isValid(text, at); --at) {
        const wchar_t unit = unitAt(text, at);
        if (unit == L'<')
            return -1;
        if (unit == L'=') {
            sawEquals = true;
        } else if (unit != L' ' && !isQuote(unit) && sawEquals) {
            while (at >= 0 && !Core::String::isSpace(unitAt(text, at)))
                --at;
            return at < 0 ? -1 : at + 1;
        }
    }
    return -1;
}

Text attributeName(Text text, int position) noexcept {
    for (int end = position; isValid(text, end); ++end) {
        const wchar_t unit = unitAt(text, end);
        if (unit == L'=' || Core::String::isSpace(unit))
            return slice(text, position, end);
    }
    return {};
}

Text attributeValue(Text text, int position) noexcept {
    if (!isValid(text, position))
        return {};
    const int open = findQuote(text, position + 1);
    if (open < 0)
        return {};
    const int close = find(text, unitAt(text, open), open + 1);
    return close < 0 ? Text() : slice(text, open + 1, close);
}

int findQuote(Text text, int position) noexcept {
    return position < 0
               ? -1
               : static_cast<int>(text.findEither(L'"', L'\'', static_cast<unsigned>(position)));
}

} // namespace XmlScan

#include "text/Prolog.h"

#include <algorithm>

namespace XmlScan {

namespace {

int behindIgnored(Text text, int position) {
    const int behind = stepForward(text, position);
    return behind > position ? behind : static_cast<int>(text.size());
}

/// The offset behind the document type at `position`. What it declares stands between brackets, and
/// a `>` in quotes, comments and instructions does not count.
int behindDocumentType(Text text, int position) {
    bool inBrackets = false;
    for (int at = position + 1; isValid(text, at);) {
        const wchar_t unit = unitAt(text, at);
        if (unit == L'>' && !inBrackets)
            return at + 1;
        if (unit == L'[' || unit == L']')
            inBrackets = unit == L'[';
        if (ignoredAt(text, at))
            at = behindIgnored(text, at);
        else if (unit == L'"' || unit == L'\'')
            at = std::max(find(text, unit, at + 1), at) + 1;
        else
            ++at;
    }
    return static_cast<int>(text.size());
}

} // namespace

Prolog prologOf(Text text) {
    Prolog prolog;
    for (int at = find(text, L'<', 0); at >= 0;) {
        if (standsAt(text, L"<!DOCTYPE", at)) {
            const int behind = behindDocumentType(text, at);
            prolog.documentType = slice(text, at, behind);
            at = find(text, L'<', behind);
        } else if (ignoredAt(text, at)) {
            at = find(text, L'<', behindIgnored(text, at));
        } else {
            prolog.root = at;
            break;
        }
    }
    return prolog;
}

} // namespace XmlScan

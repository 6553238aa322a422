#include "text/Prolog.h"

namespace XmlScan {

namespace {

int behindIgnored(Text text, int position) {
    const int behind = stepForward(text, position);
    return behind > position ? behind : static_cast<int>(text.size());
}

} // namespace

Prolog prologOf(Text text) {
    Prolog prolog;
    for (int at = find(text, L'<', 0); at >= 0;) {
        if (documentTypeAt(text, at)) {
            const int end = documentTypeEnd(text, at);
            prolog.documentType = slice(text, at, end < 0 ? static_cast<int>(text.size()) : end);
            at = find(text, L'<', end);
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

#include "text/XmlValidator.h"

#include "text/XmlScan.h"

using XmlScan::Text;

namespace {

/// The offset behind the tag that begins at `start`; -1 if it is not closed or holds what no tag
/// may.
int behindTag(Text text, int start) {
    bool valueDue = false;
    for (int at = start + 1; XmlScan::isValid(text, at); ++at) {
        const wchar_t unit = XmlScan::unitAt(text, at);
        if (unit == L'"' || unit == L'\'') {
            const int closing = valueDue ? XmlScan::find(text, unit, at + 1) : -1;
            if (closing < 0 || XmlScan::slice(text, at, closing).find(L'<') != Text::npos)
                return -1;
            at = closing;
            valueDue = false;
        } else if (valueDue) {
            continue;
        } else if (unit == L'=') {
            valueDue = true;
        } else if (unit == L'>') {
            return at + 1;
        } else if (unit == L'<') {
            return -1;
        }
    }
    return -1;
}

/// The offset behind the delimiter, searched from `from` on; -1 if it is missing.
int behindNext(Text text, Text delimiter, int from) {
    const int found = XmlScan::find(text, delimiter, from);
    return found < 0 ? -1 : found + static_cast<int>(delimiter.size());
}

int behindMarkup(Text text, int start) {
    // Deliberate: the hyphens that open a comment may also close it, as in "<!-->". This is a
    // lexical check; what only a parser refuses is found where the changed part is parsed.
    if (XmlScan::commentAt(text, start))
        return behindNext(text, XmlScan::commentEnd, start + 2);
    if (XmlScan::cdataAt(text, start))
        return behindNext(text, XmlScan::cdataEnd, start);
    return behindTag(text, start);
}

} // namespace

bool XmlValidator::validate() const {
    const Text text = text_.view();
    for (int tag = XmlScan::find(text, L'<', 0); tag >= 0; tag = XmlScan::find(text, L'<', tag)) {
        tag = behindMarkup(text, tag);
        if (tag < 0)
            return false;
    }
    return true;
}

bool XmlValidator::isRegular(Text text) {
    for (int tag = XmlScan::find(text, L'<', 0); tag >= 0;) {
        const int end = behindMarkup(text, tag);
        if (end < 0 || end != XmlScan::unitEnd(text, tag))
            return false;
        tag = XmlScan::find(text, L'<', end);
    }
    return true;
}

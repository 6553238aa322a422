#include "document/XmlValidator.h"

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

/// The offset behind a section that begins at `start`; -1 if it is not closed.
int behindSection(Text text, int start, Text opening, Text closing) {
    const int end = XmlScan::find(text, closing, start + static_cast<int>(opening.size()));
    return end < 0 ? -1 : end + static_cast<int>(closing.size());
}

int behindMarkup(Text text, int start) {
    if (XmlScan::commentAt(text, start))
        return behindSection(text, start, XmlScan::commentStart, XmlScan::commentEnd);
    if (XmlScan::cdataAt(text, start))
        return behindSection(text, start, XmlScan::cdataStart, XmlScan::cdataEnd);
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

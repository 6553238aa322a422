#include "editing/typing/PlainRun.h"

#include "document/PlainPlace.h"

using Core::String;
using PlainPlace::isPlain;
using PlainPlace::isPlainAt;

namespace {

/// Whether the text before the caret makes the element one that shows something, and does not end
/// in what the next character changes. A single blank stays one.
bool followsPlainText(const Document& document) {
    const XmlText& text = document.text();
    const int caret = document.caret();
    return isPlainAt(text, caret - 1) ||
           (text.standsAt(L" ", caret - 1) && isPlainAt(text, caret - 2));
}

/// The same for a blank, which would not show at the end of a line or beside another.
bool isBetweenPlainUnits(const Document& document) {
    return isPlainAt(document.text(), document.caret() - 1) &&
           isPlainAt(document.text(), document.caret());
}

bool continuesRun(const Document& document, const String& text) {
    if (text.length() != 1 || !document.typingGroup || !PlainPlace::isKnown(document))
        return false;
    const wchar_t unit = text.charAt(0);
    return unit == L' ' ? isBetweenPlainUnits(document)
                        : isPlain(unit) && followsPlainText(document);
}

} // namespace

bool PlainRun::type(Document& document, const String& text) {
    if (!continuesRun(document, text) ||
        !document.history.growTyping(document.caret(), text.charAt(0)))
        return false;
    const bool isRegular = document.text().isKnownRegular();
    try {
        document.typeUnrecorded(text);
    } catch (...) {
        document.history.shrinkTyping();
        throw;
    }
    document.history.trimTyping();
    if (isRegular)
        document.text().noteRegular();
    PlainPlace::follow(document);
    document.notifyBufferChanged();
    document.notifyCaretChanged();
    return true;
}

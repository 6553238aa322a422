#pragma once

#include "document/Document.h"

/// Where nearly all keys go: into text that means nothing but itself, where the key before was.
namespace PlainPlace {

/// Whether it is text that no rule of an editing key asks about: it is no white space and no
/// placeholder, needs no escape, and neither ends an entity or a section nor is half a pair.
constexpr bool isPlain(wchar_t unit) noexcept {
    switch (unit) {
    case L'<':
    case L'>':
    case L'&':
    case L';':
    case L']':
    case L'"':
    case L'\'':
    case L'\x00A0':
        return false;
    default:
        return (unit > L' ' && unit < 0xD800) || (unit > 0xDFFF && unit < 0xFFFE);
    }
}

/// Whether such text stands at a position, which may be any number.
inline bool isPlainAt(const XmlText& text, int position) {
    return text.isValid(position) && isPlain(text.unitAt(position));
}

/// Whether the caret is where a key left it, in the text that it left, with nothing selected and in
/// no mode in which the caret is kept out of places.
inline bool isKnown(const Document& document) {
    return document.knownPlace.caret == document.caret() && !document.hasSelection() &&
           document.knownPlace.version == document.text().version() &&
           !document.modes.pageMasters && !document.modes.dummyPage;
}

/// The caret has gone to another place in the same stretch of text.
inline void follow(Document& document) {
    document.knownPlace.caret = document.caret();
    document.knownPlace.version = document.text().version();
}

/// Takes note of the place where a key has left the caret, if it is text in an editable element
/// where the caret can stand: what the next key would have to ask.
void note(Document& document);

} // namespace PlainPlace

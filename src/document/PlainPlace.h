#pragma once

#include "document/Document.h"

/// Where nearly all keys go: into text that means nothing but itself, in an element that can be
/// edited.
namespace PlainPlace {

inline constexpr int nbspLength = static_cast<int>(XmlScan::nbspEntity.size());

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

/// Whether text that shows begins at a position or ends before it: plain text, a quote, or an
/// entity but that of the non-breaking space.
bool showsAt(const XmlText& text, int position);
bool showsBefore(const XmlText& text, int position);

/// What is known of the place of the caret, if it stands between units in an editable element where
/// it can be, nothing is selected and it is kept out of no place; otherwise null. Nothing is looked
/// up twice while keys follow each other.
const Document::KnownPlace* ofCaret(const Document& document);

/// The caret has gone to another place in the same stretch of text, or has stayed while that text
/// has changed.
inline void follow(const Document& document) {
    document.knownPlace.caret = document.caret();
    document.knownPlace.version = document.text().version();
}

} // namespace PlainPlace

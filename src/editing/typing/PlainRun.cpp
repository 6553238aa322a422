#include "editing/typing/PlainRun.h"

#include "document/PlainPlace.h"

#include <array>
#include <optional>
#include <utility>

using Core::String;
using PlainPlace::isPlain;
using PlainPlace::nbspLength;
using PlainPlace::showsAt;
using PlainPlace::showsBefore;

namespace {

using Key = EditActionStack::TypedKey;

/// What a character is typed as; empty for one that a rule of typing asks about.
String escaped(const String& text) {
    struct Escape {
        wchar_t unit;
        String text;
    };
    static const std::array<Escape, 5> escapes{Escape{L'<', L"&lt;"},
                                               {L'>', L"&gt;"},
                                               {L'&', L"&amp;"},
                                               {L'"', L"&quot;"},
                                               {L'\'', L"&apos;"}};
    const wchar_t unit = text.charAt(0);
    for (const Escape& escape : escapes)
        if (escape.unit == unit)
            return escape.text;
    return isPlain(unit) ? text : String();
}

bool isTagAt(const XmlText& text, int position) {
    return text.onTagStart(position);
}

/// A blank shows between text; at the end of a line it becomes an entity.
std::optional<Key> keyOfBlank(const XmlText& text, int caret) {
    static const String blank = L" ";
    static const String atEnd(XmlScan::nbspEntity);
    if (!showsBefore(text, caret))
        return std::nullopt;
    if (showsAt(text, caret))
        return Key{caret, 0, blank};
    return isTagAt(text, caret) ? std::optional(Key{caret, 0, atEnd}) : std::nullopt;
}

/// Whether the entity before the caret is such a blank, which becomes one again. At the offsets
/// that are numbers of white space it stays, as turnEntityBeforeCaretIntoBlank tells.
bool followsTypedBlank(const XmlText& text, int caret) {
    const int start = caret - nbspLength;
    return text.standsAt(XmlScan::nbspEntity, start) && showsBefore(text, start) &&
           (showsAt(text, caret) || isTagAt(text, caret)) &&
           !String::isSpace(static_cast<wchar_t>(start - 1));
}

/// Whether the element shows something beside the caret, and the text before it does not end in
/// what the next character changes. A single blank stays one.
bool isBesideText(const XmlText& text, int caret) {
    if (showsBefore(text, caret))
        return true;
    if (text.standsAt(L" ", caret - 1))
        return showsBefore(text, caret - 1);
    return text.standsAt(L">", caret - 1) && showsAt(text, caret);
}

std::optional<Key> keyOfCharacter(const XmlText& text, int caret, const String& character) {
    const String typed = escaped(character);
    if (typed.empty() || text.isPlaceholderBeforeClosingTag(caret))
        return std::nullopt;
    if (followsTypedBlank(text, caret))
        return Key{caret, nbspLength, L" " + typed};
    return isBesideText(text, caret) ? std::optional(Key{caret, 0, typed}) : std::nullopt;
}

std::optional<Key> keyOf(const Document& document, const String& typed) {
    if (typed.length() != 1 || !document.text().isValid(document.caret()))
        return std::nullopt;
    const auto key = typed.charAt(0) == L' '
                         ? keyOfBlank(document.text(), document.caret())
                         : keyOfCharacter(document.text(), document.caret(), typed);
    const bool beginsRun = !document.typingGroup;
    const bool isPossible = key && (!beginsRun || key->removed == 0) &&
                            PlainPlace::ofCaret(document) && !document.isProtected();
    return isPossible ? key : std::nullopt;
}

void change(Document& document, const Key& key) {
    document.typeUnrecorded(key.start(), key.removed, key.text, key.end());
}

void begin(Document& document, const Key& key) {
    EditActionStack before = document.history;
    try {
        document.typingGroup = document.history.openGroup();
        document.history.beginTyping(key);
        change(document, key);
    } catch (...) {
        document.history.restore(std::move(before));
        document.typingGroup.reset();
        throw;
    }
}

bool goOn(Document& document, const Key& key) {
    const String removed = document.text().slice(key.start(), key.caret);
    const std::optional<int> trackedBefore = document.history.growTyping(key);
    if (!trackedBefore)
        return false;
    try {
        change(document, key);
    } catch (...) {
        document.history.shrinkTyping(key, removed, *trackedBefore);
        throw;
    }
    document.history.trimTyping(key);
    return true;
}

} // namespace

bool PlainRun::isPossible(const Document& document, const String& text) {
    return keyOf(document, text).has_value();
}

bool PlainRun::type(Document& document, const String& text) {
    const std::optional<Key> key = keyOf(document, text);
    if (!key)
        return false;
    if (!document.typingGroup)
        begin(document, *key);
    else if (!goOn(document, *key))
        return false;
    PlainPlace::follow(document);
    document.notifyBufferChanged();
    document.notifyCaretChanged();
    return true;
}

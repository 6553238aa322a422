#include "document/PlainPlace.h"

#include "document/caret/Stops.h"
#include "text/Vocabulary.h"

#include <algorithm>

namespace {

bool isErasable(const XmlText& text, int position) {
    return !text.isWithin(position, L"fo:list-block") &&
           !XmlScan::contains(Vocabulary::inlineHolders,
                              text.tagName(text.elementAround(position)));
}

bool isInRegion(const XmlText& text, int position) {
    return text.isInFlow(position) || text.staticContentAround(position) >= 0;
}

/// Whether no element says how white space is treated, so that a blank between letters shows.
bool showsBlanks(const XmlText& text, int position) {
    const SpaceProperties::Values values = text.spacePropertiesAround(position);
    return std::none_of(values.begin(), values.end(),
                        [](const auto& value) { return value.has_value(); });
}

Document::KnownPlace look(const Document& document) {
    const XmlText& text = document.text();
    const int caret = document.caret();
    Document::KnownPlace place{.caret = caret, .version = text.version()};
    place.isText = text.isValid(caret) && document.isInEditable(caret) &&
                   text.unitStart(caret) == caret && Stops::canHoldCaret(document, caret);
    if (place.isText) {
        place.isInRegion = isInRegion(text, caret);
        place.isErasable = place.isInRegion && isErasable(text, caret);
        place.showsBlanks = showsBlanks(text, caret);
    }
    return place;
}

} // namespace

bool PlainPlace::showsAt(const XmlText& text, int position) {
    if (!text.isValid(position))
        return false;
    switch (const wchar_t unit = text.unitAt(position)) {
    case L'&':
        return !text.standsAt(XmlScan::nbspEntity, position);
    case L';':
    case L'"':
    case L'\'':
        return true;
    default:
        return isPlain(unit);
    }
}

bool PlainPlace::showsBefore(const XmlText& text, int position) {
    if (!text.isValid(position - 1))
        return false;
    switch (const wchar_t unit = text.unitAt(position - 1)) {
    case L';':
        return !text.standsAt(XmlScan::nbspEntity, position - nbspLength);
    case L'"':
    case L'\'':
        return true;
    default:
        return isPlain(unit);
    }
}

const Document::KnownPlace* PlainPlace::ofCaret(const Document& document) {
    if (!document.takesShortcuts || document.hasSelection() || document.modes.pageMasters ||
        document.modes.dummyPage)
        return nullptr;
    Document::KnownPlace& place = document.knownPlace;
    if (place.caret != document.caret() || place.version != document.text().version())
        place = look(document);
    return place.isText ? &place : nullptr;
}

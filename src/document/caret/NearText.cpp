#include "document/caret/NearText.h"

#include "document/BlockLevel.h"
#include "document/Document.h"
#include "text/Markup.h"

namespace {

constexpr wchar_t softBreak[] = L"\x2028";
constexpr wchar_t object[] = L"\xFFFC";

} // namespace

NearText::NearText(const Document& document, int position)
    : document_(document), position_(position) {}

bool NearText::growBack(int count) {
    for (; count > 0; --count) {
        const auto character = before(back_.empty() ? position_ : back_.back().place.start);
        if (!character)
            return false;
        for (auto unit = character->units.rbegin(); unit != character->units.rend(); ++unit)
            back_.push_back({*unit, character->place});
    }
    return true;
}

bool NearText::growForward(int count) {
    for (; count > 0; --count) {
        const auto character = behind(forward_.empty() ? position_ : forward_.back().place.end);
        if (!character)
            return false;
        for (const wchar_t unit : character->units)
            forward_.push_back({unit, character->place});
    }
    return true;
}

std::wstring NearText::text() const {
    std::wstring units;
    units.reserve(static_cast<std::size_t>(length()));
    for (auto unit = back_.rbegin(); unit != back_.rend(); ++unit)
        units += unit->unit;
    for (const Unit& unit : forward_)
        units += unit.unit;
    return units;
}

const NearText::Unit& NearText::at(int index) const {
    const auto before = static_cast<int>(back_.size());
    return index < before ? back_[static_cast<std::size_t>(before - 1 - index)]
                          : forward_[static_cast<std::size_t>(index - before)];
}

NearText::Place NearText::placeAt(int index) const {
    return at(index).place;
}

wchar_t NearText::unitAt(int index) const {
    return at(index).unit;
}

std::optional<NearText::Character> NearText::behind(int position) const {
    const XmlText& text = document_.text();
    while (text.isValid(position)) {
        if (text.onTagStart(position)) {
            if (isEdge(position))
                return std::nullopt;
            if (auto character = markupBehind(position))
                return character;
            continue;
        }
        const int end = text.next(position);
        if (end <= position)
            return std::nullopt;
        const Core::String units = Markup::unescaped(text.view(position, end));
        return Character{std::wstring(units.view()), {position, end}};
    }
    return std::nullopt;
}

/// An object, or nothing of what a reader does not see, behind which the position then stands.
std::optional<NearText::Character> NearText::markupBehind(int& position) const {
    const XmlText& text = document_.text();
    const int start = position;
    position = isHidden(start) ? text.next(start) : text.behindElement(start);
    if (position <= start)
        position = -1;
    if (isHidden(start) || position < 0)
        return std::nullopt;
    const bool isBreak = text.tagName(start) == L"fo:block";
    return Character{isBreak ? softBreak : object, {start, position}};
}

std::optional<NearText::Character> NearText::before(int position) const {
    const XmlText& text = document_.text();
    while (position > 0) {
        const int start = text.previous(position);
        if (start < 0)
            return std::nullopt;
        if (text.onTagStart(start)) {
            if (isEdge(text.closingAt(start) && !isHidden(start) ? text.startTag(start) : start))
                return std::nullopt;
            if (auto character = markupBefore(position))
                return character;
            continue;
        }
        const Core::String units = Markup::unescaped(text.view(start, position));
        return Character{std::wstring(units.view()), {start, position}};
    }
    return std::nullopt;
}

std::optional<NearText::Character> NearText::markupBefore(int& position) const {
    const XmlText& text = document_.text();
    const int end = position;
    const int tag = text.previous(end);
    position = tag;
    if (isHidden(tag))
        return std::nullopt;
    if (text.closingAt(tag))
        position = text.startTag(tag);
    else if (!text.selfClosingAt(tag))
        position = -1; // an object around the place
    if (position < 0)
        return std::nullopt;
    const bool isBreak = text.tagName(tag) == L"fo:block";
    return Character{isBreak ? softBreak : object, {position, end}};
}

bool NearText::isHidden(int tag) const {
    const XmlText& text = document_.text();
    const XmlScan::Text name = text.tagName(tag);
    return text.ignoredAt(tag) ||
           ((document_.names.isInline(name) || document_.names.closesInline(name)));
}

/// Whether the paragraph ends at the tag, which for a whole element is its start tag.
bool NearText::isEdge(int tag) const {
    const XmlText& text = document_.text();
    if (!text.isValid(tag))
        return true;
    if (isHidden(tag))
        return false;
    const XmlScan::Text name = text.tagName(tag);
    if (name == L"fo:block" && text.selfClosingAt(tag))
        return false;
    return text.closingAt(tag) || isBlockLevelTag(text, tag) ||
           XmlScan::contains(Vocabulary::blockHolders, name) ||
           XmlScan::contains(Vocabulary::blockContainers, name);
}

#include "view/DrawnWalk.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/Lines.h"
#include "foundation/Transcoding.h"
#include "text/Vocabulary.h"
#include "view/EntityText.h"

#include <vector>

using Core::String;
using XmlScan::contains;
using XmlScan::Text;

namespace {

constexpr wchar_t nbsp = L'\x00A0';

int startOfWalk(const Document& document, int position) {
    const int unit = document.text().unitStart(position);
    const int object = CaretObjects(document).around(unit);
    return object >= 0 ? object : unit;
}

bool isRegion(Text name) {
    return name == L"fo:flow" || name == L"fo:static-content";
}

/// Whether the tag there begins a line and ends one.
bool isBlock(const Document& document, int tag) {
    Text name = document.text().tagName(tag);
    if (name.starts_with(L'/'))
        name = name.substr(1);
    return document.names.isBlock(name) || contains(Vocabulary::blockLevel, name) ||
           contains(Vocabulary::blockHolders, name);
}

/// Whether the unit stands directly behind a tag behind which a line begins.
bool beginsLine(const Document& document, int position) {
    const XmlText& text = document.text();
    if (text.unitAt(position - 1) != L'>')
        return false;
    const int tag = text.previousTag(position - 1);
    return tag >= 0 && (text.openingAt(tag) || isBlock(document, tag));
}

/// What stands between the markup of a section and its end.
String contentOfSection(const XmlText& text, int start, int end) {
    constexpr int opening = 9; // "<![CDATA["
    constexpr int closing = 3; // "]]>"
    return end - start < opening + closing ? String() : text.slice(start + opening, end - closing);
}

} // namespace

DrawnWalk::DrawnWalk(const Document& document, int position)
    : document_(document), walk_(document, startOfWalk(document, position)), objects_(document),
      isInRegion_(text().isInFlow(walk_.position()) ||
                  text().staticContentAround(walk_.position()) >= 0) {}

std::optional<Drawn> DrawnWalk::next() {
    while (!hasEnded_ && text().isValid(walk_.position())) {
        if (text().onTagStart(walk_.position())) {
            if (std::optional<Drawn> piece = takeMarkup())
                return piece;
        } else if (isDrawnHere()) {
            return takeText();
        } else if (isBlankBeforeObject()) {
            return takeUnit(DrawnKind::Text, L" ");
        } else {
            pass();
        }
    }
    return std::nullopt;
}

/// Steps over the unit, which may be the last.
void DrawnWalk::pass() {
    hasEnded_ = !walk_.stepForward();
}

Drawn DrawnWalk::pieceHere(DrawnKind kind) {
    const int start = walk_.position();
    return {kind, start, start, walk_.isStop(), {}};
}

// Markup

std::optional<Drawn> DrawnWalk::takeMarkup() {
    const int position = walk_.position();
    if (text().cdataAt(position) && isDrawnHere())
        return takeUnit(DrawnKind::Character,
                        contentOfSection(text(), position, text().next(position)));
    const bool isTag =
        text().openingAt(position) || text().closingAt(position) || text().selfClosingAt(position);
    if (!isTag || text().ignoredAt(position)) {
        const Drawn hidden = takeUnit(DrawnKind::Hidden, {});
        return hidden.isStop ? std::optional(hidden) : std::nullopt;
    }
    const int behindObject = objects_.behind(position, walk_.element());
    if (behindObject < 0)
        return takeTag();
    const Drawn object = takeObject(behindObject);
    return isInRegion_ || object.isStop ? std::optional(object) : std::nullopt;
}

Drawn DrawnWalk::takeObject(int behind) {
    Drawn object = pieceHere(DrawnKind::Object);
    object.text = text().nameAt(object.start);
    object.end = behind;
    walk_.restartAt(behind);
    return object;
}

Drawn DrawnWalk::takeTag() {
    const int position = walk_.position();
    const bool isClosing = text().closingAt(position);
    const bool hasContent = text().openingAt(position);
    Drawn tag = pieceHere(isClosing    ? DrawnKind::End
                          : hasContent ? DrawnKind::Start
                                       : DrawnKind::Empty);
    const int last = text().tagEnd(position);
    tag.end = last < 0 ? text().length() : last + 1;
    const Text name = text().tagName(position).substr(isClosing ? 1 : 0);
    tag.text = String(name);
    if ((isClosing || hasContent) && isRegion(name))
        isInRegion_ = hasContent;
    pass();
    return tag;
}

// Text

/// White space shows as the caret finds it, but not where there can be no text; other text shows
/// wherever a page shows any.
bool DrawnWalk::isDrawnHere() {
    const bool isInText = document_.isEditableAt(walk_.element());
    if (String::isSpace(text().unitAt(walk_.position())))
        return !walk_.isSkipped() && (isInText || walk_.canHoldCaret());
    return isInText || isInRegion_ || walk_.isStop();
}

/// The first of white space between text and an object. To the caret it is the end of a line, but
/// the line goes on and shows a blank.
bool DrawnWalk::isBlankBeforeObject() const {
    const int position = walk_.position();
    if (!document_.isEditableAt(walk_.element()) || !String::isSpace(text().unitAt(position)) ||
        String::isSpace(text().unitAt(position - 1)) || beginsLine(document_, position))
        return false;
    int behind = position + 1;
    while (text().isValid(behind) && String::isSpace(text().unitAt(behind)))
        ++behind;
    return !text().closingAt(behind) && !isBlock(document_, behind) &&
           (text().openingAt(behind) || text().selfClosingAt(behind));
}

bool DrawnWalk::isPlainHere() const {
    if (!text().isValid(walk_.position()))
        return false;
    const wchar_t unit = text().unitAt(walk_.position());
    return unit != L'<' && unit != L'&' && unit != nbsp;
}

bool DrawnWalk::isPlaceholderHere() const {
    const int position = walk_.position();
    return text().placeholderLength(position) > 0 &&
           (text().holdsOnlyPlaceholder(walk_.element()) ||
            Lines::isPlaceholderLine(document_, position));
}

Drawn DrawnWalk::takeText() {
    const int position = walk_.position();
    if (isPlaceholderHere())
        return takeUnit(DrawnKind::Placeholder, String(nbsp, 1));
    if (text().unitAt(position) == L'&') {
        const int behind = text().next(position);
        return takeUnit(DrawnKind::Character,
                        EntityText::of(text().slice(position, behind < 0 ? position + 1 : behind)));
    }
    if (!isPlainHere())
        return takeUnit(DrawnKind::Text, String(nbsp, 1));
    Drawn piece = pieceHere(DrawnKind::Text);
    std::wstring units;
    do {
        const int start = walk_.position();
        const bool isBlank = String::isSpace(text().unitAt(start)) && !walk_.keepsLinefeeds();
        pass();
        piece.end = hasEnded_ ? text().length() : walk_.position();
        units += isBlank ? Text(L" ") : text().view(start, piece.end);
    } while (!hasEnded_ && units.size() < longestText && isPlainHere() && isDrawnHere() &&
             walk_.canHoldCaret() == piece.isStop);
    piece.text = String(std::move(units));
    return piece;
}

Drawn DrawnWalk::takeUnit(DrawnKind kind, String drawn) {
    Drawn piece = pieceHere(kind);
    piece.text = std::move(drawn);
    pass();
    piece.end = hasEnded_ ? text().length() : walk_.position();
    return piece;
}

const XmlText& DrawnWalk::text() const {
    return document_.text();
}

std::vector<Drawn> EditableDocumentBuffer::getDrawn(int position, int count) const {
    const Document& document = *document_;
    std::vector<Drawn> pieces;
    if (!document.text().isValid(position))
        return pieces;
    DrawnWalk walk(document, position);
    while (static_cast<int>(pieces.size()) < count) {
        std::optional<Drawn> piece = walk.next();
        if (!piece)
            break;
        pieces.push_back(std::move(*piece));
    }
    return pieces;
}

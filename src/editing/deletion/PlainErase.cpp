#include "editing/deletion/PlainErase.h"

#include "document/PlainPlace.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

using Core::String;
using PlainPlace::nbspLength;
using PlainPlace::showsAt;
using PlainPlace::showsBefore;

namespace {

using Step = std::vector<EditActionStack::Entry>;

/// What goes, and the blanks that come back in its place as non-breaking spaces.
struct Erasure {
    int start;
    int end;
    int blanks;
    int caretBehind;
};

struct Unit {
    int start;
    int end;
};

// What is beside the unit

/// Where a non-breaking space begins that ends before the position; the position if none does.
int nbspBefore(const XmlText& text, int position) {
    if (text.standsAt(XmlScan::nbspEntity, position - nbspLength))
        return position - nbspLength;
    return text.standsAt(XmlScan::nbspCharacter, position - 1) ? position - 1 : position;
}

int behindNbsp(const XmlText& text, int position) {
    return position + text.placeholderLength(position);
}

/// Whether a blank stands there that shows, since it stands between text.
bool isBlankBefore(const XmlText& text, int position) {
    return text.standsAt(L" ", position - 1) && showsBefore(text, position - 1);
}

bool isBlankAt(const XmlText& text, int position) {
    return text.standsAt(L" ", position) && showsAt(text, position + 1);
}

/// Text must be left on one side, so that the element still shows something; on the other the
/// element may begin or end, for the tag keeps its stop beside text.
bool leavesText(const XmlText& text, const Unit& unit) {
    const bool isTextBefore = showsBefore(text, nbspBefore(text, unit.start));
    const bool isTextBehind = showsAt(text, behindNbsp(text, unit.end));
    if (isTextBefore || isBlankBefore(text, unit.start))
        return isTextBehind || isBlankAt(text, unit.end) ||
               (showsBefore(text, unit.start) && text.closingAt(unit.end));
    return showsAt(text, unit.end) && text.standsAt(L">", unit.start - 1);
}

/// A blank must not have kept what is around it from being an entity.
bool isBetweenWords(const XmlText& text, const Unit& blank) {
    const int nameEnd = text.nameEndBefore(blank.start - 1);
    return showsBefore(text, blank.start) && showsAt(text, blank.end) &&
           (nameEnd < 0 || text.unitAt(nameEnd) != L'&');
}

/// Whether it is a character that shows, or an entity of one.
bool shows(const XmlText& text, const Unit& unit) {
    const wchar_t first = text.unitAt(unit.start);
    return showsAt(text, unit.start) && first != L';' &&
           (first == L'&') == (unit.end > unit.start + 1);
}

// What is done

bool isSpaceUnit(const XmlText& text, int position) {
    return text.standsAt(L" ", position) || text.placeholderLength(position) > 0;
}

/// The unit before the caret or behind it, if it is one that can be taken so.
std::optional<Unit> unitToErase(const XmlText& text, int caret, bool forward) {
    const int last = forward ? caret : caret - 1; // of the unit, if it is no entity
    if (!text.isValid(last) || !(showsAt(text, last) || isSpaceUnit(text, last)))
        return std::nullopt;
    const Unit unit = forward ? Unit{caret, text.next(caret)} : Unit{text.previous(caret), caret};
    if (unit.start < 0 || !text.isValid(unit.end))
        return std::nullopt;
    const bool isPossible = isSpaceUnit(text, unit.start)
                                ? isBetweenWords(text, unit)
                                : shows(text, unit) && leavesText(text, unit);
    return isPossible ? std::optional(unit) : std::nullopt;
}

/// A blank beside a character that goes would collapse with another, and is kept as a non-breaking
/// space. Deliberate: of two blanks Backspace keeps one; recorded scripts rely on the result.
Erasure erasureOf(const XmlText& text, const Unit& unit, bool forward) {
    const bool isSpace = isSpaceUnit(text, unit.start);
    const int before = !isSpace && isBlankBefore(text, unit.start) ? 1 : 0;
    const int behind = !isSpace && isBlankAt(text, unit.end) ? 1 : 0;
    const int start = unit.start - before;
    return {start, unit.end + behind, forward ? before + behind : std::max(before, behind),
            start + before};
}

std::optional<Erasure> erasureAt(const Document& document, bool forward) {
    const XmlText& text = document.text();
    const std::optional<Unit> unit = unitToErase(text, document.caret(), forward);
    if (!unit)
        return std::nullopt;
    const Erasure erasure = erasureOf(text, *unit, forward);
    const bool hasBlank = erasure.blanks > 0 || text.standsAt(L" ", unit->start);
    const Document::KnownPlace* const place = PlainPlace::ofCaret(document);
    const bool isPossible =
        place && place->isErasable && (place->showsBlanks || !hasBlank) && !document.isProtected();
    return isPossible ? std::optional(erasure) : std::nullopt;
}

// What is recorded

/// What the commands record that look for an empty element and a place for the caret and find that
/// there is nothing to do: the same steps with the same limit come of it.
class StepWriter {
public:
    StepWriter(const Document& document, const Erasure& erasure) : caret_(document.caret()) {
        const int start = erasure.start;
        addMarker(EditAction::EditGroupStart);
        addCaret();
        add(EditAction(EditAction::EditDelete, start, -1, -1,
                       document.text().slice(start, erasure.end)));
        caret_ = Document::offsetAfterDeletion(caret_, start, erasure.end - 1);
        addCaret();
        for (int blank = 0; blank < erasure.blanks; ++blank) {
            add(EditAction(EditAction::EditInsert, start, -1, -1, String(XmlScan::nbspCharacter)));
            caret_ += caret_ >= start ? 1 : 0;
            addCaret();
        }
        caret_ = erasure.caretBehind;
        addCaret();
        addMarker(EditAction::EditGroupStart);
        addCaret();
        addMarker(EditAction::EditGroupEnd);
        addMarker(EditAction::EditGroupEnd);
    }

    Step take() && { return std::move(step_); }

private:
    void addMarker(EditAction::EditActionType type) {
        step_.push_back({ActionList::Prepared(EditAction(type)), EditAction(type)});
    }
    void addCaret() { add(EditAction(EditAction::EditCaret, -1, caret_, caret_, String())); }
    void add(const EditAction& performed) {
        step_.push_back({ActionList::Prepared(performed.inverse()), performed});
    }

    int caret_;
    Step step_;
};

} // namespace

bool PlainErase::isPossible(const Document& document, bool forward) {
    return erasureAt(document, forward).has_value();
}

bool PlainErase::erase(Document& document, bool forward) {
    const std::optional<Erasure> erasure = erasureAt(document, forward);
    if (!erasure)
        return false;
    static const String blanks(L'\x00A0', 2);
    Step step = StepWriter(document, *erasure).take();
    document.typeUnrecorded(erasure->start, erasure->end - erasure->start,
                            blanks.view().substr(0, static_cast<std::size_t>(erasure->blanks)),
                            erasure->caretBehind);
    document.endTyping();
    document.history.addStep(std::move(step));
    PlainPlace::follow(document);
    document.notifyBufferChanged();
    document.notifyCaretChanged();
    return true;
}

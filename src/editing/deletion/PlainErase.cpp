#include "editing/deletion/PlainErase.h"

#include "document/PlainPlace.h"

#include <optional>
#include <utility>
#include <vector>

using PlainPlace::showsAt;
using PlainPlace::showsBefore;

namespace {

using Step = std::vector<EditActionStack::Entry>;

bool isMarker(const EditAction& entry) {
    return entry.getType() == EditAction::EditGroupStart ||
           entry.getType() == EditAction::EditGroupEnd;
}

/// What the commands record that look for an empty element and a place for the caret and find that
/// there is nothing to do: the same steps with the same limit come of it.
Step stepOf(const EditAction& deletion, int caretBefore) {
    const auto caretAt = [](int position) {
        return EditAction(EditAction::EditCaret, -1, position, position, Core::String());
    };
    const EditAction start(EditAction::EditGroupStart);
    const EditAction end(EditAction::EditGroupEnd);
    const EditAction caret = caretAt(deletion.getActionPosition());
    Step step;
    for (const EditAction& entry :
         {start, caretAt(caretBefore), deletion.inverse(), caret, caret, start, caret, end, end})
        step.push_back({ActionList::Prepared(entry), isMarker(entry)});
    return step;
}

struct Unit {
    int start;
    int end;
};

/// Text must be left on one side, so that the element still shows something; on the other the
/// element may begin or end, for the tag keeps its stop beside text. A blank there would become a
/// non-breaking space.
bool leavesText(const XmlText& text, const Unit& unit) {
    if (showsBefore(text, unit.start))
        return showsAt(text, unit.end) || text.closingAt(unit.end);
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

/// The character or entity that can be taken so.
std::optional<Unit> unitToErase(const Document& document, bool forward) {
    const XmlText& text = document.text();
    const int caret = document.caret();
    const auto isMeant = [&text](int position) {
        return showsAt(text, position) || text.standsAt(L" ", position);
    };
    if (!(forward ? isMeant(caret) : isMeant(caret - 1)))
        return std::nullopt;
    const Unit unit = forward ? Unit{caret, text.next(caret)} : Unit{text.previous(caret), caret};
    if (unit.start < 0 || !text.isValid(unit.end))
        return std::nullopt;
    const bool isBlank = text.standsAt(L" ", unit.start);
    if (isBlank ? !isBetweenWords(text, unit) : !shows(text, unit) || !leavesText(text, unit))
        return std::nullopt;
    const Document::KnownPlace* const place = PlainPlace::ofCaret(document);
    const bool isPossible =
        place && place->isErasable && (place->showsBlanks || !isBlank) && !document.isProtected();
    return isPossible ? std::optional(unit) : std::nullopt;
}

} // namespace

bool PlainErase::isPossible(const Document& document, bool forward) {
    return unitToErase(document, forward).has_value();
}

bool PlainErase::erase(Document& document, bool forward) {
    const std::optional<Unit> unit = unitToErase(document, forward);
    if (!unit)
        return false;
    const EditAction deletion(EditAction::EditDelete, unit->start, -1, -1,
                              document.text().slice(unit->start, unit->end));
    Step step = stepOf(deletion, document.caret());
    const bool isRegular = document.text().isKnownRegular();
    document.typeUnrecorded(unit->start, unit->end - unit->start, {});
    if (isRegular)
        document.text().noteRegular();
    document.endTyping();
    document.history.addStep(std::move(step), deletion);
    PlainPlace::follow(document);
    document.notifyBufferChanged();
    document.notifyCaretChanged();
    return true;
}

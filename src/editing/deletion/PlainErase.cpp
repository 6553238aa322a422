#include "editing/deletion/PlainErase.h"

#include "document/PlainPlace.h"

#include <utility>
#include <vector>

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

} // namespace

/// Text must be left on one side, so that the element still shows something; on the other the
/// element may begin or end, for the tag keeps its stop beside text.
bool PlainErase::isPossible(const Document& document, bool forward) {
    if (!PlainPlace::isKnown(document) || !document.knownPlace.isErasable)
        return false;
    const XmlText& text = document.text();
    const int position = forward ? document.caret() : document.caret() - 1;
    if (!PlainPlace::isPlainAt(text, position))
        return false;
    const bool isBeforeText = PlainPlace::isPlainAt(text, position + 1);
    return PlainPlace::isPlainAt(text, position - 1)
               ? isBeforeText || text.closingAt(position + 1)
               : isBeforeText && text.standsAt(L">", position - 1);
}

bool PlainErase::erase(Document& document, bool forward) {
    if (!isPossible(document, forward))
        return false;
    const int position = forward ? document.caret() : document.caret() - 1;
    const EditAction deletion(EditAction::EditDelete, position, -1, -1,
                              document.text().slice(position, position + 1));
    Step step = stepOf(deletion, document.caret());
    const bool isRegular = document.text().isKnownRegular();
    document.takeUnrecorded(position);
    if (isRegular)
        document.text().noteRegular();
    document.endTyping();
    document.history.addStep(std::move(step), deletion);
    PlainPlace::follow(document);
    document.notifyBufferChanged();
    document.notifyCaretChanged();
    return true;
}

// The primitives that change the text, and the replay of what was recorded.

#include "document/history/Replay.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/Moves.h"
#include "document/history/StepReplay.h"

#include <utility>
#include <vector>

using Core::String;

namespace {

/// The records of one outermost group, or one record outside any. Markers were exchanged when they
/// were moved to this list, so that a group reads from its end to its start in both directions.
std::vector<EditAction> takeStep(Document& document, EditAction (EditActionStack::*take)(),
                                 bool (EditActionStack::*more)() const) {
    std::vector<EditAction> step;
    int depth = 0;
    do {
        const EditAction action = (document.history.*take)();
        switch (action.getType()) {
        case EditAction::EditGroupEnd:
            ++depth;
            break;
        case EditAction::EditGroupStart:
            if (--depth == 0)
                return step;
            break;
        default:
            step.push_back(action);
            if (depth < 1)
                return step;
        }
    } while ((document.history.*more)());
    return step;
}

void replayStep(Document& document, const std::vector<EditAction>& step, bool isUndone) {
    if (step.size() == 1 && step.front().getType() == EditAction::EditContent)
        document.keepReplacedContent(isUndone);
    StepReplay::replay(document, step);
}

void undoStep(Document& document) {
    replayStep(
        document,
        takeStep(document, &EditActionStack::getUndoAction, &EditActionStack::hasMoreUndoActions),
        true);
}

void redoStep(Document& document) {
    replayStep(
        document,
        takeStep(document, &EditActionStack::getRedoAction, &EditActionStack::hasMoreRedoActions),
        false);
}

} // namespace

void History::replay(Document& document, const EditAction& action) {
    CommandScope scope(document);
    const String& text = action.getString();
    const int position = action.getActionPosition();
    switch (action.getType()) {
    case EditAction::EditInsert:
        document.insertUnrecorded(position, text);
        break;
    case EditAction::EditDelete:
        document.removeUnrecorded(position, position + text.length() - 1);
        break;
    case EditAction::EditContent:
        document.replaceText(text);
        document.notifyBufferChanged();
        break;
    case EditAction::EditCaret:
        document.select(action.getSelPivotPosition(), action.getCaretPosition());
        break;
    case EditAction::EditGroupStart:
    case EditAction::EditGroupEnd:
        break;
    }
    if (!document.text().isValid(document.caret()))
        Moves::home(document, false);
}

String EditableDocumentBuffer::deleteContentAndAdjustCaret(int start, int end) {
    Document& document = *document_;
    if (start < 0 || start > end || !document.text().isValid(end) || document.isProtected())
        return {};
    CommandScope scope(document);
    String removed = document.removeUnrecorded(start, end - 1);
    Moves::toStop(document);
    document.setCaret(start);
    document.notifyBufferChanged();
    return removed;
}

void EditableDocumentBuffer::executeAction(const EditAction& action) {
    History::replay(*document_, action);
}

void EditableDocumentBuffer::undo() {
    Document& document = *document_;
    CommandScope scope(document, CommandScope::Protection::PassedOver);
    document.endTyping();
    if (!document.history.hasMoreUndoActions())
        return;
    if (!document.history.nextUndoStepIsWhole()) {
        document.history.clearUndoActionList();
        return;
    }
    undoStep(document);
}

void EditableDocumentBuffer::redo() {
    Document& document = *document_;
    CommandScope scope(document, CommandScope::Protection::PassedOver);
    document.endTyping();
    if (!document.history.hasMoreRedoActions())
        return;
    redoStep(document);
}

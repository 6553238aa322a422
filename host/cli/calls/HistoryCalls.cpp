// Undo and redo, groups of changes, and the changes of the text that a host makes itself.

#include "RecordedPrimitives.h"
#include "calls/Calls.h"
#include "calls/Rows.h"

using D = EditableDocumentBuffer;

std::vector<Operation> Calls::history() {
    const auto document = documentRows();
    const Rows history(
        [](Session& session) -> EditActionStack& {
            return session.document().getEditActionStack();
        },
        "history");
    return {
        document("undo", &D::undo),
        document("redo", &D::redo),
        document("canUndo", &D::canUndo),
        document("canRedo", &D::canRedo),
        document("endKeyTypingSequence", &D::endKeyTypingSequence),
        history("startActionGroup", &EditActionStack::startActionGroup),
        history("endActionGroup", &EditActionStack::endActionGroup),
        history("startTrackingPos", &EditActionStack::startTrackingPos, {"position"}),
        history("retrieveTrackingPos", &EditActionStack::retrieveTrackingPos),
        document.made("insertXmlTextAtPosition", &RecordedPrimitives::insertXmlTextAtPosition,
                      {"position", "xml"}),
        document.made("deleteXmlText", &RecordedPrimitives::deleteXmlText, {"start", "end"}),
        document.made("deleteContentAndAdjustCaret",
                      &RecordedPrimitives::deleteContentAndAdjustCaret, {"start", "end"}),
    };
}

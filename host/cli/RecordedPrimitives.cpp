#include "RecordedPrimitives.h"

#include <forme/document/history/EditAction.h>
#include <forme/document/history/EditActionGroup.h>
#include <forme/text/XmlCharacters.h>

#include <stdexcept>

using Core::String;

namespace {

void record(EditableDocumentBuffer& document, EditAction::EditActionType type, int position,
            const String& text) {
    document.getEditActionStack().addAction(EditAction(type, position, -1, -1, text));
}

void recordCaret(EditableDocumentBuffer& document) {
    document.getEditActionStack().addAction(EditAction(EditAction::EditCaret, -1,
                                                       document.getCaretPos(),
                                                       document.getSelectionPivotPos(), String()));
}

/// Brackets a change that records itself.
template <typename Change>
auto asOneStep(EditableDocumentBuffer& document, Change change) {
    document.endKeyTypingSequence();
    const EditActionGroup group(&document);
    recordCaret(document);
    auto result = change();
    recordCaret(document);
    return result;
}

} // namespace

void RecordedPrimitives::insertXmlTextAtPosition(EditableDocumentBuffer& document, int position,
                                                 const String& xml) {
    if (XmlCharacters::countForbidden(xml.view()) > 0)
        throw std::invalid_argument("the text holds a character that XML cannot hold");
    if (position < 0 || position > document.getContent().length() || xml.empty() ||
        document.isProtectedFromEditing())
        return;
    asOneStep(document, [&] {
        document.insertXmlTextAtPosition(position, xml);
        record(document, EditAction::EditInsert, position, xml);
        return xml.length();
    });
}

String RecordedPrimitives::deleteXmlText(EditableDocumentBuffer& document, int start, int end) {
    if (start < 0 || end < start || end >= document.getContent().length() ||
        document.isProtectedFromEditing())
        return {};
    return asOneStep(document, [&] {
        String removed = document.deleteXmlText(start, end);
        record(document, EditAction::EditDelete, start, removed);
        return removed;
    });
}

String RecordedPrimitives::deleteContentAndAdjustCaret(EditableDocumentBuffer& document, int start,
                                                       int end) {
    if (start < 0 || end <= start || end >= document.getContent().length() ||
        document.isProtectedFromEditing())
        return document.deleteContentAndAdjustCaret(start, end); // which may only move the caret
    return asOneStep(document, [&] {
        String removed = document.deleteContentAndAdjustCaret(start, end);
        record(document, EditAction::EditDelete, start, removed);
        return removed;
    });
}

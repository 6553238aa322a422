#pragma once

#include "document/EditableDocumentBuffer.h"

/// What a user sees of a document.
struct EditorState {
    Core::String text;
    int caret = -1;
    int pivot = -1;

    bool operator==(const EditorState&) const = default;
};

inline EditorState stateOf(const EditableDocumentBuffer& document) {
    return {document.getContent(), document.getCaretPos(), document.getSelectionPivotPos()};
}

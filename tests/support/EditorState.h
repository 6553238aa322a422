#pragma once

#include "document/EditableDocumentBuffer.h"

#include <gtest/gtest.h>

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

/// Checks that one undo brings back what stood before a command, and one redo what it left.
inline void expectReplays(EditableDocumentBuffer& document, const EditorState& before) {
    const EditorState after = stateOf(document);
    document.undo();
    EXPECT_EQ(stateOf(document), before);
    document.redo();
    EXPECT_EQ(stateOf(document), after);
}

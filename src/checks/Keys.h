#pragma once

#include "document/EditableDocumentBuffer.h"
#include "editing/lists/ListBuffer.h"

/// What a host calls when keys are pressed, as the commands of checks.
namespace Keys {

template <wchar_t letter>
void type(EditableDocumentBuffer& document) {
    document.insertText(Core::String(letter, 1), false, false);
}
inline void left(EditableDocumentBuffer& document) {
    document.moveCaretLeft(false, false, true);
}
inline void right(EditableDocumentBuffer& document) {
    document.moveCaretRight(false, false, true);
}
inline void backspace(EditableDocumentBuffer& document) {
    document.erase(false, false);
}
inline void forwardDelete(EditableDocumentBuffer& document) {
    document.erase(true, false);
}
inline void deleteWord(EditableDocumentBuffer& document) {
    document.erase(true, true);
}
inline void enter(EditableDocumentBuffer& document) {
    document.insertBreak(BreakType::Hard, false);
}
inline void softBreak(EditableDocumentBuffer& document) {
    document.insertBreak(BreakType::Soft, false);
}
inline void undo(EditableDocumentBuffer& document) {
    document.undo();
}
inline void redo(EditableDocumentBuffer& document) {
    document.redo();
}

} // namespace Keys

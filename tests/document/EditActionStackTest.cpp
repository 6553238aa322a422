#include "document/history/EditActionStack.h"

#include "foundation/Exception.h"
#include "foundation/Wide.h"

#include <gtest/gtest.h>

#include <string>

namespace {

EditAction insertion(int position, const wchar_t* text) {
    return {EditAction::EditInsert, position, -1, -1, text};
}

EditAction caretAt(int caret) {
    return {EditAction::EditCaret, -1, caret, caret, L""};
}

/// What undoing everything would do, the next first: "+a" inserts, "-a" deletes, "c" caret, "=a"
/// content, "(" and ")" markers.
std::wstring undoList(EditActionStack stack) {
    static const std::wstring signs = L"+-=c()";
    std::wstring list;
    while (stack.hasMoreUndoActions()) {
        const EditAction action = stack.getUndoAction();
        list += signs[action.getType()] + wide(action.getString());
    }
    return list;
}

TEST(EditActionStack, AtTheLimitExactlyTheOldestEntryGoes) {
    EditActionStack stack(3);
    stack.startActionGroup();
    stack.addAction(insertion(0, L"a"));
    stack.endActionGroup();
    stack.startActionGroup(); // markers count as entries, but none is refused
    EXPECT_EQ(undoList(stack), L"()-a(");
    stack.addAction(insertion(0, L"b"));
    stack.addAction(insertion(0, L"")); // what is not recorded pushes nothing out
    EXPECT_EQ(undoList(stack), L"-b()-a");
}

TEST(EditActionStack, AVeryLongHistoryIsClearedWithoutDeepRecursion) {
    EditActionStack stack(1000000);
    for (int i = 0; i < 200000; ++i)
        stack.addAction(caretAt(i));
    stack.clearStack();
    EXPECT_THROW(stack.getUndoAction(), Core::Exception);
}

} // namespace

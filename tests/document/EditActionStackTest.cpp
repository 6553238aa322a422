#include "document/history/EditActionStack.h"

#include "foundation/Exception.h"
#include "foundation/Wide.h"

#include <gtest/gtest.h>

#include <string>

namespace {

EditAction insertion(int position, const wchar_t* text) {
    return {EditAction::EditInsert, position, -1, -1, text};
}

EditAction deletion(int position, const wchar_t* text) {
    return {EditAction::EditDelete, position, -1, -1, text};
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

TEST(EditActionStack, OnlyARecordedActionForgetsWhatCouldBeRedone) {
    EditActionStack stack(100);
    stack.addAction(insertion(0, L"a"));
    stack.getUndoAction();
    stack.addAction(insertion(0, L""));
    EXPECT_FALSE(stack.hasMoreUndoActions()) << "an empty text is no record";
    stack.startActionGroup();
    stack.endActionGroup();
    EXPECT_TRUE(stack.hasMoreRedoActions());
    stack.addAction(caretAt(0));
    EXPECT_FALSE(stack.hasMoreRedoActions());
    EXPECT_EQ(undoList(stack), L"c)(");
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

TEST(EditActionStack, TracksAnOffsetAcrossActions) {
    EditActionStack stack(100);
    EXPECT_EQ(stack.retrieveTrackingPos(), -1);
    stack.addAction(insertion(0, L"untracked"));
    stack.startTrackingPos(10);
    stack.addAction(insertion(10, L"abc")); // 13
    stack.addAction(insertion(14, L"abc"));
    stack.addAction(deletion(2, L"xy")); // 11
    for (int undone = 0; undone < 3; ++undone)
        stack.getUndoAction(); // 10
    stack.getRedoAction();     // 13
    EXPECT_EQ(stack.retrieveTrackingPos(), 13);
    EXPECT_EQ(stack.retrieveTrackingPos(), -1);
}

TEST(EditActionStack, CopiesAreIndependentAndShareTheirTexts) {
    EditActionStack stack(10000);
    for (int i = 0; i < 10000; ++i)
        stack.addAction(insertion(i, L"text"));
    EditActionStack copy = stack;
    for (int i = 0; i < 7000; ++i) // trims the original while the copy holds the same records
        stack.addAction(deletion(i, L"x"));
    EXPECT_EQ(undoList(copy).size(), 10000U * 5);
    EXPECT_EQ(undoList(stack).size(), 7000U * 2 + 3000U * 5);
    for (int i = 0; i < 7000; ++i)
        stack.getUndoAction();
    for (int i = 9999; i >= 7000; --i) {
        const EditAction ours = stack.getUndoAction(), theirs = copy.getUndoAction();
        ASSERT_TRUE(ours.getActionPosition() == i && theirs.getActionPosition() == i) << i;
        ASSERT_EQ(ours.getString().c_str(), theirs.getString().c_str()) << "one storage";
    }
}

TEST(EditActionStack, AVeryLongHistoryIsClearedWithoutDeepRecursion) {
    EditActionStack stack(1000000);
    for (int i = 0; i < 200000; ++i)
        stack.addAction(caretAt(i));
    stack.clearStack();
    EXPECT_THROW(stack.getUndoAction(), Core::Exception);
}

} // namespace

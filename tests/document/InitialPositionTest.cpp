#include "document/DocumentTesting.h"

#include <gtest/gtest.h>

namespace {

/// The value that the root refers to; empty without one.
std::wstring stored(const TestBuffer& buffer) {
    return wide(buffer.getPropertiesFromElementAt(buffer.getRootElementPos())
                    .getPropertyValue(L"qf:initial-pos"));
}

std::wstring storedFor(const std::wstring& marked) {
    TestBuffer buffer(marked);
    buffer.saveInitialPosition(true);
    return stored(buffer);
}

TEST(InitialPosition, RefersToTheNearestBlockOrInline) {
    EXPECT_EQ(storedFor(L"<fo:block id=\"a\"><fo:inline fo:id='b'>x|y</fo:inline></fo:block>"),
              L"b");
    EXPECT_EQ(storedFor(L"<fo:block id=\"a\"><fo:wrapper id=\"b\">x|y</fo:wrapper></fo:block>"),
              L"a");
    EXPECT_EQ(storedFor(L"|<fo:block id=\"a\">x</fo:block>"), L"");
}

TEST(InitialPosition, NeverPointsIntoAConditionalSequence) {
    const std::wstring inner =
        L"<qfd:conditional-block-sequence><fo:block id=\"b\">"
        L"<qfd:conditional-inline-sequence><fo:inline id=\"c\">x|</fo:inline>"
        L"</qfd:conditional-inline-sequence></fo:block>"
        L"</qfd:conditional-block-sequence>";
    EXPECT_EQ(storedFor(L"<fo:block id=\"a\">" + inner + L"</fo:block>"), L"a");
    TestBuffer none(inner);
    const std::wstring before = none.text();
    none.saveInitialPosition(true);
    EXPECT_EQ(none.text(), before);
    EXPECT_FALSE(none.canUndo());
}

TEST(InitialPosition, IsSavedInOneStepAndFoundAgain) {
    TestBuffer buffer(
        L"<fo:block>one</fo:block><fo:block>two</fo:block><fo:block>th|ree</fo:block>");
    const std::wstring before = buffer.text();
    RecordingMonitor monitor;
    buffer.setMonitor(&monitor);
    buffer.saveInitialPosition(true);
    EXPECT_EQ(monitor.take(), "bc");
    const std::wstring id = stored(buffer);
    EXPECT_EQ(id.size(), 22U);
    EXPECT_EQ(buffer.marked().substr(48), L"<fo:block id=\"" + id + L"\">th|ree</fo:block>");
    const std::wstring saved = buffer.text();
    buffer.saveInitialPosition(true);
    EXPECT_EQ(buffer.text(), saved) << "an id that stands is kept";
    buffer.undo();
    buffer.undo();
    EXPECT_EQ(buffer.text(), before);
    EXPECT_FALSE(buffer.canUndo());

    buffer.setContent(Core::String(saved), true);
    monitor.take();
    buffer.loadInitialPosition();
    EXPECT_EQ(monitor.take(), "c");
    EXPECT_EQ(buffer.marked().substr(48), L"<fo:block id=\"" + id + L"\">|three</fo:block>");
}

TEST(InitialPosition, NothingToLoadLeavesTheCaret) {
    for (const wchar_t* root : {L"", L" qf:initial-pos=\"nowhere\""}) {
        TestBuffer buffer;
        std::wstring text = TestBuffer::documentWith(L"<fo:block>x</fo:block><fo:block/>");
        text.insert(text.find(L"<qfd:document") + 13, root);
        buffer.setContent(Core::String(text), true);
        const int caret = buffer.getCaretPos();
        RecordingMonitor monitor;
        buffer.setMonitor(&monitor);
        buffer.loadInitialPosition();
        EXPECT_EQ(buffer.getCaretPos(), caret);
        EXPECT_EQ(monitor.take(), "");
    }
}

TEST(InitialPosition, IsForgottenInOneStep) {
    TestBuffer buffer(L"<fo:block id=\"a\">x|y</fo:block>");
    buffer.saveInitialPosition(true);
    const std::wstring saved = buffer.text();
    buffer.saveInitialPosition(false);
    EXPECT_EQ(stored(buffer), L"");
    EXPECT_EQ(buffer.marked(), L"<fo:block id=\"a\">x|y</fo:block>");
    buffer.undo();
    EXPECT_EQ(buffer.text(), saved);

    TestBuffer never(L"<fo:block id=\"a\">x|y</fo:block>");
    never.saveInitialPosition(false);
    EXPECT_FALSE(never.canUndo());
}

} // namespace

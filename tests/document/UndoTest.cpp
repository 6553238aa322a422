#include "document/Attributes.h"
#include "document/FreezeNotifications.h"
#include "document/history/EditActionGroup.h"
#include "foundation/PropertyTesting.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

/// Types `xml` at the caret as a command does: recorded, in a group, between two carets.
void insertAsCommand(MarkedDocument& buffer, const wchar_t* xml) {
    const FreezeNotifications freeze(buffer);
    const EditActionGroup group(buffer);
    buffer.document().recordCaret();
    buffer.insertRecorded(buffer.caret(), xml);
    buffer.document().recordCaret();
}

TEST(Primitives, RecordNothingTellTheMonitorAndRefuseWhatIsOutsideTheText) {
    MarkedDocument buffer(L"<B>ab|c</B>");
    buffer->insertXmlTextAtPosition(buffer.find(L"c<"), L"X");
    EXPECT_EQ(buffer.heard(), "bc");
    buffer->deleteXmlText(buffer.find(L"c<"), buffer.find(L"c<"));
    EXPECT_EQ(buffer.heard(), "b") << "the caret did not move";
    const std::wstring before = buffer.marked();
    const int length = buffer.text().length();
    for (const int position : {-1, INT_MIN, length + 1, INT_MAX})
        buffer->insertXmlTextAtPosition(position, L"X");
    for (const auto& [start, end] : {std::pair(-1, 5), std::pair(5, 4), std::pair(5, length),
                                     std::pair(length, length), std::pair(5, INT_MAX)})
        EXPECT_TRUE(buffer->deleteXmlText(start, end).empty()) << start << " to " << end;
    EXPECT_EQ(buffer.marked(), before);
    EXPECT_EQ(buffer.heard(), "");
    buffer->insertXmlTextAtPosition(length, L"\n");
    EXPECT_EQ(buffer.text().length(), length + 1) << "behind the last unit is a place";
    EXPECT_FALSE(buffer->canUndo());
}

TEST(Properties, OnlyStartTagsHaveThem) {
    MarkedDocument buffer(L"<B>t|<!-- a b=\"c\" --><![CDATA[<x y=\"z\">]]></B>");
    const std::wstring before = buffer.marked();
    for (const int place : {buffer.find(L"t<!"), buffer.find(L"<!--"), buffer.find(L"<!["),
                            buffer.find(L"</B"), -1, buffer.text().length()}) {
        EXPECT_TRUE(Attributes::of(buffer, place).isEmpty()) << place;
        EXPECT_EQ(Attributes::merge(buffer, place, properties(L"fo:a=b")), 0) << place;
        EXPECT_TRUE(Attributes::clear(buffer, place).empty()) << place;
    }
    EXPECT_EQ(buffer.marked(), before);
    EXPECT_FALSE(buffer->canUndo());
    EXPECT_EQ(buffer.heard(), "");
}

TEST(Undo, AStepTrimmedAtTheLimitIsDroppedAndWholeOnesAreUndone) {
    MarkedDocument buffer(L"<B>|</B>");
    {
        const EditActionGroup trimmed(buffer);
        for (int i = 0; i < 10000; ++i)
            buffer.insertRecorded(buffer.caret(), L"a");
    }
    const std::wstring trimmed = buffer.content();
    insertAsCommand(buffer, L"X");
    const std::wstring whole = buffer.content();
    for (const char* why : {"undone", "half a step is not undone"}) {
        buffer->undo();
        EXPECT_EQ(buffer.content(), trimmed) << why;
    }
    EXPECT_FALSE(buffer->canUndo());
    buffer->redo();
    EXPECT_EQ(buffer.content(), whole);
}

TEST(Undo, TakesBackARunOfTypingHoweverLong) {
    MarkedDocument buffer(L"<B>x|</B>");
    insertAsCommand(buffer, L"y");
    const std::wstring before = buffer.marked();
    for (int i = 0; i < 12000; ++i)
        buffer->insertText(i % 7 == 6 ? L" " : L"a", false, false);
    const std::wstring typed = buffer.marked();
    buffer->undo();
    EXPECT_EQ(buffer.marked(), before);
    buffer->redo();
    EXPECT_EQ(buffer.marked(), typed);
    buffer->undo();
    buffer->undo();
    EXPECT_EQ(buffer.marked(), L"<B>x|</B>") << "the run took nothing of the limit from others";
}

TEST(Undo, TakesBackWhatIsTypedOverMoreThanTheHistoryHolds) {
    std::wstring blocks = L"<B>^a</B>";
    for (int i = 0; i < 12000; ++i)
        blocks += L"<B>b</B>";
    MarkedDocument buffer(blocks + L"<B>e|</B>");
    const std::wstring before = buffer.content();
    for (const wchar_t* key : {L"x", L"y"})
        buffer->insertText(key, false, false);
    const std::wstring typed = buffer.content();
    buffer->undo();
    buffer->undo();
    EXPECT_EQ(buffer.content(), before);
    buffer->redo();
    buffer->redo();
    EXPECT_EQ(buffer.content(), typed);
}

TEST(Undo, LoadingInsideAGroupLeavesNothingToUndo) {
    MarkedDocument buffer(L"<B>|</B>");
    {
        const EditActionGroup group(buffer);
        insertAsCommand(buffer, L"X");
        buffer->setContent(buffer->getContent(), true);
    }
    EXPECT_FALSE(buffer->canUndo());
}

TEST(FreezeNotifications, NestAndTellOnceInOrder) {
    MarkedDocument buffer(L"<B>|</B>");
    const IEditableBufferMonitor* const first = buffer->getMonitor();
    {
        const FreezeNotifications outer(buffer);
        {
            const FreezeNotifications inner(buffer);
            buffer->notifySelectionChanged();
            EXPECT_TRUE(inner.isChanged() && !outer.isChanged());
        }
        buffer->notifyCaretChanged();
        buffer->notifyBufferChanged();
        buffer->notifyCaretChanged();
        EXPECT_EQ(buffer.heard(), "");
    }
    EXPECT_EQ(buffer.heard(), "bcs");
    RecordingMonitor second;
    {
        const FreezeNotifications quiet(buffer);
        buffer->setMonitor(&second);
    }
    EXPECT_EQ(buffer.heard() + second.take(), "");
    EXPECT_EQ(buffer->getMonitor(), first) << "the monitor of its beginning";
}

} // namespace

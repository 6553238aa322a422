#include "document/DocumentTesting.h"

#include <gtest/gtest.h>

namespace {

class SearchedBuffer : public TestBuffer {
public:
    using EditableDocumentBuffer::findNextString;
    using TestBuffer::TestBuffer;
};

} // namespace

TEST(FindReplace, CountsBackwardFromWhereItBegan) {
    SearchedBuffer buffer(L"<fo:block>ab cd| efgh ijkl</fo:block><fo:block>m</fo:block>");
    const int start = buffer.getCaretPos();
    // The stretch is ">ab cd ".
    EXPECT_EQ(buffer.findNextString(L"ab", 0, true, false, Direction::Backward), start + 1);
    EXPECT_EQ(buffer.findNextString(L"cd ", 0, true, false, Direction::Backward), start + 4);
    EXPECT_EQ(buffer.getCaretPos(), start);
    for (const int none : {-1, 1, 3})
        EXPECT_EQ(buffer.findNextString(L"ab", 0, true, false, static_cast<Direction>(none)), -1);
}

TEST(FindReplace, JudgesAWholeWordAtTheEndOfAStretchByAnEarlierUnit) {
    // The document begins with the stretch, so that its units have the offsets of their indices.
    SearchedBuffer buffer;
    buffer.addEditableElement(L"b");
    buffer.setContent(L"<b>0 2x</b>", true);
    buffer.setCaret(false, 3);
    EXPECT_EQ(buffer.findNextString(L"x", 0, true, true, Direction::Forward), -1);
    buffer.setContent(L"<b>01 x</b>", true);
    buffer.setCaret(false, 3);
    EXPECT_EQ(buffer.findNextString(L"x", 0, true, true, Direction::Forward), 6);
}

TEST(FindReplace, TellsTheMonitorOnceAndOnlyOfWhatChanged) {
    RecordingMonitor monitor;
    SearchedBuffer buffer(L"<fo:block>o|ne two one</fo:block>");
    buffer.setMonitor(&monitor);
    buffer.findReplace(L"six", L"", true, false, Direction::Forward, false);
    buffer.findReplace(L"six", L"x", true, false, Direction::Forward, true);
    EXPECT_EQ(monitor.take(), "");
    buffer.findReplace(L"one", L"", true, false, Direction::Forward, false);
    EXPECT_EQ(monitor.take(), "cs");
    buffer.findReplace(L"one", L"x", true, false, Direction::Forward, true);
    EXPECT_EQ(monitor.take(), "bcs");
    buffer.resetfindReplaceStartPos();
    buffer.findReplace(L"e t", L"", true, false, Direction::Forward, true);
    EXPECT_EQ(buffer.marked(), L"<fo:block>on^e t|wo x</fo:block>");
    EXPECT_EQ(monitor.take(), "cs");
    buffer.setMonitor(nullptr);
}

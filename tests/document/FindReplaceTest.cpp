#include "document/DocumentTesting.h"

#include <gtest/gtest.h>

namespace {

class SearchedBuffer : public TestBuffer {
public:
    using TestBuffer::TestBuffer;

    int find(const wchar_t* what, bool wholeWord, Direction direction) {
        return findNextString(what, 0, true, wholeWord, direction);
    }
};

} // namespace

TEST(FindReplace, CountsBackwardFromWhereItBegan) {
    SearchedBuffer buffer(L"<B>ab cd| efgh ijkl</B><B>m</B>");
    const int start = buffer.getCaretPos();
    // The stretch is ">ab cd ".
    EXPECT_EQ(buffer.find(L"ab", false, Direction::Backward), start + 1);
    EXPECT_EQ(buffer.find(L"cd ", false, Direction::Backward), start + 4);
    EXPECT_EQ(buffer.getCaretPos(), start);
    for (const int none : {-1, 1, 3})
        EXPECT_EQ(buffer.find(L"ab", false, static_cast<Direction>(none)), -1);
}

TEST(FindReplace, JudgesAWholeWordAtTheEndOfAStretchByAnEarlierUnit) {
    // The document begins with the stretch, so that its units have the offsets of their indices.
    for (const auto& [text, found] :
         {std::pair(L"<b>0 2x</b>", -1), std::pair(L"<b>01 x</b>", 6)}) {
        SearchedBuffer buffer;
        buffer.addEditableElement(L"b");
        buffer.setContent(text, true);
        buffer.setCaret(false, 3);
        EXPECT_EQ(buffer.find(L"x", true, Direction::Forward), found) << text;
    }
}

TEST(FindReplace, TellsTheMonitorOnceAndOnlyOfWhatChanged) {
    SearchedBuffer buffer(L"<B>o|ne two one</B>");
    const auto heard = [&](const wchar_t* what, const wchar_t* with, bool replace) {
        buffer.findReplace(what, with, true, false, Direction::Forward, replace);
        return buffer.heard();
    };
    EXPECT_EQ(heard(L"six", L"", false) + heard(L"six", L"x", true), "");
    EXPECT_EQ(heard(L"one", L"", false), "cs");
    EXPECT_EQ(heard(L"one", L"x", true), "bcs");
    buffer.resetfindReplaceStartPos();
    EXPECT_EQ(heard(L"e t", L"", true), "cs");
    EXPECT_EQ(buffer.marked(), L"<B>on^e t|wo x</B>");
}

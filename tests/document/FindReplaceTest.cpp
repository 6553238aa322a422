#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

TEST(FindReplace, TellsTheMonitorOnceAndOnlyOfWhatChanged) {
    MarkedDocument buffer(L"<B>o|ne two one</B>");
    const auto heard = [&](const wchar_t* what, const wchar_t* with, bool replace) {
        buffer->findReplace(what, with, true, false, Direction::Forward, replace);
        return buffer.heard();
    };
    EXPECT_EQ(heard(L"six", L"", false) + heard(L"six", L"x", true), "");
    EXPECT_EQ(heard(L"one", L"", false), "cs");
    EXPECT_EQ(heard(L"one", L"x", true), "bcs");
    buffer->resetfindReplaceStartPos();
    EXPECT_EQ(heard(L"e t", L"", true), "cs");
    EXPECT_EQ(buffer.marked(), L"<B>on^e t|wo x</B>");
}

#include "document/DocumentTesting.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Fragments = std::vector<std::wstring>;

class ForgetfulBuffer : public TestBuffer {
public:
    using TestBuffer::TestBuffer;

    /// Where it stands in the flow.
    int find(const wchar_t* what) const {
        return text_.find(what, static_cast<unsigned>(TestBuffer::find(L"\"body\">")) + 7);
    }
    void insertBefore(const wchar_t* what, const wchar_t* xml) {
        insertRecorded(find(what), Core::String(xml));
    }
    void remove(const wchar_t* what) {
        deleteRecorded(find(what), find(what) + Core::String(what).length() - 1);
    }
    void forget(const wchar_t* what) {
        const int start = find(what);
        const int end = start + Core::String(what).length() - 1;
        getEditActionStack().forget(start, deleteXmlText(start, end));
    }

    /// The fragments that each step back, and then each step forth, leads to.
    Fragments undone() { return replayed(&ForgetfulBuffer::canUndo, &ForgetfulBuffer::undo); }
    Fragments redone() { return replayed(&ForgetfulBuffer::canRedo, &ForgetfulBuffer::redo); }

    std::wstring fragment() const {
        const std::size_t start = text().find(L"\"body\">") + 7;
        return text().substr(start, text().find(L"</fo:flow>") - start);
    }

private:
    Fragments replayed(bool (ForgetfulBuffer::*can)() const, void (ForgetfulBuffer::*step)()) {
        Fragments steps;
        while ((this->*can)()) {
            (this->*step)();
            steps.push_back(fragment());
        }
        return steps;
    }
};

TEST(ForgottenStretch, EditsBesideItStayExact) {
    ForgetfulBuffer buffer(L"|a<!--x-->b");
    buffer.insertBefore(L"a", L"1");
    buffer.insertBefore(L"<!--", L"2");
    buffer.insertBefore(L"b", L"3");
    buffer.insertBefore(L"</fo:flow>", L"4");
    buffer.remove(L"a2");
    buffer.forget(L"<!--x-->");
    EXPECT_EQ(buffer.fragment(), L"13b4");
    EXPECT_EQ(buffer.undone(), (Fragments{L"1a23b4", L"1a23b", L"1a2b", L"1ab", L"ab"}));
    EXPECT_EQ(buffer.redone(), (Fragments{L"1ab", L"1a2b", L"1a23b", L"1a23b4", L"13b4"}));
}

TEST(ForgottenStretch, WhatCanBeRedoneStaysExact) {
    ForgetfulBuffer buffer(L"|a<!--x-->b");
    buffer.insertBefore(L"a", L"1");
    buffer.remove(L"b");
    buffer.insertBefore(L"</fo:flow>", L"<i/>");
    buffer.undone();
    buffer.forget(L"<!--x-->");
    EXPECT_EQ(buffer.redone(), (Fragments{L"1ab", L"1a", L"1a<i/>"}));
    EXPECT_EQ(buffer.undone(), (Fragments{L"1a", L"1ab", L"ab"}));
}

TEST(ForgottenStretch, WhatCameWithItComesWithoutIt) {
    ForgetfulBuffer buffer(L"|ad");
    buffer.insertBefore(L"d", L"b<!--x-->c");
    buffer.insertBefore(L"a", L"1");
    buffer.forget(L"<!--x-->");
    EXPECT_EQ(buffer.undone(), (Fragments{L"abcd", L"ad"}));
    EXPECT_EQ(buffer.redone(), (Fragments{L"abcd", L"1abcd"}));
}

TEST(ForgottenStretch, WhatTookPartOfItWithOtherTextGivesBackTheText) {
    ForgetfulBuffer buffer(L"|a<!--x--><!--y-->b");
    buffer.insertBefore(L"a", L"1");
    buffer.remove(L"--><!--");
    buffer.remove(L"b");
    buffer.forget(L"<!--xy-->");
    EXPECT_EQ(buffer.undone(), (Fragments{L"1ab", L"ab"})) << "what was changed inside it is gone";
    EXPECT_EQ(buffer.redone(), (Fragments{L"1ab", L"1a"}));
}

TEST(ForgottenStretch, PartsThatWereInsertedApartAreAllForgotten) {
    ForgetfulBuffer buffer(L"|ad");
    buffer.insertBefore(L"d", L"b<!--");
    buffer.insertBefore(L"d", L"x-->c");
    buffer.forget(L"<!--x-->");
    EXPECT_EQ(buffer.undone(), (Fragments{L"abd", L"ad"}));
    EXPECT_EQ(buffer.redone(), (Fragments{L"abd", L"abcd"}));
}

TEST(ForgottenStretch, AReplacedTextIsAnother) {
    ForgetfulBuffer buffer(L"|a<!--x-->b");
    buffer.insertBefore(L"b", L"1");
    const Core::String replacement(TestBuffer::documentWith(L"cd<!--x-->e"));
    {
        const EditActionGroup group(&buffer);
        buffer.setContent(replacement, false);
    }
    buffer.insertBefore(L"e", L"2");
    buffer.forget(L"<!--x-->");
    EXPECT_EQ(buffer.undone(), (Fragments{L"cde", L"a<!--x-->1b", L"a<!--x-->b"}));
    EXPECT_EQ(buffer.redone(), (Fragments{L"a<!--x-->1b", L"cde", L"cd2e"}));
}

TEST(ForgottenStretch, CaretAndTrackedOffsetAreMoved) {
    ForgetfulBuffer buffer(L"<fo:block>a<!--x-->b|c</fo:block>");
    buffer.recordCaret();
    buffer.insertBefore(L"</fo:block>", L"1");
    EditActionStack& stack = buffer.getEditActionStack();
    stack.startTrackingPos(buffer.find(L"c1"));
    buffer.forget(L"<!--x-->");
    EXPECT_EQ(stack.retrieveTrackingPos(), buffer.find(L"c1"));
    buffer.undo();
    buffer.setCaret(false, buffer.find(L"a"));
    buffer.undo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>ab|c</fo:block>");
}

TEST(ForgottenStretch, BackspaceForgetsACommentAndKeepsEveryOtherStep) {
    ForgetfulBuffer buffer(L"<fo:block>a<!--x-->|b</fo:block>");
    buffer.insertText(L"1", false, false);
    buffer.moveCaretLeft(false, false, false);
    buffer.erase(false, false);
    EXPECT_EQ(buffer.marked(), L"<fo:block>a|1b</fo:block>");
    buffer.insertText(L"2", false, false);
    buffer.undone();
    EXPECT_EQ(buffer.marked(), L"<fo:block>a|b</fo:block>");
    buffer.redone();
    EXPECT_EQ(buffer.marked(), L"<fo:block>a2|1b</fo:block>");
}

TEST(Erase, ACommandTakenBackLeavesNoTrace) {
    ForgetfulBuffer buffer(L"<fo:block>a|b></fo:block>");
    buffer.insertText(L"]]", false, false);
    RecordingMonitor monitor;
    buffer.setMonitor(&monitor);
    buffer.erase(true, false); // would bring a "]]>" together, which no text may hold
    EXPECT_EQ(monitor.take(), "");
    EXPECT_EQ(buffer.marked(), L"<fo:block>a]]|b></fo:block>");
    buffer.setMonitor(nullptr);
    buffer.insertText(L"2", false, false);
    buffer.undo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>a|b></fo:block>") << "the run of typing went on";
}

} // namespace

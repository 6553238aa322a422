#include "document/EditableDocumentBufferState.h"
#include "document/FreezeNotifications.h"

#include "document/DocumentTesting.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace {

/// The fragment after deleting "cde" from "abcdefgh", with the caret and pivot where the marks are.
std::wstring afterDeletion(const wchar_t* marked) {
    TestBuffer buffer(marked);
    const int start = buffer.find(L"cde");
    EXPECT_EQ(wide(buffer.deleteXmlText(start, start + 2)), L"cde");
    return buffer.marked();
}

std::wstring afterInsertion(const wchar_t* marked) {
    TestBuffer buffer(marked);
    buffer.insertXmlTextAtPosition(buffer.find(L"cd"), L"XY");
    return buffer.marked();
}

TEST(Primitives, MoveCaretAndPivot) {
    EXPECT_EQ(afterDeletion(L"ab|cdefgh"), L"ab|fgh");
    EXPECT_EQ(afterDeletion(L"abc|defgh"), L"ab|fgh");
    EXPECT_EQ(afterDeletion(L"abcd|efgh"), L"a|bfgh") << "on the last unit";
    EXPECT_EQ(afterDeletion(L"abcde|fgh"), L"ab|fgh");
    EXPECT_EQ(afterDeletion(L"a^bcdef|gh"), L"a^bf|gh");
    EXPECT_EQ(afterDeletion(L"a|bcdef^gh"), L"a|bf^gh");
    EXPECT_EQ(afterDeletion(L"abc^de|fgh"), L"ab|fgh");
    EXPECT_EQ(afterInsertion(L"ab|cd"), L"abXY|cd") << "at the place itself";
    EXPECT_EQ(afterInsertion(L"a^bcd|"), L"a^bXYcd|");
    EXPECT_EQ(afterInsertion(L"a|b^cd"), L"a|bXY^cd");
}

TEST(Primitives, RecordNothingAndTellTheMonitor) {
    TestBuffer buffer(L"<fo:block>ab|c</fo:block>");
    RecordingMonitor monitor;
    buffer.setMonitor(&monitor);
    buffer.insertXmlTextAtPosition(buffer.find(L"c<"), L"X");
    EXPECT_EQ(monitor.take(), "bc");
    buffer.deleteXmlText(buffer.find(L"c<"), buffer.find(L"c<"));
    EXPECT_EQ(monitor.take(), "b") << "the caret did not move";
    EXPECT_FALSE(buffer.canUndo());
}

TEST(Primitives, APositionOutsideTheTextChangesNothing) {
    TestBuffer buffer(L"<fo:block>ab|c</fo:block>");
    RecordingMonitor monitor;
    buffer.setMonitor(&monitor);
    const std::wstring before = buffer.marked();
    const int length = buffer.getContent().length();
    for (const int position : {-1, -2147483647 - 1, length + 1, 2147483647})
        buffer.insertXmlTextAtPosition(position, L"X");
    for (const auto& [start, end] : {std::pair(-1, 5), std::pair(5, 4), std::pair(5, length),
                                     std::pair(length, length), std::pair(5, 2147483647)})
        EXPECT_TRUE(buffer.deleteXmlText(start, end).empty()) << start << " to " << end;
    EXPECT_TRUE(buffer.deleteContentAndAdjustCaret(5, length).empty());
    EXPECT_TRUE(buffer.deleteContentAndAdjustCaret(-1, 5).empty());
    EXPECT_EQ(buffer.marked(), before);
    EXPECT_EQ(monitor.take(), "");
    buffer.insertXmlTextAtPosition(length, L"\n");
    EXPECT_EQ(buffer.getContent().length(), length + 1) << "behind the last unit is a place";
}

TEST(Primitives, DeleteContentExcludesItsEndAndTakesTheCaretAlong) {
    TestBuffer buffer(L"<fo:block>abcd|e</fo:block>");
    const int start = buffer.find(L"bc");
    EXPECT_EQ(wide(buffer.deleteContentAndAdjustCaret(start, start + 2)), L"bc");
    EXPECT_EQ(buffer.marked(), L"<fo:block>a|de</fo:block>");
}

TEST(Replay, PerformsEachKindOfRecord) {
    TestBuffer buffer(L"<fo:block>|abc</fo:block>");
    const int at = buffer.find(L"abc");
    buffer.executeAction({EditAction::EditInsert, at + 1, -1, -1, L"XY"});
    buffer.executeAction({EditAction::EditDelete, at + 3, -1, -1, L"b"});
    EXPECT_EQ(buffer.marked(), L"<fo:block>|aXYc</fo:block>");
    buffer.executeAction({EditAction::EditCaret, -1, at + 3, at + 1, L""});
    EXPECT_EQ(buffer.marked(), L"<fo:block>a^XY|c</fo:block>");
    const std::wstring content = TestBuffer::documentWith(L"<fo:block>new\r\n</fo:block>");
    buffer.executeAction({EditAction::EditContent, -1, -1, -1, Core::String(content)});
    EXPECT_EQ(buffer.marked(), L"<fo:block>|new\r\n</fo:block>") << "as it stands, caret home";
    buffer.executeAction({EditAction::EditCaret, -1, -1, -1, L""});
    EXPECT_EQ(buffer.marked(), L"<fo:block>|new\r\n</fo:block>") << "home when there is no caret";
    EXPECT_FALSE(buffer.canUndo());
}

/// Types `xml` at the caret as a command does: recorded, in a group, between two carets.
void insertAsCommand(TestBuffer& buffer, const wchar_t* xml) {
    const FreezeNotifications freeze(&buffer);
    const EditActionGroup group(&buffer);
    buffer.recordCaret();
    buffer.insertRecorded(buffer.getCaretPos(), xml);
    buffer.recordCaret();
}

TEST(Undo, TakesBackAGroupWithItsCaretAndRedoesIt) {
    TestBuffer buffer(L"a^bc|d");
    {
        const EditActionGroup outer(&buffer);
        buffer.recordCaret();
        insertAsCommand(buffer, L"XY");
        buffer.deleteRecorded(buffer.find(L"ab"), buffer.find(L"ab"));
        buffer.setCaret(false, buffer.find(L"Y"));
        buffer.recordCaret();
    }
    buffer.undo();
    EXPECT_EQ(buffer.marked(), L"a^bc|d");
    EXPECT_FALSE(buffer.canUndo()) << "groups in a group are one step with it";
    buffer.redo();
    EXPECT_EQ(buffer.marked(), L"bcX|Yd");
}

TEST(Undo, TellsTheMonitorOnceOfEachKind) {
    TestBuffer buffer(L"<fo:block>a^bc|d</fo:block>");
    RecordingMonitor monitor;
    buffer.setMonitor(&monitor);
    buffer.undo();
    buffer.redo();
    EXPECT_EQ(monitor.take(), "") << "nothing to undo";
    insertAsCommand(buffer, L"X");
    monitor.take();
    buffer.undo();
    EXPECT_EQ(monitor.take(), "bcs");
    buffer.redo();
    EXPECT_EQ(monitor.take(), "bcs");
    const std::wstring before = buffer.marked();
    { const EditActionGroup empty(&buffer); }
    buffer.undo();
    EXPECT_EQ(monitor.take(), "");
    EXPECT_EQ(buffer.marked(), before) << "an empty group is a step of its own";
}

TEST(Undo, ContentReplacedInAGroupIsOneStep) {
    TestBuffer buffer(L"<fo:block>old|</fo:block>");
    insertAsCommand(buffer, L"er");
    {
        const EditActionGroup group(&buffer);
        buffer.setContent(Core::String(TestBuffer::documentWith(L"<fo:block>new</fo:block>")),
                          false);
    }
    buffer.undo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>|older</fo:block>");
    buffer.redo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>|new</fo:block>");
    buffer.undo();
    buffer.undo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>old|</fo:block>");
}

TEST(Undo, ContentReplacedOutsideAGroupIsTwoStepsThatLaterOffsetsFit) {
    TestBuffer buffer(L"<fo:block>old</fo:block>");
    const std::wstring old = buffer.text();
    buffer.setContent(Core::String(TestBuffer::documentWith(L"\r\n\r\n<fo:block>ab</fo:block>")),
                      false);
    const std::wstring replaced = buffer.text();
    buffer.insertRecorded(buffer.find(L"b</"), L"X");
    const std::wstring edited = buffer.text();
    for (const std::wstring& expected : {replaced, replaced, old}) {
        buffer.undo();
        EXPECT_EQ(buffer.text(), expected);
    }
    while (buffer.canRedo())
        buffer.redo();
    EXPECT_EQ(buffer.text(), edited);
}

TEST(Undo, AStepTrimmedAtTheLimitIsDroppedAndWholeOnesAreUndone) {
    TestBuffer buffer(L"<fo:block>|</fo:block>");
    const int at = buffer.getCaretPos();
    {
        const EditActionGroup trimmed(&buffer);
        for (int i = 0; i < 10000; ++i)
            buffer.insertRecorded(at, L"a");
    }
    const std::wstring trimmed = buffer.text();
    insertAsCommand(buffer, L"X");
    const std::wstring whole = buffer.text();
    buffer.undo();
    EXPECT_EQ(buffer.text(), trimmed);
    buffer.undo();
    EXPECT_EQ(buffer.text(), trimmed) << "half a step is not undone";
    EXPECT_FALSE(buffer.canUndo());
    buffer.redo();
    EXPECT_EQ(buffer.text(), whole);
}

TEST(Undo, LoadingInsideAGroupLeavesNothingToUndo) {
    TestBuffer buffer(L"<fo:block>|</fo:block>");
    {
        const EditActionGroup group(&buffer);
        insertAsCommand(buffer, L"X");
        buffer.setContent(buffer.getContent(), true);
    }
    EXPECT_FALSE(buffer.canUndo());
}

// Snapshots

TEST(Snapshot, ARolledBackCommandLeavesNoTrace) {
    TestBuffer buffer(L"<fo:block>a^b|c</fo:block>");
    insertAsCommand(buffer, L"X");
    insertAsCommand(buffer, L"Y");
    buffer.undo();
    buffer.setCaret(false, buffer.find(L"ab"));
    buffer.setCaret(true, buffer.find(L"c<"));
    const std::wstring before = buffer.marked();
    buffer.getEditActionStack().startTrackingPos(500);
    RecordingMonitor monitor;
    {
        EditableDocumentBufferState state(&buffer);
        const EditActionGroup group(&buffer);
        insertAsCommand(buffer, L"<broken");
        const EditActionGroup inner(&buffer);
        insertAsCommand(buffer, L"more");
        buffer.setMonitor(&monitor);
        state.restorePreviousState();
    }
    EXPECT_EQ(monitor.take(), "");
    EXPECT_EQ(buffer.marked(), before);
    EXPECT_EQ(buffer.getEditActionStack().retrieveTrackingPos(), 500);
    buffer.redo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>a^bXY|c</fo:block>");
    buffer.undo();
    buffer.undo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>a^b|c</fo:block>");
    EXPECT_FALSE(buffer.canUndo()) << "no marker stayed";
}

TEST(Snapshot, RestoredInsideAGroupLeavesThatGroupOpen) {
    TestBuffer buffer(L"<fo:block>|</fo:block>");
    insertAsCommand(buffer, L"a");
    {
        const EditActionGroup outer(&buffer);
        insertAsCommand(buffer, L"b");
        {
            EditableDocumentBufferState state(&buffer);
            const EditActionGroup inner(&buffer);
            insertAsCommand(buffer, L"broken");
            state.restorePreviousState();
            insertAsCommand(buffer, L"c");
            state.restorePreviousState(); // a second time
        }
        insertAsCommand(buffer, L"d");
    }
    buffer.undo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>a|</fo:block>");
    buffer.redo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>abd|</fo:block>");
}

TEST(Snapshot, AScopeThatWasRolledBackClosesNoLaterGroup) {
    TestBuffer buffer(L"<fo:block>|</fo:block>");
    EditableDocumentBufferState state(&buffer);
    auto rolledBack = std::make_unique<EditActionGroup>(&buffer);
    state.restorePreviousState();
    {
        const EditActionGroup later(&buffer);
        buffer.insertRecorded(buffer.getCaretPos(), L"a");
        rolledBack.reset();
        buffer.insertRecorded(buffer.getCaretPos(), L"b");
    }
    buffer.undo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>|</fo:block>");
}

// The run of typing

TEST(TypingRun, IsEndedByEveryOtherRecordedCommand) {
    const auto stepsAfter = [](auto command) {
        TestBuffer buffer(L"<fo:block id=\"i\">x|</fo:block>");
        buffer.insertText(L"a", false, false);
        command(buffer);
        buffer.undo();
        return buffer.marked();
    };
    const std::wstring typed = L"<fo:block id=\"i\">xa|</fo:block>";
    EXPECT_EQ(stepsAfter([](TestBuffer& b) { b.saveInitialPosition(true); }), typed);
    EXPECT_EQ(stepsAfter([](TestBuffer& b) { b.changeXmlEncoding(L"latin1"); }), typed);
    EXPECT_EQ(stepsAfter([](TestBuffer& b) { b.updateRootNamespaces(L"xmlns:x=\"u\""); }), typed);
    EXPECT_EQ(
        stepsAfter([](TestBuffer& b) { b.clearPropertiesForElementAt(b.find(L"<fo:block")); }),
        typed);
}

TEST(TypingRun, IsAfterARollBackWhatItWasBefore) {
    TestBuffer buffer(L"<fo:block>x|</fo:block>");
    {
        EditableDocumentBufferState state(&buffer);
        buffer.insertText(L"a", false, false);
        state.restorePreviousState();
    }
    buffer.endKeyTypingSequence();
    EXPECT_FALSE(buffer.canUndo()) << "no end marker of the run that was taken back";
    buffer.insertText(L"a", false, false);
    {
        EditableDocumentBufferState state(&buffer);
        buffer.endKeyTypingSequence();
        insertAsCommand(buffer, L"broken");
        buffer.insertText(L"another run", false, false);
        state.restorePreviousState();
    }
    buffer.insertText(L"b", false, false);
    EXPECT_EQ(buffer.marked(), L"<fo:block>xab|</fo:block>");
    buffer.undo();
    EXPECT_EQ(buffer.marked(), L"<fo:block>x|</fo:block>");
    EXPECT_FALSE(buffer.canUndo());
}

// Notices

TEST(FreezeNotifications, NestAndTellOnceInOrder) {
    TestBuffer buffer(L"<fo:block>|</fo:block>");
    RecordingMonitor monitor;
    buffer.setMonitor(&monitor);
    {
        const FreezeNotifications outer(&buffer);
        {
            const FreezeNotifications inner(&buffer);
            buffer.notifySelectionChanged();
            EXPECT_TRUE(inner.isChanged());
            EXPECT_FALSE(outer.isChanged());
        }
        buffer.notifyCaretChanged();
        buffer.notifyBufferChanged();
        buffer.notifyCaretChanged();
        EXPECT_EQ(monitor.take(), "");
    }
    EXPECT_EQ(monitor.take(), "bcs");
    RecordingMonitor second;
    {
        const FreezeNotifications quiet(&buffer);
        buffer.setMonitor(&second);
    }
    EXPECT_EQ(monitor.take() + second.take(), "");
    EXPECT_EQ(buffer.getMonitor(), &monitor) << "the monitor of its beginning";
}

// Random streams against a list of whole texts

class RandomHistory {
public:
    explicit RandomHistory(unsigned seed) : random_(seed), buffer_(L"<fo:block>|start</fo:block>") {
        texts_.push_back(buffer_.text());
    }

    void run(int commands) {
        while (commands-- > 0 && !testing::Test::HasFailure()) {
            doOne();
            ASSERT_EQ(buffer_.text(), texts_[current_]);
            ASSERT_EQ(buffer_.canUndo(), current_ > 0);
            ASSERT_EQ(buffer_.canRedo(), current_ + 1 < texts_.size());
        }
    }

private:
    int upTo(int bound) { return std::uniform_int_distribution<int>(0, bound)(random_); }

    void doOne() {
        switch (upTo(5)) {
        case 0:
        case 1:
            edit();
            step();
            break;
        case 2:
            group(2);
            step();
            break;
        case 3:
            rollBack();
            break;
        case 4:
            buffer_.undo();
            current_ -= current_ > 0;
            break;
        default:
            buffer_.redo();
            current_ += current_ + 1 < texts_.size();
        }
    }

    void step() {
        texts_.resize(current_ + 1);
        texts_.push_back(buffer_.text());
        ++current_;
    }

    /// One recorded insertion or deletion within the block.
    void edit() {
        const int start = buffer_.find(L"<fo:block>") + 10;
        const int end = buffer_.find(L"</fo:block>");
        const int at = start + upTo(end - start);
        if (end - at > 3 && upTo(1) == 0)
            buffer_.deleteRecorded(at, at + upTo(2));
        else
            buffer_.insertRecorded(at, Core::String(std::wstring(1 + upTo(3), L'a' + upTo(25))));
    }

    void group(int depth) {
        const EditActionGroup scope(&buffer_);
        buffer_.recordCaret();
        for (int i = upTo(3); i >= 0; --i) {
            if (depth > 0 && upTo(2) == 0)
                group(depth - 1);
            else
                edit();
        }
        buffer_.recordCaret();
    }

    void rollBack() {
        EditableDocumentBufferState state(&buffer_);
        const EditActionGroup scope(&buffer_);
        group(1);
        if (upTo(1) == 0)
            buffer_.endKeyTypingSequence();
        state.restorePreviousState();
    }

    std::mt19937 random_;
    TestBuffer buffer_;
    std::vector<std::wstring> texts_;
    std::size_t current_ = 0;
};

TEST(Undo, RandomStreamsAgreeWithAListOfWholeTexts) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE(seed);
        RandomHistory(seed).run(150);
    }
}

} // namespace

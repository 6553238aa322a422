// Backspace and Delete, by unit and by word, from the stops of documents that people wrote.

#include "properties/EveryStop.h"

namespace {

constexpr int stopsPerDocument = 4;

struct Command {
    bool forward;
    bool wholeWord;
};

constexpr Command commands[] = {{false, false}, {true, false}, {false, true}, {true, true}};

/// Whether the text after lacks a comment, CDATA section or processing instruction, which Backspace
/// removes for good, and nothing else.
bool lacksIgnoredMarkup(const Core::String& before, const Core::String& after) {
    const XmlScan::Text whole = before.view();
    const auto difference = std::mismatch(after.view().begin(), after.view().end(), whole.begin());
    const int start =
        XmlScan::rFind(whole, L'<', static_cast<int>(difference.second - whole.begin()));
    const int lost = before.length() - after.length();
    if (lost <= 0 || !XmlScan::ignoredAt(whole, start))
        return false;
    Core::String rest = before;
    rest.erase(static_cast<unsigned>(start), static_cast<unsigned>(lost));
    return rest == after;
}

class EraseEverywhere : public testing::TestWithParam<std::filesystem::path> {
protected:
    void tryAt(StopsDocument& document, int stop, Command command) {
        SCOPED_TRACE(GetParam().filename().string() + " at " + std::to_string(stop) +
                     (command.forward ? ", Delete" : ", Backspace") +
                     (command.wholeWord ? " by word" : ""));
        document.setCaretPos(false, stop);
        const CaretInText before = document.state();
        const int emptied = document.countEmptied();
        document.erase(command.forward, command.wholeWord);
        const CaretInText after = document.state();
        if (after.text == before.text)
            return;
        EXPECT_EQ(xmlError(after.text), "");
        EXPECT_TRUE(after.caret == -1 || document.canHoldCaret(after.caret)) << after.caret;
        EXPECT_LE(document.countEmptied(), emptied);
        checkHistory(document, before, after);
    }

private:
    static void checkHistory(StopsDocument& document, const CaretInText& before,
                             const CaretInText& after) {
        document.undo();
        if (lacksIgnoredMarkup(before.text, document.getContent())) {
            document.setContent(before.text, true);
            return;
        }
        EXPECT_EQ(document.state(), before);
        document.redo();
        EXPECT_EQ(document.state(), after);
        document.undo();
    }
};

TEST_P(EraseEverywhere, KeepsTheDocumentWholeAndUndoes) {
    StopsDocument document(GetParam());
    document.fromEachStop(stopsPerDocument, [&](int stop) {
        for (const Command& command : commands)
            tryAt(document, stop, command);
    });
}

INSTANTIATE_TEST_SUITE_P(Documents, EraseEverywhere, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

} // namespace

// Backspace and Delete, by unit and by word, from the stops of documents that people wrote. With
// FORME_ALL_STOPS set they are tried from every stop, and otherwise from some of all parts of a
// text.

#include "Session.h"
#include "document/DocumentTesting.h"
#include "support/WellFormed.h"
#include "text/XmlScan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int stopsPerDocument = 4;

struct Command {
    bool forward;
    bool wholeWord;
};

constexpr Command commands[] = {{false, false}, {true, false}, {false, true}, {true, true}};

/// What a user sees change: the text, and the caret in it.
struct State {
    Core::String text;
    int caret;

    bool operator==(const State&) const = default;
};

class ErasedDocument : public TestBuffer {
public:
    using TestBuffer::canHoldCaret;

    explicit ErasedDocument(const fs::path& path) {
        loadDocument(*this, Core::String(path.wstring().c_str()));
    }

    State state() const { return {text_, getCaretPos()}; }

    /// The next stop behind a position or at least `distance` units further; -1 if there is none.
    int stopBehind(int position, int distance) const {
        const int from = XmlScan::unitStart(text_.view(), position + distance);
        return getNextValidCaretPos(std::max(position, from));
    }

    int length() const { return text_.length(); }

    /// How many editable elements hold nothing that a caret could stand on.
    int countEmptied() const {
        int count = 0;
        for (int tag = getNextTagPosition(0); tag >= 0;
             tag = getNextTagPosition(getNextEditablePositionInXml(tag)))
            if (isEditableElementAtPosition(tag) && !selfClosingTagAtPosition(tag) &&
                elementContainsJustWhitespacesOrVoid(tag))
                ++count;
        return count;
    }
};

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

class EraseEverywhere : public testing::TestWithParam<fs::path> {
protected:
    void tryAt(ErasedDocument& document, int stop, Command command) {
        SCOPED_TRACE(GetParam().filename().string() + " at " + std::to_string(stop) +
                     (command.forward ? ", Delete" : ", Backspace") +
                     (command.wholeWord ? " by word" : ""));
        document.setCaretPos(false, stop);
        const State before = document.state();
        const int emptied = document.countEmptied();
        document.erase(command.forward, command.wholeWord);
        const State after = document.state();
        if (after.text == before.text)
            return;
        EXPECT_EQ(xmlError(after.text), "");
        EXPECT_TRUE(after.caret == -1 || document.canHoldCaret(after.caret)) << after.caret;
        EXPECT_LE(document.countEmptied(), emptied);
        checkHistory(document, before, after);
    }

private:
    static void checkHistory(ErasedDocument& document, const State& before, const State& after) {
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
    ErasedDocument document(GetParam());
    const int distance = std::getenv("FORME_ALL_STOPS") ? 0 : document.length() / stopsPerDocument;
    for (int stop = document.stopBehind(0, 0); stop >= 0 && !HasFailure();
         stop = document.stopBehind(stop, distance))
        for (const Command& command : commands)
            tryAt(document, stop, command);
}

std::vector<fs::path> documents() {
    std::vector<fs::path> paths;
    for (const char* folder : {FORME_CORPUS, FORME_SAMPLES})
        for (const auto& file : fs::directory_iterator(folder))
            if (file.path().extension() == ".fo" || file.path().extension() == ".xml")
                paths.push_back(file.path());
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::string nameOf(const testing::TestParamInfo<fs::path>& info) {
    std::string name = info.param.stem().string();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char ch) { return !std::isalnum(ch); }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Documents, EraseEverywhere, testing::ValuesIn(documents()), nameOf);

} // namespace

// A break and what takes it away again, from the stops of documents that people wrote.

#include "properties/EveryStop.h"

#include <array>
#include <sstream>
#include <vector>

namespace {

constexpr int stopsPerDocument = 4;

/// A break, and whether Backspace takes it away or, from the line before, Delete.
struct Way {
    BreakType type;
    bool forward;
};

constexpr std::array<Way, 4> ways{Way{BreakType::Hard, false}, Way{BreakType::Hard, true},
                                  Way{BreakType::Soft, false}, Way{BreakType::Soft, true}};

class BrokenDocument : public StopsDocument {
public:
    using StopsDocument::StopsDocument;

    /// What a reader sees: the lines, without their formatting. "_" is a non-breaking space, "*" an
    /// object.
    std::vector<std::string> lines() const {
        std::istringstream all(readableText(0, text_.length()));
        std::vector<std::string> lines;
        for (std::string line; std::getline(all, line);) {
            const auto bothBlank = [](char a, char b) { return a == ' ' && b == ' '; };
            line.erase(std::unique(line.begin(), line.end(), bothBlank), line.end());
            line.erase(0, line.starts_with(' ') ? 1 : 0);
            if (line.ends_with(' '))
                line.pop_back();
            if (!line.empty())
                lines.push_back(line);
        }
        return lines;
    }

    /// Whether a line feed of the markup stands beside the caret. It separates words, and goes with
    /// the break as the layout of the markup does.
    bool isBesideLineFeed() const {
        const XmlScan::Text text = text_.view();
        int start = getCaretPos();
        while (start > 0 && Core::String::isSpace(XmlScan::unitAt(text, start - 1)))
            --start;
        const XmlScan::Text run = XmlScan::slice(text, start, XmlScan::skipSpaces(text, start));
        return run.find(L'\n') != XmlScan::Text::npos;
    }

    /// Whether nothing is on the line of the caret, not even a placeholder. A break puts one there.
    bool isOnBareLine() const {
        const std::string before = readableText(0, getCaretPos());
        const std::string behind = readableText(getCaretPos(), text_.length());
        const auto begin = before.rfind('\n') + 1;
        const std::string line = before.substr(begin) + behind.substr(0, behind.find('\n'));
        return line.find_first_not_of(' ') == std::string::npos;
    }

    /// Moves to the end of the line before a break. If that line is empty and ends with the layout
    /// of the markup, it has a stop behind that, too. False if another thing than the break is
    /// there.
    bool goBackOverBreak() {
        const int start = getCaretPos();
        for (int from = -1; getCaretPos() != from && lineTagsBetween(getCaretPos(), start) == 0;) {
            from = getCaretPos();
            moveCaretLeft(false, false, false);
        }
        const int element = getCurrentElementPosition(getCaretPos());
        if (elementContainsJustNonBreakingSpace(element))
            setCaretPos(false, getNonBreakingSpacePosition(element));
        const int tags = lineTagsBetween(getCaretPos(), start);
        return tags == 1 || tags == 2;
    }

    /// Whether Backspace leaves the line alone: in a list, and behind what is no block.
    bool isLineKept() const {
        return isInElementContext(L"fo:list-block", getCaretPos()) ||
               getPreviousNeighborName(getCaretPos(), true) != L"fo:block";
    }

private:
    std::string readableText(int start, int end) const {
        const XmlScan::Text text = text_.view();
        std::string read;
        for (int at = start, next = 0; at < end; at = next) {
            next = std::max(XmlScan::stepForward(text, at), at + 1);
            if (XmlScan::onTagStart(text, at))
                read += readableTag(at);
            else if (XmlScan::placeholderLength(text, at) > 0)
                read += '_';
            else if (Core::String::isSpace(XmlScan::unitAt(text, at)))
                read += ' ';
            else
                read += Core::Encoder::toDisplayText(Core::String(XmlScan::slice(text, at, next)));
        }
        return read;
    }

    /// How many tags begin or end a line there; -1 if an object stands there.
    int lineTagsBetween(int start, int end) const {
        int count = 0;
        for (int at = start; at >= 0 && at < end; at = getNextEditablePositionInXml(at)) {
            const char read = XmlScan::onTagStart(text_.view(), at) ? *readableTag(at) : 0;
            if (read == '*')
                return -1;
            count += read == '\n' ? 1 : 0;
        }
        return count;
    }

    const char* readableTag(int tag) const {
        const Core::String name = getNameForTagAtPosition(tag, true).substringAfter(L"/");
        if (isInlineEditableElementName(name) || XmlScan::ignoredAt(text_.view(), tag))
            return "";
        const bool isLine = isBlockEditableElementName(name) || name.startsWith(L"fo:table") ||
                            name.startsWith(L"fo:list") || name == L"fo:block-container";
        return isLine ? "\n" : "*";
    }
};

std::string withoutBlanks(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines)
        std::copy_if(line.begin(), line.end(), std::back_inserter(all),
                     [](char ch) { return ch != ' ' && ch != '_'; });
    return all;
}

/// The first line that differs, as it reads in both; empty if none does.
std::string firstDifference(const std::vector<std::string>& expected,
                            const std::vector<std::string>& actual) {
    const auto [at, other] =
        std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    if (at == expected.end() && other == actual.end())
        return {};
    return "expected \"" + (at == expected.end() ? "" : *at) + "\", but it is \"" +
           (other == actual.end() ? "" : *other) + '"';
}

class BreakAndJoin : public testing::TestWithParam<std::filesystem::path> {
protected:
    void tryAt(BrokenDocument& document, int stop, Way way) {
        SCOPED_TRACE(GetParam().filename().string() + " at " + std::to_string(stop) +
                     (way.type == BreakType::Hard ? ", hard" : ", soft") +
                     (way.forward ? ", Delete" : ", Backspace"));
        document.setCaretPos(false, stop);
        if (document.isOnBareLine())
            return;
        const EditorState before = stateOf(document);
        const std::vector<std::string> lines = document.lines();
        const bool isBesideLineFeed = document.isBesideLineFeed();
        document.insertBreak(way.type, false);
        if (stateOf(document).text == before.text)
            return;
        checkBreak(document, before);
        EXPECT_EQ(withoutBlanks(document.lines()), withoutBlanks(lines));
        checkJoin(document, lines, isBesideLineFeed, way, before.caret);
        while (stateOf(document) != before && document.canUndo())
            document.undo();
    }

private:
    static void checkBreak(BrokenDocument& document, const EditorState& before) {
        const EditorState after = stateOf(document);
        EXPECT_EQ(xmlError(after.text), "");
        EXPECT_TRUE(document.canHoldCaret(after.caret)) << after.caret;
        document.undo();
        EXPECT_EQ(stateOf(document), before);
        document.redo();
        EXPECT_EQ(stateOf(document), after);
    }

    static void checkJoin(BrokenDocument& document, std::vector<std::string> expected,
                          bool losesBlank, Way way, int place) {
        const Core::String broken = stateOf(document).text;
        const bool isLineKept = document.isLineKept();
        const bool isMadeBefore = document.getCaretPos() <= place;
        const bool isWrapped = isLineKept && way.type == BreakType::Hard;
        if (way.forward && (isWrapped || isMadeBefore || !document.goBackOverBreak()))
            return;
        document.erase(way.forward, false);
        if (stateOf(document).text == broken && isLineKept)
            return;
        std::vector<std::string> lines = document.lines();
        if (losesBlank)
            for (std::vector<std::string>* read : {&expected, &lines})
                for (std::string& line : *read)
                    std::erase(line, ' ');
        EXPECT_EQ(firstDifference(expected, lines), "");
    }
};

TEST_P(BreakAndJoin, ReadsAsBefore) {
    BrokenDocument document(GetParam());
    document.fromEachStop(stopsPerDocument, [&](int stop) {
        for (const Way way : ways)
            tryAt(document, stop, way);
    });
}

INSTANTIATE_TEST_SUITE_P(Documents, BreakAndJoin, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

} // namespace

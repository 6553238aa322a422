// Enter and then Backspace, from the stops of documents that people wrote.

#include "properties/EveryStop.h"

#include <sstream>
#include <vector>

namespace {

constexpr int stopsPerDocument = 24;

/// What a reader sees: the lines, without their formatting. "_" is a non-breaking space.
std::vector<std::string> linesOf(const StopsDocument& document, const Core::String& text) {
    std::string read;
    const XmlScan::Text all = text.view();
    for (int at = 0; XmlScan::isValid(all, at);) {
        const int next = std::max(XmlScan::stepForward(all, at), at + 1);
        const XmlScan::Text name = XmlScan::tagName(all, at);
        const Core::String bare(name.starts_with(L'/') ? name.substr(1) : name);
        if (XmlScan::placeholderLength(all, at) > 0)
            read += '_';
        else if (!XmlScan::onTagStart(all, at))
            read += Core::String::isSpace(all[static_cast<std::size_t>(at)])
                        ? " "
                        : Core::Encoder::toDisplayText(Core::String(XmlScan::slice(all, at, next)));
        else if (!document.isInlineEditableElementName(bare) && !XmlScan::ignoredAt(all, at))
            read +=
                XmlScan::openingAt(all, at) || XmlScan::closingAt(all, at) || bare == L"fo:block"
                    ? "\n"
                    : "*";
        at = next;
    }
    std::vector<std::string> lines;
    std::istringstream stream(read);
    for (std::string line; std::getline(stream, line);) {
        line.erase(std::unique(line.begin(), line.end(),
                               [](char a, char b) { return a == ' ' && b == ' '; }),
                   line.end());
        if (line.starts_with(' '))
            line.erase(0, 1);
        if (line.ends_with(' '))
            line.pop_back();
        if (!line.empty())
            lines.push_back(line);
    }
    return lines;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines)
        for (const char ch : line)
            if (ch != ' ' && ch != '_')
                all += ch;
    return all;
}

std::string flat(std::string s) {
    std::string r;
    for (char c : s) { if (c=='\n') r += "~"; else r += c; }
    return r;
}
std::string diff(const std::vector<std::string>& a, const std::vector<std::string>& b) {
    std::size_t i = 0;
    while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
    std::size_t j = a.size(), k = b.size();
    while (j > i && k > i && a[j-1] == b[k-1]) { --j; --k; }
    std::string r;
    for (std::size_t x = i; x < j; ++x) r += "   -" + a[x] + "\n";
    for (std::size_t x = i; x < k; ++x) r += "   +" + b[x] + "\n";
    return r;
}
class BreakAndJoin : public testing::TestWithParam<std::filesystem::path> {
protected:
    void tryAt(StopsDocument& document, int stop) {
        SCOPED_TRACE(GetParam().filename().string() + " at " + std::to_string(stop));
        document.setCaretPos(false, stop);
        const CaretInText before = document.state();
        const auto linesBefore = linesOf(document, before.text);
        document.insertBreak(BreakType::Hard, false);
        const CaretInText after = document.state();
        if (after.text == before.text)
            return;
        EXPECT_EQ(xmlError(after.text), "");
        EXPECT_TRUE(document.canHoldCaret(after.caret)) << after.caret;
        document.undo();
        EXPECT_EQ(document.state(), before);
        document.redo();
        EXPECT_EQ(document.state(), after);
        const auto linesAfter = linesOf(document, after.text);
        EXPECT_EQ(joined(linesAfter), joined(linesBefore));
        const auto around = [&](const Core::String& text, int at) {
            const int s = std::max(0, at - 60);
            return Core::Encoder::toDisplayText(Core::String(XmlScan::slice(text.view(), s, at))) +
                   "|" +
                   Core::Encoder::toDisplayText(Core::String(
                       XmlScan::slice(text.view(), at, std::min(text.length(), at + 60))));
        };
        if (linesAfter.size() != linesBefore.size() + 1)
            printf("LINES %zu %zu @%d\n   [%s]\n   [%s]\n", linesBefore.size(), linesAfter.size(),
                   stop, flat(around(before.text, before.caret)).c_str(),
                   flat(around(after.text, after.caret)).c_str());
        document.erase(false, false);
        const CaretInText rejoined = document.state();
        if (linesOf(document, rejoined.text) != linesBefore)
            printf("JOIN @%d\n   [%s]\n   [%s]\n   [%s]\n", stop,
                   flat(around(before.text, before.caret)).c_str(),
                   flat(around(after.text, after.caret)).c_str(),
                   flat(around(rejoined.text, rejoined.caret)).c_str());
        if (linesOf(document, rejoined.text) != linesBefore) printf("%s", diff(linesBefore, linesOf(document, rejoined.text)).c_str());
        while (document.state().text != before.text && document.canUndo())
            document.undo();
    }
};

TEST_P(BreakAndJoin, ReadsTheSame) {
    StopsDocument document(GetParam());
    document.fromEachStop(stopsPerDocument, [&](int stop) { tryAt(document, stop); });
}

INSTANTIATE_TEST_SUITE_P(Documents, BreakAndJoin, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

} // namespace

// What a reader sees as one character, taken as one by the keys; words and sentences in all
// scripts.

#include "support/MarkedDocument.h"

#include <forme-unicode/IcuSegmenter.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

using Core::String;

namespace {

class Page : public MarkedDocument {
public:
    explicit Page(const std::wstring& marked) : MarkedDocument(marked) {
        face().setTextSegmenter(new IcuSegmenter);
        face().setClusterSteps(true);
    }
};

/// Clusters that stand side by side, each as code points.
using Case = std::vector<std::vector<wchar_t>>;

/// What people write, for where Unicode's own tests are not installed.
const Case everyday{{L'a'},
                    {L'e', 0x301},
                    {0x1100, 0x1161, 0x11A8},
                    {0xAC00, 0x11A8},
                    {0x1F468, 0x200D, 0x1F469, 0x200D, 0x1F467},
                    {0x1F44D, 0x1F3FD},
                    {0x1F1E9, 0x1F1EA},
                    {0x1F1EB, 0x1F1F7},
                    {L'1', 0xFE0F, 0x20E3},
                    {0x915, 0x94D},
                    {0xE01, 0xE33}};

/// A line of GraphemeBreakTest.txt, as "÷ 0020 × 0308 ÷ 0020 ÷ # ...".
Case parsed(const std::string& line) {
    Case clusters;
    std::istringstream words(line.substr(0, line.find('#')));
    for (std::string word; words >> word;)
        if (word == "÷")
            clusters.emplace_back();
        else if (word != "×")
            clusters.back().push_back(static_cast<wchar_t>(std::stoul(word, nullptr, 16)));
    clusters.pop_back();
    return clusters;
}

std::vector<Case> everyCase() {
    std::vector<Case> cases{everyday};
    std::ifstream file("/usr/share/unicode/auxiliary/GraphemeBreakTest.txt");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("÷"))
            cases.push_back(parsed(line));
    return cases;
}

/// What stands in the text of a block: control characters cannot, and white space may not show.
bool canStandInText(const Case& clusters) {
    for (const auto& cluster : clusters)
        for (const wchar_t point : cluster)
            if (point < 0x20 || (point >= 0xD800 && point <= 0xDFFF) || String::isSpace(point))
                return false;
    return true;
}

std::wstring written(const std::vector<wchar_t>& cluster) {
    return std::wstring(String(std::wstring(cluster.begin(), cluster.end()).c_str()).view());
}

} // namespace

/// Right and left, Delete and Backspace pass clusters and nothing less, as characters and as
/// references, which is the same to a reader.
TEST(ClusterSteps, AreThoseOfUnicodesTests) {
    for (const Case& clusters : everyCase()) {
        if (!canStandInText(clusters))
            continue;
        std::vector<std::wstring> parts;
        for (const auto& cluster : clusters)
            parts.push_back(written(cluster));
        std::wstring text;
        std::vector<int> boundaries;
        for (const std::wstring& part : parts) {
            boundaries.push_back(static_cast<int>(text.size()));
            text += part;
        }
        Page page(L"<B>|" + text + L"</B>");
        const int start = page.caret();
        for (const int boundary : boundaries) {
            EXPECT_EQ(page.caret() - start, boundary) << testing::PrintToString(text);
            page->moveCaretRight(false, false, true);
        }
        EXPECT_EQ(page.caret() - start, static_cast<int>(text.size()));
        for (auto boundary = boundaries.rbegin(); boundary != boundaries.rend(); ++boundary) {
            page->moveCaretLeft(false, false, true);
            EXPECT_EQ(page.caret() - start, *boundary) << testing::PrintToString(text);
        }
        page->moveCaretToEnd(false);
        for (auto boundary = boundaries.rbegin(); *boundary > 0; ++boundary) {
            page->erase(false, false);
            EXPECT_EQ(page.marked(),
                      L"<B>" + text.substr(0, static_cast<std::size_t>(*boundary)) + L"|</B>");
        }
    }
}

TEST(ClusterSteps, AreTakenInMarkupAndUndoneAsOne) {
    Page page(L"<B>a|e<I>&#x301;x</I>\x05D0&#x1F468;&#x200D;&#x1F469;z</B>");
    const EditorState before = stateOf(page.face());
    page->moveCaretRight(false, false, true);
    EXPECT_EQ(page.marked(), L"<B>ae<I>&#x301;|x</I>\x05D0&#x1F468;&#x200D;&#x1F469;z</B>");
    page->moveCaretLeft(true, false, true);
    EXPECT_EQ(page.marked(), L"<B>a|e<I>&#x301;^x</I>\x05D0&#x1F468;&#x200D;&#x1F469;z</B>");
    page->resetSelection();
    page->erase(true, false);
    EXPECT_EQ(page.marked(), L"<B>a|<I>x</I>\x05D0&#x1F468;&#x200D;&#x1F469;z</B>");
    page->undo();
    EXPECT_EQ(stateOf(page.face()), before);
    page->setClusterSteps(false);
    page->moveCaretRight(false, false, true);
    EXPECT_EQ(page.caret(), before.caret + 1);
}

TEST(ClusterSteps, KnowWordsAndSentencesOfAllScripts) {
    Page page(L"<B>Is it so? \x201CIt isn\x2019t,\x201D he said. Mr. <I>Sm</I>ith&#x27;s "
              L"cake.</B>|<B>\x0E2A\x0E27\x0E31\x0E2A\x0E14\x0E35\x0E04\x0E38\x0E13</B>");
    const auto around = [&](TextUnit unit, const wchar_t* what) {
        const auto range = page->getRangeAround(unit, page.find(what));
        return range ? inShort(std::wstring(page.text().view(range->start, range->end))) : L"";
    };
    EXPECT_EQ(around(TextUnit::Word, L"n\x2019t"), L"isn\x2019t");
    EXPECT_EQ(around(TextUnit::Word, L"m</I>"), L"Sm</I>ith&#x27;s");
    EXPECT_EQ(around(TextUnit::Word, L" it"), L"Is");
    EXPECT_EQ(around(TextUnit::Word, L"\x201CIt"), L"");
    EXPECT_EQ(around(TextUnit::Word, L"\x0E38"), L"\x0E04\x0E38\x0E13");
    EXPECT_EQ(around(TextUnit::Sentence, L"it so"), L"Is it so?");
    EXPECT_EQ(around(TextUnit::Sentence, L"t,"), L"\x201CIt isn\x2019t,\x201D he said.");
}

// A key reads and copies as much of a book as of a letter. What the stores do is counted, not
// timed.

#include "document/EditableDocumentBuffer.h"
#include "properties/RandomCommands.h"
#include "support/MarkedDocument.h"
#include "text/store/StoreWork.h"
#include "text/store/TextChunk.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t chunk = TextChunk::most;

/// Paragraphs that are a chunk each when they are loaded, so that places in them differ in nothing
/// but in how much is around.
std::wstring documentOf(std::size_t units) {
    const auto filled = [](std::wstring begin, const std::wstring& end) {
        while (begin.size() + end.size() < chunk)
            begin += begin.size() % 7 == 0 ? L' ' : L'x';
        return begin + end;
    };
    const std::wstring paragraph =
        filled(L"<fo:block>a &amp; b <fo:inline>c</fo:inline> ", L"</fo:block>");
    std::wstring text = MarkedDocument::documentWith(L"|");
    const std::wstring end = text.substr(text.find(L'|') + 1);
    text.erase(text.find(L'|'));
    text.insert(text.find(L"\n<fo:layout"), (chunk - text.size() % chunk) % chunk, L' ');
    for (std::size_t count = units / chunk + 2; count > 0; --count)
        text += paragraph;
    return text + end;
}

/// What each of some keys in the middle of a document asks of the store.
std::vector<std::pair<std::string, StoreWork>> costsIn(const std::wstring& text) {
    const MarkedDocument document;
    document->setContent(Core::String(text), true);
    const int paragraph = document.text().find(L"<fo:block>", static_cast<int>(text.size()) / 2);
    const std::vector<std::pair<std::string, std::function<void()>>> keys{
        {"caret", [&] { document->setCaretPos(false, paragraph + chunk / 2); }},
        {"character", [&] { document->insertText(L"y", false, false); }},
        {"character in a run", [&] { document->insertText(L"z", false, false); }},
        {"Backspace", [&] { document->erase(false, false); }},
        {"left", [&] { document->moveCaretLeft(false, false, false); }},
        {"right", [&] { document->moveCaretRight(false, false, false); }},
        {"Enter", [&] { document->insertBreak(BreakType::Hard, false); }},
        {"undo", [&] { document->undo(); }}};
    std::vector<std::pair<std::string, StoreWork>> costs;
    for (int round = 0; round < 3; ++round) {
        costs.clear(); // what is found once after loading is no key's
        for (const auto& [name, press] : keys) {
            const StoreWork before = StoreWork::ofThisThread();
            const unsigned version = document.text().version();
            press();
            const StoreWork& now = StoreWork::ofThisThread();
            costs.emplace_back(name, StoreWork{now.units - before.units, now.chunks - before.chunks,
                                               now.nodes - before.nodes});
            EXPECT_EQ(version != document.text().version(),
                      name != "caret" && name != "left" && name != "right");
        }
        while (document->canUndo())
            document->undo();
        EXPECT_TRUE(document.text().content() == Core::String(text));
    }
    return costs;
}

} // namespace

TEST(Keys, ReadAndCopyAsMuchOfABookAsOfALetter) {
    const std::size_t large = setting("FORME_LARGE_TEXT", 10'000'000);
    const auto inLetter = costsIn(documentOf(10'000));
    const auto inBook = costsIn(documentOf(large));
    for (std::size_t key = 0; key < inLetter.size(); ++key) {
        const auto& [name, few] = inLetter[key];
        const StoreWork& many = inBook[key].second;
        SCOPED_TRACE(name);
        EXPECT_EQ(many.units, few.units);
        EXPECT_EQ(many.chunks, few.chunks);
        EXPECT_LE(many.nodes, 3 * few.nodes); // as many times as one tree is higher
    }
}

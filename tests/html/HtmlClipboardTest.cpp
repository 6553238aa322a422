// HTML that is pasted, and what is selected as HTML.

#include "document/caret/Stops.h"
#include "properties/RandomCommands.h"
#include "scenarios/Scenario.h"
#include "support/Documents.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <forme-html/Html5Parser.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

using Core::Encoder;
using Core::String;

namespace {

class Page : public MarkedDocument {
public:
    explicit Page(const std::wstring& marked = L"<B>|_</B>") : MarkedDocument(marked) {
        face().setHtmlParser(new Html5Parser);
    }

    bool paste(const std::string& html) {
        return face().pasteHtml(Encoder::convertUTF8ToString(html));
    }
    void selectAll() {
        face().moveCaretHome(false);
        face().moveCaretToEnd(true);
    }
    String html() {
        selectAll();
        return face().getSelectionAsHtml();
    }
};

std::filesystem::path pastesFolder() {
    return scenariosFolder().parent_path() / "html" / "pastes";
}

std::vector<std::filesystem::path> pastes() {
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(pastesFolder()))
        if (entry.path().extension() == ".html")
            found.push_back(entry.path());
    return found;
}

} // namespace

TEST(HtmlClipboard, BehavesAsItsScenariosTell) {
    const std::filesystem::path file = pastesFolder().parent_path() / "html.scn";
    for (const Scenario& scenario : readScenarios(file.string()))
        EXPECT_EQ(runScenario(scenario), "");
}

TEST(HtmlClipboard, ReadsWhatProgramsGiveAndWritesItCleanly) {
    for (const std::filesystem::path& paste : pastes()) {
        Page page;
        EXPECT_TRUE(page.paste(bytesOf(paste))) << paste;
        std::string written = Encoder::toDisplayText(page.html()) + "\n";
        EXPECT_EQ(written, bytesOf(std::filesystem::path(paste).replace_extension("clean")));
        EXPECT_EQ(xmlError(page.text().content()), "") << paste;
    }
}

class HtmlRoundTrip : public testing::TestWithParam<std::filesystem::path> {};

/// What is copied as HTML and pasted is the same when it is copied again.
TEST_P(HtmlRoundTrip, KeepsWhatItHolds) {
    Page original;
    original->setContent(textOf(GetParam()), true);
    const XmlText& text = original.text();
    for (int flow = text.nextNamed(0, L"fo:flow"); flow >= 0;
         flow = text.nextNamed(flow, L"fo:flow")) {
        original.document().select(Stops::next(original, flow),
                                   Stops::previous(original, text.closingTag(flow)));
        String copied = original->getSelectionAsHtml();
        copied.replaceAll(L"</tbody><tbody>", L""); // a table has one body here
        const std::string html = Encoder::toDisplayText(copied);
        // A flow that shows no text; and lines whose blanks are kept come back as lines with
        // breaks.
        if (html.empty() || html.find("<pre>") != html.npos)
            continue;
        Page copy;
        ASSERT_TRUE(copy.paste(html)) << html;
        EXPECT_EQ(Encoder::toDisplayText(copy.html()), html);
    }
}

INSTANTIATE_TEST_SUITE_P(OfDocuments, HtmlRoundTrip, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

/// However it is torn, the document stays well formed and undo brings it back.
TEST(HtmlClipboard, TornHtmlBreaksNoDocument) {
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    std::vector<std::wstring> texts;
    for (const std::filesystem::path& paste : pastes())
        texts.push_back(wide(Encoder::convertUTF8ToString(bytesOf(paste))));
    const std::wstring places[] = {L"<B>o|ne</B>",
                                   L"<B>^one</B><T><D><R><C><B>c|d</B></C></R></D></T>",
                                   L"<B>x<I>y|z</I></B>"};
    for (std::size_t round = 0; round < setting("FORME_HTML_ROUNDS", 150); ++round) {
        Page page(random.oneOf(places));
        const EditorState before = stateOf(page.face());
        std::wstring html = random.oneOf(texts);
        for (std::size_t tears = 1 + random.below(12); tears > 0; --tears) {
            const std::size_t at = random.below(html.size());
            const std::size_t length = std::min(random.below(60), html.size() - at);
            html.insert(random.below(html.size()), html.substr(at, length));
            html.erase(random.below(html.size()), random.below(60));
        }
        if (!page->pasteHtml(String(html)))
            continue;
        ASSERT_EQ(xmlError(page.text().content()), "") << Encoder::toDisplayText(String(html));
        page.selectAll();
        page->getSelectionAsText();
        page.face().resetSelection();
        page.face().undo();
        ASSERT_EQ(stateOf(page.face()), before) << Encoder::toDisplayText(String(html));
    }
}

TEST(HtmlClipboard, RefusesWhatIsMadeToDoHarm) {
    const auto times = [](std::size_t count, const std::string& text) {
        std::string all;
        while (count-- > 0)
            all += text;
        return all;
    };
    std::string distinct;
    for (int i = 0; i < 400; ++i)
        distinct += "<b id=" + std::to_string(i) + ">";
    for (const std::string& html :
         {times(20000, "<div>"), times(20000, "<dd><li>"),
          "<p " + times(20000, "a") + times(5000, " x y") + ">",
          "<p>" + distinct + times(5000, "<p>x"), "<!-->" + times(20000, "<div>"),
          "<svg><style>" + times(20000, "<div>")}) {
        Page page;
        EXPECT_THROW(page.paste(html), Core::Exception) << html.substr(0, 40);
        EXPECT_EQ(page.marked(), L"<B>|_</B>");
    }
    Page page; // long, but not deep
    EXPECT_TRUE(page.paste("<ul>" + times(5000, "<li>x<p>y") + "</ul>"));
    EXPECT_TRUE(page.paste("<table>" + times(500, "<tr><td colspan=9>x<td>y") + "</table>"));
}

// What the terminal editor shows, followed by ranges and laid out from scratch.

#include "terminal/Layout.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

namespace {

constexpr int width = 40;
constexpr int margin = 12;

/// What does not hold of a layout that has followed its document: nothing if all does.
std::string broken(const Layout& layout, const EditableDocumentBuffer& document) {
    int at = layout.paragraphs().front().start;
    for (const Paragraph& each : layout.paragraphs()) {
        if (each != Typesetter(document, width).run(at))
            return "the paragraph at " + std::to_string(at) + " is not as laid out anew";
        at = each.end;
    }
    const int row = layout.rowOf(document.getCaretPos());
    if (row < margin && layout.paragraphs().front().start > document.getFirstPageGeneratorPos())
        return "rows are missing above";
    if (layout.rowCount() - row <= margin && !document.getDrawn(at, 1).empty())
        return "rows are missing below";
    return {};
}

std::string failureOf(const std::filesystem::path& path, Random& random) {
    Session session;
    session.open(Core::Encoder::convertUTF8ToString(path.string()));
    Layout layout(session.document());
    for (int i = 0; i < 30; ++i) {
        layout.update(margin, width);
        const std::string command = randomCommand(random, session.document(), everyCommand());
        session.serveLine(command);
        layout.update(margin, width);
        if (const std::string found = broken(layout, session.document()); !found.empty())
            return path.string() + ": " + found + " after " + command;
    }
    return {};
}

} // namespace

TEST(TerminalLayout, FollowsAnyCommand) {
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    for (const auto& entry : std::filesystem::directory_iterator(samplesFolder()))
        if (entry.path().extension() == ".xml") {
            EXPECT_EQ(failureOf(entry.path(), random), "");
        }
}

TEST(TerminalLayout, LaysOutOneParagraphForAKeyInABook) {
    std::wstring text = L"<qfd:document><fo:page-sequence><fo:flow>";
    for (int i = 0; i < 20000; ++i)
        text += L"<fo:block>A line of a book, as long as others</fo:block>\n";
    Session session;
    EditableDocumentBuffer& document = session.document();
    document.setContent((text + L"</fo:flow></fo:page-sequence></qfd:document>").c_str(), true);
    document.setCaretPos(false, document.getContent().find(L"book", 600000));
    Layout layout(document);
    const auto laidOutBy = [&](auto command) {
        const int before = layout.laidOut();
        command();
        layout.update(margin, width);
        EXPECT_EQ(broken(layout, document), "");
        return layout.laidOut() - before;
    };
    EXPECT_LT(laidOutBy([] {}), 4 * margin);
    EXPECT_EQ(laidOutBy([&] { document.insertText(L"x", false, false); }), 1);
    EXPECT_EQ(laidOutBy([&] { document.insertBreak(BreakType::Hard, false); }), 2);
    EXPECT_EQ(laidOutBy([&] { document.moveCaretRight(false, false, true); }), 0);
}

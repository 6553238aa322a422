// What the terminal editor shows, followed by ranges and laid out from scratch.

#include "terminal/Layout.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

namespace {

constexpr int width = 40;

/// Whether a layout that has followed its document is as one from scratch.
bool isUpToDate(Layout& layout, const EditableDocumentBuffer& document) {
    Layout anew(document);
    anew.update(width);
    layout.update(width);
    return layout.lines() == anew.lines();
}

std::string failureOf(const std::filesystem::path& path, Random& random, std::size_t count) {
    Session session;
    session.open(Core::Encoder::convertUTF8ToString(path.string()));
    Layout layout(session.document());
    for (; count > 0; --count) {
        layout.update(width);
        const std::string command = randomCommand(random, session.document(), everyCommand());
        session.serveLine(command);
        if (!isUpToDate(layout, session.document()))
            return path.string() + " is not as laid out anew after " + command;
    }
    return {};
}

} // namespace

TEST(TerminalLayout, FollowsAnyCommand) {
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    const std::size_t count = setting("FORME_RANDOM_COMMANDS", 300) / 30;
    for (const auto& entry : std::filesystem::directory_iterator(samplesFolder()))
        if (entry.path().extension() == ".xml") {
            EXPECT_EQ(failureOf(entry.path(), random, count), "");
        }
}

TEST(TerminalLayout, LaysOutWhatAKeyTouchesInABook) {
    std::wstring line;
    for (int i = 0; i < 11; ++i)
        line += L"A line of a book, as long as others. ";
    std::wstring text = L"<qfd:document><fo:page-sequence><fo:flow>";
    for (int i = 0; i < 2500; ++i)
        text += L"<fo:block>" + line + L"</fo:block>\n";
    Session session;
    EditableDocumentBuffer& document = session.document();
    document.setContent((text + L"</fo:flow></fo:page-sequence></qfd:document>").c_str(), true);
    document.setCaretPos(false, document.getContent().find(L"book", 600000));
    Layout layout(document);
    const auto laidOutBy = [&](auto command) {
        command();
        const int before = layout.laidOut();
        layout.update(width);
        return layout.laidOut() - before;
    };
    EXPECT_EQ(laidOutBy([] {}), 2501); // the last is of closing tags alone
    EXPECT_EQ(laidOutBy([&] { document.insertText(L"x", false, false); }), 3);
    EXPECT_EQ(laidOutBy([&] { document.insertBreak(BreakType::Hard, false); }), 4);
    EXPECT_EQ(laidOutBy([&] { document.erase(false, false); }), 3);
    EXPECT_EQ(laidOutBy([&] { document.moveCaretRight(false, false, true); }), 0);
}

#include "document/Attributes.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

namespace {

/// The value that the root refers to; empty without one.
std::wstring stored(const MarkedDocument& buffer) {
    return wide(Attributes::of(buffer, buffer.text().root()).getPropertyValue(L"qf:initial-pos"));
}

} // namespace

TEST(InitialPosition, IsSavedInOneStepFoundAgainAndForgottenInOneStep) {
    MarkedDocument buffer(L"<B>one</B><B>two</B><B>th|ree</B>");
    const std::wstring before = buffer.content();
    buffer->saveInitialPosition(true);
    EXPECT_EQ(buffer.heard(), "bc");
    const std::wstring id = stored(buffer);
    EXPECT_EQ(id.size(), 22U);
    EXPECT_EQ(buffer.marked(), L"<B>one</B><B>two</B><B id=\"" + id + L"\">th|ree</B>");
    const std::wstring saved = buffer.content();
    buffer->saveInitialPosition(true);
    EXPECT_EQ(buffer.content(), saved) << "an id that stands is kept";
    buffer->undo();
    buffer->undo();
    EXPECT_EQ(buffer.content(), before);
    EXPECT_FALSE(buffer->canUndo());

    buffer->setContent(Core::String(saved), true);
    buffer.heard();
    buffer->loadInitialPosition();
    EXPECT_EQ(buffer.heard(), "c");
    const std::wstring loaded = buffer.marked();
    EXPECT_EQ(loaded, L"<B>one</B><B>two</B><B id=\"" + id + L"\">|three</B>");

    buffer->saveInitialPosition(false);
    EXPECT_EQ(stored(buffer), L"");
    EXPECT_EQ(buffer.marked(), loaded);
    buffer->undo();
    EXPECT_EQ(buffer.content(), saved);
    EXPECT_FALSE(buffer->canUndo());
}

TEST(InitialPosition, NothingToLoadOrToForgetLeavesEverything) {
    for (const wchar_t* root : {L"", L" qf:initial-pos=\"nowhere\""}) {
        MarkedDocument buffer;
        std::wstring text = MarkedDocument::documentWith(L"<B>x</B><B/>");
        text.insert(text.find(L"<qfd:document") + 13, root);
        buffer->setContent(Core::String(text), true);
        const std::wstring before = buffer.marked();
        buffer.heard();
        buffer->loadInitialPosition();
        EXPECT_EQ(buffer.marked(), before);
        EXPECT_EQ(buffer.heard(), "");
        buffer->saveInitialPosition(false);
        EXPECT_EQ(buffer->canUndo(), *root != 0);
    }
}

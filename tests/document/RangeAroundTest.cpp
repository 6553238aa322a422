// Words, sentences and paragraphs around a place, by the document's own rules.

#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

std::wstring around(const std::wstring& marked, TextUnit unit) {
    const MarkedDocument page(marked);
    const auto range = page->getRangeAround(unit, page.caret());
    return range ? inShort(std::wstring(page.text().view(range->start, range->end))) : L"(none)";
}

} // namespace

TEST(RangeAround, HoldsTheWordTheSentenceAndTheParagraph) {
    const std::tuple<TextUnit, std::wstring, std::wstring> cases[] = {
        {TextUnit::Word, L"<B>one tw|o three</B>", L"two"},
        {TextUnit::Word, L"<B>one |two three</B>", L"two"},
        {TextUnit::Word, L"<B>one two| three</B>", L"two"},
        {TextUnit::Word, L"<B>one, |</B>", L"(none)"},
        {TextUnit::Word, L"<B>it is|n't</B>", L"isn't"},
        {TextUnit::Word, L"<B>one<I>tw|o</I>_</B>", L"one<I>two"},
        {TextUnit::Word, L"<B>one<B/>tw|o</B><B>three</B>", L"two"},
        {TextUnit::Character, L"<B>a|&amp;b</B>", L"&amp;"},
        {TextUnit::Character, L"<B>a\xD83D\xDE00|</B>", L"\xD83D\xDE00"},
        {TextUnit::Sentence, L"<B>One! \"Tw|o.\" Three</B>", L"\"Two.\""},
        {TextUnit::Sentence, L"<B>One! Two 3.5 <I>a</I>|.  </B><B>x</B>", L"Two 3.5 <I>a</I>."},
        {TextUnit::Paragraph, L"<B>a</B><B>One. <I>T|wo</I><B/>x</B>", L"One. <I>Two</I><B/>x"}};
    for (const auto& [unit, marked, expected] : cases)
        EXPECT_EQ(around(marked, unit), expected) << testing::PrintToString(marked);
    const MarkedDocument page(L"<B>a|</B>");
    EXPECT_FALSE(page->getRangeAround(TextUnit::Word, -1));
    EXPECT_FALSE(page->getRangeAround(TextUnit::Paragraph, 0));
}

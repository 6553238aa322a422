// Where the caret can stand: text, tags, white space and placeholders.

#include "CaretTesting.h"

namespace {

TEST(CaretStops, textAndTheEndOfABlock) {
    expectStops(L"<B>|a|b|</B>");
    expectStops(L"<B>|a|&amp;|;|b|</B><B>|c|</B>");
}

TEST(CaretStops, theEdgesOfAnInline) {
    expectStops(L"<B>|a|<I>|b|</I>|c|</B>");
    expectStops(L"<B><I>|b|</I></B>");
    expectStops(L"<B><I><I>|b|</I></I></B>");
    expectStops(L"<B>|<L>|b|</L>|</B>"); // a link keeps its own
}

TEST(CaretStops, aPlaceholderHasOneStop) {
    expectStops(L"<B>|_</B><B>|_</B>");
    expectStops(L"<B>|\x00A0</B><B>|\x00A0</B>");
    expectStops(L"<B>\n  |_</B>");
    expectStops(L"<B>|a|_|</B>"); // not all that the block shows
    expectStops(L"<B>|a|<I>|_|</I>|b|</B>");
    expectStops(L"<B>|_|_|</B>");
    expectStops(L"<B>|a|<B/>|_|<I>|b|</I></B>");
}

TEST(CaretStops, aBlockWithNothingHasNone) {
    expectStops(L"<B></B><B>  \n</B><B/><B>|a|</B>");
}

TEST(CaretStops, aSoftBreak) {
    expectStops(L"<B>|a|<B/>|b|</B>");
    expectStops(L"<B>|a|<B/>  |b|</B>");
}

TEST(CaretStops, blocksInABlock) {
    expectStops(L"<B>|a|<B>|b|</B>|c|</B>");
    expectStops(L"<B>\n <B>|a|</B>\n <B>|b|</B>\n</B>");
}

TEST(CaretStops, whiteSpaceAtTheEdgesOfABlockIsPassed) {
    expectStops(L"<B> \n |a|b  |</B>");
    expectStops(L"\n\t<B>|a|</B>\n\t<B>|b|</B>\n");
}

TEST(CaretStops, aRunOfBlanksIsOneStop) {
    expectStops(L"<B>|a|   |b|</B>");
    expectStops(L"<B>|a| \n |b|</B>");
}

TEST(CaretStops, blanksAtTheEdgesOfAnInline) {
    expectStops(L"<B>|a|<I>|  |b|</I>|c|</B>");
    expectStops(L"<B>|a|<I>|b|  |</I>|c|</B>");
    expectStops(L"<B><I>  |b|</I>|c|</B>"); // the line begins there
    expectStops(L"<B> <I>|b|</I>|c|</B>");
    expectStops(L"<B>|a|<I>|b|</I> |</B>");
    expectStops(L"<B>|a| |<?p?>|b|</B>");
}

TEST(CaretStops, blanksBehindAnInstructionAtTheStartOfABlock) {
    expectStops(L"<B>|<?p?>| <I>|a|</I></B>");
    expectStops(L"<B>|<?p?>| | |a|</B>");
}

TEST(CaretStops, preKeepsEveryBlankAndLine) {
    expectStops(L"<B white-space=\"pre\">|a| | | |b|\n|\n|c|</B>");
    expectStops(L"<B fo:white-space=\"PRE\">|a|<I>| | |b|</I></B>");
}

TEST(CaretStops, theNearestPropertyWins) {
    const std::wstring pre = L"<B white-space=\"pre\">";
    expectStops(pre + L"<B white-space=\"normal\">|a|  |b|</B></B>");
    expectStops(pre + L"<B white-space-collapse=\"true\" linefeed-treatment=\"treat-as-space\">"
                      L"|a|  |b|</B></B>");
    expectStops(pre + L"<B fo:white-space-collapse=\"TRUE\">|a|  |b|\n|c|</B></B>");
    expectStops(L"<B linefeed-treatment=\"ignore\">|a\n|b|</B>");
    expectStops(L"<B white-space-treatment=\"ignore\">|a |b|</B>");
}

TEST(CaretStops, aWalkAsksForThePropertiesOfEachElementItEnters) {
    expectStops(L"<B> <B white-space=\"pre\">| |a|</B></B>");
}

TEST(CaretStops, aroundATable) {
    const std::wstring table = L"<T><D><R><C><B>|x|</B></C></R></D></T>";
    expectStops(L"<B>|a|</B>|" + table + L"|<B>|b|</B>");
    expectStops(L"<B>|a|</B>|" + table + L"\n<B>|b|</B>");
    expectStops(L"<B>|a|" + table + L"\n</B>");
    expectStops(L"<B>|a|" + table + L"  |b|</B>");
}

TEST(CaretStops, aListLabelIsClosed) {
    expectStops(L"<fo:list-block><fo:list-item>"
                L"<fo:list-item-label><B>1)</B></fo:list-item-label>"
                L"<fo:list-item-body><B>|a|</B></fo:list-item-body>"
                L"</fo:list-item></fo:list-block>");
}

TEST(CaretStops, otherElementsInABlockStandForThemselves) {
    expectStops(L"<B>|a|<fo:external-graphic src=\"x\"/>|b|</B>");
    expectStops(L"<B>|<fo:external-graphic src=\"x\"/>|</B>");
    expectStops(L"<B>|a|<x:y>not editable</x:y>|b|</B>");
}

TEST(CaretStops, theWalkLeftPassesScriptWithWhatStandsBeforeIt) {
    expectStops(L"<B>|a|<qfd:inline-xslt>if <B>x</B></qfd:inline-xslt>|b|</B>",
                L"<B>|a<qfd:inline-xslt>if <B>x</B></qfd:inline-xslt>|b|</B>");
}

TEST(CaretStops, whatOnlyLooksLikeTheEndOfMarkupIsText) {
    expectStops(L"<B>|a|>|b|-|-|>|<I>|c|?|>|d|</I>|e|</B>");
    expectStops(L"<B>|a|<?p it's > <?b ?>|b|</B>");
    expectStops(L"<B>|a|<!-->-->|b|</B>", L"<B>a<!-->-->|b|</B>");
    expectStops(L"<B>|a|<![CDATA[x < 'y']]>| |>|b|</B>", L"<B>a<![CDATA[x < 'y']]>| |>|b|</B>");
}

TEST(CaretStops, aSurrogatePairIsOneCharacter) {
    expectStops(L"<B>|a|\xD83D\xDE00|\xD83D\xDE01|b|</B>");
}

TEST(CaretStops, theWalkLeftFromBehindACommentGoesToTheTagBeforeIt) {
    expectStops(L"<B>|a|<I>|b|</I>|c|<!-- d -->|e|</B>", L"<B>|a|<I>|b|</I>c<!-- d -->|e|</B>");
}

TEST(CaretStops, theWalkRightLeavesAPlaceholderForTheEndOfItsInline) {
    expectStops(L"<B>|a|<I>|_  |</I></B>", L"<B>|a|<I>|_|  |</I></B>");
}

TEST(CaretStops, bothWalksEndAtTheirStartWhenWrapping) {
    CaretBuffer buffer;
    buffer.setContent(Core::String(TestBuffer::documentWith(expand(L"<B>ab</B><B>_</B>"))), true);
    const std::vector<int> stops = buffer.stopsRight();
    EXPECT_EQ(buffer.getNextEditablePositionInFo(stops.back(), false, false), -1);
    EXPECT_EQ(buffer.getNextEditablePositionInFo(stops.back(), true, false), stops.front());
    EXPECT_EQ(buffer.getPreviousEditablePositionInFo(stops.front(), false, false), -1);
    EXPECT_EQ(buffer.getPreviousEditablePositionInFo(stops.front(), true, false), stops.back());

    CaretBuffer empty;
    empty.setContent(Core::String(TestBuffer::documentWith(L"")), true);
    EXPECT_EQ(empty.getNextEditablePositionInFo(5, true, false), -1);
    EXPECT_EQ(empty.getPreviousEditablePositionInFo(5, true, false), -1);

    CaretBuffer single;
    single.setContent(Core::String(TestBuffer::documentWith(expand(L"<B>_</B>"))), true);
    const int only = single.stopsRight().front();
    EXPECT_EQ(single.getNextEditablePositionInFo(only, true, false), -1);
    EXPECT_EQ(single.getPreviousEditablePositionInFo(only, true, false), -1);
}

TEST(CaretStops, holdingDoesNotAskWhatShows) {
    CaretBuffer buffer = CaretBuffer::withFlow(
        L"<B>a</B>\n<B> b</B><fo:list-item-label><B>c</B></fo:list-item-label>"
        L"<qfd:xslt-global><B>d</B></qfd:xslt-global>|");
    EXPECT_FALSE(buffer.canHoldCaret(buffer.find(L"\n<fo:block>")));
    EXPECT_TRUE(buffer.canHoldCaret(buffer.find(L" b")));
    EXPECT_FALSE(buffer.canHoldCaret(buffer.find(L"c</fo:block>")));
    EXPECT_FALSE(buffer.canHoldCaret(buffer.find(L"d</fo:block>")));
    EXPECT_FALSE(buffer.canHoldCaret(-1));
    EXPECT_FALSE(buffer.canHoldCaret(buffer.length()));
}

TEST(CaretStops, skippingSpacesStopsAtTheEdgeOfTheElement) {
    CaretBuffer buffer = CaretBuffer::withFlow(L"<B>a  </B>|");
    const int end = buffer.find(L"  </fo:block>") + 1;
    int position = end;
    EXPECT_FALSE(buffer.skipSpacesBackwards(position, false));
    EXPECT_EQ(position, end - 2);
    position = end;
    EXPECT_FALSE(buffer.skipSpacesFromPos(position, false));
    EXPECT_EQ(position, end + 1);

    CaretBuffer leading = CaretBuffer::withFlow(L"<B>\n <B>a</B></B>|");
    const int start = leading.find(L"\n <fo:block>");
    position = start + 1;
    EXPECT_TRUE(leading.skipSpacesBackwards(position, false));
    EXPECT_EQ(position, start);
    position = start;
    EXPECT_TRUE(leading.skipSpacesFromPos(position, false));
    EXPECT_EQ(position, start + 2);
    position = start;
    EXPECT_TRUE(leading.skipSpacesFromPos(position, true));
    EXPECT_EQ(position, leading.find(L"a</fo:block>"));
}

TEST(CaretStops, anElementWithNothingToShow) {
    const auto isVoid = [](const std::wstring& brief) {
        CaretBuffer buffer = CaretBuffer::withFlow(brief + L"|");
        return buffer.elementContainsJustWhitespacesOrVoid(buffer.find(L"<fo:block"));
    };
    EXPECT_TRUE(isVoid(L"<B/>"));
    EXPECT_TRUE(isVoid(L"<B> \n</B>"));
    EXPECT_TRUE(isVoid(L"<B> <B/><I> <I></I></I></B>"));
    EXPECT_FALSE(isVoid(L"<B>_</B>"));
    EXPECT_FALSE(isVoid(L"<B>\x00A0</B>"));
    EXPECT_FALSE(isVoid(L"<B><I> a</I></B>"));
    EXPECT_FALSE(isVoid(L"<B><!-- --></B>"));
    EXPECT_FALSE(isVoid(L"<B><T/></B>"));
}

TEST(CaretStops, theFirstAndTheLastOfTheElement) {
    const auto isBoundary = [](const std::wstring& brief, bool forward) {
        return CaretBuffer(expand(brief)).isBoudaryEditablePosition(forward);
    };
    EXPECT_TRUE(isBoundary(L"<B>|ab</B>", false));
    EXPECT_FALSE(isBoundary(L"<B>|ab</B>", true));
    EXPECT_FALSE(isBoundary(L"<B>a|b</B>", false));
    EXPECT_FALSE(isBoundary(L"<B>a|b</B>", true));
    EXPECT_TRUE(isBoundary(L"<B>ab|</B>", true));
    EXPECT_TRUE(isBoundary(L"<B>|_</B>", false));
    EXPECT_TRUE(isBoundary(L"<B>|_</B>", true));
    EXPECT_TRUE(isBoundary(L"<B>x<I>|a</I>y</B>", true)); // two stops in all
    EXPECT_FALSE(isBoundary(L"<B>x<I>|ab</I>y</B>", true));
    EXPECT_TRUE(isBoundary(L"<B>x<I>|ab</I>y</B>", false));
}

} // namespace

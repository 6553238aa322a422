// Where the caret can stand: text, tags, white space and placeholders.

#include "document/CaretTesting.h"

#include <tuple>

namespace {

/// Checks that the walks right and left over a fragment find exactly the stops marked for each.
void expectStops(const std::wstring& right, const std::wstring& left) {
    std::wstring plain = right;
    std::erase(plain, L'|');
    const MarkedDocument buffer(plain);
    EXPECT_EQ(buffer.markedAt(stopsOf(buffer, true)), right);
    EXPECT_EQ(buffer.markedAt(stopsOf(buffer, false)), left) << "walking left";
}
void expectStops(const std::wstring& both) {
    expectStops(both, both);
}

} // namespace

TEST(CaretStops, InTextAndAtTheEdgesOfElements) {
    expectStops(L"<B>|a|&amp;|;|b|</B><B>|c|</B>");
    expectStops(L"<B>|a|\xD83D\xDE00|\xD83D\xDE01|b|</B>");
    expectStops(L"<B>|a|<I>|b|</I>|c|</B>");
    expectStops(L"<B><I><I>|b|</I></I></B>");
    expectStops(L"<B>|<L>|b|</L>|</B>"); // a link keeps its own
    expectStops(L"<B>|a|<B>|b|</B>|c|</B>");
    expectStops(L"<B>|a|<B/>|b|</B>");
    expectStops(L"<B></B><B>  \n</B><B/><B>|a|</B>");
    // Other elements stand for themselves.
    expectStops(L"<B>|a|<fo:external-graphic src=\"x\"/>|b|</B>");
    expectStops(L"<B>|<fo:external-graphic src=\"x\"/>|</B>");
    expectStops(L"<B>|a|<x:y>not editable</x:y>|b|</B>");
    // The walk left passes a script with what stands before it.
    expectStops(L"<B>|a|<qfd:inline-xslt>if <B>x</B></qfd:inline-xslt>|b|</B>",
                L"<B>|a<qfd:inline-xslt>if <B>x</B></qfd:inline-xslt>|b|</B>");
    // What only looks like the end of markup is text.
    expectStops(L"<B>|a|>|b|-|-|>|<I>|c|?|>|d|</I>|e|</B>");
    expectStops(L"<B>|a|<?p it's > <?b ?>|b|</B>");
    expectStops(L"<B>|a|<!-->-->|b|</B>", L"<B>a<!-->-->|b|</B>");
    expectStops(L"<B>|a|<![CDATA[x < 'y']]>| |>|b|</B>", L"<B>a<![CDATA[x < 'y']]>| |>|b|</B>");
    expectStops(L"<B>|a|<I>|b|</I>|c|<!-- d -->|e|</B>", L"<B>|a|<I>|b|</I>c<!-- d -->|e|</B>");
}

TEST(CaretStops, OfPlaceholders) {
    expectStops(L"<B>|_</B><B>|_</B>");
    expectStops(L"<B>|\x00A0</B><B>|\x00A0</B>");
    expectStops(L"<B>\n  |_</B>");
    expectStops(L"<B>|a|<I>|_|</I>|b|</B>");
    expectStops(L"<B>|_|_|</B>"); // not all that the block shows
    expectStops(L"<B>|a|<B/>|_|<I>|b|</I></B>");
    // The walk right leaves a placeholder for the end of its inline.
    expectStops(L"<B>|a|<I>|_  |</I></B>", L"<B>|a|<I>|_|  |</I></B>");
}

TEST(CaretStops, InWhiteSpace) {
    expectStops(L"<B>|a|<B/>  |b|</B>");
    expectStops(L"<B>\n <B>|a|</B>\n <B>|b|</B>\n</B>");
    expectStops(L"<B> \n |a|b  |</B>");
    expectStops(L"\n\t<B>|a|</B>\n\t<B>|b|</B>\n");
    expectStops(L"<B>|a|   |b| \n |c|</B>");
    expectStops(L"<B>|a|<I>|  |b|</I>|c|</B>");
    expectStops(L"<B>|a|<I>|b|  |</I>|c|</B>");
    expectStops(L"<B><I>  |b|</I>|c|</B>"); // the line begins there
    expectStops(L"<B> <I>|b|</I>|c|</B>");
    expectStops(L"<B>|a|<I>|b|</I> |</B>");
    expectStops(L"<B>|a| |<?p?>|b|</B>");
    expectStops(L"<B>|<?p?>| <I>|a|</I></B>");
    expectStops(L"<B>|<?p?>| | |a|</B>");
    // As properties tell; the nearest wins.
    const std::wstring pre = L"<B white-space=\"pre\">";
    expectStops(pre + L"|a| | | |b|\n|\n|c|</B>");
    expectStops(L"<B fo:white-space=\"pre\" white-space=\"normal\">|a| | |b|</B>");
    expectStops(L"<B fo:white-space=\"PRE\">|a|<I>| | |b|</I></B>");
    expectStops(pre + L"<B white-space=\"normal\">|a|  |b|</B></B>");
    expectStops(pre + L"<B white-space-collapse=\"true\" linefeed-treatment=\"treat-as-space\">"
                      L"|a|  |b|</B></B>");
    expectStops(pre + L"<B fo:white-space-collapse=\"TRUE\">|a|  |b|\n|c|</B></B>");
    expectStops(L"<B linefeed-treatment=\"ignore\">|a\n|b|</B>");
    expectStops(L"<B white-space-treatment=\"ignore\">|a |b|</B>");
    expectStops(L"<B> <B white-space=\"pre\">| |a|</B></B>");
    // On elements of others only a property that says whose it is counts.
    expectStops(L"<qf:form fo:white-space=\"pre\"><B>|a| | |b|</B></qf:form>");
    expectStops(L"<qf:form white-space=\"pre\"><B>|a|  |b|</B></qf:form>");
}

TEST(CaretStops, AroundTablesAndInLists) {
    const std::wstring table = L"<T><D><R><C><B>|x|</B></C></R></D></T>";
    expectStops(L"<B>|a|</B>|" + table + L"|<B>|b|</B>");
    expectStops(L"<B>|a|</B>|" + table + L"\n<B>|b|</B>");
    expectStops(L"<B>|a|" + table + L"\n</B>");
    expectStops(L"<B>|a|" + table + L"  |b|</B>");
    expectStops(L"<fo:list-block><fo:list-item><fo:list-item-label><B>1)</B></fo:list-item-label>"
                L"<fo:list-item-body><B>|a|</B></fo:list-item-body></fo:list-item>"
                L"</fo:list-block>");
}

TEST(CaretStops, BothWalksEndAtTheirStartWhenWrapping) {
    const MarkedDocument buffer(L"<B>ab</B><B>_</B>");
    const std::vector<int> stops = stopsOf(buffer, true);
    EXPECT_EQ(Stops::next(buffer, stops.back(), {.wrap = true}), stops.front());
    EXPECT_EQ(Stops::previous(buffer, stops.front(), {.wrap = true}), stops.back());
    for (const wchar_t* lone : {L"", L"<B>_</B>"}) {
        const MarkedDocument none(lone);
        const int at = *lone ? stopsOf(none, true).front() : 5;
        EXPECT_EQ(Stops::next(none, at, {.wrap = true}), -1);
        EXPECT_EQ(Stops::previous(none, at, {.wrap = true}), -1);
    }
}

TEST(CaretStops, SkippingSpacesTellsOfTheEdgeOfTheElement) {
    for (const auto& [before, backwards, cross, after, meetsAnother] :
         {std::tuple(L"<B>a | </B>", true, false, L"<B>|a  </B>", false),
          std::tuple(L"<B>a | </B>", false, false, L"<B>a  |</B>", false),
          std::tuple(L"<B> | <B>a</B></B>", true, false, L"<B>|  <B>a</B></B>", true),
          std::tuple(L"<B>|  <B>a</B></B>", false, false, L"<B>  |<B>a</B></B>", true),
          std::tuple(L"<B>|  <B>a</B></B>", false, true, L"<B>  <B>|a</B></B>", true)}) {
        const MarkedDocument buffer(before);
        int position = buffer.caret();
        EXPECT_EQ(backwards ? Stops::skipBackward(buffer, position, cross)
                            : Stops::skipForward(buffer, position, cross),
                  meetsAnother);
        EXPECT_EQ(buffer.markedAt({position}), after);
    }
}

TEST(CaretStops, TheFirstAndTheLastOfTheElement) {
    for (const auto& [brief, isFirst, isLast] :
         {std::tuple(L"<B>|ab</B>", true, false), std::tuple(L"<B>a|b</B>", false, false),
          std::tuple(L"<B>ab|</B>", false, true), std::tuple(L"<B>|_</B>", true, true),
          std::tuple(L"<B>x<I>|a</I>y</B>", true, true), // two stops in all
          std::tuple(L"<B>x<I>|ab</I>y</B>", true, false)}) {
        const MarkedDocument buffer(brief);
        EXPECT_EQ(Stops::isCaretAtEdge(buffer, false), isFirst) << brief;
        EXPECT_EQ(Stops::isCaretAtEdge(buffer, true), isLast) << brief;
    }
}

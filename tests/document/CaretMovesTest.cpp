// The caret on its way through text and tables.

#include "document/CaretTesting.h"
#include "document/caret/Moves.h"

#include <algorithm>

namespace {

constexpr auto stepRight = [](Document& document) { Moves::right(document); };
constexpr auto stepLeft = [](Document& document) { Moves::left(document); };

/// Checks where one move takes the caret, the fragment given before and after with its marks.
template <typename Move>
void expectMove(const std::wstring& before, Move move, const std::wstring& after) {
    MarkedDocument buffer(before);
    move(buffer);
    EXPECT_EQ(buffer.marked(), after) << "from " << before;
}

/// Checks that the caret goes right from each of the marks ①, ②, ③… to the next, and back.
void expectWay(const std::wstring& marked) {
    const std::wstring marks = L"①②③④⑤⑥⑦⑧⑨⑩⑪⑫";
    const auto withCaretAt = [&](wchar_t mark) {
        std::wstring text = marked;
        std::replace(text.begin(), text.end(), mark, L'|');
        std::erase_if(text, [&](wchar_t unit) { return marks.find(unit) != marks.npos; });
        return text;
    };
    for (wchar_t mark = L'①'; marked.find(mark + 1) != marked.npos; ++mark) {
        expectMove(withCaretAt(mark), stepRight, withCaretAt(mark + 1));
        expectMove(withCaretAt(mark + 1), stepLeft, withCaretAt(mark));
    }
}

} // namespace

TEST(CaretMoves, CollapseASelectionInTheirDirectionAndGiveOneNotice) {
    expectMove(L"<B>a|bc^d</B>", stepRight, L"<B>abc|d</B>");
    expectMove(L"<B>a^bc|d</B>", stepLeft, L"<B>a|bcd</B>");
    MarkedDocument buffer(L"<B>a^b|c</B>");
    for (const char* heard : {"s", "c", ""}) {
        Moves::right(buffer);
        EXPECT_EQ(buffer.heard(), heard);
    }
    Moves::left(buffer, true, false, false);
    EXPECT_EQ(buffer.heard(), "cs");
    buffer.document().moveCaret(false, -1);
    Moves::right(buffer);
    Moves::left(buffer);
    EXPECT_EQ(buffer.caret(), -1);
}

TEST(CaretMoves, PassAnObjectWhole) {
    const std::wstring field = L"<qfd:field><B>value</B></qfd:field>";
    expectMove(L"<B>a|" + field + L"b</B>", stepRight, L"<B>a" + field + L"|b</B>");
    expectWay(L"<B>a①<fo:external-graphic/>②</B>");
}

TEST(CaretMoves, MergingCountsTheEdgesOfAnInlineAsOneStop) {
    const auto right = [](Document& document) { Moves::right(document, false, false, true); };
    const auto left = [](Document& document) { Moves::left(document, false, false, true); };
    expectMove(L"<B>edi|t<I>a</I></B><B>_</B>", right, L"<B>edit|<I>a</I></B><B>_</B>");
    expectMove(L"<B>edit|<I>a</I></B><B>_</B>", right, L"<B>edit<I>a|</I></B><B>_</B>");
    expectMove(L"<B>edit<I>a|</I></B><B>_</B>", right, L"<B>edit<I>a</I></B><B>|_</B>");
    expectMove(L"<B>|_</B><B><I>bold</I> end</B>", right, L"<B>_</B><B><I>|bold</I> end</B>");
    expectMove(L"<B><I>a|</I>bc</B>", right, L"<B><I>a</I>b|c</B>");
    expectMove(L"<B>x<I>a</I>|b</B>", left, L"<B>x<I>|a</I>b</B>");
    expectMove(L"<B>xy<I>|a</I>b</B>", left, L"<B>x|y<I>a</I>b</B>");
    expectMove(L"<B><I>a|</I> </B>", right, L"<B><I>a</I> |</B>"); // there is no further stop
    expectMove(L"<B>|<L>a</L>b</B>", right, L"<B><L>|a</L>b</B>");
    expectMove(L"<B>x<L>a|</L>b</B>", right, L"<B>x<L>a</L>|b</B>");
    expectMove(L"<B>x<L>a</L>|b</B>", left, L"<B>x<L>a|</L>b</B>");
    // The inline of another block has nothing to merge with.
    expectMove(L"<B><I>a</I></B><B>|b</B>", left, L"<B><I>a|</I></B><B>b</B>");
}

// The page shows header, body and footer, and the footer stands before the body in the text.
TEST(CaretMoves, FollowThePageThroughATable) {
    expectWay(L"<B>a①</B>②<T><H><R><C><B>③h④</B></C></R></H><F><R><C><B>⑨f⑩</B></C></R></F>"
              L"<D><R><C><B>⑤d⑥</B></C><C><B>⑦e⑧</B></C></R></D></T>⑪<B>⑫z</B>");
    expectWay(L"<T><F><R><C><B>③f④</B></C></R></F><D><R><C><B>①d②</B></C></R></D></T>⑤<B>⑥z</B>");
    expectWay(L"<T><H><R><C><B>h①</B></C></R></H><D><R><C><B>②d③</B></C></R></D></T>④<B>⑤z</B>");
    // A group without a stop is passed.
    expectWay(L"①<T><F><R><C><B>②f③</B></C></R></F><D><R><C/></R></D></T>④<B>⑤z</B>");
    expectWay(L"<T><F><R><C/></R></F><D><R><C><B>d①</B></C></R></D></T>②<B>③z</B>");
    // It begins with the body where there is no header, and several bodies follow each other.
    expectWay(L"<B>y①</B>②<T><F><R><C><B>⑤f⑥</B></C></R></F><D><R><C><B>③d④</B></C></R></D></T>⑦");
    expectWay(L"①<T><H><R><C><B>②h③</B></C></R></H><F><R><C><B>⑧f⑨</B></C></R></F><D><R><C><B>④d⑤"
              L"</B></C></R></D><D><R><C><B>⑥e⑦</B></C></R></D></T>⑩<B>⑪z</B>");
    // One that opens a cell is entered at its body too, and one that ends it at its footer.
    const std::wstring nested =
        L"①<T><F><R><C><B>④f⑤</B></C></R></F><D><R><C><B>②d③</B></C></R></D>"
        L"</T> </C></R></D></T>";
    expectWay(L"<T><D><R><C>" + nested + L"⑥<B>⑦z</B>");
    expectWay(L"<T><F><R><C><B>⑥g⑦</B></C></R></F><D><R><C>" + nested + L"⑧<B>⑨z</B>");
    // A nested table is followed by the text of its cell.
    expectWay(L"<T><D><R><C><T><F><R><C><B>②f③</B></C></R></F><D><R><C><B>d①</B></C></R></D></T>④"
              L"<B>⑤z</B></C></R></D></T>");
    // Such a step does not select.
    const std::wstring rest = L"<F><R><C><B>f</B></C></R></F><D><R><C><B>";
    expectMove(
        L"<T><H><R><C><B>^h|</B></C></R></H>" + rest + L"d</B></C></R></D></T>",
        [](Document& document) { Moves::right(document, true, false, false); },
        L"<T><H><R><C><B>h</B></C></R></H>" + rest + L"|d</B></C></R></D></T>");
}

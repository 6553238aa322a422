// The caret on its way through text, tables and regions.

#include "CaretTesting.h"

namespace {

/// A document of two page sequences, the first with a header and a footer region.
std::wstring regions(const std::wstring& header, const std::wstring& footer,
                     const std::wstring& flow, const std::wstring& secondFlow = L"<B>s</B>") {
    return LR"(<qfd:document><fo:layout-master-set>
<fo:simple-page-master master-name="plain"><fo:region-body/></fo:simple-page-master>
<fo:simple-page-master master-name="letter"><fo:region-body region-name="main"/>
<fo:region-after region-name="foot"/><fo:region-before/></fo:simple-page-master>
<fo:page-sequence-master master-name="book"><fo:repeatable-page-master-reference
 master-reference="letter"/></fo:page-sequence-master></fo:layout-master-set>
<fo:page-sequence master-reference="letter"><fo:static-content flow-name="xsl-region-before">)" +
           expand(header) + L"</fo:static-content><fo:static-content flow-name=\"foot\">" +
           expand(footer) + L"</fo:static-content><fo:flow flow-name=\"main\">" + expand(flow) +
           L"</fo:flow></fo:page-sequence>\n"
           L"<qfd:page-sequence-repeat master-reference=\"book\">"
           L"<fo:static-content flow-name=\"foot\"><B/></fo:static-content>"
           L"<fo:flow flow-name=\"main\">" +
           expand(secondFlow) + L"</fo:flow></qfd:page-sequence-repeat></qfd:document>";
}

/// A buffer on such a document with the caret where a text first stands.
struct Regions : CaretBuffer {
    explicit Regions(const wchar_t* caretAt,
                     const std::wstring& text = regions(L"<B>hh</B>", L"<B>ff</B>", L"<B>mm</B>")) {
        setContent(Core::String(text), true);
        if (caretAt)
            setCaret(false, find(caretAt));
    }
    /// Where the caret stands, as the text from there on.
    std::wstring there(int count = 12) const {
        return getCaretPos() < 0 ? L"none"
                                 : text().substr(static_cast<std::size_t>(getCaretPos()),
                                                 static_cast<std::size_t>(count));
    }
};

TEST(CaretMoves, collapseASelectionInTheirDirection) {
    expectRight(L"<B>a^bc|d</B>", L"<B>abc|d</B>");
    expectRight(L"<B>a|bc^d</B>", L"<B>abc|d</B>");
    expectLeft(L"<B>a^bc|d</B>", L"<B>a|bcd</B>");
    expectMove(
        L"<B>a^b|c</B>", [](CaretBuffer& b) { b.right(true); }, L"<B>a^bc|</B>");
    expectMove(
        L"<B>a^b|c</B>", [](CaretBuffer& b) { b.left(true); }, L"<B>a|bc</B>");
}

TEST(CaretMoves, passAnObjectWhole) {
    const std::wstring field = L"<qfd:field><B>value</B></qfd:field>";
    expectRight(L"<B>a|" + field + L"b</B>", L"<B>a" + field + L"|b</B>");
    expectRight(L"<B>a|<fo:external-graphic/></B>", L"<B>a<fo:external-graphic/>|</B>");
}

TEST(CaretMoves, withoutACaretDoNothing) {
    CaretBuffer buffer = CaretBuffer::withFlow(L"<B>a</B>");
    buffer.setCaret(false, -1);
    buffer.right();
    buffer.left();
    EXPECT_EQ(buffer.getCaretPos(), -1);
}

TEST(CaretMoves, giveOneNotice) {
    CaretBuffer buffer(expand(L"<B>a^b|c</B>"));
    RecordingMonitor monitor;
    buffer.setMonitor(&monitor);
    buffer.right();
    EXPECT_EQ(monitor.take(), "s");
    buffer.right();
    EXPECT_EQ(monitor.take(), "c");
    buffer.right();
    EXPECT_EQ(monitor.take(), "");
}

// Merging the edges of inlines

const std::wstring merging = L"<B>edit<I>a</I></B><B>_</B><B>_</B><B><I>bold</I> end</B>";

TEST(CaretMoves, mergingCountsTheEdgesOfAnInlineAsOneStop) {
    CaretBuffer buffer(expand(L"<B>|" + merging.substr(3)));
    const auto right = [&] {
        buffer.moveCaretRight(false, false, true);
        return buffer.marked();
    };
    for (int move = 0; move < 3; ++move)
        right();
    EXPECT_EQ(right(), expand(L"<B>edit|<I>a</I></B><B>_</B><B>_</B><B><I>bold</I> end</B>"));
    EXPECT_EQ(right(), expand(L"<B>edit<I>a|</I></B><B>_</B><B>_</B><B><I>bold</I> end</B>"));
    EXPECT_EQ(right(), expand(L"<B>edit<I>a</I></B><B>|_</B><B>_</B><B><I>bold</I> end</B>"));
    EXPECT_EQ(right(), expand(L"<B>edit<I>a</I></B><B>_</B><B>|_</B><B><I>bold</I> end</B>"));
    EXPECT_EQ(right(), expand(L"<B>edit<I>a</I></B><B>_</B><B>_</B><B><I>|bold</I> end</B>"));
}

TEST(CaretMoves, mergingPassesOneLetterAtTheEndOfAnInline) {
    const auto right = [](CaretBuffer& b) { b.moveCaretRight(false, false, true); };
    const auto left = [](CaretBuffer& b) { b.moveCaretLeft(false, false, true); };
    expectMove(L"<B><I>a|</I>bc</B>", right, L"<B><I>a</I>b|c</B>");
    expectMove(L"<B>x<I>a</I>|b</B>", left, L"<B>x<I>|a</I>b</B>");
    expectMove(L"<B>xy<I>|a</I>b</B>", left, L"<B>x|y<I>a</I>b</B>");
    expectMove(L"<B><I>a|</I> </B>", right, L"<B><I>a</I> |</B>"); // there is no further stop
    expectMove(L"<B>x<L>a|</L>b</B>", right, L"<B>x<L>a</L>|b</B>");
    expectMove(L"<B>x<L>a</L>|b</B>", left, L"<B>x<L>a|</L>b</B>");
    // The inline of another block has nothing to merge with.
    expectMove(L"<B><I>a</I></B><B>|b</B>", left, L"<B><I>a|</I></B><B>b</B>");
}

// Tables

const std::wstring fullTable = L"<T><H><R><C><B>h</B></C></R></H><F><R><C><B>f</B></C></R></F>"
                               L"<D><R><C><B>d</B></C><C><B>e</B></C></R></D></T>";

std::wstring tableWithCaretBefore(const wchar_t* what) {
    std::wstring text = L"<B>a</B>" + fullTable + L"<B>z</B>";
    return text.insert(text.find(what), L"|");
}
/// The caret goes over the table in the order of the page: what follows what, in both directions.
void expectOrder(const wchar_t* from, const wchar_t* to) {
    expectRight(tableWithCaretBefore(from), tableWithCaretBefore(to));
}
void expectOrderBack(const wchar_t* from, const wchar_t* to) {
    expectLeft(tableWithCaretBefore(from), tableWithCaretBefore(to));
}

TEST(CaretMoves, followThePageThroughATable) {
    expectOrder(L"</B><T>", L"<T>");
    expectOrder(L"<T>", L"h</B>");
    expectOrder(L"</B></C></R></H>", L"d</B>");
    expectOrder(L"</B></C><C>", L"e</B>");
    expectOrder(L"</B></C></R></D>", L"f</B>");
    expectOrder(L"</B></C></R></F>", L"<B>z");
}

TEST(CaretMoves, followThePageBackThroughATable) {
    expectOrderBack(L"<B>z", L"</B></C></R></F>");
    expectOrderBack(L"f</B>", L"</B></C></R></D>");
    expectOrderBack(L"e</B>", L"</B></C><C>");
    expectOrderBack(L"d</B>", L"</B></C></R></H>");
    expectOrderBack(L"h</B>", L"<T>");
}

TEST(CaretMoves, inATableWithoutAFooterFollowTheText) {
    const std::wstring head = L"<T><H><R><C><B>h";
    const std::wstring middle = L"</B></C></R></H><D><R><C><B>";
    const std::wstring tail = L"</B></C></R></D></T><B>z</B>";
    expectRight(head + L"|" + middle + L"d" + tail, head + middle + L"|d" + tail);
    expectLeft(head + middle + L"|d" + tail, head + L"|" + middle + L"d" + tail);
    expectRight(head + middle + L"d|" + tail, head + middle + L"d</B></C></R></D></T>|<B>z</B>");
}

TEST(CaretMoves, atTheEndOfADocumentStillEnterTheFooter) {
    const std::wstring head = L"<T><F><R><C><B>";
    const std::wstring body = L"</B></C></R></F><D><R><C><B>d";
    const std::wstring tail = L"</B></C></R></D></T>";
    expectRight(head + L"f" + body + L"|" + tail, head + L"|f" + body + tail);
}

TEST(CaretMoves, aGroupWithoutAStopIsPassed) {
    const std::wstring footer = L"<T><F><R><C><B>f";
    const std::wstring noBody = L"</B></C></R></F><D><R><C/></R></D></T>";
    expectRight(footer + L"|" + noBody + L"<B>z</B>", footer + noBody + L"|<B>z</B>");
    const std::wstring body = L"<T><F><R><C/></R></F><D><R><C><B>d";
    const std::wstring end = L"</B></C></R></D></T>";
    expectRight(body + L"|" + end + L"<B>z</B>", body + end + L"|<B>z</B>");
    expectLeft(body + end + L"<B>|z</B>", body + end + L"|<B>z</B>");
    expectLeft(body + end + L"|<B>z</B>", body + L"|" + end + L"<B>z</B>");
    expectLeft(L"<B>a</B><T><F><R><C><B>|f" + noBody, L"<B>a</B>|<T><F><R><C><B>f" + noBody);
}

TEST(CaretMoves, aTableStepDoesNotSelect) {
    std::wstring before = L"<B>a</B>" + fullTable;
    before.insert(before.find(L"</B></C></R></H>"), L"|");
    before.insert(before.find(L"h|"), L"^");
    std::wstring after = L"<B>a</B>" + fullTable;
    after.insert(after.find(L"d</B>"), L"|");
    expectMove(
        before, [](CaretBuffer& b) { b.right(true); }, after);
}

TEST(CaretMoves, aNestedTableIsFollowedByTheTextOfItsCell) {
    std::wstring before = L"<T><D><R><C>" + fullTable + L"<B>z</B></C></R></D></T>";
    std::wstring after = before;
    before.insert(before.find(L"</B></C></R></F>"), L"|");
    after.insert(after.find(L"<B>z"), L"|");
    expectRight(before, after);
}

// Flows and static contents

TEST(CaretMoves, theCaretOfAFlowPassesStaticContents) {
    Regions buffer(L"mm");
    buffer.left();
    EXPECT_EQ(buffer.there(2), L"mm");
    buffer.right();
    buffer.right();
    buffer.right();
    EXPECT_EQ(buffer.there(1), L"s");
    buffer.left();
    EXPECT_EQ(buffer.there(), L"</fo:block><");
}

TEST(CaretMoves, theCaretOfAStaticContentStaysThere) {
    Regions buffer(L"hh");
    buffer.left();
    EXPECT_EQ(buffer.there(2), L"hh");
    for (int move = 0; move < 4; ++move)
        buffer.right();
    EXPECT_EQ(buffer.getCaretPos(), buffer.find(L"hh") + 2);
}

TEST(CaretMoves, homeIsTheStartOfTheRegionOrOfTheFlows) {
    Regions buffer(nullptr);
    EXPECT_EQ(buffer.there(2), L"mm"); // where loading puts it
    buffer.setCaret(false, buffer.find(L"ff") + 1);
    buffer.moveCaretHome(false);
    EXPECT_EQ(buffer.there(2), L"ff");
    buffer.setCaret(false, buffer.find(L"s</fo:block>"));
    buffer.moveCaretHome(false);
    EXPECT_EQ(buffer.there(2), L"mm");
}

TEST(CaretMoves, endIsTheEndOfTheRegionOrOfTheFlows) {
    Regions buffer(L"hh");
    buffer.moveCaretToEnd(true);
    EXPECT_EQ(buffer.getCaretPos(), buffer.find(L"hh") + 2);
    EXPECT_EQ(buffer.getSelectionPivotPos(), buffer.find(L"hh"));
    buffer.setCaret(false, buffer.find(L"mm"));
    buffer.moveCaretToEnd(false);
    EXPECT_EQ(buffer.getCaretPos(), buffer.find(L"s</fo:block>") + 1);
}

TEST(CaretMoves, homeAndEndPassBlocksWithNothingToShow) {
    expectMove(
        L"<B> <I> </I></B><B>ab|c</B><B/>", [](CaretBuffer& b) { b.moveCaretHome(false); },
        L"<B> <I> </I></B><B>|abc</B><B/>");
    expectMove(
        L"<B/><B>a|bc</B><B><I> </I></B>", [](CaretBuffer& b) { b.moveCaretToEnd(false); },
        L"<B/><B>abc|</B><B><I> </I></B>");
}

TEST(CaretMoves, homeWithoutTextClearsTheCaret) {
    CaretBuffer buffer = CaretBuffer::withFlow(L"<B/>|");
    buffer.moveCaretHome(false);
    EXPECT_EQ(buffer.getCaretPos(), -1);
    EXPECT_EQ(buffer.getSelectionPivotPos(), -1);
}

TEST(CaretMoves, whilePageMastersAreEditedOnlyStaticContentHolds) {
    Regions buffer(L"mm");
    buffer.setPageMasterEditingMode(true);
    buffer.moveCaretToEnd(false);
    EXPECT_EQ(buffer.there(2), L"mm");
    buffer.setCaretPos(false, buffer.find(L"hh"));
    buffer.setCaretPos(false, buffer.find(L"mm"));
    EXPECT_EQ(buffer.there(2), L"hh");
    buffer.setCaretPos(false, buffer.find(L"ff"));
    EXPECT_EQ(buffer.there(2), L"ff");
    buffer.moveCaretToEnd(false);
    EXPECT_EQ(buffer.getCaretPos(), buffer.find(L"ff") + 2);
    buffer.setEditingDummyPage(true);
    buffer.setCaretPos(false, buffer.find(L"hh"));
    EXPECT_EQ(buffer.getCaretPos(), -1);
    EXPECT_EQ(buffer.getSelectionPivotPos(), -1);
}

TEST(CaretMoves, aSelectionStaysInItsFlow) {
    Regions buffer(L"mm");
    buffer.setCaretPos(true, buffer.find(L"s</fo:block>"));
    EXPECT_EQ(buffer.there(2), L"mm");
    buffer.right();
    buffer.right();
    const int end = buffer.getCaretPos();
    buffer.right(true);
    EXPECT_EQ(buffer.getCaretPos(), end);
}

// Jumps

TEST(CaretJumps, toTheFirstFlow) {
    Regions buffer(L"hh");
    buffer.resetCaretFromStaticContent();
    EXPECT_EQ(buffer.there(2), L"mm");
    buffer.setCaret(false, buffer.find(L"s</fo:block>"));
    buffer.resetCaretFromStaticContent();
    EXPECT_EQ(buffer.there(1), L"s");
    buffer.moveCaretToFirstFoFlow();
    EXPECT_EQ(buffer.there(2), L"mm");
    Regions none(L"hh", regions(L"<B>hh</B>", L"", L"<B/>", L""));
    none.moveCaretToFirstFoFlow();
    EXPECT_EQ(none.there(), L"none");
}

TEST(CaretJumps, toAPageSequence) {
    Regions buffer(L"mm");
    EXPECT_TRUE(buffer.moveCaretToPageSequence(1));
    EXPECT_EQ(buffer.there(1), L"s");
    EXPECT_FALSE(buffer.moveCaretToPageSequence(2));
    EXPECT_FALSE(buffer.moveCaretToPageSequence(-1));
    EXPECT_EQ(buffer.there(1), L"s");
    EXPECT_TRUE(buffer.moveCaretToPageSequence(0));
    EXPECT_EQ(buffer.there(2), L"mm");
    Regions noStop(L"hh", regions(L"<B>hh</B>", L"", L"<B/>"));
    EXPECT_FALSE(noStop.moveCaretToPageSequence(0));
    EXPECT_EQ(noStop.there(2), L"hh");
}

TEST(CaretJumps, toAReference) {
    Regions buffer(L"hh", regions(L"<B>hh</B>", L"", L"<B>m&amp;n</B>"));
    const int content = buffer.find(L"<fo:block>m");
    const int offsetOfN = buffer.find(L"n</fo:block>") - content;
    EXPECT_TRUE(buffer.moveCaretToReference(0, offsetOfN));
    EXPECT_EQ(buffer.there(1), L"n");
    EXPECT_TRUE(buffer.moveCaretToReference(0, offsetOfN - 2)); // inside the entity
    EXPECT_EQ(buffer.there(5), L"&amp;");
    EXPECT_FALSE(buffer.moveCaretToReference(0, 1)); // inside the block's tag
    EXPECT_FALSE(buffer.moveCaretToReference(0, 2000000000));
    EXPECT_FALSE(buffer.moveCaretToReference(-1, 0));
    EXPECT_EQ(buffer.there(5), L"&amp;");
    EXPECT_TRUE(buffer.moveCaretToReference(1, 0));
    EXPECT_EQ(buffer.there(1), L"s");
}

TEST(CaretJumps, toAStaticRegion) {
    Regions buffer(L"mm");
    buffer.moveCaretToStaticRegion(L"xsl-region-before", 0);
    EXPECT_EQ(buffer.there(2), L"hh");
    buffer.moveCaretToStaticRegion(L"foot", 1); // there, but without a stop
    buffer.moveCaretToStaticRegion(L"none", 0);
    buffer.moveCaretToStaticRegion(L"foot", 7);
    EXPECT_EQ(buffer.there(2), L"hh");
    buffer.moveCaretToFirstStaticRegion();
    EXPECT_EQ(buffer.there(2), L"ff");
}

TEST(CaretJumps, theFirstRegionOfAPageMaster) {
    Regions buffer(nullptr);
    EXPECT_EQ(wide(buffer.getFirstPageRegionNameFromMaster(L"letter")), L"foot");
    EXPECT_EQ(wide(buffer.getFirstPageRegionNameFromMaster(L"book")), L"foot");
    EXPECT_EQ(wide(buffer.getFirstPageRegionNameFromMaster(L"plain")), L"");
    EXPECT_EQ(wide(buffer.getFirstPageRegionNameFromMaster(L"unknown")), L"");
    buffer.setContent(L"<qfd:document><fo:layout-master-set><fo:simple-page-master "
                      L"master-name=\"m\"><fo:region-end/></fo:simple-page-master>"
                      L"</fo:layout-master-set></qfd:document>",
                      true);
    EXPECT_EQ(wide(buffer.getFirstPageRegionNameFromMaster(L"m")), L"xsl-region-end");
}

// Setting

TEST(CaretSetting, insideMarkupIsRefused) {
    CaretBuffer buffer(expand(L"<B id=\"a>b\">t&amp;<!-- <![CDATA[ --><![CDATA[ ]> <!-- ]]>u"
                              L"<?p don't > ?>v|</B>"));
    const int length = buffer.length();
    std::wstring accepted;
    const int start = buffer.find(L"<fo:block");
    const int caret = buffer.getCaretPos();
    for (int at = start; at < length; ++at) {
        buffer.setCaretPos(false, caret);
        buffer.setCaretPos(false, at);
        if (buffer.getCaretPos() == at)
            accepted += buffer.text()[static_cast<std::size_t>(at)];
    }
    // The block, its text, entity and sections, and the four closing tags.
    EXPECT_EQ(accepted, L"<t&<<u<v<<<<");
    buffer.setCaretPos(false, length);
    buffer.setCaretPos(false, -2);
    EXPECT_EQ(buffer.text()[static_cast<std::size_t>(buffer.getCaretPos())], L'<');
    buffer.setCaretPos(false, -1);
    EXPECT_EQ(buffer.getCaretPos(), -1);
}

TEST(CaretSetting, insideADocumentTypeIsRefused) {
    CaretBuffer buffer;
    buffer.setContent(L"<!DOCTYPE qfd:document [\n<!ENTITY a \"b>\">\n] ><qfd:document/>", true);
    for (int at = 1; at < buffer.find(L"<qfd"); ++at) {
        buffer.setCaretPos(false, at);
        EXPECT_EQ(buffer.getCaretPos(), -1) << at;
    }
    buffer.setCaretPos(false, buffer.find(L"<qfd"));
    EXPECT_EQ(buffer.getCaretPos(), buffer.find(L"<qfd"));
}

TEST(CaretSetting, adjustingMovesACaretThatCannotHold) {
    const auto adjust = [](CaretBuffer& b) { b.adjustCaretToAnEditablePosition(); };
    expectMove(L"<B>a</B>|<B>b</B>", adjust, L"<B>a</B><B>|b</B>");
    expectMove(L"<B>a</B>|", adjust, L"<B>a|</B>");
    expectMove(L"<B>|a</B>", adjust, L"<B>|a</B>");
}

TEST(CaretSetting, deletingContentPutsTheCaretToItsStart) {
    CaretBuffer buffer(expand(L"<B>abcd</B><B>|e</B>"));
    RecordingMonitor monitor;
    buffer.setMonitor(&monitor);
    const int start = buffer.find(L"bc");
    EXPECT_EQ(wide(buffer.deleteContentAndAdjustCaret(start, start + 2)), L"bc");
    EXPECT_EQ(buffer.marked(), expand(L"<B>a|d</B><B>e</B>"));
    EXPECT_EQ(monitor.take(), "bc");
    EXPECT_FALSE(buffer.canUndo());
    EXPECT_EQ(wide(buffer.deleteContentAndAdjustCaret(start, buffer.length())), L"");
    EXPECT_EQ(wide(buffer.deleteContentAndAdjustCaret(-1, start)), L"");
    EXPECT_EQ(wide(buffer.deleteContentAndAdjustCaret(start, start - 1)), L"");
    EXPECT_EQ(buffer.marked(), expand(L"<B>a|d</B><B>e</B>"));
    EXPECT_EQ(monitor.take(), "");
}

} // namespace

// What hosts ask beside commands, on small documents.

#include "foundation/Encoder.h"
#include "support/MarkedDocument.h"
#include "tables/EditableTableBuffer.h"
#include "view/Drawn.h"
#include "view/EditingState.h"
#include "view/ElementPlace.h"
#include "view/StopSide.h"

#include <gtest/gtest.h>

namespace {

/// The pieces of the flow by kind and text; what the caret can stand before has a "|".
std::wstring drawnIn(const MarkedDocument& document) {
    std::wstring shown;
    for (const Drawn& piece : document->getDrawn(document.find(L"<fo:flow"), 100)) {
        shown += piece.isStop ? L"|" : L" ";
        shown += L"<>/tc_ox"[static_cast<int>(piece.kind)];
        shown += wide(piece.text);
    }
    return shown;
}

std::string narrow(const Core::String& text) {
    return Core::Encoder::toDisplayText(text);
}

std::string valueAt(const wchar_t* flow, const wchar_t* name) {
    const MarkedDocument document(flow);
    return narrow(document->getComputedProperty(name, document.find(L"here")));
}

std::string formatOf(const MarkedDocument& document, const wchar_t* name) {
    const EditingState state = document->getEditingState();
    const Format* const format = state.format(name);
    return format ? narrow(format->value) + (format->isMixed ? " mixed" : "") : "none";
}

} // namespace

TEST(View, WhatIsDrawnTellsStopsEntitiesAndObjects) {
    EXPECT_EQ(drawnIn(MarkedDocument(L"<B>a  b&amp;<!--x--><I>c</I><fo:page-number/></B>\n<B/>"
                                     L"<B>_</B><B white-space=\"pre\">d\n</B>")),
              L" <fo:flow <fo:block|ta |tb|c&|x <fo:inline|tc|>fo:inline|ofo:page-number|>fo:block "
              L"/fo:block <fo:block|_\xA0 >fo:block <fo:block|td\n|>fo:block "
              L">fo:flow >fo:page-sequence >qfd:document");
    EXPECT_EQ(
        drawnIn(MarkedDocument(L"<B> <fo:page-number/>\n of <I>a</I> <qfd:field>b</qfd:field>"
                               L" <B>c</B></B>")),
        L" <fo:flow <fo:block|ofo:page-number|t |tof |<fo:inline|ta|>fo:inline t |oqfd:field|<"
        L"fo:block|tc|>fo:block >fo:block >fo:flow >fo:page-sequence >qfd:document");
}

TEST(View, PlacesAreFoundFromWithinMarkup) {
    const MarkedDocument document(L"<B>a&amp;b</B>\n <B color=\"red\">c</B>");
    const int entity = document.find(L"&amp;");
    const int start = document.find(L" color");
    EXPECT_EQ(document->getNearestStop(entity + 2, StopSide::Before), entity);
    EXPECT_EQ(document->getNearestStop(entity + 2, StopSide::Either), entity);
    EXPECT_EQ(document->getNearestStop(entity + 2, StopSide::Behind), entity + 5);
    EXPECT_EQ(document->getNearestStop(start, StopSide::Behind), document.find(L"c</B>"));
    EXPECT_EQ(document->getNearestStop(0, StopSide::Before), -1);
    const ElementPlace place = document->getElementAt(start);
    EXPECT_EQ(place.start, start - 9);
    EXPECT_EQ(place.path, L"/qfd:document/fo:page-sequence/fo:flow/fo:block");
    EXPECT_EQ(place.around.size(), 3U);
    EXPECT_EQ(document->getElementAt(place.around[0]).path, L"/qfd:document");
    EXPECT_EQ(document->getElementAt(document.find(L"</B>")).start, document.find(L"<B>"));
}

TEST(View, PropertiesAreComputed) {
    EXPECT_EQ(valueAt(L"<B>here</B>", L"fo:text-align"), "start");
    EXPECT_EQ(valueAt(L"<B color=\"red\"><I>here</I></B>", L"color"), "red");
    EXPECT_EQ(valueAt(L"<B margin=\"1pt 2pt\"><I>here</I></B>", L"margin-left"), "0pt");
    EXPECT_EQ(valueAt(L"<B margin=\"1pt 2pt\"><I margin=\"inherit\">here</I></B>", L"margin-left"),
              "2pt");
    for (const auto& [size, expected] : {std::pair{L"150%", "15pt"},
                                         {L"2em", "20pt"},
                                         {L"larger", "12pt"},
                                         {L"large", "14.4pt"}}) {
        const auto flow = std::wstring(L"<B font-size=\"10pt\"><I font-size=\"") + size;
        EXPECT_EQ(valueAt((flow + L"\">here</I></B>").c_str(), L"font-size"), expected);
    }
    EXPECT_EQ(
        valueAt(L"<B font-size=\"10pt\" text-indent=\"2em\"><I font-size=\"5pt\">here</I></B>",
                L"text-indent"),
        "20pt");
    const wchar_t* const borders =
        L"<B color=\"blue\" border=\"2pt dashed red\" border-style=\"solid dotted\" "
        L"border-left=\"thin solid\" border-before-width=\"9pt\">here</B>";
    EXPECT_EQ(valueAt(borders, L"border-right-style"), "dotted");
    EXPECT_EQ(valueAt(borders, L"border-left-color"), "blue");
    EXPECT_EQ(valueAt(borders, L"border-after-color"), "red");
    EXPECT_EQ(valueAt(borders, L"border-before-width"), "2pt");
    const wchar_t* const font =
        L"<B font-weight=\"bold\"><I font=\"italic 2em/1.5 Times, serif\">here</I></B>";
    EXPECT_EQ(valueAt(font, L"font-weight"), "normal");
    EXPECT_EQ(valueAt(font, L"font-size"), "24pt");
    EXPECT_EQ(valueAt(font, L"font-family"), "Times, serif");
    EXPECT_EQ(valueAt(L"<B space-before=\"3pt\">here</B>", L"space-before.optimum"), "3pt");
}

TEST(View, StateTellsFormatsAndWhatCanBeDone) {
    const MarkedDocument caret(L"<B font-size=\"9pt\">a<I font-weight=\"700\" "
                               L"text-decoration=\"underline\">b|</I></B>");
    EXPECT_EQ(formatOf(caret, L"fo:font-weight"), "bold");
    EXPECT_EQ(formatOf(caret, L"fo:text-underline-style"), "solid");
    EXPECT_EQ(formatOf(caret, L"fo:font-size"), "9pt");
    EXPECT_TRUE(caret->getEditingState().canPaste);
    EXPECT_FALSE(caret->getEditingState().canCut);
    const MarkedDocument selection(L"<B color=\"red\">^a<I font-weight=\"bold\">b</I></B>"
                                   L"<B color=\"red\">c|</B>");
    EXPECT_EQ(formatOf(selection, L"fo:font-weight"), "normal mixed");
    EXPECT_EQ(formatOf(selection, L"fo:color"), "red");
    EXPECT_TRUE(selection->getEditingState().canCut);
    const MarkedDocument table(L"<T><H><R><C><B>|a</B></C></R></H></T>");
    EXPECT_EQ(table->getEditingState().rowGroup, TableRowGroupType::Header);
    EXPECT_FALSE(table->getEditingState().table);
    table->getEditableTableBuffer(-1);
    EXPECT_TRUE(table->getEditingState().table);
}

// A toolbar asks behind each key, and hardly ever has anything changed.
TEST(View, FormatsAreThoseOfADocumentThatWasNeverAsked) {
    const MarkedDocument document(L"<B color=\"red\">a|b<I color=\"blue\">c</I></B><B>d</B>");
    const auto expectAsNew = [&] {
        MarkedDocument another(L"<B>|</B>");
        another->setContent(document->getContent(), true);
        another->setCaretPos(false, document->getCaretPos());
        EXPECT_EQ(formatOf(document, L"fo:color"), formatOf(another, L"fo:color"));
        EXPECT_EQ(formatOf(document, L"fo:background-color"),
                  formatOf(another, L"fo:background-color"));
        return formatOf(document, L"fo:color");
    };
    EXPECT_EQ(expectAsNew(), "red");
    document->insertText(L"x", false, false);
    EXPECT_EQ(expectAsNew(), "red");
    document->setCaretPos(false, document.find(L"c</I>"));
    EXPECT_EQ(expectAsNew(), "blue");
    document->replaceXmlText(document.find(L"blue"), document.find(L"blue") + 3, L"lime");
    EXPECT_EQ(expectAsNew(), "lime");
    document->replaceXmlText(document.find(L"red"), document.find(L"red") + 2,
                             L"tan\" background-color=\"aqua");
    EXPECT_EQ(expectAsNew(), "lime");
    document->setCaretPos(false, document.find(L"d</B>"));
    EXPECT_EQ(expectAsNew(), "");
    document->undo();
    document->setCaretPos(false, document.find(L"xb"));
    EXPECT_EQ(expectAsNew(), "red");
}

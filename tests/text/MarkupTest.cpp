#include "text/Markup.h"

#include "text/EditableXmlBuffer.h"
#include "text/ReferenceMarkup.h"
#include "text/XmlTexts.h"

#include <gtest/gtest.h>

using Core::String;

namespace {

const XmlText table = xmlText(
    L"<r><fo:flow><fo:table w=\"1\" table-layout=\"fixed\"><fo:table-body><fo:table-row>"
    L"<fo:table-cell><fo:block>ab</fo:block></fo:table-cell><fo:table-cell><fo:block>cd</fo:block>"
    L"</fo:table-cell></fo:table-row></fo:table-body></fo:table></fo:flow></r>\n");

const XmlText list =
    xmlText(L"<r><fo:list-block p=\"1\"><fo:list-item><fo:list-item-label><b>1)</b>"
            L"</fo:list-item-label> <fo:list-item-body><b>a<i j='1'>bc</i>d</b><!-- <x> -->"
            L"</fo:list-item-body></fo:list-item><fo:list-item><fo:list-item-label><b>2)</b>"
            L"</fo:list-item-label><fo:list-item-body><e/><b>ef</b></fo:list-item-body>"
            L"</fo:list-item></fo:list-block></r>\n");

/// The markup from the first `from` through the last unit of the first `through`.
std::wstring cut(const XmlText& text, const wchar_t* from, const wchar_t* through) {
    return wide(Markup::cutOut(text, at(text, from), behind(text, through) - 1));
}

} // namespace

TEST(Markup, CutOutIsBalanced) {
    EXPECT_EQ(cut(list, L"c</i>", L"c</i>d"), L"<i j='1'>c</i>d");
    EXPECT_EQ(cut(list, L"a<i", L"b"), L"") << "an end before the start";
    EXPECT_EQ(cut(list, L"a<i", L"bc"), L"a<i j='1'>bc</i>");
    EXPECT_EQ(wide(Markup::cutOut(list, at(list, L"</r>"), 99999)), L"<r></r>\n");
}

TEST(Markup, CutOutHasTheTableOfCellsAndTheLabelOfItemBodies) {
    EXPECT_EQ(cut(table, L"b</fo:block", L"<fo:block>c"),
              L"<fo:table w=\"1\" table-layout=\"auto\"><fo:table-body><fo:table-row>"
              L"<fo:table-cell><fo:block>b</fo:block></fo:table-cell><fo:table-cell><fo:block>c"
              L"</fo:block></fo:table-cell></fo:table-row></fo:table-body></fo:table>");
    EXPECT_EQ(cut(table, L"b</fo:block>", L"b</fo:block>"), L"<fo:block>b</fo:block>");

    const std::wstring front = L"<fo:list-block p=\"1\"><fo:list-item><fo:list-item-label><b>";
    const std::wstring body = L")</b></fo:list-item-label> <fo:list-item-body><b>";
    const std::wstring back =
        L"d</b><!-- <x> --></fo:list-item-body></fo:list-item></fo:list-block>";
    EXPECT_EQ(cut(list, L"d</b>", L"--></fo:list-item-body>"), front + L"1" + body + back);
    EXPECT_EQ(cut(list, L")</b>", L"--></fo:list-item-body>"),
              front + body + L"a<i j='1'>bc</i>" + back)
        << "the range has the label already";
}

TEST(Markup, EveryRangeIsCutOutNestedAndWhole) {
    for (const XmlText* source : {&table, &list}) {
        const XmlText& text = *source;
        for (int start = 0; start >= 0; start = text.next(start))
            for (int end = text.next(start); end >= 0; end = text.next(end)) {
                const std::wstring native = wide(Markup::cutOut(text, start, end - 1));
                EXPECT_TRUE(parseMarkup(native)) << native;
                EXPECT_NE(native.find(std::wstring(text.view(start, end))), native.npos) << native;
            }
    }
}

TEST(Markup, NamesOfTagsThatAreLeftOpen) {
    for (const auto& [marked, closing] :
         {std::pair(L"|<a><b></b><c>^", L"</c></a>"),
          std::pair(L"|<a></x><e/><!--<f>--><b>^", L"</b></a>"),
          std::pair(L"<|a><b>^<c>", L"</b>")}) { // a tag at the end is outside
        const MarkedText range(marked);
        EXPECT_EQ(wide(Markup::closingTagsInReverse(
                      Markup::openedBetween(range.text, range.asked, range.answer))),
                  closing)
            << marked;
    }
    EXPECT_EQ(wide(Markup::closingTags({L"a", L"b"})), L"</a></b>");
}

TEST(Markup, CharacterDataAndPlainText) {
    // The unit behind markup is dropped, and of an entity only its "&" is taken.
    EXPECT_EQ(wide(Markup::characterData(
                  xmlText(L"<b>a<i>bc</i>de<e/>fg<!--h-->ij<?p?>k&amp;l<i/></b>\n"), 0)),
              L"aegj&l");
    String plain = L"<a>\t&\"'\r\n\x1\xA0;";
    Markup::escape(plain);
    EXPECT_EQ(wide(plain), L"&lt;a&gt;\t&amp;&quot;&apos;   \xA0;");
}

TEST(Markup, InsideATag) {
    const String text = L"<r><!-- < --><b c='1'>x</b><![CDATA[<d]]><?p <e?></r>";
    std::wstring inside;
    for (int at = -2; at < text.length() + 2; ++at)
        if (EditableXmlBuffer::isInsideStartTag(text, at))
            inside += text[at];
    EXPECT_EQ(inside, L"r-b c='1'/b]") << "a section is over within its closing delimiter";
    EXPECT_FALSE(EditableXmlBuffer::isInsideStartTag(L"<a>b", 3));
}

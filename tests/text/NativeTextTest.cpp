#include "foundation/Wide.h"
#include "text/ReferenceMarkup.h"
#include "text/XmlProbe.h"

#include <gtest/gtest.h>

namespace {

const XmlProbe table(
    L"<r><fo:flow><fo:table w=\"1\" table-layout=\"fixed\"><fo:table-body><fo:table-row>"
    L"<fo:table-cell><fo:block>ab</fo:block></fo:table-cell><fo:table-cell><fo:block>cd</fo:block>"
    L"</fo:table-cell></fo:table-row></fo:table-body></fo:table></fo:flow></r>\n");

const XmlProbe
    list(L"<r><fo:list-block p=\"1\"><fo:list-item><fo:list-item-label><b>1)</b>"
         L"</fo:list-item-label> <fo:list-item-body><b>a<i j='1'>bc</i>d</b><!-- <x> -->"
         L"</fo:list-item-body></fo:list-item><fo:list-item><fo:list-item-label><b>2)</b>"
         L"</fo:list-item-label><fo:list-item-body><e/><b>ef</b></fo:list-item-body>"
         L"</fo:list-item></fo:list-block></r>\n");

/// The native text from the first `from` through the last unit of the first `through`.
std::wstring cut(const XmlProbe& xml, const wchar_t* from, const wchar_t* through) {
    return wide(xml.getNativeText(xml.at(from), xml.behind(through) - 1));
}

} // namespace

TEST(NativeText, BalancesTheRange) {
    EXPECT_EQ(cut(list, L"c</i>", L"c</i>d"), L"<i j='1'>c</i>d");
    EXPECT_EQ(cut(list, L"a<i", L"b"), L"") << "an end before the start";
    EXPECT_EQ(cut(list, L"a<i", L"bc"), L"a<i j='1'>bc</i>");
    EXPECT_EQ(wide(list.getNativeText(list.at(L"</r>"), 99999)), L"<r></r>\n");
}

TEST(NativeText, WrapsCellsInTheirTable) {
    const std::wstring front = L"<fo:table w=\"1\" table-layout=\"auto\"><fo:table-body>"
                               L"<fo:table-row><fo:table-cell>";
    const std::wstring back = L"</fo:table-cell></fo:table-row></fo:table-body></fo:table>";
    const std::wstring two =
        L"<fo:block>b</fo:block></fo:table-cell><fo:table-cell><fo:block>c</fo:block>";
    EXPECT_EQ(cut(table, L"b</fo:block", L"<fo:block>c"), front + two + back);
    EXPECT_EQ(cut(table, L"b</fo:block>", L"b</fo:block>"), L"<fo:block>b</fo:block>");
}

TEST(NativeText, WrapsItemBodiesWithTheirLabel) {
    const std::wstring front = L"<fo:list-block p=\"1\"><fo:list-item>";
    const std::wstring label = L"<fo:list-item-label><b>1)</b></fo:list-item-label> ";
    const std::wstring back =
        L"d</b><!-- <x> --></fo:list-item-body></fo:list-item></fo:list-block>";
    EXPECT_EQ(cut(list, L"d</b>", L"--></fo:list-item-body>"),
              front + label + L"<fo:list-item-body><b>" + back);
    const std::wstring labelled = L"<fo:list-item-label><b>)</b></fo:list-item-label> "
                                  L"<fo:list-item-body><b>a<i j='1'>bc</i>";
    EXPECT_EQ(cut(list, L")</b>", L"--></fo:list-item-body>"), front + labelled + back)
        << "the range has the label already";
}

TEST(NativeText, EveryRangeComesOutNestedAndWhole) {
    for (const XmlProbe& xml : {table, list}) {
        for (int start = 0; start >= 0; start = xml.getNextEditablePositionInXml(start)) {
            for (int end = xml.getNextEditablePositionInXml(start); end >= 0;
                 end = xml.getNextEditablePositionInXml(end)) {
                const std::wstring native = wide(xml.getNativeText(start, end - 1));
                EXPECT_TRUE(parseMarkup(native)) << native;
                EXPECT_NE(native.find(xml.text().view().substr(start, end - start)), native.npos)
                    << native;
            }
        }
    }
}

TEST(NativeText, NamesLeftOpen) {
    const auto open = [](const wchar_t* text, int start, int end) {
        const XmlProbe xml(text);
        return wide(
            xml.stringArrayToReverseTagString(xml.getClosingTagsBetweenPositions(start, end)));
    };
    EXPECT_EQ(open(L"<a><b></b><c>", 0, 13), L"</c></a>");
    EXPECT_EQ(open(L"<a></x><e/><!--<f>--><b>", 0, 24), L"</b></a>");
    EXPECT_EQ(open(L"<a><b><c>", 1, 6), L"</b>") << "a tag at the end is outside";
    EXPECT_EQ(wide(table.stringArrayToTagString({L"a", L"b"})), L"</a></b>");
}

TEST(NativeText, CharacterDataOfALabel) {
    const auto data = [](const wchar_t* text) {
        return wide(XmlProbe(text).getCharacterDataForElementAt(0));
    };
    // The unit behind markup is dropped, and of an entity only its "&" is taken.
    EXPECT_EQ(data(L"<b>a<i>bc</i>de<e/>fg<!--h-->ij<?p?>k&amp;l<i/></b>\n"), L"aegj&l");
}

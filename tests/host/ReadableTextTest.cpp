#include "ReadableText.h"

#include <gtest/gtest.h>

TEST(ReadableText, ShowsBlocksAsLinesWithTheCaret) {
    const Core::String content =
        L"<fo:layout-master-set> x </fo:layout-master-set><fo:flow>\n"
        L"<fo:block>a  <fo:inline>b</fo:inline>\n c &amp; &#x64;&#8226;</fo:block>"
        L"<!-- no --><fo:block>&#x00A0;</fo:block></fo:flow>";
    EXPECT_EQ(readableText(content, {content.find(L"b</fo:inline>", 0)}),
              "  a |b c & d\u2022\n  \u00B7\n");
    EXPECT_EQ(readableText(content, {}), "  a b c & d\u2022\n  \u00B7\n");
}

TEST(ReadableText, ShowsTheCellsOfARowSideBySide) {
    const Core::String content =
        L"<fo:table-row><fo:table-cell><fo:block>a</fo:block><fo:block>b</fo:block></fo:table-cell>"
        L"<fo:table-cell><fo:table><fo:table-row><fo:table-cell>c</fo:table-cell></fo:table-row>"
        L"</fo:table></fo:table-cell></fo:table-row>\n<fo:block>d</fo:block>";
    EXPECT_EQ(readableText(content, {}), "  a b \u2502 c \u2502 \u2502\n  d\n");
}

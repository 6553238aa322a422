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

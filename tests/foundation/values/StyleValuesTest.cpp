#include "foundation/Wide.h"
#include "foundation/values/BorderWidth.h"
#include "foundation/values/ColorParse.h"
#include "foundation/values/ColumnWidth.h"
#include "foundation/values/ParseUtil.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

using namespace Xml;

namespace {

std::wstring readAs(const wchar_t* text) {
    LengthOrPercent value;
    const bool isRead = LengthOrPercent::parseLengthOrPercent(text, value);
    const Length length = value.getLength();
    EXPECT_EQ(isRead, value.isPercent() != length.isValid()) << text;
    const std::wstring unit = value.isPercent() ? L"%" : wide(length.getUnit());
    const float number = value.isPercent() ? value.getPercent() : length.getSize();
    return std::to_wstring(std::lround(number * 100)) + unit + L" " +
           wide(value.getValueAsString());
}

TEST(LengthOrPercent, KeepsItsTextWhateverThatIs) {
    for (const auto& [text, expected] :
         {std::pair(L" 2in ", L"200in 2in"), std::pair(L"+.5em", L"50em +.5em"),
          std::pair(L"-1.25px", L"-125px -1.25px"), std::pair(L"033.30%", L"3330% 033.30%"),
          std::pair(L"12", L"0 12"), std::pair(L"%", L"0 %"), std::pair(L"1%%", L"0 1%%"),
          std::pair(L"pt", L"0 pt"), std::pair(L"1 pt", L"0 1 pt"), std::pair(L"1e2pt", L"0 1e2pt"),
          std::pair(L"1PT", L"0 1PT"), std::pair(L"auto", L"0 auto"), std::pair(L"", L"0 ")})
        EXPECT_EQ(readAs(text), expected);
    Length length;
    length.setSize(3);
    EXPECT_EQ(length.getValueAsString(), L"") << "there is no unit";
    Length::parseLength(L"1.50cm", length);
    length.setSize(length.getSize() - 4);
    LengthOrPercent value;
    value.setLength(length);
    EXPECT_EQ(value.getValueAsString(), L"-2.5cm");
    value.setPercent(30);
    EXPECT_EQ(value.getValueAsString(), L"30%");
    EXPECT_FALSE(value.getLength().isValid());
}

TEST(ColumnWidth, ReadsASharesNumberAsPercentage) {
    for (const auto& [text, expected] :
         {std::pair(L"proportional-column-width( 2.5 )", L"2.5%"), std::pair(L"40%", L"40%"),
          std::pair(L"2in", L"2in"), std::pair(L"proportional-column-width()", L""),
          std::pair(L"proportional-column-width(2", L""), std::pair(L"(2)", L"(2)")}) {
        ColumnWidth width;
        const bool isRead = ColumnWidth::parseColumnWidth(text, width);
        EXPECT_EQ(wide(width.getLengthOrPercent().getValueAsString()), expected);
        EXPECT_EQ(isRead, std::wstring(expected).find_first_of(L"%n") != std::wstring::npos);
    }
    EXPECT_EQ(ColumnWidth::formatShare(33.3333F), L"proportional-column-width(33.333)");
    EXPECT_EQ(ColumnWidth::formatShare(50), L"proportional-column-width(50)");
}

TEST(BorderWidth, IsAKeywordOrALength) {
    for (const wchar_t* text : {L"thin", L" medium ", L"thick", L"1pt"}) {
        BorderWidth width;
        EXPECT_TRUE(BorderWidth::parseBorderWidth(text, width)) << text;
        EXPECT_EQ(width.getValueAsString(), Core::String(text).trim());
    }
    for (const wchar_t* text : {L"1", L"thinner", L"10%", L""}) {
        BorderWidth width;
        EXPECT_FALSE(BorderWidth::parseBorderWidth(text, width)) << text;
    }
}

TEST(ColorParse, KnowsEachFormByItsBeginning) {
    for (const wchar_t* text :
         {L"red", L"Transparent", L"#fff", L"#00FF7f", L"rgb(1,2,3)", L"rgb( 10%, 2.5 ,0 )",
          L"cmyk(0,1,1,0)", L"rgb-icc(1, 0, 0, #CMYK, 0, 1, 1, 0)", L"rgb-icc(1,0,0,sRGB)",
          L"spot-color(PANTONE 185, 1)", L"spot-color('a')"})
        EXPECT_TRUE(ColorParse::parseColor(text)) << text;
    for (const wchar_t* text :
         {L"", L"2pt", L"solid", L"#ff", L"#ffg", L"#", L"rgb(1,2)", L"rgb(1,2,3", L"rgb(1,2,x)",
          L"rgb(1,2,3pt)", L"rgb()", L"cmyk(0,1,1)", L"rgb-icc(1,0,0)", L"rgb-icc(1,0,0,,1)",
          L"rgb-icc(1,0,0,a,b)", L"spot-color()", L"red ", L"red rosybrown"})
        EXPECT_FALSE(ColorParse::parseColor(text)) << text;
}

TEST(ParseUtil, KeepsAFunctionInOneWord) {
    const Core::String text = L" 1pt\tf(a, g(b c) d)e  ) h(i j ";
    std::wstring found;
    int position = 0;
    for (Core::String word; !(word = ParseUtil::extractWordOrFunction(text, position)).empty();)
        found += wide(word) + L"|";
    EXPECT_EQ(found, L"1pt|f(a, g(b c) d)e|)|h(i j |");
    EXPECT_EQ(position, text.length());
    position = -1;
    EXPECT_EQ(ParseUtil::extractWordOrFunction(text, position), L"");
    EXPECT_EQ(ParseUtil::extractArguments(L"f", L"f( a , g(b, c),)"),
              Core::StringArray({L"a", L"g(b, c)", L""}));
    EXPECT_TRUE(ParseUtil::extractArguments(L"f", L"ff(a)").empty());
}

} // namespace

#include "foundation/Format.h"
#include "foundation/StringFormatStream.h"
#include "foundation/Wide.h"
#include "foundation/values/ColorParse.h"
#include "foundation/values/ColumnWidth.h"
#include "foundation/values/ParseUtil.h"
#include "foundation/values/XPathHelpers.h"
#include "support/Table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <utility>

using namespace Xml;
using Core::Format;
using Core::String;
using Core::StringFormatStream;
using Limits = std::numeric_limits<float>;

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

std::wstring formatted(float value, const wchar_t* format) {
    return wide(Format::formatValue(value, format));
}

TEST(Format, ParsesPlainDecimalsAndNothingAroundThem) {
    EXPECT_EQ(Format::parseInt(L"007"), 7);
    EXPECT_EQ(Format::parseInt(L"+12"), 12);
    EXPECT_EQ(Format::parseInt(L"-2147483648"), std::numeric_limits<int>::min());
    for (const wchar_t* none : {L"", L"+", L"+-5", L"--5", L" 5", L"5 ", L"5.0", L"5x", L"0x5",
                                L"2147483648", L"\x0665", L"\x0135"}) {
        int kept = 1;
        EXPECT_FALSE(Format::parseInt(none, kept)) << none;
        EXPECT_EQ(kept, 1);
        EXPECT_EQ(Format::parseInt(none), 0);
    }

    float value = 0;
    for (const auto& [text, expected] :
         {std::pair(L"33.25", 33.25F), std::pair(L"-.5", -0.5F), std::pair(L"+5.", 5.0F)}) {
        EXPECT_TRUE(Format::parseFloat(text, value)) << text;
        EXPECT_EQ(value, expected);
    }
    for (const wchar_t* none : {L"", L".", L"-", L"+-1", L"1,5", L"1e5", L"inf", L"nan", L"0x1",
                                L" 1", L"1pt", L"1.2.3", L"1-"})
        EXPECT_FALSE(Format::parseFloat(none, value)) << none;
    EXPECT_FALSE(Format::parseFloat(String(L'9', 40), value));
    EXPECT_EQ(value, 5.0F);
}

TEST(Format, EmptyFormatIsShortestAndPlainAndReadsBackAsTheSameNumber) {
    for (const auto& [value, expected] :
         {std::pair(33.3333F, L"33.3333"), std::pair(0.1F, L"0.1"), std::pair(100.0F, L"100"),
          std::pair(-0.0F, L"0"), std::pair(1e-7F, L"0.0000001"), std::pair(-2.0F, L"-2"),
          std::pair(Limits::infinity(), L"0")})
        EXPECT_EQ(formatted(value, L""), expected);

    std::mt19937 random(3);
    std::uniform_real_distribution<float> exponent(-37, 38);
    for (int round = 0; round < 2000; ++round) {
        const float value = round == 0   ? Limits::max()
                            : round == 1 ? Limits::min()
                                         : std::pow(10.0F, exponent(random)) * (round % 2 ? 1 : -1);
        const String text = Format::formatValue(value, L"");
        float back = 0;
        ASSERT_TRUE(Format::parseFloat(text, back)) << wide(text);
        ASSERT_EQ(back, value);
        ASSERT_FALSE(text.find(L'.', 0) >= 0 && text.endsIn(L"0")) << wide(text);
    }
}

TEST(Format, FormatsSayHowManyDecimals) {
    for (const auto& [value, format, expected] :
         {std::tuple(33.33333F, L"0.###", L"33.333"), std::tuple(33.5F, L"0.###", L"33.5"),
          std::tuple(0.9996F, L"0.###", L"1"), std::tuple(1.0F, L"0.0##", L"1.0"),
          std::tuple(100.4F, L"0", L"100"), std::tuple(-0.0004F, L"0.###", L"0"),
          std::tuple(-0.0004F, L"0.00", L"0.00"), std::tuple(std::nanf(""), L"0.00", L"0")})
        EXPECT_EQ(formatted(value, format), expected) << format;
    EXPECT_EQ(formatted(Limits::lowest(), L"0.00").size(), 43U);
    for (const wchar_t* none : {L"x", L".00", L"0.#0", L"0.0.0", L"%.2f"})
        EXPECT_EQ(formatted(1.125F, none), L"1.125") << none;
}

TEST(StringFormatStream, FillsItsHolesWithEveryKindOfValue) {
    StringFormatStream stream(L"{4}{3}{2}{1}{0} {3:0.###} {2:0.0} {10}");
    stream << L"a{1}" << "b" << -3 << 2.0625F << String();
    for (int i = 5; i < 11; ++i)
        stream << i;
    EXPECT_EQ(wide(stream.getString()), L"2.0625-3ba{1} 2.062 -3 10");
}

TEST(StringFormatStream, LeavesWhatIsNoHoleOrHasNoValue) {
    const wchar_t* text = L"{{0}} {1} {} {x} {-0} {+0} { 0} {0x} {:0} {99999999999} }{ {0";
    StringFormatStream stream(text);
    EXPECT_EQ(wide(stream.getString()), text);
    stream << L"v";
    EXPECT_EQ(wide(stream.getString()),
              L"{v} {1} {} {x} {-0} {+0} { 0} {0x} {:0} {99999999999} }{ {0");
}

/// Each row of the table is "base + path -> result".
void expectEach(Core::String (*operation)(const Core::String&, const Core::String&),
                const wchar_t* table) {
    for (const auto& [arguments, result] : rows(table)) {
        const Core::String both(arguments);
        EXPECT_EQ(wide(operation(both.substringBefore(L" + "), both.substringAfter(L" + "))),
                  result)
            << arguments;
    }
}

TEST(XPathHelpers, ComposeTakesLeadingDoubleDotsOffTheBase) {
    expectEach(XPathHelpers::composeXPath, LR"(
/a/b +  -> /a/b
/a + . -> /a
/a + /b -> /b
 + ../b -> ../b
/a + b/@c -> /a/b/@c
/ + a -> /a
/a/b + ../../c/../d -> /c/../d
/a/b + .. -> /a
a + .. -> .
/a + ../../b -> /../b
../a + ../../b -> ../../b
//a + ../b -> //a/../b
/a/b[c/d = "]/"] + ../e -> /a/e
/a/key("k", b/c) + ../e -> /a/e
/a + .//b -> /a/.//b
)");
}

TEST(XPathHelpers, RelativePathsLeadFromTheBaseToThePath) {
    expectEach(XPathHelpers::getRelativeXPath, LR"(
/a/b + /a/b -> .
/a/b + /a/c/d -> ../c/d
/a + /a/b -> b
/a/b + /a -> ..
/ + /a -> a
/a + / -> ..
a/b + a/c -> ../c
/a + b -> b
a + /b -> /b
/a[b/c]/d + /a[b/e]/d -> ../../a[b/e]/d
/a['/'] + /a['/']/b -> b
/a + /a//b -> .//b
)");
    for (const wchar_t* base : {L"/", L"/a", L"/a/b", L"/a/b/c", L"/a/c", L"/b[a/b]/a"})
        for (const wchar_t* path : {L"/", L"/a", L"/a/b", L"/a/b/c", L"/a/c", L"/b[a/b]/a"})
            EXPECT_EQ(
                wide(XPathHelpers::composeXPath(base, XPathHelpers::getRelativeXPath(base, path))),
                path)
                << base;
}

TEST(XPathHelpers, RemoveFiltersWithAllThatIsInThem) {
    for (const auto& [path, result] : rows(LR"(
/a[1]/b[c[d]/e]/f -> /a/b/f
a[b = "]"]/c['['] -> a/c
id("[1]")/a -> id("[1]")/a
a[b -> a
a]b -> a]b
)"))
        EXPECT_EQ(wide(XPathHelpers::removeXPathFilters(Core::String(path))), result);
}

} // namespace

#include "foundation/Format.h"

#include "foundation/StringFormatStream.h"
#include "foundation/Wide.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <tuple>

using Core::Format;
using Core::String;
using Core::StringFormatStream;

namespace {

using Limits = std::numeric_limits<float>;

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

} // namespace

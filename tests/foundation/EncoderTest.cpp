#include "foundation/Encoder.h"
#include "foundation/Messages.h"

#include <gtest/gtest.h>

using Core::Encoder;
using Core::String;

namespace {

std::string utf8(const String& text) {
    return std::string(Encoder::convertStringToUTF8(text).view());
}

std::string faultOf(std::string_view bytes) {
    return messageOf([&] { Encoder::convertUTF8ToString(bytes); });
}

TEST(Encoder, EveryCharacterIsWhatItsBytesSay) {
    EXPECT_EQ(utf8(L"\x7F\x80\x7FF\x800\xD7FF\xE000\xFFFF\U00010000\U0010FFFF"),
              "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
              "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");

    std::wstring all(40, L'\x80');
    for (wchar_t ch = 0; ch <= 0x10FFFF; ++ch) {
        if (ch < 0xD800 || ch > 0xDFFF)
            all += ch;
    }
    const String text{std::wstring_view(all)};
    EXPECT_EQ(text.length(), 40 + 0x10000 - 0x800 + 2 * 0x100000);
    EXPECT_TRUE(Encoder::convertUTF8ToString(utf8(text)) == text);
}

TEST(Encoder, BytesThatAreNoUtf8AreRefusedWithTheirPlace) {
    EXPECT_EQ(faultOf("abc\x80"), "byte 3: stray UTF-8 continuation byte");
    EXPECT_EQ(faultOf("\xC3"), "byte 0: truncated UTF-8 sequence");
    EXPECT_EQ(faultOf("0123456789\xE2\x82z"), "byte 10: truncated UTF-8 sequence");
    EXPECT_EQ(faultOf("a\xC0\xAF"), "byte 1: overlong UTF-8 sequence");
    EXPECT_EQ(faultOf("\xED\xBF\xBF"), "byte 0: UTF-8 encoded surrogate");
    EXPECT_EQ(faultOf("a\xF0\x8F\xBF\xBF"), "byte 1: overlong UTF-8 sequence");
    EXPECT_EQ(faultOf("\xED\xA0\x80"), "byte 0: UTF-8 encoded surrogate");
    EXPECT_EQ(faultOf("\xF4\x90\x80\x80"), "byte 0: UTF-8 sequence beyond U+10FFFF");
    EXPECT_EQ(faultOf("\xF8\x88\x80\x80\x80"), "byte 0: UTF-8 sequence beyond U+10FFFF");
    EXPECT_EQ(faultOf("\xFF"), "byte 0: byte that UTF-8 never uses");
}

TEST(Encoder, ALoneSurrogateIsShownButNeverWritten) {
    const wchar_t high = 0xD83D;
    const wchar_t low = 0xDE00;
    const String reversed{std::wstring{L'a', low, high}};
    const String cut{std::wstring{L'a', high, low, high}};
    EXPECT_EQ(messageOf([&] { utf8(reversed); }), "code unit 1: lone surrogate");
    EXPECT_EQ(messageOf([&] { utf8(cut); }), "code unit 3: lone surrogate");
    EXPECT_EQ(Encoder::toDisplayText(reversed), "a\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Encoder::toDisplayText(L"\U0001F600"), "\xF0\x9F\x98\x80");
}

} // namespace

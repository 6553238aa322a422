#include "foundation/String.h"

#include "foundation/Wide.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <random>

using Core::String;

namespace {

constexpr String::Size negative = static_cast<String::Size>(-1);

TEST(String, BuildsFromEveryKindOfText) {
    EXPECT_EQ(wide(String(static_cast<const wchar_t*>(nullptr))), L"");
    EXPECT_EQ(wide(String(static_cast<const char*>(nullptr))), L"");
    EXPECT_EQ(wide(String(L"abc", 2)), L"ab");
    EXPECT_EQ(wide(String(L"abc", negative)), L"");
    EXPECT_EQ(wide(String(L'x', negative)), L"");
    EXPECT_EQ(wide(String("\xC3\xA9")), L"\xC3\xA9");
    EXPECT_EQ(wide(String::formatS(-2147483647 - 1)), L"-2147483648");
}

TEST(String, SplitsWideLiteralsIntoSurrogates) {
    const wchar_t clef[] = {0x1D11E, 0};
    const std::wstring pair = {0xD834, 0xDD1E};
    String text = clef;
    EXPECT_EQ(wide(text), pair);
    EXPECT_EQ(text.find(clef, 0), 0);
    EXPECT_EQ(text.compare(clef), 0);
    EXPECT_TRUE(text.endsIn(clef));
    text += L'\U0010FFFF';
    text.insert(0, clef);
    text.append(clef);
    EXPECT_EQ(wide(text), pair + pair + std::wstring({0xDBFF, 0xDFFF}) + pair);
    EXPECT_EQ(text.replaceAll(clef, L"-"), 3);
    EXPECT_EQ(wide(text), (std::wstring{L'-', L'-', 0xDBFF, 0xDFFF, L'-'}));
}

TEST(String, NegativeOffsetsAreTheStartAndNegativeLengthsNothing) {
    String text = L"abc";
    EXPECT_EQ(wide(text.subString(negative, 1)), L"ab");
    EXPECT_EQ(wide(text.subString(0, negative)), L"");
    text.erase(0, negative);
    text.insert(negative, L"<");
    text.replace(negative, 1, L"?");
    text.reverse(-5, 99);
    EXPECT_EQ(wide(text), L"cba?");
}

TEST(String, SearchesFromTheStartGiven) {
    const String text = L"<a><b>";
    EXPECT_EQ(text.rFind(L"<b", 3), 3);
    EXPECT_EQ(text.rFind(L"<b", 2), -1);
    EXPECT_EQ(text.rFind(L'>', 99), 5);
    EXPECT_EQ(text.find(L'>', 3), 5);
    EXPECT_EQ(text.find(L"<", 1ULL << 32U), -1); // not cut to 32 bits
    for (const int none : {text.rFind(L'>', negative), text.rFind(L"<", negative),
                           text.rFind(String(L"<"), negative), text.find(L"<", negative)})
        EXPECT_EQ(none, -1);
}

TEST(String, CutsAndReplacesAtMarks) {
    const String name = L"fo:block:x";
    EXPECT_EQ(wide(name.substringBefore(L":")), L"fo");
    EXPECT_EQ(wide(name.substringAfter(L":")), L"block:x");
    EXPECT_EQ(wide(name.substringBefore(L"/")), L"");
    EXPECT_EQ(wide(name.substringAfter(L"/")), L"fo:block:x");
    EXPECT_EQ(wide(name.substringAfter(L"x")), L"");
    EXPECT_EQ(String(L",a,,b,").split(L','), (Core::StringArray{L"", L"a", L"", L"b", L""}));
    String text = L"aaaa";
    EXPECT_EQ(text.replaceAll(L"aa", L"aaa"), 2) << "what it put in is not searched";
    EXPECT_EQ(wide(text), L"aaaaaa");
    text += L"b";
    EXPECT_EQ(text.replaceAll(text.c_str(), text.c_str() + 6), 1) << "parts of itself";
    EXPECT_EQ(wide(text), L"b");
}

TEST(String, WhiteSpaceAndCaseDoNotDependOnTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"C", "C.UTF-8"}) {
        ASSERT_TRUE(std::setlocale(LC_ALL, locale));
        EXPECT_EQ(wide(String(L"\xC4\x416\x3A9Z1").toLower()), L"\xE4\x436\x3C9z1");
        EXPECT_EQ(wide(String(L"\xE4\x436\x3C9z\xDF").toUpper()), L"\xC4\x416\x3A9Z\xDF");
        EXPECT_EQ(wide(String(L"\t\n\v\f\r \xA0 x\x2003 \x85 ").trim()), L"\xA0 x\x2003 \x85");
        EXPECT_FALSE(String::isSpace(L'\x2003') || String::isSpace(8) || String::isSpace(14));
        EXPECT_FALSE(String::isDigit(L'\x0661') || String::isDigit(L'/') || String::isDigit(L':'));
    }
    std::setlocale(LC_ALL, before.c_str());
}

/// One random change, made to a String and to a std::wstring. A piece is now and then a part of
/// the text itself. A length may go beyond the end.
void changeBoth(String& text, std::wstring& model, std::mt19937& random) {
    const std::size_t start = random() % (model.size() + 1);
    const std::size_t count = random() % (model.size() - start + 3);
    ASSERT_EQ(wide(text.subString(start, start + count)), model.substr(start, count + 1));
    ASSERT_EQ(wide(text.subString(start + 1, start)), L"");
    const bool own = random() % 2 == 0 && model.size() < 100;
    const std::wstring piece =
        own ? model.substr(start)
            : std::wstring(random() % 4, static_cast<wchar_t>(L'a' + random() % 26));
    const wchar_t* argument = own ? text.c_str() + start : piece.c_str();
    const int from = static_cast<int>(start), end = static_cast<int>(start + count);
    const auto kind = random() % 6;
    if (kind == 0) {
        text.insert(start / 2, argument);
        model.insert(start / 2, piece);
    } else if (kind == 1) {
        text.erase(start, count);
        model.erase(start, count);
    } else if (kind == 2) {
        own ? text.replace(start, count, text) : text.replace(start, count, String(piece));
        model.replace(start, count, own ? std::wstring(model) : piece);
    } else if (kind == 3) {
        text += argument;
        model += piece;
    } else if (kind == 4) {
        text.reverse(from, end - 1);
        std::reverse(model.begin() + from,
                     model.begin() + std::min(end, static_cast<int>(model.size())));
    } else if (start < model.size()) {
        text[from] = model[start] = L'!';
    }
}

TEST(String, RandomChangesNeverReachCopies) {
    std::mt19937 random(1);
    std::vector<String> texts(6);
    std::vector<std::wstring> models(6);
    for (int round = 0; round < 5000; ++round) {
        const std::size_t from = random() % texts.size();
        const std::size_t to = random() % texts.size();
        texts[to] = texts[from];
        models[to] = models[from];
        changeBoth(texts[from], models[from], random);
        for (std::size_t i = 0; i < texts.size(); ++i)
            ASSERT_EQ(wide(texts[i]), models[i]) << "round " << round;
    }
}

} // namespace

#include "text/PrecedingTags.h"

#include "foundation/Wide.h"
#include "properties/RandomCommands.h"
#include "text/XmlText.h"

#include <gtest/gtest.h>

#include <array>

using XmlScan::Source;
using namespace std::string_literals;

namespace {

std::wstring repeated(int count, const std::wstring& piece) {
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += piece;
    return text;
}

} // namespace

// Walks that read a part of these texts anew at every step would take hours.
TEST(PrecedingTags, AreFoundInOneReadingOfAnyText) {
    const auto many = [](const wchar_t* piece) { return repeated(20000, piece); };
    const std::wstring type = L"<!DOCTYPE r [" + many(L"<!ENTITY e 'x'>");
    for (const std::wstring& units :
         {L"<a>" + many(L">"), L"<a b='" + many(L">"), L"<a b='" + many(L"<c>"), many(L"<x'>'"),
          many(L"<x\"'><y>"), many(L"-->"), many(L"<?>"), many(L"<!DOCTYPE>>"),
          type + many(L"<b/>>"), type + L"]><r>" + many(L"<b/>>"),
          many(L"<!-- ' -->") + L"<r>" + many(L"<b/>>"), L"<r>" + many(L"</a>"),
          L"<r>" + many(L"<a>")}) {
        SCOPED_TRACE(units.substr(0, 20) + L"..." + units.substr(units.size() - 20));
        XmlText text;
        text.assign(Core::String(units));
        const int last = text.length() - 1;
        EXPECT_EQ(text.previousNamed(last, L"none"), -1);
        for (int at = last + 1, before; (before = text.previous(at)) >= 0; at = before) {
            ASSERT_LT(before, at);
            ASSERT_LT(text.elementAround(before), before);
            ASSERT_LE(text.previousTag(before), before);
        }
        EXPECT_LT(text.elementAround(last), last);
        EXPECT_LT(XmlScan::currentElement(units, last, Source::Fragment), last);
        EXPECT_LE(text.startTag(text.rFind(L'<', last)), last);
    }
}

TEST(ClosingTags, AreLookedForInOneReadingOfTheText) {
    constexpr int count = 20000;
    const std::wstring open = repeated(count, L"<a>");
    for (const std::wstring& close : {L""s, L"</b>"s, repeated(count, L"</a>")}) {
        XmlText text;
        text.assign(Core::String(L"<r>" + open + close));
        const bool areClosed = close.size() > open.size();
        const int first = 3;
        const int last = text.length() - 4;
        for (int i = 0; i < count; ++i)
            ASSERT_EQ(text.closingTag(first + 3 * i), areClosed ? last - 4 * i : -1);
    }
}

// What is remembered of the tags before a place and of the elements around it.
TEST(PrecedingTags, AreFoundAsInATextNeverAskedBefore) {
    static constexpr std::array pieces{L"'>",
                                       L"x",
                                       L">",
                                       L"<b><c>y</c></b>",
                                       L"<!---->",
                                       L"<c></c>",
                                       L"<![CDATA[<b>]]>",
                                       L"&lt;",
                                       L"&",
                                       L";",
                                       L"a text of some length > 1"};
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        const std::string type = random.oneIn(2) ? "<!DOCTYPE r [<!ENTITY e '>'><!-- ' -->]>" : "";
        const bool isSmall = seed % 3 == 0, isTorn = seed % 2 == 0;
        const std::string whole =
            isSmall ? "<r><b>x</b><b><c>x</c></b></r>" : randomDocument(random);
        XmlText text;
        text.assign(Core::String((type + (isTorn ? mutilated(whole, random) : whole)).c_str()));
        for (int i = 0; i < 200 && text.length() > 0; ++i) {
            const auto below = [&](int limit) { return static_cast<int>(random.below(limit)); };
            const int at = random.oneIn(4) ? text.length() - 1 : below(text.length());
            const auto all = text.view(0, text.length());
            ASSERT_EQ(text.previousTag(at), XmlScan::previousTag(all, at)) << wide(text.content());
            ASSERT_EQ(text.previous(at), XmlScan::stepBackward(all, at, L""));
            ASSERT_EQ(text.elementAround(at), XmlScan::currentElement(all, at));
            ASSERT_EQ(text.unitStart(at), XmlScan::unitStart(all, at));
            const int tag = text.previousTag(at);
            ASSERT_EQ(text.elementAround(tag), XmlScan::currentElement(all, tag));
            ASSERT_EQ(text.closingTag(tag), XmlScan::closingTag(all, tag));
            const int end = text.closingTag(tag);
            if (end > tag && tag > 0 && random.oneIn(6))
                text.erase(tag, text.next(end));
            else if (random.oneIn(4))
                text.erase(at, std::min(at + below(9), text.length()));
            else if (random.oneIn(2))
                text.insert(random.oneIn(2) ? at : text.unitStart(at), random.oneOf(pieces));
        }
    }
}

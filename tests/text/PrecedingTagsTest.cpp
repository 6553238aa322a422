#include "text/torn/PrecedingTags.h"

#include "foundation/Wide.h"
#include "properties/RandomCommands.h"
#include "text/XmlText.h"

#include <gtest/gtest.h>

#include <algorithm>

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

namespace {

void expectAsInANewText(const XmlText& text, int at) {
    const auto all = text.view(0, text.length());
    const bool isRegular = TextStore(std::wstring(all)).isRegular();
    ASSERT_EQ(text.unitStart(at), XmlScan::unitStart(all, at));
    ASSERT_EQ(text.nextTag(at), XmlScan::nextTag(all, at));
    ASSERT_EQ(text.next(at), XmlScan::stepForward(all, at));
    for (const int place : {at, text.previousTag(at), text.unitStart(at)}) {
        ASSERT_EQ(text.previousTag(place), XmlScan::previousTag(all, place)) << place;
        ASSERT_EQ(text.previous(place), XmlScan::stepBackward(all, place, L"")) << place;
        if (!isRegular) { // else the store knows, which has a test of its own
            ASSERT_EQ(text.elementAround(place), XmlScan::currentElement(all, place)) << place;
        }
        ASSERT_EQ(text.closingTag(place), XmlScan::closingTag(all, place)) << place;
        ASSERT_EQ(text.tagEnd(place), XmlScan::tagEnd(all, place)) << place;
        ASSERT_EQ(text.selfClosingAt(place), XmlScan::selfClosingAt(all, place)) << place;
    }
}

/// Takes an element, or anything where tags need not match, or puts something in.
void edit(XmlText& text, Random& random, int at, bool keepsTags) {
    static const Core::StringArray pieces =
        Core::String(L"x¦>¦'>¦<b><c>y</c></b>¦<!---->¦<c></c>¦<![CDATA[<b>]]>¦&lt;¦&¦;¦a text that "
                     L"is so long that what stands before it is remembered, with x and > in it")
            .split(L'¦');
    static const Core::StringArray torn =
        Core::String(L"<a>¦</a>¦<c x='¦\"¦<d/>¦/>¦<!--¦--></e>¦" + std::wstring(300, L'z'))
            .split(L'¦');
    const int place = text.unitStart(at), end = text.closingTag(place);
    if (end > place && place > 0 && random.oneIn(3))
        text.erase(place, text.lastOffsetOf(place) + 1);
    else if (keepsTags && text.unitAt(place) == L'x' && random.oneIn(2))
        text.erase(place, place + 1);
    else if (!keepsTags && random.oneIn(2))
        text.erase(at, std::min(at + static_cast<int>(random.below(9)), text.length()));
    else if (!keepsTags || text.elementAround(place) >= 0)
        text.insert(place, random.oneOf(!keepsTags && random.oneIn(2) ? torn : pieces));
}

} // namespace

// What is remembered of the tags before a place and of the elements around it.
TEST(PrecedingTags, AreFoundAsInATextNeverAskedBefore) {
    for (std::uint32_t seed = 1; seed <= 24; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        const bool keepsTags = seed % 3 == 0;
        const std::string type = random.oneIn(2) ? "<!DOCTYPE r [<!ENTITY e '>'><!-- ' -->]>" : "";
        XmlText text;
        text.assign(Core::String(keepsTags
                                     ? "<r><b>x</b><b><c>x</c></b></r>"
                                     : (type + mutilated(randomDocument(random), random)).c_str()));
        for (int i = 0; i < 600 && text.length() > 0; ++i) {
            const auto length = static_cast<std::size_t>(text.length());
            const int at = static_cast<int>(random.oneIn(4) ? length - 1 : random.below(length));
            ASSERT_NO_FATAL_FAILURE(expectAsInANewText(text, at));
            if (random.oneIn(keepsTags ? 6 : 3))
                edit(text, random, at, keepsTags);
        }
    }
}

#include "document/MarkupChange.h"

#include "properties/RandomCommands.h"
#include "support/WellFormed.h"
#include "text/XmlValidator.h"

#include "foundation/Encoder.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

using Core::String;

bool isWellFormed(const std::wstring& text) {
    return xmlError(String(text)).empty();
}

bool isLexicallyValid(const std::wstring& text) {
    const String string(text);
    return XmlValidator(string).validate();
}

std::string shown(const std::wstring& text) {
    return Core::Encoder::toDisplayText(String(text));
}

std::wstring oneOf(const Core::StringArray& pieces, Random& random) {
    return std::wstring(random.oneOf(pieces).view());
}

/// Content with every kind of markup, around which edits can go wrong.
std::wstring anyContent(Random& random) {
    static const Core::StringArray pieces =
        String(L"x¦ ¦&amp;¦<b>¦</b>¦<a>¦</a>¦<c/>¦<d k='>' j=\"'\"/>¦<!-- <b> - -->¦"
               L"<![CDATA[<b>&]]>¦<?p <b> ' ?>¦]¦'¦>¦\xD83D\xDE00¦&#65;&#x1F600;¦<\x00E9 "
               L"\x00FC:\x00E9='&lt;'/>")
            .split(L'¦');
    for (;;) {
        std::wstring content;
        for (std::size_t count = random.below(12); count > 0; --count)
            content += oneOf(pieces, random);
        if (isWellFormed(L"<a>" + content + L"</a>"))
            return content;
    }
}

std::wstring anyDocument(Random& random) {
    static constexpr std::array prologs{
        L"", L"<?xml version=\"1.0\" encoding=\"utf-16\"?>\n", L"<!-- <x> ' -->",
        L"<!DOCTYPE a [<!ENTITY e \"x]>\"><!ENTITY f \"<b/>\"><!-- ]> ' --><?p ]> ?>]>"};
    static constexpr std::array epilogs{L"", L"\n", L"<!-- </a> -->", L"<?p </a>?>"};
    for (;;) {
        const std::wstring text = std::wstring(random.oneOf(prologs)) + L"<a k=\"v\">" +
                                  anyContent(random) + L"</a>" + random.oneOf(epilogs);
        if (isWellFormed(text))
            return text;
    }
}

std::wstring anyEdit(Random& random, std::wstring text) {
    static const Core::StringArray pieces =
        String(
            L"x¦<b>¦</b>¦</b><b>¦</a><a>¦<c/>¦&¦&e;¦&amp;¦;¦]]>¦]]¦>¦<¦\"¦'¦!--¦-->¦<!--¦--¦"
            L"<?p ?>¦<![CDATA[¦]¦</part><part>¦/¦ "
            L"k='1'¦¦\xD83D¦\xFFFF¦\xDE00¦<?xml?>¦<a>¦#¦x¦&#2;¦1¦"
            L"&#xD800;¦&#xFFFF;¦ m=\"&amp;\"¦\x00D7¦\x00E9¦\x0001¦<?XML ?>¦<?\x00E9?>¦&f;¦=¦ ¦<!")
            .split(L'¦');
    const std::size_t from = random.below(text.size() + 1);
    text.replace(from, random.oneIn(2) ? 0 : random.below(12), oneOf(pieces, random));
    return text;
}

} // namespace

TEST(MarkupChange, AgreesWithAParserThatReadsTheWholeText) {
    Random random(1);
    int accepted = 0;
    constexpr int edits = 10000;
    std::wstring before = anyDocument(random);
    for (int i = 0; i < edits; ++i) {
        const std::wstring after = anyEdit(random, before);
        const bool expected =
            isWellFormed(after) && (isLexicallyValid(after) || !isLexicallyValid(before)) &&
            Core::Encoder::toDisplayText(String(after)).find("\xEF\xBF\xBD") == std::string::npos;
        accepted += expected ? 1 : 0;
        ASSERT_EQ(MarkupChange(String(before), String(after)).keepsWellFormed(), expected)
            << shown(before) << "\n"
            << shown(after);
        if (random.oneIn(8))
            before = anyDocument(random);
        else if (expected)
            before = after;
    }
    EXPECT_GT(accepted, edits / 10);
    EXPECT_LT(accepted, edits * 9 / 10);
}

TEST(MarkupChange, LetsADocumentThatIsBrokenElsewhereBeEditedAndMended) {
    const auto keeps = [](const wchar_t* before, const wchar_t* after) {
        return MarkupChange(String(before), String(after)).keepsWellFormed();
    };
    EXPECT_TRUE(keeps(L"<a>&none;<b>x</b></a>", L"<a>&none;<b>xy</b></a>"));
    EXPECT_FALSE(keeps(L"<a>&none;<b>x</b></a>", L"<a>&none;<b>x<c></b></a>"));
    EXPECT_TRUE(keeps(L"<a><b>x</a>", L"<a><b>x</b></a>"));
    EXPECT_TRUE(keeps(L"<a>x & y</a>", L"<a>x &amp; y</a>"));
    EXPECT_TRUE(keeps(L"<a>x & y</a>", L"<a>x &, y</a>"));
    EXPECT_FALSE(keeps(L"<a>x & y</a>", L"<a>x & & y</a>"));
}

/// Markup in front that a parser refuses, or that tells it less than all, changes no verdict on
/// what stands behind.
TEST(MarkupChange, ProtectsWhatChangesWhateverTheParserSaysOfTheRest) {
    static constexpr std::array fronts{L"<!DOCTYPE q [<!ENTITY out SYSTEM \"o\">]><q>&out;",
                                       L"<q><z>",
                                       L"<q></b>",
                                       L"<q>&none;",
                                       L"<q>&",
                                       L"<q><b c=\"1\" c=\"2\"/>"};
    Random random(2);
    for (int i = 0; i < 3000; ++i) {
        const std::wstring before = anyContent(random);
        const std::wstring after = anyEdit(random, before);
        const auto framed = [](const wchar_t* front, const std::wstring& content) {
            return String(front + (L" " + content) + L" </q>");
        };
        const bool expected =
            MarkupChange(framed(L"<q>", before), framed(L"<q>", after)).keepsWellFormed();
        for (const wchar_t* front : fronts)
            ASSERT_EQ(MarkupChange(framed(front, before), framed(front, after)).keepsWellFormed(),
                      expected)
                << shown(front) << shown(before) << "\n"
                << shown(after);
    }
}

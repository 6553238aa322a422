#include "text/MarkupChange.h"

#include "properties/RandomCommands.h"
#include "support/WellFormed.h"
#include "text/XmlValidator.h"

#include "foundation/Encoder.h"

#include <gtest/gtest.h>

#include <algorithm>
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

struct AnyEdit {
    std::size_t from;
    std::size_t count;
    std::wstring piece;

    std::wstring in(std::wstring text) const { return text.replace(from, count, piece); }
};

/// The verdict on the edit when it is made in pieces, at an offset of the text.
bool keepsWellFormed(const std::wstring& before, const AnyEdit& edit, std::size_t offset = 0) {
    XmlText text;
    text.assign(String(before));
    const TextMark mark = text.mark();
    const std::size_t from = offset + edit.from;
    const int start = static_cast<int>(from);
    const int end = static_cast<int>(from + edit.count);
    const int middle = (start + end) / 2;
    text.erase(middle, end);
    text.erase(start, middle);
    text.insert(start, String(edit.piece.substr(edit.piece.size() / 2)));
    text.insert(start, String(edit.piece.substr(0, edit.piece.size() / 2)));
    const bool keeps = MarkupChange(text, mark).keepsWellFormed();
    EXPECT_TRUE(!text.isKnownWhole() || isWellFormed(std::wstring(text.content().view())))
        << shown(before);
    return keeps;
}

bool keepsWellFormed(const wchar_t* before, const wchar_t* after) {
    return keepsWellFormed(before, {0, std::wstring(before).size(), after});
}

AnyEdit anyEdit(Random& random, const std::wstring& text) {
    static const Core::StringArray pieces =
        String(
            L"x¦<b>¦</b>¦</b><b>¦</a><a>¦<c/>¦&¦&e;¦&amp;¦;¦]]>¦]]¦>¦<¦\"¦'¦!--¦-->¦<!--¦--¦"
            L"<?p ?>¦<![CDATA[¦]¦</part><part>¦/¦ "
            L"k='1'¦¦\xD83D¦\xFFFF¦\xDE00¦<?xml?>¦<a>¦#¦x¦&#2;¦1¦"
            L"&#xD800;¦&#xFFFF;¦ m=\"&amp;\"¦\x00D7¦\x00E9¦\x0001¦<?XML ?>¦<?\x00E9?>¦&f;¦=¦ ¦<!")
            .split(L'¦');
    const std::size_t from = random.below(text.size() + 1);
    const std::size_t count = random.oneIn(2) ? 0 : random.below(12);
    return {from, std::min(count, text.size() - from), oneOf(pieces, random)};
}

} // namespace

TEST(MarkupChange, AgreesWithAParserThatReadsTheWholeText) {
    Random random(1);
    int accepted = 0;
    constexpr int edits = 10000;
    std::wstring before = anyDocument(random);
    for (int i = 0; i < edits; ++i) {
        const AnyEdit edit = anyEdit(random, before);
        const std::wstring after = edit.in(before);
        const bool expected =
            isWellFormed(after) && (isLexicallyValid(after) || !isLexicallyValid(before)) &&
            Core::Encoder::toDisplayText(String(after)).find("\xEF\xBF\xBD") == std::string::npos;
        accepted += expected ? 1 : 0;
        ASSERT_EQ(keepsWellFormed(before, edit), expected) << shown(before) << "\n" << shown(after);
        if (random.oneIn(8))
            before = anyDocument(random);
        else if (expected)
            before = after;
    }
    EXPECT_GT(accepted, edits / 10);
    EXPECT_LT(accepted, edits * 9 / 10);
}

TEST(MarkupChange, LetsADocumentThatIsBrokenElsewhereBeEditedAndMended) {
    EXPECT_TRUE(keepsWellFormed(L"<a>&none;<b>x</b></a>", L"<a>&none;<b>xy</b></a>"));
    EXPECT_FALSE(keepsWellFormed(L"<a>&none;<b>x</b></a>", L"<a>&none;<b>x<c></b></a>"));
    EXPECT_TRUE(keepsWellFormed(L"<a><b>x</a>", L"<a><b>x</b></a>"));
    EXPECT_TRUE(keepsWellFormed(L"<a>x & y</a>", L"<a>x &amp; y</a>"));
    EXPECT_TRUE(keepsWellFormed(L"<a>x & y</a>", L"<a>x &, y</a>"));
    EXPECT_FALSE(keepsWellFormed(L"<a>x & y</a>", L"<a>x & & y</a>"));
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
        const AnyEdit edit = anyEdit(random, before);
        const auto verdict = [&](const std::wstring& front) {
            const std::wstring framed = front + L" " + before + L" </q>";
            return keepsWellFormed(framed, edit, front.size() + 1);
        };
        const bool expected = verdict(L"<q>");
        for (const wchar_t* front : fronts)
            ASSERT_EQ(verdict(front), expected) << shown(front) << shown(before) << "\n"
                                                << shown(edit.in(before));
    }
}

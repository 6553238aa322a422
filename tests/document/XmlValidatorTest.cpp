#include "text/XmlValidator.h"

#include "properties/RandomCommands.h"

#include <gtest/gtest.h>

#include <array>
#include <regex>
#include <string>

namespace {

// The hyphens that open a comment may also close it.
const std::wstring comment = LR"(<!(?=--)(?:(?!-->)[\s\S])*-->)";
const std::wstring section = LR"(<!\[CDATA\[(?:(?!\]\]>)[\s\S])*\]\]>)";
const std::wstring value = LR"(=[^"']*(?:"[^"<]*"|'[^'<]*'))";
const std::wstring tag = LR"(<(?!!--|!\[CDATA\[)(?:[^<>="']|)" + value + L")*>";

} // namespace

TEST(XmlValidator, ReadsShortTextsAsAGrammarDoes) {
    static constexpr std::array pieces{L"<", L">",  L"\"", L"'",   L"=",   L"<!--",      L"-->",
                                       L"-", L"a",  L"]]", L"]]>", L"<a>", L"<![CDATA[", L"/",
                                       L"!", L" a", L"<!", L"[",   L"=\"", L"&",         L"\">"};
    const std::wregex grammar(L"(?:[^<]|" + comment + L"|" + section + L"|" + tag + L")*");
    Random random(1);
    int valid = 0;
    constexpr int texts = 20000;
    for (int i = 0; i < texts; ++i) {
        std::wstring text;
        for (std::size_t count = random.below(8); count > 0; --count)
            text += random.oneOf(pieces);
        const bool expected = std::regex_match(text, grammar);
        valid += expected ? 1 : 0;
        ASSERT_EQ(XmlValidator(Core::String(text)).validate(), expected) << text;
    }
    EXPECT_GT(valid, texts / 10);
    EXPECT_LT(valid, texts * 9 / 10);
}

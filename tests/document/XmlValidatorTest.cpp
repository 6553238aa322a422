#include "document/XmlValidator.h"

#include "properties/RandomCommands.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

/// The check as a machine that reads one character after the other.
bool isValidByStates(const std::wstring& text) {
    enum class State { Text, Tag, Attribute, DoubleQuoted, SingleQuoted, Comment, CData };
    State state = State::Text;
    std::wstring tag; // its first characters
    for (std::size_t at = 0; at < text.size(); ++at) {
        const wchar_t unit = text[at];
        const std::wstring last = text.substr(at < 2 ? 0 : at - 2, at < 2 ? at + 1 : 3);
        switch (state) {
        case State::Text:
            if (unit == L'<') {
                state = State::Tag;
                tag = unit;
            }
            break;
        case State::Tag:
            tag += unit;
            if (tag == L"<!--")
                state = State::Comment;
            else if (tag == L"<![CDATA[")
                state = State::CData;
            else if (unit == L'>')
                state = State::Text;
            else if (unit == L'=')
                state = State::Attribute;
            else if (unit == L'<' || unit == L'"' || unit == L'\'')
                return false;
            break;
        case State::Attribute:
            if (unit == L'"')
                state = State::DoubleQuoted;
            else if (unit == L'\'')
                state = State::SingleQuoted;
            break;
        case State::DoubleQuoted:
        case State::SingleQuoted:
            if (unit == L'<')
                return false;
            if (unit == (state == State::DoubleQuoted ? L'"' : L'\''))
                state = State::Tag;
            break;
        case State::Comment:
            if (last == L"-->")
                state = State::Text;
            break;
        case State::CData:
            if (last == L"]]>")
                state = State::Text;
            break;
        }
    }
    return state == State::Text;
}

} // namespace

TEST(XmlValidator, ReadsShortTextsAsAMachineOfStatesDoes) {
    static constexpr std::array pieces{L"<", L">",  L"\"", L"'",   L"=",   L"<!--",      L"-->",
                                       L"-", L"a",  L"]]", L"]]>", L"<a>", L"<![CDATA[", L"/",
                                       L"!", L" a", L"<!", L"[",   L"=\"", L"&",         L"\">"};
    Random random(1);
    int valid = 0;
    constexpr int texts = 50000;
    for (int i = 0; i < texts; ++i) {
        std::wstring text;
        for (std::size_t count = random.below(8); count > 0; --count)
            text += random.oneOf(pieces);
        const bool expected = isValidByStates(text);
        valid += expected ? 1 : 0;
        ASSERT_EQ(XmlValidator(Core::String(text)).validate(), expected)
            << std::string(text.begin(), text.end());
    }
    EXPECT_GT(valid, texts / 10);
    EXPECT_LT(valid, texts * 9 / 10);
}

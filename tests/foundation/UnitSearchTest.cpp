#include "foundation/UnitSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace UnitSearch = Core::UnitSearch;

namespace {

bool isMatch(std::wstring_view text, std::wstring_view what, long long at) {
    return at + what.size() <= text.size() &&
           text.substr(static_cast<std::size_t>(at), what.size()) == what;
}

int naiveForward(std::wstring_view text, std::wstring_view what, long long start) {
    for (long long at = start; at < static_cast<long long>(text.size()); ++at)
        if (isMatch(text, what, at))
            return static_cast<int>(at);
    return -1;
}

int naiveBackward(std::wstring_view text, std::wstring_view what, long long start) {
    for (long long at = std::min<long long>(start, static_cast<long long>(text.size()) - 1);
         at >= 0; --at)
        if (isMatch(text, what, at))
            return static_cast<int>(at);
    return -1;
}

void expectLikeNaive(std::wstring_view text, std::wstring_view what) {
    for (unsigned start = 0; start < text.size() + 3; ++start) {
        SCOPED_TRACE(testing::Message()
                     << std::wstring(what) << " in " << std::wstring(text) << " from " << start);
        ASSERT_EQ(UnitSearch::forward(text, what, start), naiveForward(text, what, start));
        ASSERT_EQ(UnitSearch::backward(text, what, start), naiveBackward(text, what, start));
        if (what.size() != 1)
            continue;
        ASSERT_EQ(UnitSearch::forward(text, what[0], start), naiveForward(text, what, start));
        ASSERT_EQ(UnitSearch::backward(text, what[0], start), naiveBackward(text, what, start));
    }
}

TEST(UnitSearch, FindsASingleUnitAtEveryOffset) {
    for (std::size_t size = 0; size < 36; ++size) {
        expectLikeNaive(std::wstring(size, L'.'), L"x");
        for (std::size_t at = 0; at < size; ++at) {
            std::wstring text(size, L'.');
            text[at] = L'x';
            expectLikeNaive(text, L"x");
        }
    }
}

TEST(UnitSearch, AgreesWithTheNaiveSearchOnRandomTexts) {
    std::mt19937 random(7);
    const auto anyText = [&](std::size_t size) {
        std::wstring text(size, L'a');
        for (wchar_t& unit : text)
            unit = random() % 4 ? L'a' : L'b';
        return text;
    };
    for (int round = 0; round < 150; ++round) {
        const std::wstring text = anyText(random() % 70);
        expectLikeNaive(text, anyText(random() % 6));
        expectLikeNaive(text, text);
        expectLikeNaive(text, text + L"a");
    }
}

TEST(UnitSearch, DoesNotReadBehindAViewThatIsPartOfAText) {
    const std::wstring text = L"aaaabaaaa";
    const std::wstring_view part = std::wstring_view(text).substr(1, 3);
    EXPECT_EQ(UnitSearch::forward(part, L"ab", 0), -1);
    EXPECT_EQ(UnitSearch::backward(part, L"ab", 99), -1);
    EXPECT_EQ(UnitSearch::backward(part, L'b', 99), -1);
}

} // namespace

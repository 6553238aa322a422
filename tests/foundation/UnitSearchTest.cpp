#include "foundation/UnitSearch.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace UnitSearch = Core::UnitSearch;

namespace {

/// Searches one offset after the other; `text` without its last unit is what is searched, so that
/// a match must not take the unit behind.
void expectLikeNaive(const std::wstring& text, std::wstring_view what) {
    const std::wstring_view part = std::wstring_view(text).substr(0, text.size() - 1);
    const auto isMatch = [&](std::size_t at) {
        return at < part.size() && part.substr(at, what.size()) == what;
    };
    for (unsigned start = 0; start < part.size() + 3; ++start) {
        int forward = -1;
        for (std::size_t at = part.size(); at-- > start;)
            forward = isMatch(at) ? static_cast<int>(at) : forward;
        int backward = -1;
        for (std::size_t at = 0; at <= start; ++at)
            backward = isMatch(at) ? static_cast<int>(at) : backward;
        SCOPED_TRACE(testing::Message()
                     << std::wstring(what) << " in " << std::wstring(part) << " from " << start);
        ASSERT_EQ(UnitSearch::forward(part, what, start), forward);
        ASSERT_EQ(UnitSearch::backward(part, what, start), backward);
        if (what.size() == 1) {
            ASSERT_EQ(UnitSearch::forward(part, what[0], start), forward);
            ASSERT_EQ(UnitSearch::forwardEither(part, what[0], L'?', start), forward);
            ASSERT_EQ(UnitSearch::forwardEither(part, L'?', what[0], start), forward);
            ASSERT_EQ(UnitSearch::backward(part, what[0], start), backward);
        }
    }
}

TEST(UnitSearch, FindsASingleUnitAtEveryOffset) {
    for (std::size_t size = 1; size < 37; ++size) {
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
        const std::wstring text = anyText(1 + random() % 70);
        expectLikeNaive(text, anyText(random() % 6));
        expectLikeNaive(text, text);
        expectLikeNaive(text, text.substr(0, text.size() - 1));
    }
}

} // namespace

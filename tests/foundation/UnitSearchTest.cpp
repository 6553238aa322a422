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
    for (unsigned start = 0; start < part.size() + 3; ++start) {
        int forward = -1;
        int backward = -1;
        for (std::size_t at = 0; at < part.size(); ++at) {
            if (part.substr(at, what.size()) != what)
                continue;
            forward = at >= start && forward < 0 ? static_cast<int>(at) : forward;
            backward = at <= start ? static_cast<int>(at) : backward;
        }
        SCOPED_TRACE(testing::Message()
                     << std::wstring(what) << " in " << text << " from " << start);
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

} // namespace

TEST(UnitSearch, AgreesWithTheNaiveSearch) {
    std::mt19937 random(7);
    const auto anyText = [&](std::size_t size) {
        std::wstring text(size, L'a');
        for (wchar_t& unit : text)
            unit = random() % (1 + size / 2) ? L'a' : L'b'; // in long texts far from each other
        return text;
    };
    for (int round = 0; round < 300; ++round) {
        const std::wstring text = anyText(1 + random() % 70);
        for (const std::wstring& what :
             {std::wstring(L"b"), anyText(random() % 6), text, text.substr(0, text.size() - 1)})
            expectLikeNaive(text, what);
    }
}

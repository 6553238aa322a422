#include "text/TextView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <type_traits>

namespace {

std::wstring anyText(std::mt19937& random, std::size_t most) {
    std::wstring text(random() % (most + 1), L'a');
    for (wchar_t& unit : text)
        unit = static_cast<wchar_t>(L'a' + random() % 2);
    return text;
}

} // namespace

// Nobody who is given a view can take it for one piece of memory.
static_assert(!std::is_convertible_v<TextView, std::wstring_view>);
static_assert(!std::is_reference_v<decltype(*TextView().begin())>);

TEST(TextView, AnswersAsAPlainViewDoes) {
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        const std::wstring text = anyText(random, 12);
        const std::wstring what = anyText(random, 3);
        const std::wstring_view plain(text);
        const TextView view(text);
        SCOPED_TRACE(testing::Message() << what << " in " << text);
        EXPECT_EQ(view == TextView(what), plain == what);
        EXPECT_EQ(view < TextView(what), plain < what);
        EXPECT_EQ(view.starts_with(TextView(what)), plain.starts_with(what));
        EXPECT_EQ(view.ends_with(TextView(what)), plain.ends_with(what));
        EXPECT_TRUE(std::equal(view.begin(), view.end(), plain.begin(), plain.end()));
        EXPECT_TRUE(std::equal(view.rbegin(), view.rend(), plain.rbegin(), plain.rend()));
        for (std::size_t at = 0; at < text.size(); ++at) {
            EXPECT_EQ(view.find(TextView(what), at), plain.find(what, at));
            EXPECT_EQ(view.rfind(L'b', at), plain.rfind(L'b', at));
            EXPECT_EQ(view.findEither(L'?', L'b', at), plain.find(L'b', at));
            EXPECT_EQ(std::wstring(view.substr(at, 2)), plain.substr(at, 2));
        }
    }
    EXPECT_EQ(TextView(L"fo:block"), TextView(Core::String(L"fo:block")));
    EXPECT_EQ(Core::String(TextView(L"fo:block").substr(3)), L"block");
}

#include "foundation/ObjectId.h"

#include "foundation/Wide.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

bool isLetter(wchar_t ch) {
    return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z');
}

TEST(ObjectId, IsAnXmlIdThatIsRandomFromItsFirstCharacter) {
    std::set<std::wstring> beginnings;
    std::set<wchar_t> firsts;
    std::set<wchar_t> lasts;
    for (int i = 0; i < 4000; ++i) {
        const std::wstring id = wide(ObjectId::generate());
        ASSERT_EQ(id.size(), 22U);
        ASSERT_TRUE(isLetter(id.front()));
        ASSERT_TRUE(std::all_of(id.begin(), id.end(), [](wchar_t ch) {
            return isLetter(ch) || Core::String::isDigit(ch);
        }));
        beginnings.insert(id.substr(0, 8));
        firsts.insert(id.front());
        lasts.insert(id.back());
    }
    EXPECT_EQ(beginnings.size(), 4000U);
    EXPECT_EQ(firsts.size(), 52U);
    EXPECT_EQ(lasts.size(), 62U);
}

TEST(ObjectId, SeedRepeatsTheSequenceUntilUnseeded) {
    ObjectId::seed(5);
    const std::wstring first = wide(ObjectId::generate());
    const std::wstring second = wide(ObjectId::generate());
    ObjectId::seed(5);
    EXPECT_EQ(wide(ObjectId::generate()), first);
    ObjectId::seed(6);
    EXPECT_NE(wide(ObjectId::generate()), first);
    ObjectId::seed(5);
    static_cast<void>(ObjectId::generate());
    ObjectId::unseed();
    EXPECT_NE(wide(ObjectId::generate()), second);
}

} // namespace

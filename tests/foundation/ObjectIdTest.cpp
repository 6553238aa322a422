#include "foundation/ObjectId.h"

#include "foundation/Wide.h"

#include <gtest/gtest.h>

#include <set>

TEST(ObjectId, IsAnXmlIdThatIsRandomFromItsFirstCharacter) {
    const std::wstring letters = L"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    std::set<std::wstring> beginnings;
    std::set<wchar_t> firsts, lasts;
    for (int i = 0; i < 4000; ++i) {
        const std::wstring id = wide(ObjectId::generate());
        ASSERT_EQ(id.size(), 22U);
        ASSERT_NE(letters.find(id.front()), letters.npos);
        ASSERT_EQ(id.find_first_not_of(letters + L"0123456789"), id.npos);
        beginnings.insert(id.substr(0, 8));
        firsts.insert(id.front());
        lasts.insert(id.back());
    }
    EXPECT_EQ(beginnings.size(), 4000U);
    EXPECT_EQ(firsts.size(), 52U);
    EXPECT_EQ(lasts.size(), 62U);
}

#include "foundation/Exception.h"
#include "foundation/Console.h"
#include "foundation/Vector.h"
#include "foundation/Wide.h"

#include <gtest/gtest.h>

namespace {

TEST(Exception, CopyKeepsMessageAndCodeLocation) {
    const Core::Exception copy = [] {
        Core::Exception original(L"letter.xml: \xE9");
        original.initCodeLocation("Parser.cpp", 12);
        return Core::Exception(static_cast<const Core::Exception&>(original));
    }();
    EXPECT_EQ(wide(copy.getMessage()), L"letter.xml: \xE9");
    EXPECT_STREQ(copy.what(), "letter.xml: \xC3\xA9");
    testing::internal::CaptureStderr();
    copy.logError();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Parser.cpp:12: letter.xml: \xC3\xA9\n");
}

TEST(Exception, WithoutCodeLocationLogsTheMessageAlone) {
    testing::internal::CaptureStderr();
    Core::Exception(L"no file").logError();
    Core::Exception().logError();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "no file\n\n");
}

TEST(Console, WritesALineOfUtf8AndLeavesStandardOutputAlone) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    Core::Console::writeLine(L"\x20AC");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "\xE2\x82\xAC\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(Vector, CopiesHoldTheirOwnValues) {
    Core::Vector<Core::String> original = {L"a", L"b"};
    const Core::Vector<Core::String> copy = original;
    original[0] += L"x";
    original.erase(original.begin() + 1);
    EXPECT_EQ(copy.size(), 2U);
    EXPECT_EQ(wide(copy[0] + copy[1]), L"ab");
    Core::StringArray grown;
    for (int i = 0; i < 100; ++i)
        grown.push_back(Core::String::formatS(i));
    EXPECT_EQ(wide(grown[0] + grown[99]), L"099");
}

} // namespace

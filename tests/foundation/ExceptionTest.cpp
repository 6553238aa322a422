#include "foundation/Exception.h"
#include "foundation/Wide.h"

#include <gtest/gtest.h>

TEST(Exception, ACopyIsLoggedAsItsOriginal) {
    const Core::Exception copy = [] {
        Core::Exception original(L"letter.xml: \xE9");
        original.initCodeLocation("Parser.cpp", 12);
        return Core::Exception(static_cast<const Core::Exception&>(original));
    }();
    EXPECT_EQ(wide(copy.getMessage()), L"letter.xml: \xE9");
    EXPECT_STREQ(copy.what(), "letter.xml: \xC3\xA9");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    copy.logError();
    Core::Exception(L"no file").logError();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Parser.cpp:12: letter.xml: \xC3\xA9\nno file\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

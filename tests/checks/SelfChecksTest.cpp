// That the checks which the library makes of itself pass, and that they find what is wrong.

#include "checks/SelfChecks.h"

#include "checks/Check.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

/// What a function tells on the console.
template <typename Function>
std::string told(Function function) {
    testing::internal::CaptureStderr();
    function();
    return testing::internal::GetCapturedStderr();
}

std::ptrdiff_t countOf(const std::string& line, const std::string& text) {
    std::ptrdiff_t count = 0;
    for (std::size_t at = text.find(line); at != text.npos; at = text.find(line, at + 1))
        ++count;
    return count;
}

const Check& named(std::span<const Check> checks, const std::wstring& name) {
    for (const Check& check : checks)
        if (check.name == name)
            return check;
    throw std::invalid_argument("no such check");
}

struct Fault {
    std::span<const Check> checks;
    Checks::Trial trial;
    const wchar_t* name;
    const wchar_t* Check::*text; // whose first `old` becomes `with`
    wchar_t old;
    wchar_t with;
};

} // namespace

TEST(SelfChecks, Pass) {
    for (const auto test :
         {testBuffer, testFormBuffer, testListBuffer, testTableBuffer, testXmlValidator}) {
        bool havePassed = false;
        const std::string lines = told([&] { havePassed = test(); });
        EXPECT_TRUE(havePassed) << lines;
        const std::ptrdiff_t passed = countOf("ok ", lines);
        EXPECT_GE(passed, 10);
        EXPECT_EQ(countOf("\n", lines), passed + 1) << lines;
        EXPECT_EQ(countOf(": " + std::to_string(passed) + " passed, 0 failed\n", lines), 1);
    }
}

TEST(SelfChecks, FindOneUnitThatIsWrong) {
    const Fault faults[] = {
        {Checks::ofBuffer(), Checks::edit, L"Backspace joins blocks", &Check::expected, L'|', L' '},
        {Checks::ofForms(), Checks::edit, L"a new form takes the caret", &Check::expected, L'F',
         L'B'},
        {Checks::ofLists(), Checks::edit, L"Backspace joins items", &Check::expected, L'1', L'2'},
        {Checks::ofTables(), Checks::editTree, L"a cell spans two rows", &Check::before, L'b',
         L'|'},
        {Checks::ofXmlValidator(), Checks::validate, L"a tag in a tag", &Check::before, L'<',
         L'a'}};
    for (const Fault& fault : faults) {
        Check check = named(fault.checks, fault.name);
        std::wstring text = check.*fault.text;
        text.at(text.find(fault.old)) = fault.with;
        EXPECT_EQ(Checks::failureOf(check, fault.trial), L"") << fault.name;
        check.*fault.text = text.c_str();
        EXPECT_NE(Checks::failureOf(check, fault.trial), L"") << fault.name;
    }
}

TEST(SelfChecks, TakeAnExceptionForAFailure) {
    const Check checks[] = {{L"good", L"<B>a|</B>", {}, L"<B>a|</B>"},
                            {L"bad",
                             L"<B>a|</B>\n",
                             {[](EditableDocumentBuffer&) { throw std::runtime_error("no luck"); }},
                             L"<B>a|</B>"}};
    bool havePassed = true;
    const std::string lines =
        told([&] { havePassed = Checks::run(L"luck", checks, Checks::edit); });
    EXPECT_FALSE(havePassed);
    EXPECT_EQ(lines, "ok luck: good\nFAILED luck: bad: expected <fo:block>a|</fo:block>, got an "
                     "exception, no luck\nluck: 1 passed, 1 failed\n");
}

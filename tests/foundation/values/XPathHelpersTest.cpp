#include "foundation/values/XPathHelpers.h"

#include "foundation/Wide.h"
#include "support/Table.h"

#include <gtest/gtest.h>

namespace {

/// Each row of the table is "base + path -> result".
void expectEach(Core::String (*operation)(const Core::String&, const Core::String&),
                const wchar_t* table) {
    for (const auto& [arguments, result] : rows(table)) {
        const Core::String both(arguments);
        EXPECT_EQ(wide(operation(both.substringBefore(L" + "), both.substringAfter(L" + "))),
                  result)
            << arguments;
    }
}

TEST(XPathHelpers, ComposeTakesLeadingDoubleDotsOffTheBase) {
    expectEach(XPathHelpers::composeXPath, LR"(
/a/b +  -> /a/b
/a + . -> /a
/a + /b -> /b
 + ../b -> ../b
/a + b/@c -> /a/b/@c
/ + a -> /a
/a/b + ../../c/../d -> /c/../d
/a/b + .. -> /a
a + .. -> .
/a + ../../b -> /../b
../a + ../../b -> ../../b
//a + ../b -> //a/../b
/a/b[c/d = "]/"] + ../e -> /a/e
/a/key("k", b/c) + ../e -> /a/e
/a + .//b -> /a/.//b
)");
}

TEST(XPathHelpers, RelativePathsLeadFromTheBaseToThePath) {
    expectEach(XPathHelpers::getRelativeXPath, LR"(
/a/b + /a/b -> .
/a/b + /a/c/d -> ../c/d
/a + /a/b -> b
/a/b + /a -> ..
/ + /a -> a
/a + / -> ..
a/b + a/c -> ../c
/a + b -> b
a + /b -> /b
/a[b/c]/d + /a[b/e]/d -> ../../a[b/e]/d
/a['/'] + /a['/']/b -> b
/a + /a//b -> .//b
)");
    for (const wchar_t* base : {L"/", L"/a", L"/a/b", L"/a/b/c", L"/a/c", L"/b[a/b]/a"})
        for (const wchar_t* path : {L"/", L"/a", L"/a/b", L"/a/b/c", L"/a/c", L"/b[a/b]/a"})
            EXPECT_EQ(
                wide(XPathHelpers::composeXPath(base, XPathHelpers::getRelativeXPath(base, path))),
                path)
                << base;
}

TEST(XPathHelpers, RemoveFiltersWithAllThatIsInThem) {
    for (const auto& [path, result] : rows(LR"(
/a[1]/b[c[d]/e]/f -> /a/b/f
a[b = "]"]/c['['] -> a/c
id("[1]")/a -> id("[1]")/a
a[b -> a
a]b -> a]b
)"))
        EXPECT_EQ(wide(XPathHelpers::removeXPathFilters(Core::String(path))), result);
}

} // namespace

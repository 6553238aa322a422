#include "foundation/PropertiesHelper.h"

#include "foundation/PropertyTesting.h"

#include <gtest/gtest.h>

namespace {

/// What a change makes of a list of properties.
std::wstring after(void (*change)(PropertyCollection&), const wchar_t* list) {
    PropertyCollection collection = properties(list);
    change(collection);
    return shown(collection);
}

std::wstring expanded(const wchar_t* list) {
    return after(PropertiesHelper::expandShorthands, list);
}

std::wstring collapsed(const wchar_t* list) {
    return after(PropertiesHelper::collapseShorthands, list);
}

std::wstring withoutDefaults(const wchar_t* list) {
    return after(PropertiesHelper::removeDefaultValues, list);
}

TEST(PropertiesHelper, ExpandsOneToFourValuesInTheirPlace) {
    EXPECT_EQ(expanded(L"a=1; margin=2; b=3"),
              L"a=1; margin-top=2; margin-right=2; margin-bottom=2; margin-left=2; b=3");
    EXPECT_EQ(expanded(L"fo:padding=max(1, 2) 0"),
              L"fo:padding-top=max(1, 2); fo:padding-right=0; fo:padding-bottom=max(1, 2); "
              L"fo:padding-left=0");
    EXPECT_EQ(expanded(L"margin= 1  2\t3 "),
              L"margin-top=1; margin-right=2; margin-bottom=3; margin-left=2");
    EXPECT_EQ(expanded(L"margin=1 2 3 4"),
              L"margin-top=1; margin-right=2; margin-bottom=3; margin-left=4");
}

TEST(PropertiesHelper, ExpandsOneBorderInAnyOrder) {
    EXPECT_EQ(expanded(L"fo:border-top=solid rgb(1, 2, 3) .5pt; border-left=thin"),
              L"fo:border-top-style=solid; fo:border-top-color=rgb(1, 2, 3); "
              L"fo:border-top-width=.5pt; border-left-width=thin");
    EXPECT_EQ(expanded(L"border-bottom=inherit"),
              L"border-bottom-width=inherit; border-bottom-style=inherit; "
              L"border-bottom-color=inherit");
}

TEST(PropertiesHelper, SinglePropertiesThatStandWinOverTheShorthand) {
    EXPECT_EQ(expanded(L"margin-left=9; margin=1; margin-top=8"),
              L"margin-left=9; margin-right=1; margin-bottom=1; margin-top=8");
    EXPECT_EQ(expanded(L"border-top=1pt solid; border-top-style=none"),
              L"border-top-width=1pt; border-top-style=none");
}

TEST(PropertiesHelper, CollapsesFourSidesIntoTheShortestText) {
    EXPECT_EQ(collapsed(L"a=1; margin-left=2; b=3; margin-top=2; margin-bottom=2; margin-right=2"),
              L"a=1; margin=2; b=3");
    EXPECT_EQ(collapsed(L"fo:padding=9; fo:padding-top=1; fo:padding-right=1; "
                        L"fo:padding-bottom=2; fo:padding-left=1"),
              L"fo:padding=1 1 2");
    for (const wchar_t* margin : {L"margin=1", L"margin=1 2", L"margin=1 2 3", L"margin=1 2 3 4",
                                  L"margin=1 2 1 3", L"margin=inherit"})
        EXPECT_EQ(collapsed(expanded(margin).c_str()), margin);
}

TEST(PropertiesHelper, LeavesAloneWhatItCannotExpandOrCollapse) {
    for (const wchar_t* same :
         {L"margin=", L"padding=1 2 3 4 5", L"margin=1 inherit", L"border-top=1pt 2pt",
          L"border-top=1pt inherit", L"border=1pt solid red; border-style=solid; border-width=1pt",
          L"border-color=red", L"qf:margin=1", L"border-before=1pt"})
        EXPECT_EQ(expanded(same), same);
    for (const wchar_t* same :
         {L"margin-top=1; margin-right=1; margin-bottom=1",
          L"margin-top=1; margin-right=1; margin-bottom=1; fo:margin-left=1",
          L"margin-top=inherit; margin-right=1; margin-bottom=1; margin-left=1",
          L"margin-top=; margin-right=1; margin-bottom=1; margin-left=1",
          L"margin-top=1 2; margin-right=1; margin-bottom=1; margin-left=1",
          L"border-top-style=a; border-right-style=a; border-bottom-style=a; border-left-style=a"})
        EXPECT_EQ(collapsed(same), same);
}

TEST(PropertiesHelper, RemovesInitialValuesThatDoNotInheritNorOverrideAShorthand) {
    EXPECT_EQ(withoutDefaults(L"border-top-style=none; fo:border-after-style=none; "
                              L"padding-start=0; fo:padding-top=0pt; margin-left=0pt; "
                              L"background-color=transparent; background-image=none; "
                              L"background-repeat=repeat; fo:background-attachment=scroll; a=0pt"),
              L"a=0pt");
    for (const wchar_t* same :
         {L"border-top-style=solid", L"padding-top=1pt", L"color=black", L"start-indent=0pt",
          L"qf:padding-top=0", L"border-style=none", L"background-color=none",
          L"border=1pt solid; border-top-style=none", L"border-style=solid; border-top-style=none",
          L"border-top=1pt solid; border-top-style=none", L"margin=1pt; margin-left=0pt",
          L"fo:background=red; fo:background-color=transparent"})
        EXPECT_EQ(withoutDefaults(same), same);
    EXPECT_EQ(withoutDefaults(L"margin=1pt; padding-left=0pt"), L"margin=1pt");
}

} // namespace

#include "foundation/values/PropertiesHelper.h"

#include "foundation/PropertyTesting.h"

TEST(PropertiesHelper, ExpandsInTheirPlaceWhatIsNotSetByItself) {
    expectChanges(PropertiesHelper::expandShorthands, LR"(
a=1; margin=2; b=3 -> a=1; margin-top=2; margin-right=2; margin-bottom=2; margin-left=2; b=3
fo:padding=max(1, 2) 0 -> fo:padding-top=max(1, 2); fo:padding-right=0; fo:padding-bottom=max(1, 2); fo:padding-left=0
margin= 1  2	3  -> margin-top=1; margin-right=2; margin-bottom=3; margin-left=2
margin=1 2 3 4 -> margin-top=1; margin-right=2; margin-bottom=3; margin-left=4
fo:border-top=solid rgb(1, 2, 3) .5pt -> fo:border-top-style=solid; fo:border-top-color=rgb(1, 2, 3); fo:border-top-width=.5pt
border-bottom=inherit -> border-bottom-width=inherit; border-bottom-style=inherit; border-bottom-color=inherit
border-left=thin -> border-left-width=thin
margin-left=9; margin=1; margin-top=8 -> margin-left=9; margin-right=1; margin-bottom=1; margin-top=8
border-top=1pt solid; border-top-style=none -> border-top-width=1pt; border-top-style=none
margin= -> same
padding=1 2 3 4 5 -> same
margin=1 inherit -> same
border-top=1pt 2pt -> same
border-top=1pt inherit -> same
border=1pt solid red; border-style=solid; border-width=1pt; border-color=red -> same
qf:margin=1; border-before=1pt -> same
)");
}

TEST(PropertiesHelper, CollapsesFourSidesIntoTheShortestText) {
    expectChanges(PropertiesHelper::collapseShorthands, LR"(
a=1; margin-left=2; b=3; margin-top=2; margin-bottom=2; margin-right=2 -> a=1; margin=2; b=3
fo:padding=9; fo:padding-top=1; fo:padding-right=1; fo:padding-bottom=2; fo:padding-left=1 -> fo:padding=1 1 2
margin-top=1; margin-right=1; margin-bottom=1 -> same
margin-top=1; margin-right=1; margin-bottom=1; fo:margin-left=1 -> same
margin-top=inherit; margin-right=1; margin-bottom=1; margin-left=1 -> same
margin-top=; margin-right=1; margin-bottom=1; margin-left=1 -> same
margin-top=1 2; margin-right=1; margin-bottom=1; margin-left=1 -> same
border-top-style=a; border-right-style=a; border-bottom-style=a; border-left-style=a -> same
)");
    for (const wchar_t* margin : {L"margin=1", L"margin=1 2", L"margin=1 2 3", L"margin=1 2 3 4",
                                  L"margin=1 2 1 3", L"margin=inherit"}) {
        PropertyCollection collection = properties(margin);
        PropertiesHelper::expandShorthands(collection);
        PropertiesHelper::collapseShorthands(collection);
        EXPECT_EQ(shown(collection), margin);
    }
}

TEST(PropertiesHelper, RemovesInitialValuesThatDoNotInheritNorOverrideAShorthand) {
    expectChanges(PropertiesHelper::removeDefaultValues, LR"(
border-top-style=none; fo:border-after-style=none; padding-start=0; fo:padding-top=0pt; margin-left=0pt; a=0pt -> a=0pt
background-color=transparent; background-image=none; background-repeat=repeat; fo:background-attachment=scroll -> 
margin=1pt; padding-left=0pt -> margin=1pt
border-top-style=solid; padding-top=1pt; color=black; start-indent=0pt -> same
qf:padding-top=0; border-style=none; background-color=none -> same
border=1pt solid; border-top-style=none -> same
border-style=solid; border-top-style=none -> same
border-top=1pt solid; border-top-style=none -> same
margin=1pt; margin-left=0pt -> same
fo:background=red; fo:background-color=transparent -> same
)");
}

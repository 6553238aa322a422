#include "foundation/values/PropertyCollection.h"

#include "foundation/PropertyTesting.h"
#include "properties/RandomCommands.h"

#include <gtest/gtest.h>

namespace {

/// How a start tag shows a property of this value.
std::wstring inStartTag(const wchar_t* value) {
    PropertyCollection collection;
    collection.addProperty(EditableProperty(L"a", value), false);
    return wide(collection.getPropertiesString());
}

TEST(EditableProperty, FormattingIsHowAnElementLooks) {
    for (const Core::String& name :
         words(L"fo:color color background writing-mode fo:border-before-width "
               L"border-after-width.conditionality padding-start.length space-before.optimum "
               L"line-height.precedence keep-together.within-line keep-with-next.within-page "
               L"fo:leader-length.maximum inline-progression-dimension.minimum "
               L"text-underline-style text-line-through-width border-collapse font margin-left "
               L"page-break-inside vertical-align relative-position"))
        EXPECT_TRUE(EditableProperty::isFormatting(name)) << wide(name);
    for (const Core::String& name :
         words(L" fo: . id fo:id fo:class number-columns-spanned span column-number column-width "
               L"master-name ref-id src qf:color xml:lang fo:qf:color color.length color. "
               L"keep-together.optimum border-top-width.length space-before. colo colors Color"))
        EXPECT_FALSE(EditableProperty::isFormatting(name)) << wide(name);
}

TEST(PropertyCollection, WritesValuesThatKeepTheTagWellFormed) {
    EXPECT_EQ(inStartTag(L"say \"x\" < 'y' > z"), L"a=\"say &quot;x&quot; &lt; 'y' > z\"");
    EXPECT_EQ(inStartTag(L"R&D & co; &&amp;"), L"a=\"R&amp;D &amp; co; &amp;&amp;\"");
    EXPECT_EQ(inStartTag(L"&#x; &#12x; &#; &; &1; &#x1G; &"),
              L"a=\"&amp;#x; &amp;#12x; &amp;#; &amp;; &amp;1; &amp;#x1G; &amp;\"");
    for (const wchar_t* asItStands : {L"&amp;&quot;&lt;&#160;&#x00A0;", L"&qf:own-1.2;", L"\n\t"})
        EXPECT_EQ(inStartTag(asItStands), std::wstring(L"a=\"") + asItStands + L"\"");
}

TEST(PropertyCollection, PrefixesComeAndGoButNeverMakeANameTwice) {
    expectChanges([](PropertyCollection& list) { list.setNamespaceForProperties(L"fo"); }, LR"(
a=1; fo:b=2; xmlns=u -> fo:a=1; fo:b=2; fo:xmlns=u
a=1; b=2; fo:a=3 -> fo:b=2; fo:a=3
)");
    expectChanges([](PropertyCollection& list) { list.removeNamespaceForPropertiesWith(L"fo"); },
                  LR"(
fo:a=1; fo:b=2; qf:c=3 -> a=1; b=2; qf:c=3
fo:a=3; a=1; b=2 -> a=1; b=2
f:a=1; fop:b=2 -> same
)");
    PropertyCollection list = properties(L"a=1; fo:b=2");
    list.setNamespaceForProperties(L"");
    list.removeNamespaceForPropertiesWith(L"");
    list.removeNamespaceForPropertiesWith(L"f");
    EXPECT_EQ(shown(list), L"a=1; fo:b=2");
    list = properties(L"id=1; fo:color=red; qf:font=x; font=y");
    list.removeNonFormattingProperties();
    EXPECT_EQ(shown(list), L"fo:color=red; font=y");
}

// Among many, which are looked up, each is what it is by itself.
TEST(PropertyCollection, AnswersInTheSameWayWhenThereAreMany) {
    Random random(1);
    PropertyCollection few, many;
    for (int step = 0; step < 2000; ++step) {
        const Core::String name = L"n" + Core::String::formatS(static_cast<int>(random.below(20)));
        if (step % 10 == 0)
            many.addProperty({L"fo:color" + Core::String::formatS(step), L""}, true);
        const std::size_t change = random.below(30);
        for (PropertyCollection* list : {&few, &many})
            if (change == 0)
                list->setNamespaceForProperties(L"p");
            else if (change == 1)
                list->removeNamespaceForPropertiesWith(L"p");
            else if (change < 15)
                list->addProperty({name, Core::String::formatS(step)}, change < 10);
            else
                list->removePropertyByName(name);
        ASSERT_EQ(many.containsProperty(name), few.containsProperty(name));
        PropertyCollection rest;
        for (const EditableProperty& property : many.getPropertyList())
            if (property.getName().find(L"color", 0) < 0)
                rest.addProperty(property, false);
        ASSERT_EQ(shown(rest), shown(few)) << step;
    }
}

} // namespace

#include "foundation/PropertyCollection.h"

#include "foundation/Wide.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

namespace {

PropertyCollection
collection(std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> properties) {
    PropertyCollection result;
    for (const auto& [name, value] : properties)
        result.addProperty(EditableProperty(name, value), false);
    return result;
}

/// How a start tag shows a property of this value.
std::wstring written(const wchar_t* value) {
    return wide(collection({{L"a", value}}).getPropertiesString());
}

TEST(EditableProperty, TakesItsNameApart) {
    EditableProperty property(L"fo:color", L"red");
    EXPECT_EQ(wide(property.getNamespace()), L"fo");
    property.removeNamespaceFromName();
    property.removeNamespaceFromName();
    EXPECT_EQ(wide(property.getName()), L"color");
    EXPECT_EQ(wide(property.getNamespace()), L"");
    EXPECT_TRUE(property.isValid());
    EXPECT_FALSE(EditableProperty(L"", L"red").isValid());
}

TEST(EditableProperty, FormattingIsHowAnElementLooks) {
    for (const wchar_t* name : {L"fo:color",
                                L"color",
                                L"background",
                                L"writing-mode",
                                L"fo:border-before-width",
                                L"border-after-width.conditionality",
                                L"padding-start.length",
                                L"space-before.optimum",
                                L"line-height.precedence",
                                L"keep-together.within-line",
                                L"keep-with-next.within-page",
                                L"fo:leader-length.maximum",
                                L"inline-progression-dimension.minimum",
                                L"text-underline-style",
                                L"text-line-through-width",
                                L"border-collapse",
                                L"font",
                                L"margin-left",
                                L"page-break-inside",
                                L"vertical-align",
                                L"relative-position"})
        EXPECT_TRUE(EditableProperty::isFormatting(name)) << name;
    for (const wchar_t* name : {L"",
                                L"fo:",
                                L".",
                                L"id",
                                L"fo:id",
                                L"fo:class",
                                L"number-columns-spanned",
                                L"span",
                                L"column-number",
                                L"column-width",
                                L"master-name",
                                L"ref-id",
                                L"src",
                                L"qf:color",
                                L"xml:lang",
                                L"fo:qf:color",
                                L"color.length",
                                L"color.",
                                L"keep-together.optimum",
                                L"border-top-width.length",
                                L"space-before.",
                                L"colo",
                                L"colors",
                                L"Color"})
        EXPECT_FALSE(EditableProperty::isFormatting(name)) << name;
}

TEST(PropertyCollection, KeepsOrderAndUniqueNames) {
    PropertyCollection properties = collection({{L"a", L"1"}, {L"b", L"2"}, {L"fo:a", L"3"}});
    properties.addProperty(EditableProperty(L"a", L"4"), false);
    properties.addProperty(EditableProperty(L"b", L"5"), true);
    properties.setProperty(EditableProperty(L"fo:a", L"6"), false);
    properties.setProperty(EditableProperty(L"c", L"7"), false);
    properties.addProperty(EditableProperty(L"", L"8"), true);
    EXPECT_EQ(wide(properties.getPropertiesString()), L"a=\"1\" b=\"5\" fo:a=\"6\" c=\"7\"");
    properties.removePropertyByName(L"a");
    properties.removePropertyByName(L"none");
    EXPECT_EQ(wide(properties.getPropertiesString()), L"b=\"5\" fo:a=\"6\" c=\"7\"");
}

TEST(PropertyCollection, MergesSoThatNewValuesWin) {
    PropertyCollection properties = collection({{L"a", L"1"}, {L"b", L"2"}});
    const PropertyCollection copy = properties;
    properties.addProperties(collection({{L"c", L"3"}, {L"a", L"4"}}));
    properties.addProperties(properties);
    EXPECT_EQ(wide(properties.getPropertiesString()), L"a=\"4\" b=\"2\" c=\"3\"");
    EXPECT_EQ(wide(copy.getPropertiesString()), L"a=\"1\" b=\"2\"");
}

TEST(PropertyCollection, FindsByTheNameAsItStands) {
    PropertyCollection properties = collection({{L"fo:a", L"1"}, {L"b", L""}});
    EXPECT_EQ(properties.getProperty(L"a"), nullptr);
    EXPECT_FALSE(properties.containsProperty(L"FO:A"));
    EXPECT_TRUE(properties.containsProperty(L"b"));
    EXPECT_EQ(wide(properties.getPropertyValue(L"a")), L"");
    *properties.getProperty(L"fo:a") = EditableProperty(L"fo:a", L"2");
    EXPECT_EQ(wide(properties.getPropertyValue(L"fo:a")), L"2");
    EXPECT_FALSE(properties.isEmpty());
    EXPECT_TRUE(PropertyCollection().isEmpty());
    EXPECT_EQ(wide(PropertyCollection().getPropertiesString()), L"");
}

TEST(PropertyCollection, WritesValuesThatKeepTheTagWellFormed) {
    EXPECT_EQ(written(L"say \"x\" < 'y' > z"), L"a=\"say &quot;x&quot; &lt; 'y' > z\"");
    EXPECT_EQ(written(L"R&D & co;"), L"a=\"R&amp;D &amp; co;\"");
    EXPECT_EQ(written(L"&#x; &#12x; &#; &; &1; &#x1G;"),
              L"a=\"&amp;#x; &amp;#12x; &amp;#; &amp;; &amp;1; &amp;#x1G;\"");
    EXPECT_EQ(written(L"&"), L"a=\"&amp;\"");
    EXPECT_EQ(written(L"&&amp;"), L"a=\"&amp;&amp;\"");
    for (const wchar_t* asItStands : {L"&amp;&quot;&lt;&#160;&#x00A0;", L"&qf:own-1.2;", L"\n\t"})
        EXPECT_EQ(written(asItStands), std::wstring(L"a=\"") + asItStands + L"\"");
}

TEST(PropertyCollection, PrefixesComeAndGo) {
    PropertyCollection properties =
        collection({{L"a", L"1"}, {L"fo:b", L"2"}, {L"qf:c", L"3"}, {L"xmlns", L"u"}});
    properties.setNamespaceForProperties(L"fo");
    EXPECT_EQ(wide(properties.getPropertiesString()),
              L"fo:a=\"1\" fo:b=\"2\" qf:c=\"3\" fo:xmlns=\"u\"");
    properties.setNamespaceForProperties(L"");
    properties.removeNamespaceForPropertiesWith(L"");
    properties.removeNamespaceForPropertiesWith(L"f");
    properties.removeNamespaceForPropertiesWith(L"fo");
    EXPECT_EQ(wide(properties.getPropertiesString()), L"a=\"1\" b=\"2\" qf:c=\"3\" xmlns=\"u\"");
}

TEST(PropertyCollection, RenamingYieldsToThePropertyThatBearsTheName) {
    PropertyCollection properties = collection({{L"a", L"1"}, {L"b", L"2"}, {L"fo:a", L"3"}});
    PropertyCollection bare = properties;
    properties.setNamespaceForProperties(L"fo");
    EXPECT_EQ(wide(properties.getPropertiesString()), L"fo:b=\"2\" fo:a=\"3\"");
    bare.removeNamespaceForPropertiesWith(L"fo");
    EXPECT_EQ(wide(bare.getPropertiesString()), L"a=\"1\" b=\"2\"");
}

TEST(PropertyCollection, KeepsOnlyFormattingOnRequest) {
    PropertyCollection properties =
        collection({{L"id", L"1"}, {L"fo:color", L"red"}, {L"qf:font", L"x"}, {L"font", L"y"}});
    properties.removeNonFormattingProperties();
    EXPECT_EQ(wide(properties.getPropertiesString()), L"fo:color=\"red\" font=\"y\"");
}

} // namespace

#include "document/DocumentTesting.h"
#include "foundation/PropertyTesting.h"

#include <gtest/gtest.h>

namespace {

std::wstring propertiesOf(const wchar_t* tag) {
    TestBuffer buffer(tag);
    return shown(buffer.getPropertiesFromElementAt(buffer.find(tag)));
}

TEST(Properties, AreReadWithTheElementsPrefix) {
    EXPECT_EQ(propertiesOf(L"<fo:block color=\"red\" qf:a='1' id = \"x\" title='\"&lt;&#38; >'/>"),
              L"fo:color=red; qf:a=1; fo:id=x; fo:title=\"&lt;&#38; >");
    EXPECT_EQ(propertiesOf(L"<block color=\"red\"/>"), L"color=red");
    EXPECT_EQ(propertiesOf(L"<fo:block fo:color=\"a\" id=\"x\" color=\"b\"/>"),
              L"fo:color=b; fo:id=x")
        << "one name, the last value";
}

TEST(Properties, OnlyStartTagsHaveThem) {
    const TestBuffer buffer(L"<fo:block>t<!-- a b=\"c\" --><![CDATA[<x y=\"z\">]]></fo:block>");
    for (const int place : {buffer.find(L"t<!"), buffer.find(L"<!--"), buffer.find(L"<!["),
                            buffer.find(L"</fo:block"), -1, buffer.getContent().length()})
        EXPECT_TRUE(buffer.getPropertiesFromElementAt(place).isEmpty()) << place;
}

TEST(Properties, SettingTouchesNothingButStartTags) {
    for (const wchar_t* marked :
         {L"text|", L"</fo:block>|", L"<!-- a b=\"c\" -->|", L"<![CDATA[<x y=\"z\">]]>|"}) {
        TestBuffer buffer(marked);
        RecordingMonitor monitor;
        buffer.setMonitor(&monitor);
        for (const int element : {buffer.find(L"\"body\">") + 7, -1}) {
            EXPECT_EQ(buffer.setPropertiesForElementAt(element, properties(L"fo:a=b")), 0);
            EXPECT_TRUE(buffer.clearPropertiesForElementAt(element).empty());
        }
        EXPECT_EQ(buffer.marked(), marked);
        EXPECT_FALSE(buffer.canUndo());
        EXPECT_EQ(monitor.take(), "");
    }
}

TEST(Properties, NamespacesAreDeclaredOnTheRootWhenNeeded) {
    TestBuffer buffer(L"<fo:block>a|b</fo:block>");
    const std::wstring before = buffer.text();
    const std::wstring marked = buffer.marked();
    const int end = buffer.find(L"</fo:block>");
    const int shift = buffer.setPropertiesForElementAt(buffer.find(L"<fo:block"),
                                                       properties(L"qf:a=1; qf:b=2; zz:c=3"));
    EXPECT_EQ(buffer.find(L"</fo:block>"), end + shift);
    EXPECT_EQ(wide(buffer.getNamespaces()),
              L" xmlns:fo=\"http://www.w3.org/1999/XSL/Format\" xmlns:qf=\"urn:forme:qf/1.0\""
              L" xmlns:qfd=\"urn:forme:qfd/1.0\"");
    EXPECT_NE(buffer.find(L"<fo:block qf:a=\"1\" qf:b=\"2\" zz:c=\"3\">ab"), -1);
    buffer.undo();
    EXPECT_EQ(buffer.text(), before);
    EXPECT_EQ(buffer.marked(), marked);
    EXPECT_FALSE(buffer.canUndo()) << "the declaration belongs to the step";

    const int root = buffer.getRootElementPos();
    const int moved = buffer.setPropertiesForElementAt(root, properties(L"xsl:a=1"));
    EXPECT_EQ(moved, buffer.getContent().length() - static_cast<int>(before.size()));
    EXPECT_EQ(buffer.getRootElementPos(), root);
    EXPECT_NE(buffer.find(L" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\" xsl:a=\"1\">"), -1);
}

TEST(Properties, ADeclarationOnTheElementOrAroundItIsEnough) {
    const auto rootDeclares = [](const wchar_t* block, const wchar_t* inlined) {
        TestBuffer buffer(std::wstring(block) + inlined + L"|</fo:inline></fo:block>");
        buffer.setPropertiesForElementAt(buffer.find(inlined), properties(L"qf:a=1"));
        return buffer.find(L"xmlns:qf=\"urn:forme:qf/1.0\"") >= 0;
    };
    EXPECT_FALSE(rootDeclares(L"<fo:block>", L"<fo:inline xmlns:qf='urn:own'>"));
    EXPECT_FALSE(rootDeclares(L"<fo:block xmlns:qf='urn:own'>", L"<fo:inline>"));
    EXPECT_TRUE(rootDeclares(L"<fo:block xmlns:QF='urn:other'>", L"<fo:inline>"));
    EXPECT_TRUE(rootDeclares(L"<fo:block><x xmlns:qf='urn:own'/>", L"<fo:inline>"));
}

TEST(Properties, ClearingAnswersWhatWasThereAndIsOneStep) {
    for (const wchar_t* marked : {L"<fo:block  a=\"/>\"\n b='1' >|t</fo:block>",
                                  L"<fo:block a=\"/\"/>|", L"<?pi a=\"1\"?>|"}) {
        TestBuffer buffer(marked);
        const int element = buffer.find(L"\"body\">") + 7;
        const int length = buffer.getContent().length();
        const int removed = buffer.clearPropertiesForElementAt(element).length();
        EXPECT_EQ(buffer.getContent().length(), length - removed);
        EXPECT_TRUE(buffer.getPropertiesFromElementAt(element).isEmpty());
        buffer.undo();
        EXPECT_EQ(buffer.marked(), marked);
        EXPECT_FALSE(buffer.canUndo());
    }
    TestBuffer selfClosing(L"<fo:block a=\"1\" />|");
    EXPECT_EQ(wide(selfClosing.clearPropertiesForElementAt(selfClosing.find(L"<fo:block"))),
              L" a=\"1\" ");
    EXPECT_EQ(selfClosing.marked(), L"<fo:block/>|");
}

TEST(Properties, OfANameAreThoseOfTheNearestElement) {
    TestBuffer buffer(L"<fo:block id=\"1\"><fo:block id=\"2\">a|<fo:inline id=\"3\"/></fo:block>"
                      L"<fo:table/><!--<fo:block id=\"4\"/>--></fo:block>");
    const auto at = [&](const wchar_t* place) { return buffer.find(place); };
    const auto blockAt = [&](int place) { return shown(buffer.getProperties(L"fo:block", place)); };
    EXPECT_EQ(blockAt(at(L"<fo:block id=\"2\"")), L"fo:id=2") << "the tag there";
    EXPECT_EQ(blockAt(at(L"a<fo:inline")), L"fo:id=2");
    EXPECT_EQ(blockAt(at(L"</fo:block><fo:table")), L"fo:id=2");
    EXPECT_EQ(blockAt(at(L"<fo:table")), L"fo:id=1");
    EXPECT_EQ(blockAt(at(L"<!--")), L"fo:id=1");
    for (const int nowhere : {-1, 0, at(L"<fo:flow"), 1 << 30})
        EXPECT_EQ(blockAt(nowhere), L"");

    const int length = buffer.getContent().length();
    buffer.setProperties(properties(L"fo:id="), L"fo:block", at(L"</fo:block><fo:table"));
    EXPECT_EQ(blockAt(at(L"a<fo:inline")), L"fo:id=");
    EXPECT_EQ(buffer.getContent().length(), length - 1);
}

TEST(RootNamespaces, TakeOneDeclarationAndRefuseAnythingElse) {
    TestBuffer buffer(L"<fo:block>a|b</fo:block>");
    const std::wstring before = buffer.text();
    for (const wchar_t* bad : {L"", L"xmlns:x", L"xmlns:x=", L"xmlns:=\"u\"", L"xmlns:1=\"u\"",
                               L"a=\"u\"", L"xmlns:a b=\"u\"", L"xmlns:a:b=\"u\"", L"=\"u\""})
        EXPECT_EQ(buffer.updateRootNamespaces(bad), 0) << Core::String(bad).length();
    EXPECT_EQ(buffer.text(), before);
    EXPECT_FALSE(buffer.canUndo());

    const int shift = buffer.updateRootNamespaces(L" xmlns:x=\"urn:a=b\"");
    EXPECT_EQ(buffer.text().size(), before.size() + static_cast<std::size_t>(shift));
    buffer.updateRootNamespaces(L"xmlns:x=\"urn:c\"");
    EXPECT_NE(buffer.find(L" xmlns:x=\"urn:c\">"), -1) << "a prefix has one declaration";
    buffer.undo();
    buffer.undo();
    EXPECT_EQ(buffer.text(), before);
}

} // namespace

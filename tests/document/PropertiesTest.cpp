#include "document/Attributes.h"
#include "foundation/PropertyTesting.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

namespace {

TEST(Properties, OnlyStartTagsHaveThem) {
    MarkedDocument buffer(L"<B>t|<!-- a b=\"c\" --><![CDATA[<x y=\"z\">]]></B>");
    const std::wstring before = buffer.marked();
    for (const int place : {buffer.find(L"t<!"), buffer.find(L"<!--"), buffer.find(L"<!["),
                            buffer.find(L"</B"), -1, buffer.text().length()}) {
        EXPECT_TRUE(Attributes::of(buffer, place).isEmpty()) << place;
        EXPECT_EQ(Attributes::merge(buffer, place, properties(L"fo:a=b")), 0) << place;
        EXPECT_TRUE(Attributes::clear(buffer, place).empty()) << place;
    }
    EXPECT_EQ(buffer.marked(), before);
    EXPECT_FALSE(buffer->canUndo());
    EXPECT_EQ(buffer.heard(), "");
}

TEST(Properties, ADeclarationOnTheElementOrAroundItIsEnough) {
    const auto rootDeclares = [](const wchar_t* block, const wchar_t* inlined) {
        MarkedDocument buffer(std::wstring(block) + inlined + L"|</I></B>");
        Attributes::merge(buffer, buffer.find(inlined), properties(L"qf:a=1"));
        return buffer.find(L"xmlns:qf=\"urn:forme:qf/1.0\"") >= 0;
    };
    EXPECT_FALSE(rootDeclares(L"<B>", L"<I xmlns:qf='urn:own'>"));
    EXPECT_FALSE(rootDeclares(L"<B xmlns:qf='urn:own'>", L"<I>"));
    EXPECT_TRUE(rootDeclares(L"<B xmlns:QF='urn:other'>", L"<I>"));
    EXPECT_TRUE(rootDeclares(L"<B><x xmlns:qf='urn:own'/>", L"<I>"));
}

TEST(Properties, ClearingAnswersWhatWasThereAndIsOneStep) {
    for (const wchar_t* marked :
         {L"<B  a=\"/>\"\n b='1' >|t</B>", L"<B a=\"/\"/>|", L"<?pi a=\"1\"?>|"}) {
        MarkedDocument buffer(marked);
        const int element = buffer.find(L"\"body\">") + 7;
        const int length = buffer.text().length();
        const int removed = Attributes::clear(buffer, element).length();
        EXPECT_EQ(buffer.text().length(), length - removed);
        EXPECT_TRUE(Attributes::of(buffer, element).isEmpty());
        buffer->undo();
        EXPECT_EQ(buffer.marked(), marked);
        EXPECT_FALSE(buffer->canUndo());
    }
    MarkedDocument selfClosing(L"<B a=\"1\" />|");
    EXPECT_EQ(wide(Attributes::clear(selfClosing, selfClosing.find(L"<B"))), L" a=\"1\" ");
    EXPECT_EQ(selfClosing.marked(), L"<B/>|");
}

} // namespace

#include "channels/ConditionalSectionBuffer.h"
#include "foundation/Exception.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

namespace {

using C = ConditionalSectionBuffer;

std::wstring section(const std::wstring& attributes, const std::wstring& text) {
    return L"<qfd:conditional-block" + attributes + L"><B>" + text +
           L"</B></qfd:conditional-block>";
}

std::wstring sequence(const std::vector<std::wstring>& sections) {
    return std::accumulate(sections.begin(), sections.end(),
                           std::wstring(L"<qfd:conditional-block-sequence  id='s' >")) +
           L"</qfd:conditional-block-sequence >";
}

} // namespace

TEST(ConditionalSections, HaveAnIndexAtEveryPlaceAndNoneBetweenThem) {
    MarkedDocument document(
        L"<B>x</B>" +
        sequence({L"<x:conditional-block xmlns:x='x'/> <fo:float>" +
                      sequence({section(L"", L"c"), section(L"", L"d")}) + L"</fo:float> ",
                  section(L"", L"0"),
                  section(L"", L"1</B>" + sequence({L" ", section(L"", L"a"), section(L"", L"b")}) +
                                   L"<B>"),
                  section(L"", L"2")}));
    for (const auto& [text, index] :
         {std::pair(L"x<", 0), std::pair(L"0<", 0), std::pair(L" <fo:float", 0),
          std::pair(L"1<", 1), std::pair(L" <qfd", 0), std::pair(L"a<", 0), std::pair(L"b<", 1),
          std::pair(L"2<", 2)})
        EXPECT_EQ(document->getConditionIndex(document.find(text), "conditional-block-sequence",
                                              "conditional-block"),
                  index);
    EXPECT_EQ(document->getConditionIndex(-1, "", ""), 0);

    const std::wstring text = inShort(document.flow());
    document->setCaretPos(false, document.find(L"2<"));
    C buffer(&document.face(), C::Type::Block);
    buffer.deleteCurrentConditionalSection();
    buffer.commitChangesToEditableBuffer();
    EXPECT_EQ(inShort(document.flow()).size(), text.size() - section(L"", L"2").size());
    EXPECT_EQ(document.content().find(L"2<"), std::wstring::npos);
}

TEST(ConditionalSections, LoseNothingWhereTheyCannotBeWritten) {
    MarkedDocument document(sequence({section(L"", L"te|")}));
    C none(&document.face(), C::Type::Inline);
    EXPECT_EQ(none.getDocumentBufferStart(), -1);
    EXPECT_EQ(none.getDocumentBufferEnd(), -1);
    EXPECT_THROW(none.insertConditionalSection("a"), Core::NullPointerException);
    EXPECT_THROW(none.commitChangesToEditableBuffer(), Core::NullPointerException);

    C buffer(&document.face(), C::Type::Block);
    EXPECT_THROW(buffer.insertConditionalSection(L"\x01"), Core::Exception);
    EXPECT_EQ(buffer.getConditionalBlockAtIndex(1), nullptr);
    EXPECT_EQ(buffer.getConditionalBlockAtIndex(-1), nullptr);
    buffer.insertFallbackSection();
    document->insertText("typed", false, false);
    EXPECT_THROW(buffer.commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(document.marked(), sequence({section(L"", L"tetyped|")}));
    document->insertText("!", false, false);
    document->undo();
    EXPECT_EQ(document.marked(), sequence({section(L"", L"te|")})) << "the run of typing went on";
}

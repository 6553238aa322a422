#include "channels/ConditionalSectionBuffer.h"
#include "foundation/Exception.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

using C = ConditionalSectionBuffer;

const std::wstring tag = L"<qfd:conditional-block";
const std::wstring end = L"</qfd:conditional-block>";

std::wstring section(const std::wstring& attributes, const std::wstring& text) {
    return tag + attributes + L"><B>" + text + L"</B>" + end;
}

std::wstring sequence(const std::vector<std::wstring>& sections) {
    return std::accumulate(sections.begin(), sections.end(), tag + L"-sequence  id='s' >") +
           L"</qfd:conditional-block-sequence >";
}

} // namespace

TEST(ConditionalSections, AreWhatAPlainListPredicts) {
    std::mt19937 random(7);
    const auto upTo = [&](std::size_t count) { return static_cast<std::size_t>(random() % count); };
    for (int round = 0; round < 80; ++round) {
        std::vector<std::wstring> list;
        for (std::size_t i = upTo(4) + 1; i > 0; --i)
            list.push_back(
                section(upTo(4) ? L" test=\"&gt;\" k=\"\"" : L"", std::to_wstring(i) + L"&#65;"));
        const std::size_t current = upTo(list.size());
        const std::wstring before = sequence(list);
        MarkedDocument document(before);
        const std::wstring text = L">" + std::to_wstring(list.size() - current) + L"&#65;";
        document->setCaretPos(false, document.find(text.c_str()) + 1);
        C buffer(&document.face(), C::Type::Block);
        for (std::size_t step = upTo(5); step > 0 && !list.empty(); --step) {
            const auto fallback = std::find_if(list.begin(), list.end(), [](const auto& one) {
                return one.starts_with(tag + L">");
            });
            EXPECT_EQ(buffer.hasFallbackSection(), fallback != list.end());
            EXPECT_EQ(buffer.canDeleteSection(), list.size() > 1);
            const std::wstring test = std::to_wstring(step);
            switch (upTo(4)) {
            case 0:
                buffer.insertConditionalSection(Core::String(test));
                list.insert(list.begin(),
                            section(L" test=\"" + test + L"\"",
                                    L"Customize this section for condition \"" + test + L"\""));
                break;
            case 1:
                buffer.insertFallbackSection();
                list.push_back(section(L"", L"Customize this fallback section."));
                break;
            case 2:
                buffer.deleteFallbackSection();
                if (fallback != list.end())
                    list.erase(fallback);
                break;
            default:
                buffer.deleteCurrentConditionalSection();
                if (current < list.size())
                    list.erase(list.begin() + static_cast<std::ptrdiff_t>(current));
            }
        }
        for (int commit = 0; commit < 2; ++commit) {
            buffer.commitChangesToEditableBuffer();
            EXPECT_EQ(inShort(document.flow()), list.empty() ? before : sequence(list));
        }
        document->undo();
        EXPECT_EQ(inShort(document.flow()), before);
        EXPECT_FALSE(document->canUndo());
    }
}

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

TEST(ConditionalSections, DeclareWhatTheyNeedOnTheRoot) {
    MarkedDocument document;
    const std::wstring text = L"<qfd:document>" + writtenOut(sequence({section(L"", L"x")}));
    document->setContent(Core::String(text + L"</qfd:document>"), true);
    document->setCaretPos(false, document.find(L"x<"));
    C buffer(&document.face(), C::Type::Block);
    buffer.insertConditionalSection("a");
    buffer.commitChangesToEditableBuffer();
    EXPECT_TRUE(document.content().starts_with(L"<qfd:document xmlns:fo="));
    EXPECT_EQ(document.caret(), document.find(L"Customize"));
    buffer.deleteCurrentConditionalSection();
    buffer.commitChangesToEditableBuffer();
    EXPECT_TRUE(document.content().ends_with(text.substr(14) + L"</qfd:document>"));
}

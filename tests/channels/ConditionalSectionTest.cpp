#include "channels/ConditionalSectionBuffer.h"
#include "foundation/Exception.h"
#include "foundation/xml/Element.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <regex>
#include <string>
#include <vector>

namespace {

using Core::String;
using C = ConditionalSectionBuffer;

/// A section as its test, if it has one, and its text.
struct Section {
    std::optional<std::wstring> test;
    std::wstring text;
    bool operator==(const Section&) const = default;
};

const std::wstring sequenceStart = L"<qfd:conditional-block-sequence  id='s' >";

std::wstring markupOf(const std::vector<Section>& sections) {
    std::wstring all;
    for (const Section& section : sections)
        all += L"<qfd:conditional-block" +
               (section.test ? L" test=\"" + *section.test + L"\"" : std::wstring()) + L"><B>" +
               section.text + L"</B></qfd:conditional-block>\n";
    return sequenceStart + L"\n" + all + L"</qfd:conditional-block-sequence>";
}

std::vector<Section> sectionsIn(const std::wstring& flow) {
    static const std::wregex section(L"<qfd:conditional-block( test=\"([^\"]*)\")?>"
                                     L"<fo:block>([^<]*)</fo:block></qfd:conditional-block>");
    std::vector<Section> found;
    for (std::wsregex_iterator at(flow.begin(), flow.end(), section), end; at != end; ++at)
        found.push_back(
            {(*at)[1].matched ? std::optional((*at)[2].str()) : std::nullopt, (*at)[3].str()});
    return found;
}

} // namespace

TEST(ConditionalSections, AreWhatAPlainListPredicts) {
    std::mt19937 random(7);
    const auto upTo = [&](std::size_t count) { return static_cast<std::size_t>(random() % count); };
    for (int round = 0; round < 60; ++round) {
        std::vector<Section> list;
        for (std::size_t i = 0; i <= upTo(4); ++i)
            list.push_back({upTo(4) ? std::optional(std::to_wstring(i)) : std::nullopt,
                            L"text " + std::to_wstring(i)});
        MarkedDocument document(markupOf(list));
        const std::wstring before = document.content();
        const std::size_t current = upTo(list.size());
        const int caret = document.find((L"text " + std::to_wstring(current)).c_str());
        document->setCaretPos(false, caret);
        EXPECT_EQ(
            document->getConditionIndex(caret, "conditional-block-sequence", "conditional-block"),
            static_cast<int>(current));
        C buffer(&document.face(), C::Type::Block);
        for (std::size_t step = upTo(5); step > 0; --step) {
            const auto fallback = std::find_if(list.begin(), list.end(),
                                               [](const Section& one) { return !one.test; });
            EXPECT_EQ(buffer.hasFallbackSection(), fallback != list.end());
            EXPECT_EQ(buffer.canDeleteSection(), list.size() > 1);
            const std::wstring test = L"t" + std::to_wstring(step);
            switch (upTo(4)) {
            case 0:
                buffer.insertConditionalSection(String(test));
                list.insert(list.begin(),
                            {test, L"Customize this section for condition \"" + test + L"\""});
                break;
            case 1:
                buffer.insertFallbackSection();
                list.push_back({std::nullopt, L"Customize this fallback section."});
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
        buffer.commitChangesToEditableBuffer();
        const std::wstring after = document.content();
        if (!list.empty()) {
            EXPECT_EQ(sectionsIn(after), list);
        }
        EXPECT_EQ(xmlError(document.text().content()), "");
        const std::size_t inside = before.find(sequenceStart) + sequenceStart.size();
        EXPECT_EQ(after.substr(0, inside), before.substr(0, inside));
        EXPECT_EQ(after.substr(after.find(L"</qfd:conditional-block-s")),
                  before.substr(before.find(L"</qfd:conditional-block-s")));
        buffer.commitChangesToEditableBuffer();
        EXPECT_EQ(document.content(), after);
        document->undo();
        EXPECT_EQ(document.content(), before);
        EXPECT_FALSE(document->canUndo());
    }
}

TEST(ConditionalSections, HaveAnIndexAtEveryPlaceAndNoneBetweenThem) {
    const MarkedDocument document(
        L"<B>x</B><qfd:conditional-block-sequence> <qfd:conditional-block><B>0</B>"
        L"</qfd:conditional-block> <fo:float/> <qfd:conditional-block><B>1"
        L"</B><qfd:conditional-block-sequence> <qfd:conditional-block><B>a</B>"
        L"</qfd:conditional-block><qfd:conditional-block><B>b</B></qfd:conditional-block>"
        L"</qfd:conditional-block-sequence></qfd:conditional-block>"
        L"<qfd:conditional-block><B>2</B></qfd:conditional-block></"
        L"qfd:conditional-block-sequence>");
    const auto indexAt = [&](int position) {
        return document->getConditionIndex(position, "conditional-block-sequence",
                                           "conditional-block");
    };
    for (const auto& [text, index] :
         {std::pair(L"x<", 0), std::pair(L"0<", 0), std::pair(L" <fo:float", 0),
          std::pair(L"1<", 1), std::pair(L" <qfd:conditional-block><fo:block>a", 0),
          std::pair(L"a<", 0), std::pair(L"b<", 1), std::pair(L"2<", 2)})
        EXPECT_EQ(indexAt(document.find(text)), index);
    EXPECT_EQ(indexAt(-1), 0);
    EXPECT_EQ(indexAt(document.text().length()), 0);
}

TEST(ConditionalSections, OfNoSequenceHaveNoTree) {
    MarkedDocument document(L"<B>x|</B>");
    const EditorState before = stateOf(document.face());
    C none(&document.face(), C::Type::Inline);
    EXPECT_EQ(none.getDocumentBufferStart(), -1);
    EXPECT_EQ(none.getDocumentBufferEnd(), -1);
    EXPECT_THROW(none.hasFallbackSection(), Core::NullPointerException);
    EXPECT_THROW(none.insertConditionalSection("a"), Core::NullPointerException);
    EXPECT_THROW(none.commitChangesToEditableBuffer(), Core::NullPointerException);
    EXPECT_THROW(C(nullptr, C::Type::Block), Core::NullPointerException);
    EXPECT_EQ(stateOf(document.face()), before);
    EXPECT_EQ(document.heard(), "");
}

TEST(ConditionalSections, LoseNothingWhereTheyCannotBeWritten) {
    MarkedDocument document(markupOf({{L"a", L"te"}, {L"b", L"x"}}));
    document->setCaretPos(false, document.find(L"te<"));
    C buffer(&document.face(), C::Type::Block);
    EXPECT_THROW(buffer.insertConditionalSection(L"\x01"), Core::Exception);
    EXPECT_EQ(buffer.getConditionalBlockAtIndex(2), nullptr);
    EXPECT_EQ(buffer.getConditionalBlockAtIndex(-1), nullptr);
    buffer.insertFallbackSection();
    document->insertText("typed", false, false);
    const EditorState typed = stateOf(document.face());
    EXPECT_THROW(buffer.commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(stateOf(document.face()), typed);
    document->insertText("!", false, false);
    document->undo();
    EXPECT_EQ(document.content().find(L"typed"), std::wstring::npos) << "the run of typing went on";
}

TEST(ConditionalSections, DeclareWhatTheyNeedOnTheRoot) {
    MarkedDocument document;
    document->setContent("<qfd:document><qfd:conditional-block-sequence><qfd:conditional-block>"
                         "<fo:block>x</fo:block></qfd:conditional-block>"
                         "</qfd:conditional-block-sequence></qfd:document>",
                         true);
    document->setCaretPos(false, document.find(L"x<"));
    C buffer(&document.face(), C::Type::Block);
    buffer.insertConditionalSection("a");
    buffer.commitChangesToEditableBuffer();
    EXPECT_EQ(document.content().substr(0, 21), L"<qfd:document xmlns:f");
    EXPECT_EQ(document.caret(), document.find(L"Customize"));
    buffer.deleteCurrentConditionalSection();
    buffer.commitChangesToEditableBuffer();
    EXPECT_EQ(document.find(L"Customize"), -1);
    EXPECT_NE(document.find(L"x<"), -1);
}

#pragma once

#include "DocumentTesting.h"

#include <gtest/gtest.h>

#include <array>

/// Short forms of the markup in caret tests: B a block, I an inline, L a link, T a table, H, F and
/// D its header, footer and body, R a row and C a cell; `_` is a placeholder.
inline std::wstring expand(const std::wstring& brief) {
    static constexpr std::array<std::pair<wchar_t, const wchar_t*>, 9> names{
        {{L'B', L"fo:block"},
         {L'I', L"fo:inline"},
         {L'L', L"fo:basic-link"},
         {L'T', L"fo:table"},
         {L'H', L"fo:table-header"},
         {L'F', L"fo:table-footer"},
         {L'D', L"fo:table-body"},
         {L'R', L"fo:table-row"},
         {L'C', L"fo:table-cell"}}};
    std::wstring text;
    for (std::size_t at = 0; at < brief.size(); ++at) {
        text += brief[at] == L'_' ? std::wstring(L"&#x00A0;") : std::wstring(1, brief[at]);
        const bool inTag = brief[at] == L'<' || (brief[at] == L'/' && brief[at - 1] == L'<');
        const wchar_t after = at + 2 < brief.size() ? brief[at + 2] : L'\0';
        if (!inTag || (after != L'>' && after != L' ' && after != L'/'))
            continue;
        for (const auto& [letter, name] : names) {
            if (brief[at + 1] == letter) {
                text += name;
                ++at;
                break;
            }
        }
    }
    return text;
}

class CaretBuffer : public TestBuffer {
public:
    using EditableDocumentBuffer::adjustCaretToAnEditablePosition,
        EditableDocumentBuffer::canHoldCaret,
        EditableDocumentBuffer::elementContainsJustWhitespacesOrVoid,
        EditableDocumentBuffer::getFirstPageRegionNameFromMaster,
        EditableDocumentBuffer::getNextEditablePositionInFo, EditableDocumentBuffer::getNextPageSeq,
        EditableDocumentBuffer::getPreviousEditablePositionInFo,
        EditableDocumentBuffer::isBoudaryEditablePosition,
        EditableDocumentBuffer::skipSpacesBackwards, EditableDocumentBuffer::skipSpacesFromPos;

    using TestBuffer::TestBuffer;

    /// A fragment in short form with its marks, in the flow of a small document.
    static CaretBuffer withFlow(const std::wstring& brief) { return CaretBuffer(expand(brief)); }

    void right(bool extend = false) { moveCaretRight(extend, false, false); }
    void left(bool extend = false) { moveCaretLeft(extend, false, false); }

    /// All stops found by walking right from the start of the document, in order.
    std::vector<int> stopsRight() const {
        std::vector<int> found;
        for (int stop = getNextEditablePositionInFo(0, false, false); stop >= 0;
             stop = getNextEditablePositionInFo(stop, false, false))
            found.push_back(stop);
        return found;
    }
    /// All stops found by walking left from the end of the document, also in the text's order.
    std::vector<int> stopsLeft() const {
        std::vector<int> found;
        for (int stop = getPreviousEditablePositionInFo(length() - 1, false, false); stop >= 0;
             stop = getPreviousEditablePositionInFo(stop, false, false))
            found.insert(found.begin(), stop);
        return found;
    }

    int length() const { return text_.length(); }

    /// The fragment in the flow with `|` at each offset.
    std::wstring markedAt(const std::vector<int>& offsets) const {
        std::wstring text = wide(text_);
        for (auto at = offsets.rbegin(); at != offsets.rend(); ++at)
            text.insert(static_cast<std::size_t>(*at), L"|");
        const std::wstring shell = documentWith(L"");
        const std::size_t start = shell.find(L"</fo:flow>");
        return text.substr(start, text.size() - shell.size());
    }
};

/// Checks that the walks right and left over a fragment find exactly the stops marked for each.
inline void expectStops(const std::wstring& right, const std::wstring& left) {
    std::wstring plain = right;
    std::erase(plain, L'|');
    CaretBuffer buffer;
    buffer.setContent(Core::String(TestBuffer::documentWith(expand(plain))), true);
    EXPECT_EQ(buffer.markedAt(buffer.stopsRight()), expand(right));
    EXPECT_EQ(buffer.markedAt(buffer.stopsLeft()), expand(left)) << "walking left";
}
inline void expectStops(const std::wstring& both) {
    expectStops(both, both);
}

/// Checks where one move takes the caret, the fragment given before and after with its marks.
template <typename Move>
void expectMove(const std::wstring& before, Move move, const std::wstring& after) {
    CaretBuffer buffer(expand(before));
    move(buffer);
    EXPECT_EQ(buffer.marked(), expand(after)) << "from " << wide(Core::String(before));
}
inline void expectRight(const std::wstring& before, const std::wstring& after) {
    expectMove(
        before, [](CaretBuffer& buffer) { buffer.right(); }, after);
}
inline void expectLeft(const std::wstring& before, const std::wstring& after) {
    expectMove(
        before, [](CaretBuffer& buffer) { buffer.left(); }, after);
}

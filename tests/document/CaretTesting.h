#pragma once

#include "DocumentTesting.h"

#include <gtest/gtest.h>

#include <vector>

class CaretBuffer : public TestBuffer {
    using Base = EditableDocumentBuffer;

public:
    using TestBuffer::TestBuffer, Base::adjustCaretToAnEditablePosition, Base::canHoldCaret,
        Base::elementContainsJustWhitespacesOrVoid, Base::getNextEditablePositionInFo,
        Base::getPreviousEditablePositionInFo, Base::isBoudaryEditablePosition,
        Base::skipSpacesBackwards, Base::skipSpacesFromPos;

    void right(bool extend = false, bool merge = false) { moveCaretRight(extend, false, merge); }
    void left(bool extend = false, bool merge = false) { moveCaretLeft(extend, false, merge); }

    /// All stops found by walking right from the start of the document, or left from its end, in
    /// the text's order.
    std::vector<int> stops(bool right) const {
        std::vector<int> found;
        for (int stop = right ? 0 : length() - 1;;) {
            stop = right ? getNextEditablePositionInFo(stop, false, false)
                         : getPreviousEditablePositionInFo(stop, false, false);
            if (stop < 0)
                return found;
            found.insert(right ? found.end() : found.begin(), stop);
        }
    }

    int length() const { return getContent().length(); }

    /// The fragment in the flow with `|` at each offset.
    std::wstring markedAt(const std::vector<int>& offsets) const {
        std::wstring text = wide(getContent());
        for (auto at = offsets.rbegin(); at != offsets.rend(); ++at)
            text.insert(static_cast<std::size_t>(*at), L"|");
        return inShort(flowOf(text));
    }
};

/// Checks that the walks right and left over a fragment find exactly the stops marked for each.
inline void expectStops(const std::wstring& right, const std::wstring& left) {
    std::wstring plain = right;
    std::erase(plain, L'|');
    const CaretBuffer buffer(plain);
    EXPECT_EQ(buffer.markedAt(buffer.stops(true)), right);
    EXPECT_EQ(buffer.markedAt(buffer.stops(false)), left) << "walking left";
}
inline void expectStops(const std::wstring& both) {
    expectStops(both, both);
}

/// Checks where one move takes the caret, the fragment given before and after with its marks.
template <typename Move>
void expectMove(const std::wstring& before, Move move, const std::wstring& after) {
    CaretBuffer buffer(before);
    move(buffer);
    EXPECT_EQ(buffer.marked(), after) << "from " << wide(Core::String(before));
}

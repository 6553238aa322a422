#pragma once

#include "document/WhitespaceAlg.h"

#include <optional>
#include <vector>

/// A walk over the units of a document that knows at every unit which element is current and
/// whether the caret may stand there. What it once found out about an element it keeps, so that a
/// walk costs what it passes over, and not that again for each unit.
///
/// The text must not change while the walk lasts.
class CaretWalk {
public:
    CaretWalk(const EditableDocumentBuffer& buffer, int position);

    int position() const { return position_; }
    /// The element current there; -1 if none.
    int element() const { return around_.back().element; }

    /// One unit on or back. False, with the position as it was, where the text ends.
    bool stepForward();
    bool stepBackward();
    /// Goes on from another place.
    void restartAt(int position);

    /// In an editable element, or directly before or behind a table; and in no list label and no
    /// script.
    bool canHoldCaret();
    /// Whether nothing shows there that the caret could stand before.
    bool isSkipped() { return isSkippedInElement(position_); }
    /// The same for another position that has the same element around it.
    bool isSkippedInElement(int position);
    bool isStop() { return canHoldCaret() && !isSkipped(); }

private:
    struct Element {
        int element;
        std::optional<bool> isClosedToCaret;
    };

    bool isClosedToCaret();

    const EditableDocumentBuffer& buffer_;
    BufferAlgorithms::WhitespaceAlg whitespace_;
    std::optional<int> loaded_;
    int position_;
    std::vector<Element> around_; // of the elements around the position those met so far
};

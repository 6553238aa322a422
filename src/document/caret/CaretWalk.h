#pragma once

#include "document/caret/WhitespaceAlg.h"

#include <optional>
#include <vector>

/// A walk over the units of a document that knows at every unit which elements are around it and
/// whether the caret may stand there. It climbs no further than it leaves elements, and keeps count
/// of those that it enters, so that a walk costs what it passes over, however deep.
///
/// The text must not change while the walk lasts.
class CaretWalk {
public:
    CaretWalk(const Document& document, int position);

    int position() const { return position_; }
    /// The element current there; -1 if none.
    int element() const { return entered_.empty() ? outer_ : entered_.back(); }

    /// One unit on or back. False, with the position as it was, where the text ends.
    bool stepForward();
    bool stepBackward();
    /// The same, with a script as one unit: from its start tag on, and back from its closing tag.
    bool stepForwardOverScript();
    bool stepBackwardOverScript();
    /// To the next or the previous stop. False, at that end of the text, where there is none.
    bool toNextStop();
    bool toPreviousStop();
    /// To a later position, or the length of the text, with no tag in between.
    void passText(int position) { position_ = position; }
    /// Goes on from another place.
    void restartAt(int position);

    /// In an editable element, or directly before or behind a table; and in no list label and no
    /// script.
    bool canHoldCaret() const;
    /// Whether nothing shows there that the caret could stand before.
    bool isSkipped() { return isSkippedInElement(position_); }
    /// The same for another position that has the same element around it.
    bool isSkippedInElement(int position);
    bool isStop() { return canHoldCaret() && !isSkipped(); }
    /// Whether white space shows there as it stands, so that a line feed begins a line.
    bool keepsLinefeeds();

private:
    void loadProperties();
    void enterElement(int element);
    void leaveElement();
    bool isClosedToCaret(int element) const;
    bool isInClosed() const;

    const Document& document_;
    BufferAlgorithms::WhitespaceAlg whitespace_;
    std::optional<int> loaded_;
    int position_;
    int outer_; // the innermost element around that was not entered
    mutable std::optional<bool>
        isOuterClosed_;        // whether that or one around it is closed to the caret
    std::vector<int> entered_; // the others, the outermost first
    int closedEntered_;        // how many of these are closed to the caret
};

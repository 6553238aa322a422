#pragma once

class Document;

/// Stops: the offsets at which the caret may stand and something shows that it can stand before or
/// behind. The caret moves from stop to stop.
namespace Stops {

/// Whether the caret may stand there: in an editable element, or directly before or behind a table.
bool canHoldCaret(const Document& document, int position);
/// Whether it passes over the place, because nothing shows there.
bool isSkipped(const Document& document, int position);
/// Whether the caret is at the first stop of its current element or, with `forward`, at the last.
bool isCaretAtEdge(const Document& document, bool forward);

/// How a walk from stop to stop goes.
struct Way {
    bool wrap = false;            ///< on from the other end of the document, up to where it began
    bool mergeBoundaries = false; ///< stops that only the edge of an inline lies between are one
};
/// The next or the previous stop: the nearest offset that can hold the caret and is not skipped. -1
/// if there is none or the position lies outside the text.
int next(const Document& document, int position, Way way = {});
int previous(const Document& document, int position, Way way = {});
/// The position if it lies in a flow, else the nearest stop in that direction that does.
int nextInFlow(const Document& document, int position);
int previousInFlow(const Document& document, int position, bool mergeBoundaries);
/// A stop in the same cell or, outside tables, in the same flow or static content.
int nextInCell(const Document& document, int position);
int previousInCell(const Document& document, int position);
/// Whether the stop lies in the cell around the position or, outside tables, in its flow or static
/// content.
bool isInCellAround(const Document& document, int position, int stop);
/// The position, or where it lies inside a tag or an entity the nearest stop before it.
int outsideMarkup(const Document& document, int position);

/// Moves the position over what is skipped, up to the first offset that is not. Answers whether
/// another element was met; with `crossElements` false the step into it is not taken.
bool skipBackward(const Document& document, int& position, bool crossElements);
bool skipForward(const Document& document, int& position, bool crossElements);

} // namespace Stops

/// The stops before and behind one place after another, of which many lie between the same two: up
/// to the stop that was found the answer is the same, as long as the text is.
class NearStops {
public:
    explicit NearStops(const Document& document) : document_(document) {}

    /// As Stops::next and previous.
    int next(int position);
    int previous(int position);

private:
    void forgetOldText();

    const Document& document_;
    unsigned version_ = 0; // of the text that the rest is known of
    int nextOf_ = -1;      // of the place that was asked about, if any was
    int next_ = -1;
    int previousOf_ = -1;
    int previous_ = -1;
};

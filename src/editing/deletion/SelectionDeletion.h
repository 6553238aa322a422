#pragma once

#include <optional>

class Document;
class TextRewrite;
struct PlaceholderRepair;

/// The walk that deletes a range of a document whose ends may lie in different blocks, cells or
/// lists. It goes from the start of the range to its end: text goes, elements that lie wholly in
/// the range go as wholes, and a boundary that must stay is stepped over. Sibling blocks whose
/// boundary goes are joined, and the first one's start tag rules.
///
/// Each round either moves on towards the end or shortens the range, so that the walk ends. It
/// records what it does and leaves the caret where the range began, or where it ended if the last
/// boundary before that was stepped over.
class SelectionDeletion {
public:
    /// The range from `start` up to but excluding `end`, both valid. The list that begins at
    /// `handledList`, and each that begins before it, is treated as any other element; -1 for none.
    SelectionDeletion(Document& document, int start, int end, int handledList);

    void run();

    /// Where the caret belongs.
    int start() const { return start_; }
    /// Where the text behind the range begins.
    int end() const { return end_; }

private:
    void takeWholeElement();
    void takeIndentation();

    // A round and its cases; each answers whether another round follows.

    /// Tells whether anything shows between two places, up to but excluding the second.
    class ShownAhead {
    public:
        explicit ShownAhead(const Document& document) : document_(document) {}
        bool between(int start, int end);

    private:
        const Document& document_;
        unsigned version_ = 0; // of the text that the rest is known of
        int from_ = -1;        // nothing shows from there
        int at_ = -1;          // up to here
    };

    int unitsAhead() const;
    bool playRound();

    bool isNothingEditableLeft() const;

    bool sweep();

    int listAround(int position) const;
    bool deleteFromList(int list);
    bool isWhollySelected(int list) const;
    bool deleteWholeList(int list);
    bool passList();

    bool deleteRestOfText();
    struct Leavings;
    bool deleteWhatLeavesSomething();
    bool canStandAt(int position) const;
    Leavings leavingsFrom(int position);
    int placeInLastChild(int position, const Leavings& found) const;
    bool holdsEnd(int element) const;
    bool deleteTextBefore(int tag);

    bool leaveElements();
    struct Leaving;
    std::optional<Leaving> leavingFrom(int position) const;
    bool isPlainBetween(int position, int end) const;
    bool leaveElement();
    bool hasSibling() const;
    bool hasSiblingBehind(int closing) const;
    bool takeSibling();
    void takeFurtherSiblings(int sibling, int behind, TextRewrite& rewrite) const;
    bool joinSibling(int sibling);

    bool takeChild();
    bool deleteChild(int behind);

    bool settle();

    void remove(int from, int to);
    PlaceholderRepair repair();
    void keepLineBetweenBlockTags();
    void keepLineBehindLineBreak();
    void insertPlaceholderAtStart();

    bool finishAtStart();
    bool finishAtCaret();
    int stopNear(int position) const;

    Document& document_;
    int start_;
    int end_;
    int position_; // up to here the range has been dealt with
    int handledList_;
    ShownAhead shown_;
};

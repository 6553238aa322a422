#pragma once

#include "document/TextRewrite.h"
#include "text/XmlScan.h"

class Document;

/// The rounds of a deletion over blocks, lists and tables in a row that lie wholly in its range,
/// carried out at once: the text behind them, which may be long, moves only once. A block keeps a
/// placeholder, the blocks that follow it as its siblings go, and so do lists and tables.
///
/// It takes only what the rounds would deal with in the same way whatever stands around, and stops
/// before anything else.
class DeletionSweep {
public:
    /// Where the caret belongs, where the range ends, and up to where it has been dealt with.
    struct State {
        int start;
        int end;
        int position;
    };

    /// A list that begins at `handledList` or before it counts as any other element.
    DeletionSweep(Document& document, const State& state, int handledList);

    /// Answers the state afterwards; the position is another one if anything was done.
    State run();

private:
    bool step();
    bool mayChange() const;

    bool emptyBlock();
    int blockAtItsStart() const;
    void leave(int element);
    int removeSiblings(int element, int behind);
    void goOnFrom(int place);

    bool removeList(int list);
    bool replaceList(int list, int behind);
    bool removeTable(int table);
    bool mayGo(int structure, int behind);
    bool showsWithout(int structure, int behind);
    bool showsInFront(int element, int child);
    bool isAllOfParent(int element, int behind) const;

    bool isBlock(int element) const;
    int behindComments(int position) const;
    bool isFree(int from, int behind) const;
    int placeFrom(int place) const;
    void goTo(int position);
    void replaceBy(XmlScan::Text xml, int from, int behind);
    void remove(int from, int behind);

    Document& document_;
    TextRewrite rewrite_;
    State state_; // end and position in the text as it stands, the start in that to come
    int begin_;   // what stands in front is none of its own
    int handledList_;
    int change_ = 0;       // of the length of the text
    int changeBefore_ = 0; // of what stands before the position
    int removedFrom_ = -1; // the last stretch that went, with what went directly before it
    int removedEnd_ = -1;
    int shownElement_ = -1; // one that is known to show something whatever goes
    bool isDone_ = false;
};

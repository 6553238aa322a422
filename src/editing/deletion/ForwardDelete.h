#pragma once

#include "document/Placeholders.h"
#include "document/caret/Stops.h"
#include "foundation/String.h"

/// The deletion of one unit behind a position, in rounds as Backspace has them. Each round that is
/// followed by another shortens the text or moves on, so that the rounds end.
class ForwardDelete {
public:
    ForwardDelete(Document& document, int caret)
        : document_(document), stops_(document), voids_(document), caret_(caret), place_(caret) {}

    /// Deletes; answers where the caret belongs.
    int run();

private:
    /// The boundary of a block and the line that follows it.
    struct BlockRun {
        int firstTag; ///< where the boundary begins
        int runEnd;   ///< the block tag that ends the line
    };

    // A round and its cases; each answers whether another round follows.

    bool playRound();
    void look();

    bool removeAtTag();
    bool isBeforeEmptyElement() const;
    bool removeEmptyElement();
    bool followsEmptyLine() const;
    bool removeMarkup();
    bool isAtNestedBlock() const;
    bool enterInline();
    bool leaveInline();
    bool joinFollowing();
    Core::String followingName() const;
    int listBehind() const;
    bool eraseInFollowingList(int list);
    bool removeObject();

    bool isPlaceholderElement() const;
    bool takePlaceholder();
    bool removeTrailingPlaceholder();
    bool isLineBeforeAnother() const;
    bool removeLine();
    int endOfPlaceholder() const;
    bool isOnlyContainersBefore(int position, int element) const;

    bool removeText();
    bool removeCharacter(int next);
    int endWithBlank(int end) const;
    int startWithBlank() const;
    bool isBetweenBlocks(int position) const;

    // A line moved back over the boundary of its block

    bool mergeNextBlockRun();
    int findBlockRunEnd(int tagPosition) const;
    int pullBlockRunBack(const BlockRun& run);
    int startOfRun(const BlockRun& run) const;
    int removeEmptied(int position, int firstTag);
    bool mustStayApart(int position) const;
    void clearBoundary(int position, int firstTag);

    void moveTo(int position);
    bool goOnInside(int position);
    bool isInlineAt(int element) const;
    bool isBlockTag(int position) const;
    void removeWhole(int element);
    void keepLine();

    Document& document_;
    NearStops stops_;
    VoidElements voids_;
    int caret_;           // where the caret belongs in the end
    int place_;           // where the round begins
    bool inside_ = false; // the deletion went on at another place and leaves the caret alone

    int position_ = -1; // what the round meets, behind white space that does not show
    int element_ = -1;  // the element around it
};

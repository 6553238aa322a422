#pragma once

#include "document/Placeholders.h"
#include "document/caret/Stops.h"
#include "foundation/String.h"
#include "text/EditableXmlBuffer.h"

/// The deletion of one unit before a position, in rounds: a round meets what stands there, deals
/// with it by its case, and may leave it to another round to go on from where it ended.
///
/// Each round that is followed by another shortens the text or moves back, so that the rounds end.
class Backspace {
public:
    Backspace(Document& document, int caret)
        : document_(document), stops_(document), voids_(document), caret_(caret) {}

    /// Deletes; answers where the caret belongs.
    int run();

private:
    // A round and its cases; each answers whether another round follows.

    bool playRound();
    void look();

    bool isPlaceholderBlock() const;
    bool takePlaceholder();

    bool followsMarkup() const;
    bool removeIgnoredMarkup();
    bool removeSkippedSpaces();

    bool removeAtTag();
    bool removeEmptyElement();
    bool followsEmptyLine() const;
    bool removeEmptyLineBefore();
    int unitBeforeTag() const;

    int listBefore() const;
    int unitBefore(int position) const;
    bool eraseInPreviousList(int list);
    bool removeList(int list);

    bool closesNestedBlock() const;
    bool moveRunIntoNestedBlock();
    int endOfRun() const;

    bool dissolveNestedBlock();
    bool mustStayApart(int position) const;

    bool takeInlineBehind();
    bool takeInlineBefore();

    bool joinPreviousBlock();
    int endOfLastLine(int block) const;
    int startOfJoined() const;
    int behindJoinedPlaceholder() const;
    int previousBlock(Core::String& name) const;
    bool isSeparatedFrom(int block) const;

    bool removeObject();

    bool removeCharacter();
    bool isOnlyUnitOfInline() const;
    int startWithBlank(int start) const;
    int endWithBlank() const;
    bool isBetweenBlockTags(int position) const;

    bool isBlockBoundaryBefore(int position) const;
    bool isBlockName(const Core::String& tagName) const;
    int behindTag() const;

    Document& document_;
    NearStops stops_;
    VoidElements voids_;
    int caret_; // where the round begins and, in the end, the caret belongs

    int origin_ = -1;  // where this round began
    int element_ = -1; // the element around it
    int spaces_ = -1;  // where the white space begins that is before it and does not show
    XmlElementType type_ = xmlNone; // what ends there
    int tag_ = -1;                  // the last tag that ends there or before
    Core::String tagName_;
};

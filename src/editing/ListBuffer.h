#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

#include <cstdint>
#include <vector>

class EditableDocumentBuffer;
class TextRewrite;

/// What the labels of a list are.
enum class ListType {
    Numbering = 0, ///< "1)", "2)" and so on
    Bullets = 1,   ///< "&#x2022;"
    None = 2       ///< nothing, or something else
};

/// The lists of a document: a view of the document buffer that it was taken from, which owns the
/// text and must outlive it. A host takes one for a command or a question:
///
///     document->getListBuffer().makeList(ListType::Bullets);
///
/// A list is a "fo:list-block" of items, each with a label and a body. An item belongs to the list
/// whose child it is; lists may be nested in the bodies of items. Labels are ordinary text that the
/// caret cannot enter, and the numbers in them are rewritten whenever items come or go.
///
/// A command is one undo step. Where there is no list it changes nothing, and a question answers
/// -1, an empty text, false or ListType::None.
class FORME_API ListBuffer {
public:
    // Commands

    /// The button of a toolbar: makes a list of the block around the caret, changes the labels of
    /// the list around it, or turns a list that has this type back into blocks.
    void makeList(ListType type);
    /// Makes the block around the caret the only item of a list, which stands in a block of its
    /// own. Not in a label.
    void createList(ListType type);
    /// Turns the list around the caret back into the blocks that its items hold and puts the caret
    /// to the first place in them.
    void removeList();
    /// Rewrites the labels of the list around the caret. Lists nested in it keep theirs.
    void changeLabelType(ListType type);
    /// Enter: the item around the caret is split there, and the items behind it are renumbered. An
    /// empty line leaves the list, which is cut in two around it where items stand on both sides.
    /// What is selected goes first. Nothing happens in a label and in a cell of a table.
    void breakList();
    /// Backspace or, with `forward`, Delete, of a unit or with `wholeWord` a word. At the start of
    /// an item it joins the item before, and what the first item holds moves out before the list;
    /// at the end of an item the next one joins it, behind the last one the block or the line that
    /// follows the list. In an only item that is empty, or at its start, Backspace ends the list.
    void eraseTextFromListBuffer(bool forward, bool wholeWord);
    /// Removes what lies in the list around `start` from there up to but excluding `end`: items
    /// that are wholly in the range go as wholes, but one item alone stays. Afterwards `start` is
    /// the caret, and `end` has moved along if it lies behind the list and else is `start`. Answers
    /// an offset from which on nothing of the list lies in the range: the list's closing tag, or
    /// where it stood.
    int eraseListSelection(int& start, int& end);
    /// The same for what is selected.
    int eraseListSelection();
    /// Numbers the items of the list around the position, or the list that begins there, from 1 on.
    void recalculateNumbering(int position);
    /// Selects the label of the item around the caret.
    void selectListLabel();

    // The list and the item around the caret

    /// Told by the list's first label.
    ListType getListType() const;
    /// How many items it has.
    int getCurrentListSize() const;
    /// Counted from 1.
    int getCurrentItemNumber() const;

    // Finding lists and items. An item is named by the offset of its start tag or by any offset in
    // it; offsets that are answered are those of start tags.

    /// The innermost list around the position. On a list's own start tag that is the one around it.
    int getListPos(int position) const;
    /// The innermost item around the position, in the same way.
    int getItemPos(int position) const;
    /// The next or the previous item of the same list.
    int getNextItemPos(int item) const;
    int getPreviousItemPos(int item) const;
    int getItemLabelPos(int item) const;
    int getItemBodyPos(int item) const;
    /// The first block in the element whose start tag stands at the position, and the one that ends
    /// last; line breaks, which are empty blocks, do not count.
    int getFirstBlockInElement(int element) const;
    int getLastBlockInElement(int element) const;
    /// Which item of its list it is, counted from 1.
    int getListItemNumber(int item) const;
    /// Whether nothing but edges of inlines stands before the position in the body of its item.
    bool isFirstPositionInItemBody(int position) const;

    // Labels

    /// The markup that the label's first block holds.
    Core::String getItemLabelValue(int item) const;
    /// Replaces that. What would break the document is taken back.
    void setItemLabelValue(int item, const Core::String& value);
    /// The first label of a list of that type.
    Core::String getFirstListLabel(ListType type) const;
    /// The label that follows a given one: "n+1)" and the number n+1 on "n)"; any other label
    /// itself, and 0.
    void getNextLabel(const Core::String& label, Core::String& next, int& number) const;

    // The markup of an item that takes over what follows a position in another: the tags open
    // around the position are repeated, and a placeholder stands in for nothing.

    Core::String createNewItem(const Core::String& label, int position) const;
    /// Its body alone. Empty for a position in no body.
    Core::String createNewItemBody(int position) const;

private:
    friend class EditableDocumentBuffer;
    friend class SelectionDeletion;

    explicit ListBuffer(EditableDocumentBuffer& document) : document_(document) {}

    /// From `start` up to but excluding `end`.
    struct Range {
        int start;
        int end;
    };

    /// What stood at `from` stands at `to`.
    struct Move {
        int from;
        int to;
    };

    template <typename Change>
    bool carryOut(Change change);

    // The text

    Core::String slice(int start, int end) const;
    Core::String startTag(int element) const;
    Range contentOf(int element) const;
    int closingTag(int element) const;
    std::vector<int> elementsWithin(int element, int position) const;

    // Lists and items

    int listAt(int position) const;
    int itemAt(int position) const;
    std::vector<int> childrenOf(int element) const;
    std::vector<int> itemsOf(int list) const;
    bool isItem(int element) const;
    static int neighborOf(int element, const std::vector<int>& elements, int step);
    bool isOwnItem(int item) const;
    ListType typeOf(int list) const;
    int labelBlock(int item) const;
    Core::String textOfLabel(int label) const;
    bool isInItemBody(int position) const;
    bool isFirstPositionIn(int element, int position) const;
    bool isLastPositionIn(int element, int position) const;
    bool isEndOfLine(int position) const;
    Core::String placeholderAt(int position) const;
    static Core::String numberLabel(std::int64_t number);
    Core::String labelFor(ListType type, std::size_t number) const;

    // Making and changing

    void wrapBlock(int block, ListType type);
    void fillIfEmpty(int block);
    void unwrap(int list);
    int startOfContent(int position) const;
    Core::String contentOfItems(int element) const;
    void rewriteLabels(int list, ListType type);
    void renumber(int list);
    void replaceInLabel(const Range& range, const Core::String& xml, TextRewrite& rewrite) const;

    // Enter

    bool canBreakAt(int position) const;
    void splitItem();
    Core::String followingItems(int item, std::int64_t number) const;
    void removePlaceholderInline();
    int emptyBlockAround(int position) const;
    void leaveList(int block);
    void replaceListByBlock(int list);
    bool beginsContent(int element, int position) const;
    bool endsContent(int element, int position) const;
    int skipVoid(int position) const;
    Range widen(int block, int list) const;
    bool holdsEmptyLines(int element) const;
    bool isEdgeOfText(int position) const;
    int itemOfBody(int element) const;
    Core::String reopenedTags(int list, int position) const;

    // Backspace and Delete

    void eraseInItem(int item, bool forward, bool wholeWord);
    bool isEmptyOnlyItem(int item) const;
    void eraseBackward(int item);
    void eraseForward(int item);
    bool isAtEnd(int position) const;
    void moveItemOut(int item);
    void joinItems(int first, int second);
    Move appendItem(int first, int second);
    Move moveContent(int second, int body, int end);
    Move appendBlocks(int body, int second);
    bool hasOpenBody(int element) const;
    int blockThatBegins(int body) const;
    bool isInTableWithin(int body, int position) const;
    int textStart(int block) const;
    void pullFollowingLineIn(int item);
    Range textOf(int block) const;
    bool opensBlock(int position) const;
    bool isEdgeAroundList(int position) const;
    bool beginsLine(int position) const;
    int endOfLine(int position) const;
    int behindLineBreak(int position) const;
    void continueBlock(int block, const Range& around, const Range& text);

    // A selection

    int eraseRange(Range& range);
    std::vector<int> itemsTouched(int list, const Range& range) const;
    bool isCovered(int item, const Range& range) const;
    bool areAllCovered(int list, const std::vector<int>& items, const Range& range) const;
    int eraseItems(int list, const std::vector<int>& items, const Range& range);
    int erasePart(int list, const Range& range);
    int removeWhole(int list);

    EditableDocumentBuffer& document_;
};

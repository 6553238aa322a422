#pragma once

#include "editing/lists/ListType.h"
#include "foundation/Api.h"
#include "foundation/String.h"

class Document;
class TextRewrite;

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

    /// A view of a document.
    explicit ListBuffer(Document& document) : document_(document) {}

private:
    Document& document_;
};

#pragma once

#include "editing/lists/ListType.h"
#include "foundation/String.h"

#include <vector>

class Document;

namespace Lists {

/// From `start` up to but excluding `end`.
struct Range {
    int start;
    int end;
};

/// Enter: the item around the caret is split there, and the items behind it are renumbered. An
/// empty line leaves the list, which is cut in two around it where items stand on both sides.
/// What is selected goes first. Nothing happens in a label and in a cell of a table.
void breakList(Document& document);
/// The block around the position if it shows nothing but a placeholder, which may stand in inlines;
/// -1 otherwise.
int emptyBlockAround(const Document& document, int position);
/// Makes the block around the caret the only item of a list, which stands in a block of its
/// own. Not in a label.
void createList(Document& document, ListType type);
/// Turns the list around the caret back into the blocks that its items hold and puts the caret
/// to the first place in them.
void removeList(Document& document);
/// Rewrites the labels of the list around the caret. Lists nested in it keep theirs.
void changeLabelType(Document& document, ListType type);
/// A block that shows nothing gets a placeholder, so that its item has a place for the caret.
void fillIfEmpty(Document& document, int block);
void unwrap(Document& document, int list);
/// Gives the list's items the numbers from 1 on.
void renumber(Document& document, int list);
/// Backspace or, with `forward`, Delete, of a unit or with `wholeWord` a word. At the start of
/// an item it joins the item before, and what the first item holds moves out before the list;
/// at the end of an item the next one joins it, behind the last one the block or the line that
/// follows the list. In an only item that is empty, or at its start, Backspace ends the list.
void eraseText(Document& document, bool forward, bool wholeWord);
/// Told by the list's first label.
ListType typeAtCaret(const Document& document);
/// The innermost list around the position. On a list's own start tag that is the one around it.
int listAround(const Document& document, int position);
/// The innermost item around the position, in the same way.
int itemAround(const Document& document, int position);
int labelOf(const Document& document, int item);
int bodyOf(const Document& document, int item);
/// The first block in the element whose start tag stands at the position, and the one that ends
/// last; line breaks, which are empty blocks, do not count.
int firstBlockIn(const Document& document, int element);
int lastBlockIn(const Document& document, int element);
/// Which item of its list it is, counted from 1.
int numberOf(const Document& document, int item);
/// Whether nothing but edges of inlines stands before the position in the body of its item.
bool isFirstPositionInItemBody(const Document& document, int position);
int listAt(const Document& document, int position);
/// The elements that stand directly in it. In a list a repeat with items can be among them.
std::vector<int> childrenOf(const Document& document, int element);
/// The items that are the list's own.
std::vector<int> itemsOf(const Document& document, int list);
bool isItem(const Document& document, int element);
/// The one that stands that many steps behind the element among them; -1 if there is none.
int neighborOf(int element, const std::vector<int>& elements, int step);
/// An item in a repeat belongs to no list.
bool isOwnItem(const Document& document, int item);
bool isInItemBody(const Document& document, int position);
/// Whether nothing but the start tags of inlines stands between the element's own and the position.
bool isFirstPositionIn(const Document& document, int element, int position);
/// Whether nothing but the closing tags of inlines stands between the position and the element's.
bool isLastPositionIn(const Document& document, int element, int position);
ListType typeOf(const Document& document, int list);
int labelBlock(const Document& document, int item);
/// The markup that the label's first block holds.
Core::String labelValue(const Document& document, int item);
/// The first label of a list of that type.
Core::String firstLabel(ListType type);
/// The label that follows a given one: "n+1)" and the number n+1 on "n)"; any other label
/// itself, and 0.
void getNextLabel(const Core::String& label, Core::String& next, int& number);
/// The label of the item with that number, counted from 1.
Core::String labelFor(ListType type, std::size_t number);
Core::String numberLabel(std::int64_t number);
Core::String createNewItem(const Document& document, const Core::String& label, int position);
/// Its body alone. Empty for a position in no body.
Core::String createNewItemBody(const Document& document, int position);
/// What keeps a place for the caret at the position if nothing else stands there.
Core::String placeholderAt(const Document& document, int position);
Core::String slice(const Document& document, int start, int end);
Core::String startTag(const Document& document, int element);
/// What stands between the element's tags.
Range contentOf(const Document& document, int element);
int closingTag(const Document& document, int element);
/// The elements around the position that lie in the element, the outermost first.
std::vector<int> elementsWithin(const Document& document, int element, int position);
/// Removes what lies in the list around `start` from there up to but excluding `end`: items
/// that are wholly in the range go as wholes, but one item alone stays. Afterwards `start` is
/// the caret, and `end` has moved along if it lies behind the list and else is `start`. Answers
/// an offset from which on nothing of the list lies in the range: the list's closing tag, or
/// where it stood.
int eraseSelection(Document& document);
/// Removes what lies in the list around `start` from there up to but excluding `end`: items
/// that are wholly in the range go as wholes, but one item alone stays. Afterwards `start` is
/// the caret, and `end` has moved along if it lies behind the list and else is `start`. Answers
/// an offset from which on nothing of the list lies in the range: the list's closing tag, or
/// where it stood.
int eraseSelection(Document& document, int& start, int& end);
/// The work itself, for the deletion of a selection, of which a list may be but a part. The caret
/// is left where the selection begins or else where the first part of the list went.
int eraseRange(Document& document, Range& range);

} // namespace Lists

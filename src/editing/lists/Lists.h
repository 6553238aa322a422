#pragma once

#include "editing/deletion/ListEdge.h"
#include "editing/lists/ListType.h"
#include "foundation/String.h"

#include <vector>

class Document;

/// Lists: fo:list-block with its items, each a label and a body. Commands make and end lists, split
/// and join items and keep the numbers right; queries tell lists, items and their parts by the
/// offset of their start tag, -1 where there is none.
namespace Lists {

using ListEdge::Range;

// Commands, each one undo step. Backspace and Delete are in ListEdge.

/// Enter: the item around the caret is split there, and the items behind it are renumbered. An
/// empty line leaves the list, which is cut in two around it where items stand on both sides. What
/// is selected goes first. Nothing happens in a label and in a cell of a table.
void breakList(Document& document);
/// Makes the block around the caret the only item of a list, which stands in a block of its own.
/// Not in a label.
void createList(Document& document, ListType type);
/// Turns the list around the caret back into the blocks that its items hold and puts the caret to
/// the first place in them.
void removeList(Document& document);
/// Rewrites the labels of the list around the caret. Lists nested in it keep theirs.
void changeLabelType(Document& document, ListType type);
/// Removes what of the list around `start` lies from there up to but excluding `end`, as
/// ListEdge::eraseRange() does, and answers as that. Afterwards `start` is the caret, and `end` has
/// moved along if it lies behind the list and else is `start`. -1 outside of lists, and where the
/// command was taken back.
int eraseSelection(Document& document, int& start, int& end);
/// The same for what is selected; -1 if nothing is.
int eraseSelection(Document& document);

// Parts of a command

/// Puts what the list's items hold in its place.
void unwrap(Document& document, int list);
/// Gives the list's items the numbers from 1 on.
void renumber(Document& document, int list);
/// A block that shows nothing gets a placeholder, so that its item has a place for the caret.
void fillIfEmpty(Document& document, int block);

// Lists and items around a place

/// The innermost list around the position. On a list's own start tag that is the one around it.
int listAround(const Document& document, int position);
/// The list that begins at the position, or else the innermost around it.
int listAt(const Document& document, int position);
/// The innermost item around the position; on an item's own start tag the one around it.
int itemAround(const Document& document, int position);
bool isItem(const Document& document, int element);
/// An item in a repeat belongs to no list.
bool isOwnItem(const Document& document, int item);
/// Which item of its list it is, counted from 1.
int numberOf(const Document& document, int item);
/// The elements that stand directly in it. In a list a repeat with items can be among them.
std::vector<int> childrenOf(const Document& document, int element);
/// The items that are the list's own.
std::vector<int> itemsOf(const Document& document, int list);
/// The one that stands that many steps behind the element among them; -1 if there is none.
int neighborOf(int element, const std::vector<int>& elements, int step);
/// Told by the list's first label.
ListType typeOf(const Document& document, int list);
/// The same for the list around the caret.
ListType typeAtCaret(const Document& document);

// In an item

int labelOf(const Document& document, int item);
int bodyOf(const Document& document, int item);
/// The first block in the element whose start tag stands at the position, and the one that ends
/// last; line breaks, which are empty blocks, do not count.
int firstBlockIn(const Document& document, int element);
int lastBlockIn(const Document& document, int element);
/// The block around the position if it shows nothing but a placeholder, which may stand in inlines;
/// -1 otherwise.
int emptyBlockAround(const Document& document, int position);
bool isInItemBody(const Document& document, int position);
/// Whether nothing but edges of inlines stands before the position in the body of its item.
bool isFirstPositionInItemBody(const Document& document, int position);
/// Whether nothing but the start tags of inlines stands between the element's own and the position.
bool isFirstPositionIn(const Document& document, int element, int position);
/// Whether nothing but the closing tags of inlines stands between the position and the element's.
bool isLastPositionIn(const Document& document, int element, int position);

// Labels

/// The block in the item's label.
int labelBlock(const Document& document, int item);
/// The markup that the label's first block holds.
Core::String labelValue(const Document& document, int item);
/// The first label of a list of that type.
Core::String firstLabel(ListType type);
/// The label of the item with that number, counted from 1.
Core::String labelFor(ListType type, std::size_t number);
Core::String numberLabel(std::int64_t number);
/// The label that follows a given one: "n+1)" and the number n+1 on "n)"; any other label itself,
/// and 0.
void getNextLabel(const Core::String& label, Core::String& next, int& number);

// Markup

/// What stands before the content of an item with that number, counted from 1, its label included.
/// Behind it, "</fo:list-item-body></fo:list-item>" closes the item.
Core::String openingOfItem(ListType type, std::size_t number);
/// An item of what stands behind the position in its body, in the tags that are open there, with
/// that label. Empty for a position in no body.
Core::String createNewItem(const Document& document, const Core::String& label, int position);
/// Its body alone. Empty for a position in no body.
Core::String createNewItemBody(const Document& document, int position);
/// What keeps a place for the caret at the position if nothing else stands there.
Core::String placeholderAt(const Document& document, int position);
Core::String slice(const Document& document, int start, int end);
Core::String startTag(const Document& document, int element);
int closingTag(const Document& document, int element);
/// What stands between the element's tags.
Range contentOf(const Document& document, int element);
/// The elements around the position that lie in the element, the outermost first.
std::vector<int> elementsWithin(const Document& document, int element, int position);

} // namespace Lists

// Enter in a list: an item is split, or an empty line leaves the list.

#include "document/EditableDocumentBuffer.h"
#include "editing/ListBuffer.h"
#include "editing/ListCommand.h"
#include "editing/PlaceholderRepair.h"
#include "text/XmlScan.h"

using Core::String;
using XmlScan::Text;

namespace {

constexpr const wchar_t* blockStart = L"<fo:block>";

String emptyBlock() {
    return blockStart + String(XmlScan::nbspEntity) + L"</fo:block>";
}

} // namespace

void ListBuffer::breakList() {
    if (!canBreakAt(document_.caretPos_))
        return;
    carryOut([this] {
        if (document_.hasSelectedText())
            document_.deleteSelection(false);
        if (!canBreakAt(document_.caretPos_))
            return;
        const int block = emptyBlockAround(document_.caretPos_);
        if (block >= 0)
            leaveList(block);
        else
            splitItem();
    });
}

/// Where the caret can stand in the body of an item. A table in it would not survive being split.
bool ListBuffer::canBreakAt(int position) const {
    return document_.canHoldCaret(position) && isInItemBody(position) &&
           document_.searchParent(L"fo:table", position, false, true, L"fo:list-item") < 0;
}

// Splitting an item

void ListBuffer::splitItem() {
    const int caret = document_.caretPos_;
    const int item = getItemPos(caret);
    const int body = getItemBodyPos(item);
    String label;
    int number = 0;
    getNextLabel(getItemLabelValue(item), label, number);
    const std::vector<int> open = elementsWithin(body, caret);
    const bool leavesNothing = isFirstPositionIn(open.empty() ? body : open.front(), caret);
    const String first = (leavesNothing ? placeholderAt(caret) : String()) +
                         document_.stringArrayToReverseTagString(
                             document_.getClosingTagsBetweenPositions(item, caret));
    const String xml = first + createNewItem(label, caret) + followingItems(item, number);

    document_.recordCaret();
    document_.removeAndRecord(caret, closingTag(getListPos(item)));
    document_.insertAndRecord(caret, xml);
    const int itemClose = document_.getPreviousTagPosition(caret + first.length());
    const int behindFirst = document_.repairEmptied(caret, true).map(itemClose);
    const int newItem = document_.getNextEditablePositionInXml(behindFirst);
    if (const int block = getFirstBlockInElement(getItemBodyPos(newItem)); block >= 0)
        fillIfEmpty(block);
    document_.setCaret(false, document_.getNextValidCaretPos(behindFirst));
    removePlaceholderInline();
    document_.handleElementsContainingJustWhiteSpaces(document_.caretPos_, true);
    document_.recordCaret();
}

/// The rest of the list behind the item. Labels that count on from the number count one higher.
String ListBuffer::followingItems(int item, std::int64_t number) const {
    const int list = getListPos(item);
    int done = document_.positionBehindElement(item);
    String text;
    for (const int next : itemsOf(list)) {
        if (next <= item || number <= 0)
            continue;
        if (getItemLabelValue(next) == numberLabel(number)) {
            const Range label = contentOf(labelBlock(next));
            text += slice(done, label.start) + numberLabel(number + 1);
            done = label.end;
        }
        ++number;
    }
    return text + slice(done, closingTag(list));
}

/// The new item does not begin with what was left of an inline that the one before ended with.
void ListBuffer::removePlaceholderInline() {
    int inside = document_.caretPos_;
    while (document_.isInlineName(XmlScan::tagName(document_.text_.view(), inside)))
        inside = document_.getNextEditablePositionInXml(inside);
    const int element = document_.getCurrentElementPosition(inside);
    if (!document_.isInlineName(XmlScan::tagName(document_.text_.view(), element)) ||
        !document_.elementContainsJustNonBreakingSpace(element))
        return;
    document_.removeAndRecord(element, document_.positionBehindElement(element));
    const PlaceholderRepair repaired = document_.repairEmptied(element, true);
    const int place = repaired.insertedPlaceholder() ? repaired.placeholder : repaired.map(element);
    if (document_.isLineStart(place) && document_.isLineEnd(place))
        document_.insertAndRecord(place, String(XmlScan::nbspEntity));
    document_.setCaret(false, place);
    document_.ensureValidPositionAfterDeletion();
}

// Leaving the list

/// The block around the position if it shows nothing but a placeholder, which may stand in inlines;
/// -1 otherwise.
int ListBuffer::emptyBlockAround(int position) const {
    const Text text = document_.text_.view();
    int element = document_.getCurrentElementPosition(position);
    if (!document_.elementContainsJustNonBreakingSpace(element))
        return -1;
    while (XmlScan::tagName(text, element) != L"fo:block") {
        const int parent = document_.getCurrentElementPosition(element);
        if (!document_.isInlineName(XmlScan::tagName(text, element)) ||
            !beginsContent(parent, element) ||
            !endsContent(parent, document_.positionBehindElement(element)))
            return -1;
        element = parent;
    }
    return element;
}

/// Whether nothing shows between the element's start tag and the position.
bool ListBuffer::beginsContent(int element, int position) const {
    return skipVoid(contentOf(element).start) == position;
}

/// Whether nothing shows between the position and the element's closing tag.
bool ListBuffer::endsContent(int element, int position) const {
    return skipVoid(position) == closingTag(element);
}

/// On over white space and blocks that hold nothing else.
int ListBuffer::skipVoid(int position) const {
    const Text text = document_.text_.view();
    int at = XmlScan::skipSpaces(text, position);
    while (XmlScan::tagName(text, at) == L"fo:block" && XmlScan::openingAt(text, at) &&
           document_.elementContainsJustWhitespacesOrVoid(at))
        at = XmlScan::skipSpaces(text, document_.positionBehindElement(at));
    return at;
}

/// The block becomes one of its own, and what stands before and behind it a list of its own each.
void ListBuffer::leaveList(int block) {
    const int list = getListPos(getItemPos(block));
    const Range range = widen(block, list);
    if (range.start == list && range.end == document_.positionBehindElement(list)) {
        replaceListByBlock(list);
        return;
    }
    const bool isNumbered = typeOf(list) == ListType::Numbering;
    const String closing = document_.stringArrayToReverseTagString(
        document_.getClosingTagsBetweenPositions(list, range.start));
    const String reopening = reopenedTags(list, range.end);
    const int newBlock = range.start + closing.length();
    document_.recordCaret();
    document_.removeAndRecord(range.start, range.end);
    document_.insertAndRecord(range.start, closing + emptyBlock() + reopening);
    document_.setCaret(false, newBlock + String(blockStart).length());
    if (isNumbered && !reopening.empty())
        renumber(newBlock + emptyBlock().length());
    if (isNumbered && !closing.empty())
        renumber(list);
    document_.recordCaret();
}

void ListBuffer::replaceListByBlock(int list) {
    document_.recordCaret();
    document_.removeAndRecord(list, document_.positionBehindElement(list));
    PlaceholderRepair repaired = document_.repairEmptied(list, false);
    if (!repaired.insertedPlaceholder()) {
        document_.insertAndRecord(list, emptyBlock());
        repaired.placeholder = list + String(blockStart).length();
    }
    document_.setCaret(false, repaired.placeholder);
    document_.recordCaret();
}

/// The block with the tags that would be left around nothing: the start tags of what begins with it
/// in the list, which begin again behind it, and the closing tags of what ends with it.
ListBuffer::Range ListBuffer::widen(int block, int list) const {
    Range range{block, document_.positionBehindElement(block)};
    const int behindList = document_.positionBehindElement(list);
    const auto around = [this](int position) {
        return document_.getCurrentElementPosition(position);
    };
    const int item = getItemPos(block);
    if (holdsEmptyLines(getItemBodyPos(item)))
        range = {item, document_.positionBehindElement(item)};
    while (range.start > list && beginsContent(around(range.start), range.start))
        range.start = itemOfBody(around(range.start));
    while (range.end < behindList && endsContent(around(range.end), range.end))
        range.end = document_.positionBehindElement(itemOfBody(around(range.end)));
    return range;
}

/// Whether nothing stands in the element but blocks and inlines that hold no more than
/// placeholders.
bool ListBuffer::holdsEmptyLines(int element) const {
    const Text text = document_.text_.view();
    const Range content = contentOf(element);
    bool isBehindTag = true;
    for (int at = content.start; at < content.end;
         at = document_.getNextEditablePositionInXml(at)) {
        if (String::isSpace(XmlScan::unitAt(text, at)))
            continue;
        const bool isPlaceholder = XmlScan::placeholderLength(text, at) > 0;
        if (isPlaceholder ? !isBehindTag : !isEdgeOfText(at))
            return false;
        isBehindTag = !isPlaceholder;
    }
    return true;
}

/// Whether the tag of a block or an inline stands at the position.
bool ListBuffer::isEdgeOfText(int position) const {
    Text name = XmlScan::tagName(document_.text_.view(), position);
    if (name.starts_with(L'/'))
        name.remove_prefix(1);
    return name == L"fo:block" || document_.isInlineName(name);
}

/// The item of a body, which begins and ends with it as far as a reader is concerned; any other
/// element itself.
int ListBuffer::itemOfBody(int element) const {
    const bool isBody = XmlScan::tagName(document_.text_.view(), element) == L"fo:list-item-body";
    return isBody ? document_.getCurrentElementPosition(element) : element;
}

/// The start tags of the list and of what is open in it at the position, an item's with its label;
/// empty behind the list.
String ListBuffer::reopenedTags(int list, int position) const {
    String tags;
    for (const int element : elementsWithin(list - 1, position)) {
        const bool isItem = XmlScan::tagName(document_.text_.view(), element) == L"fo:list-item";
        tags += isItem ? slice(element, getItemBodyPos(element)) : startTag(element);
    }
    return tags;
}

// What goes of a list when a selection is deleted.

#include "document/EditableDocumentBuffer.h"
#include "editing/ListBuffer.h"
#include "editing/ListCommand.h"
#include "editing/PlaceholderRepair.h"
#include "editing/SelectionDeletion.h"

#include <algorithm>

int ListBuffer::eraseListSelection() {
    int start = document_.getSelectionStartIndex();
    int end = document_.selectionUpperEnd();
    return start < end ? eraseListSelection(start, end) : -1;
}

int ListBuffer::eraseListSelection(int& start, int& end) {
    if (getListPos(start) < 0 || end < start || document_.isOnInvalidPosition(end))
        return -1;
    Range range{start, end};
    int done = -1;
    const bool stood = carryOut([&] {
        done = eraseRange(range);
        document_.adjustCaretToAnEditablePosition();
        document_.recordCaret();
    });
    if (!stood)
        return -1;
    start = document_.caretPos_;
    end = std::max(range.end, start);
    return done;
}

/// The work itself, for the deletion of a selection, of which a list may be but a part. The caret
/// is left where the selection begins or else where the first part of the list went.
int ListBuffer::eraseRange(Range& range) {
    const int list = getListPos(range.start);
    const int lower = document_.getSelectionStartIndex();
    const bool endsInList = range.end < document_.positionBehindElement(list);
    const int behindRange = document_.text_.length() - range.end;
    const bool isNumbered = typeOf(list) == ListType::Numbering;
    const std::vector<int> touched = itemsTouched(list, range);
    const bool isInOneItem = endsInList && touched.size() < 2;
    const bool goesWhole = !isInOneItem && areAllCovered(list, touched, range);

    document_.recordCaret();
    int place = -1;
    if (goesWhole)
        place = removeWhole(list);
    else if (isInOneItem)
        place = erasePart(list, range);
    else
        place = eraseItems(list, touched, range);
    document_.setCaret(false, lower <= list ? lower : place);
    document_.recordCaret();
    if (isNumbered && !goesWhole)
        renumber(list);
    range.start = document_.caretPos_;
    range.end = endsInList ? range.start : document_.text_.length() - behindRange;
    return goesWhole ? place : closingTag(list);
}

std::vector<int> ListBuffer::itemsTouched(int list, const Range& range) const {
    std::vector<int> items = itemsOf(list);
    items.erase(std::remove_if(items.begin(), items.end(),
                               [&](int item) {
                                   return range.end <= item ||
                                          document_.positionBehindElement(item) <= range.start;
                               }),
                items.end());
    return items;
}

/// Whether the range holds the item from its first place for the caret to its last.
bool ListBuffer::isCovered(int item, const Range& range) const {
    const int body = getItemBodyPos(item);
    const int first = document_.getNextValidCaretPos(body);
    const int last = document_.getPreviousValidCaretPos(closingTag(body));
    if (first < body || last < first)
        return range.start <= item && document_.positionBehindElement(item) <= range.end;
    return isFirstPositionIn(body, range.start) &&
           (last <= range.end || isLastPositionIn(body, range.end));
}

/// Whether the items are all that stands in the list, but for repeats in the range, and are
/// covered.
bool ListBuffer::areAllCovered(int list, const std::vector<int>& items, const Range& range) const {
    const std::vector<int> children = childrenOf(list);
    return std::all_of(children.begin(), children.end(), [&](int child) {
        if (std::find(items.begin(), items.end(), child) != items.end())
            return isCovered(child, range);
        return !isItem(child) && range.start <= child &&
               document_.positionBehindElement(child) <= range.end;
    });
}

/// Removes items that the range covers and the text of the others; items are not joined. The last
/// comes first, so that the offsets of those before it stay. Answers where the first of them went.
int ListBuffer::eraseItems(int list, const std::vector<int>& items, const Range& range) {
    int place = range.start;
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        const int body = getItemBodyPos(*item);
        if (isCovered(*item, range)) {
            document_.removeAndRecord(*item, document_.positionBehindElement(*item));
            place = *item;
        } else {
            place = erasePart(list, {std::max(range.start, document_.getNextValidCaretPos(body)),
                                     std::min(range.end, closingTag(body))});
        }
    }
    return place;
}

/// Removes what the range holds, in which the list counts as any other element.
int ListBuffer::erasePart(int list, const Range& range) {
    if (range.end <= range.start)
        return range.start;
    SelectionDeletion(document_, range.start, range.end, list).run();
    return document_.caretPos_;
}

/// What held nothing but the list keeps a place for the caret; answers that, or where the list was.
int ListBuffer::removeWhole(int list) {
    document_.removeAndRecord(list, document_.positionBehindElement(list));
    const PlaceholderRepair repaired = document_.repairEmptied(list, true);
    return repaired.insertedPlaceholder() ? repaired.placeholder : repaired.map(list);
}

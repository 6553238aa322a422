// What goes of a list when a selection is deleted.

#include "document/Document.h"
#include "document/Edit.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/caret/Moves.h"
#include "document/caret/Stops.h"
#include "editing/deletion/SelectionDeletion.h"
#include "editing/lists/ListBuffer.h"
#include "editing/lists/Lists.h"

#include <algorithm>

namespace {

/// Those of a list's items or children that the range touches.
std::vector<int> touchedOf(const Document& document, std::vector<int> children,
                           const Lists::Range& range) {
    std::erase_if(children, [&](int child) {
        return range.end <= child || document.text().behindElement(child) <= range.start;
    });
    return children;
}

/// Whether the range holds the item from its first place for the caret to its last, or the repeat
/// with its tags.
bool isCovered(const Document& document, int item, const Lists::Range& range) {
    if (!Lists::isItem(document, item))
        return range.start <= item && document.text().behindElement(item) <= range.end;
    const int body = Lists::bodyOf(document, item);
    const int first = Stops::next(document, body);
    const int last = Stops::previous(document, Lists::closingTag(document, body));
    if (first < body || last < first)
        return range.start <= item && document.text().behindElement(item) <= range.end;
    return Lists::isFirstPositionIn(document, body, range.start) &&
           (last <= range.end || Lists::isLastPositionIn(document, body, range.end));
}

/// Whether the items are all that stands in the list, but for repeats in the range, and are
/// covered.
bool areAllCovered(const Document& document, int list, const std::vector<int>& items,
                   const Lists::Range& range) {
    const std::vector<int> children = Lists::childrenOf(document, list);
    return std::all_of(children.begin(), children.end(), [&](int child) {
        const bool isTouched = std::binary_search(items.begin(), items.end(), child);
        return (isTouched || !Lists::isItem(document, child)) && isCovered(document, child, range);
    });
}

/// Removes what the range holds, in which the list counts as any other element.
int erasePart(Document& document, int list, const Lists::Range& range) {
    if (range.end <= range.start)
        return range.start;
    SelectionDeletion(document, range.start, range.end, list).run();
    return document.caret();
}

/// Removes items and repeats of items that the range covers and the text of the others; items are
/// not joined. The last comes first, so that the offsets of those before it stay. Answers where the
/// first of them went.
int eraseChildren(Document& document, int list, const Lists::Range& range) {
    const std::vector<int> children = touchedOf(document, Lists::childrenOf(document, list), range);
    int place = range.start;
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        if (isCovered(document, *child, range)) {
            Edit(document).remove(*child, document.text().behindElement(*child));
            place = *child;
        } else {
            const int holder =
                Lists::isItem(document, *child) ? Lists::bodyOf(document, *child) : *child;
            place = erasePart(document, list,
                              {std::max(range.start, Stops::next(document, holder)),
                               std::min(range.end, Lists::closingTag(document, holder))});
        }
    }
    return place;
}

/// What held nothing but the list keeps a place for the caret; answers that, or where the list was.
int removeWhole(Document& document, int list) {
    Edit(document).remove(list, document.text().behindElement(list));
    const PlaceholderRepair repaired = Placeholders::repair(document, list, true);
    return repaired.insertedPlaceholder() ? repaired.placeholder : repaired.map(list);
}

} // namespace

int Lists::eraseSelection(Document& document) {
    int start = document.selectionStart();
    int end = document.selectionEnd();
    return start < end ? eraseSelection(document, start, end) : -1;
}

int Lists::eraseSelection(Document& document, int& start, int& end) {
    if (listAround(document, start) < 0 || end < start || !document.text().isValid(end))
        return -1;
    Range range{start, end};
    int done = -1;
    const bool stood = carryOut(document, [&] {
        done = ListEdge::eraseRange(document, range);
        Moves::toStop(document);
        document.recordCaret();
    });
    if (!stood)
        return -1;
    start = document.caret();
    end = std::max(range.end, start);
    return done;
}

int ListEdge::eraseRange(Document& document, Range& range) {
    const XmlText& text = document.text();
    const int list = Lists::listAround(document, range.start);
    const int lower = document.selectionStart();
    const bool endsInList = range.end < text.behindElement(list);
    const int behindRange = text.length() - range.end;
    const bool isNumbered = Lists::typeOf(document, list) == ListType::Numbering;
    const std::vector<int> touched = touchedOf(document, Lists::itemsOf(document, list), range);
    const bool isInOneItem = endsInList && touched.size() < 2;
    const bool goesWhole = !isInOneItem && areAllCovered(document, list, touched, range);

    document.recordCaret();
    int place = -1;
    if (goesWhole)
        place = removeWhole(document, list);
    else if (isInOneItem)
        place = erasePart(document, list, range);
    else
        place = eraseChildren(document, list, range);
    document.setCaret(lower <= list ? lower : place);
    document.recordCaret();
    if (isNumbered && !goesWhole)
        Lists::renumber(document, list);
    range.start = document.caret();
    range.end = endsInList ? range.start : text.length() - behindRange;
    return goesWhole ? place : Lists::closingTag(document, list);
}

int ListBuffer::eraseListSelection() {
    return Lists::eraseSelection(document_);
}

int ListBuffer::eraseListSelection(int& start, int& end) {
    return Lists::eraseSelection(document_, start, end);
}

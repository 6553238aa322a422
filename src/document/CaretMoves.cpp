// The caret on its way left and right, home and to the end.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <array>

using Core::String;
using XmlScan::Text;

namespace {

/// What the caret passes as one unit.
constexpr std::array<Text, 8> atomicObjects{
    L"fo:external-graphic", L"qfd:chart",    L"qfd:field",       L"qf:barcode",
    L"qf:geomap",           L"qf:object-3d", L"qf:media-object", L"qfd:subdocument-content"};

bool isAtomicObjectAt(Text text, int position) {
    const Text name = XmlScan::tagName(text, position);
    return std::find(atomicObjects.begin(), atomicObjects.end(), name) != atomicObjects.end();
}

} // namespace

// Right

void EditableDocumentBuffer::moveCaretRight(bool extend, bool byWord, bool mergeBoundaries) {
    CommandScope scope(this);
    if (isOnInvalidPosition(caretPos_))
        return;
    endKeyTypingSequence();
    if (!extend && hasSelectedText())
        setCaret(false, std::max(caretPos_, selectionPivotPos_));
    else if (moveRightThroughTable())
        return;
    else if (byWord)
        jumpToNextWord(extend);
    else
        moveRightByStop(extend, mergeBoundaries);
}

void EditableDocumentBuffer::moveRightByStop(bool extend, bool mergeBoundaries) {
    const int next = isAtomicObjectAt(text_.view(), caretPos_)
                         ? getNextEditablePositionInXml(getClosingTagForTagAtPosition(caretPos_))
                         : getNextEditablePositionInFo(caretPos_, false, mergeBoundaries);
    const int target = landingRight(caretPos_, next);
    if (!isOnInvalidPosition(target))
        setCaret(extend, target);
}

/// The caret follows the page, where a table's groups stand in the order header, body, footer; in
/// the text the footer comes before the body. Answers whether this was such a step.
bool EditableDocumentBuffer::moveRightThroughTable() {
    const int table = searchParent(L"fo:table", caretPos_, false, true, L"");
    if (table < 0)
        return false;
    const int next = getNextValidCaretPos(caretPos_);
    if (isInSameCell(caretPos_, next))
        return false;
    const int after = getNextValidCaretPos(getClosingTagForTagAtPosition(table));
    if (next == after)
        return moveFromBodyToFooter(table);
    return moveFromFooterOutOfTable(table, next, after) || moveFromHeaderToBody(table, next);
}

bool EditableDocumentBuffer::moveFromFooterOutOfTable(int table, int next, int after) {
    const int footer = rowGroupAround(L"fo:table-footer", table, caretPos_);
    if (footer < 0 || next != getNextValidCaretPos(getClosingTagForTagAtPosition(footer)))
        return false;
    jumpTo(after);
    return true;
}

bool EditableDocumentBuffer::moveFromHeaderToBody(int table, int next) {
    const int header = rowGroupAround(L"fo:table-header", table, caretPos_);
    const int footer = rowGroupAround(L"fo:table-footer", table, next);
    if (header < 0 || footer < 0 ||
        next != getNextValidCaretPos(getClosingTagForTagAtPosition(header)))
        return false;
    jumpTo(getNextValidCaretPos(getClosingTagForTagAtPosition(footer)));
    return true;
}

bool EditableDocumentBuffer::moveFromBodyToFooter(int table) {
    const int footer = getNextChildByName(L"fo:table-footer", table);
    if (footer < 0 || rowGroupAround(L"fo:table-footer", table, caretPos_) == footer)
        return false;
    const int target = getNextValidCaretPos(footer);
    if (target > getClosingTagForTagAtPosition(footer))
        return false;
    jumpTo(target);
    return true;
}

// Left

void EditableDocumentBuffer::moveCaretLeft(bool extend, bool byWord, bool mergeBoundaries) {
    CommandScope scope(this);
    endKeyTypingSequence();
    if (isOnInvalidPosition(caretPos_))
        return;
    if (!extend && !byWord && hasSelectedText())
        setCaret(false, std::min(caretPos_, selectionPivotPos_));
    else if (moveLeftThroughTable())
        return;
    else if (byWord)
        jumpToPreviousWord(extend);
    else
        moveLeftByStop(extend, mergeBoundaries);
}

void EditableDocumentBuffer::moveLeftByStop(bool extend, bool mergeBoundaries) {
    const int previous = getPreviousEditablePositionInFo(caretPos_, false, mergeBoundaries);
    if (!isInOneElement(caretPos_, previous) && isInFoFlow(caretPos_) &&
        moveIntoTableFromBelow(previous))
        return;
    const int target = landingLeft(caretPos_, previous, true);
    if (!isOnInvalidPosition(target))
        setCaret(extend, target);
}

/// The mirror of moveRightThroughTable().
bool EditableDocumentBuffer::moveLeftThroughTable() {
    const int table = searchParent(L"fo:table", caretPos_, false, true, L"");
    if (table < 0)
        return false;
    const int previous = getPreviousValidCaretPos(caretPos_);
    if (isInSameCell(caretPos_, previous))
        return false;
    return moveFromFooterToBody(table, previous) || moveFromBodyToHeader(table, previous);
}

bool EditableDocumentBuffer::moveFromFooterToBody(int table, int previous) {
    const int footer = rowGroupAround(L"fo:table-footer", table, caretPos_);
    if (footer < 0 || previous != getPreviousValidCaretPos(footer))
        return false;
    const int last = getPreviousValidCaretPos(getClosingTagForTagAtPosition(table));
    if (rowGroupAround(L"fo:table-footer", table, last) == footer)
        return false;
    jumpTo(last);
    return true;
}

bool EditableDocumentBuffer::moveFromBodyToHeader(int table, int previous) {
    const int body = rowGroupAround(L"fo:table-body", table, caretPos_);
    if (body < 0 || previous != getPreviousValidCaretPos(body))
        return false;
    const int header = getNextChildByName(L"fo:table-header", table);
    if (header < 0)
        return false;
    jumpTo(getPreviousValidCaretPos(getClosingTagForTagAtPosition(header)));
    return true;
}

/// A table is entered from below at the end of its footer. Answers whether `target` asked for that.
bool EditableDocumentBuffer::moveIntoTableFromBelow(int target) {
    const int table = searchParent(L"fo:table", target, false, true, L"");
    if (!isInFoFlow(target) || table < 0 || elementContainsPosition(table, caretPos_))
        return false;
    const int footer = getNextChildByName(L"fo:table-footer", table);
    const int last = getPreviousValidCaretPos(getClosingTagForTagAtPosition(footer));
    if (footer < 0 || last < footer)
        return false;
    setCaret(false, last);
    return true;
}

/// Whether both lie in one cell and there in no further table: then page and text have one order.
bool EditableDocumentBuffer::isInSameCell(int position, int other) const {
    const int cell = searchParent(L"fo:table-cell", position, false, true, L"fo:table");
    return cell >= 0 && cell == searchParent(L"fo:table-cell", other, false, true, L"fo:table");
}

/// The child of the table that has the name and holds the position; -1 if none does.
int EditableDocumentBuffer::rowGroupAround(const String& name, int table, int position) const {
    int child = -1;
    int element = getCurrentElementPosition(position);
    for (; element > table; element = getCurrentElementPosition(element))
        child = element;
    return element == table && getNameForTagAtPosition(child, true) == name ? child : -1;
}

void EditableDocumentBuffer::jumpTo(int position) {
    if (!isOnInvalidPosition(position))
        setCaret(false, position);
}

int EditableDocumentBuffer::landingRight(int from, int to) const {
    if (isInFoFlow(from))
        return isInOneElement(from, to) ? to : getNextPositionAdjustedToFoFlow(to);
    return positionsAreInTheSameStaticContent(from, to) ? to : -1;
}

int EditableDocumentBuffer::landingLeft(int from, int to, bool mergeBoundaries) const {
    if (isInFoFlow(from))
        return isInOneElement(from, to) ? to
                                        : getPreviousPositionAdjustedToFoFlow(to, mergeBoundaries);
    return positionsAreInTheSameStaticContent(from, to) ? to : -1;
}

bool EditableDocumentBuffer::isInOneElement(int position, int other) const {
    return getCurrentElementPosition(position) == getCurrentElementPosition(other);
}

// Home and end

void EditableDocumentBuffer::moveCaretHome(bool extend) {
    CommandScope scope(this);
    setCaret(extend, homePosition(staticContentAround(caretPos_)));
}

void EditableDocumentBuffer::moveCaretToEnd(bool extend) {
    CommandScope scope(this);
    const int region = staticContentAround(caretPos_);
    if (!pageMasterEditingMode_ || region >= 0)
        setCaret(extend, endPosition(region));
}

/// The first stop with text of the static content `region`, or with -1 of the flows.
int EditableDocumentBuffer::homePosition(int region) const {
    const int start = std::max(region, 0);
    const int end = region < 0 ? text_.length() : getClosingTagForTagAtPosition(region);
    int stop = getNextValidCaretPos(start);
    while (stop >= 0 && stop <= end && !isInTextOfRegion(stop, region)) {
        const int other = region < 0 ? staticContentAround(stop) : -1;
        stop = getNextValidCaretPos(other < 0 ? stop : getClosingTagForTagAtPosition(other));
    }
    return stop <= end ? stop : -1;
}

/// The last such stop.
int EditableDocumentBuffer::endPosition(int region) const {
    const int end = region < 0 ? lastTagPosition() : getClosingTagForTagAtPosition(region);
    int stop = getPreviousValidCaretPos(end);
    while (stop > region && !isInTextOfRegion(stop, region))
        stop = getPreviousValidCaretPos(stop);
    return stop > region ? stop : -1;
}

bool EditableDocumentBuffer::isInTextOfRegion(int position, int region) const {
    const int element = getCurrentElementPosition(position);
    return isEditableElementAtPosition(element) && staticContentAround(position) == region &&
           (region >= 0 || isInFoFlow(position)) && !elementContainsJustWhitespacesOrVoid(element);
}

int EditableDocumentBuffer::staticContentAround(int position) const {
    return searchParent(L"fo:static-content", position, false, true, L"");
}

// The caret on its way left and right, home and to the end.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "document/PageOrder.h"
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
    const bool passesObject = isAtomicObjectAt(text_.view(), caretPos_);
    const int next = landingRight(
        caretPos_, passesObject
                       ? getNextEditablePositionInXml(getClosingTagForTagAtPosition(caretPos_))
                       : getNextEditablePositionInFo(caretPos_, false, mergeBoundaries));
    const int target = passesObject ? next : PageOrder(*this).next(caretPos_, next);
    if (!isOnInvalidPosition(target))
        setCaret(extend && target == next, target);
}

/// Where the page goes on elsewhere than the text, the caret follows it and selects nothing.
/// Answers whether this was such a step.
bool EditableDocumentBuffer::moveRightThroughTable() {
    if (isAtomicObjectAt(text_.view(), caretPos_))
        return false;
    const int next = landingRight(caretPos_, getNextValidCaretPos(caretPos_));
    const int target = PageOrder(*this).next(caretPos_, next);
    if (!isOnInvalidPosition(target) && target != next)
        setCaret(false, target);
    return target != next;
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
    const int previous = landingLeft(
        caretPos_, getPreviousEditablePositionInFo(caretPos_, false, mergeBoundaries), true);
    const int target = PageOrder(*this).previous(caretPos_, previous);
    if (!isOnInvalidPosition(target))
        setCaret(extend && target == previous, target);
}

/// The mirror of moveRightThroughTable().
bool EditableDocumentBuffer::moveLeftThroughTable() {
    const int previous = landingLeft(caretPos_, getPreviousValidCaretPos(caretPos_), true);
    const int target = PageOrder(*this).previous(caretPos_, previous);
    if (!isOnInvalidPosition(target) && target != previous)
        setCaret(false, target);
    return target != previous;
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

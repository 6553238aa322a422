// The stops: the offsets at which the caret can stand, and the walks from one to the next.

#include "document/EditableDocumentBuffer.h"

#include "document/CaretWalk.h"
#include "text/XmlScan.h"

using XmlScan::Text;

bool EditableDocumentBuffer::canHoldCaret(int position) const {
    return CaretWalk(*this, position).canHoldCaret();
}

int EditableDocumentBuffer::getNextEditablePositionInFo(int position, bool wrap,
                                                        bool mergeBoundaries) const {
    if (isOnInvalidPosition(position))
        return -1;
    CaretWalk walk(*this, position);
    if (elementContainsJustNonBreakingSpace(walk.element())) {
        const int last = getClosingTagForTagAtPosition(walk.element());
        if (last != position && !walk.isSkippedInElement(last))
            return last;
    }
    int previous = position;
    int remembered = -1;
    bool wrapped = false;
    for (;;) {
        if (!walk.stepForwardOverScript()) {
            if (remembered >= 0 || !wrap || wrapped)
                return remembered;
            wrapped = true;
            walk.restartAt(0);
        }
        const int stop = walk.position();
        if (stop == position)
            return -1;
        if (!walk.isStop())
            continue;
        const bool fromEdge = isInlineStart(previous) || isInlineEnd(previous);
        if (!mergeBoundaries || !fromEdge || !isInBlockOf(previous, stop))
            return stop;
        if (isInlineEnd(previous))
            remembered = stop;
        previous = stop;
    }
}

int EditableDocumentBuffer::getPreviousEditablePositionInFo(int position, bool wrap,
                                                            bool mergeBoundaries) const {
    if (isOnInvalidPosition(position))
        return -1;
    CaretWalk walk(*this, position);
    int previous = position;
    bool wrapped = false;
    for (;;) {
        if (!walk.stepBackwardOverScript()) {
            if (!wrap || wrapped)
                return -1;
            wrapped = true;
            walk.restartAt(lastTagPosition());
        }
        const int stop = walk.position();
        if (stop == position)
            return -1;
        if (!walk.isStop())
            continue;
        const bool entersInline =
            isInlineStart(stop) && getNextEditablePositionInXml(stop) == previous;
        const bool leavesInline = isInlineEnd(stop) && isInBlockOf(previous, stop);
        if (!mergeBoundaries || (!entersInline && !leavesInline))
            return stop;
        previous = stop;
    }
}

bool EditableDocumentBuffer::isInBlockOf(int position, int other) const {
    return positionsAreInTheSameElement(L"fo:block", position, other);
}

/// On the start tag of an inline whose edges may merge; a link keeps its own.
bool EditableDocumentBuffer::isInlineStart(int position) const {
    const Text name = XmlScan::tagName(text_.view(), position);
    return isInlineName(name) && name != L"fo:basic-link";
}

/// On the closing tag of such an inline.
bool EditableDocumentBuffer::isInlineEnd(int position) const {
    const Text name = XmlScan::tagName(text_.view(), position);
    return name.starts_with(L'/') && isInlineName(name.substr(1)) && name != L"/fo:basic-link";
}

/// The last tag of the text, which closes the root.
int EditableDocumentBuffer::lastTagPosition() const {
    const Text text = text_.view();
    int tag = XmlScan::previousTag(text, static_cast<int>(text.size()) - 1);
    while (XmlScan::ignoredAt(text, tag))
        tag = XmlScan::previousTag(text, tag);
    return tag;
}

int EditableDocumentBuffer::getNextValidCaretPos(int position) const {
    return getNextEditablePositionInFo(position, false, false);
}

int EditableDocumentBuffer::getPreviousValidCaretPos(int position) const {
    return getPreviousEditablePositionInFo(position, false, false);
}

int EditableDocumentBuffer::getNextPositionAdjustedToFoFlow(int position) const {
    while (position >= 0 && !isInFoFlow(position))
        position = getNextValidCaretPos(position);
    return position;
}

int EditableDocumentBuffer::getPreviousPositionAdjustedToFoFlow(int position,
                                                                bool mergeBoundaries) const {
    while (position >= 0 && !isInFoFlow(position))
        position = getPreviousEditablePositionInFo(position, false, mergeBoundaries);
    return position;
}

bool EditableDocumentBuffer::skipSpacesBackwards(int& position, bool crossElements) const {
    bool metAnother = false;
    CaretWalk walk(*this, position);
    while (walk.isSkipped()) {
        const int element = walk.element();
        if (!walk.stepBackward())
            break;
        if (walk.element() != element) {
            metAnother = true;
            if (!crossElements)
                break;
        }
        position = walk.position();
    }
    return metAnother;
}

bool EditableDocumentBuffer::skipSpacesFromPos(int& position, bool crossElements) const {
    bool metAnother = false;
    CaretWalk walk(*this, position);
    while (walk.isSkipped()) {
        const int element = walk.element();
        if (!walk.stepForward())
            break;
        if (walk.element() != element) {
            metAnother = true;
            if (!crossElements)
                break;
        }
        position = walk.position();
    }
    return metAnother;
}

bool EditableDocumentBuffer::elementContainsJustWhitespacesOrVoid(int element) const {
    const Text text = text_.view();
    if (XmlScan::selfClosingAt(text, element))
        return true;
    if (!XmlScan::openingAt(text, element))
        return false;
    int depth = 1;
    for (int at = XmlScan::stepForward(text, element); XmlScan::isValid(text, at);
         at = XmlScan::stepForward(text, at)) {
        if (XmlScan::closingAt(text, at)) {
            if (--depth == 0)
                return true;
        } else if (XmlScan::onTagStart(text, at)) {
            if (!isEditableElementAtPosition(at))
                return false;
            depth += XmlScan::openingAt(text, at) ? 1 : 0;
        } else if (!Core::String::isSpace(XmlScan::unitAt(text, at))) {
            return false;
        }
    }
    return false;
}

bool EditableDocumentBuffer::isBoudaryEditablePosition(bool forward) const {
    const int element = getCurrentElementPosition(caretPos_);
    if (element < 0)
        return false;
    if (elementContainsJustNonBreakingSpace(element))
        return true;
    if (isInlineEditableElementName(getNameForTagAtPosition(element, true)) &&
        countStops(element, 3) < 3)
        return true;
    if (!forward)
        return getPreviousValidCaretPos(caretPos_) <= element;
    const int next = getNextValidCaretPos(caretPos_);
    return next < 0 || next > getClosingTagForTagAtPosition(element);
}

/// How many stops the element holds, counted up to `limit`.
int EditableDocumentBuffer::countStops(int element, int limit) const {
    const int end = getClosingTagForTagAtPosition(element);
    int count = 0;
    for (int stop = getNextValidCaretPos(element); stop >= 0 && stop <= end && count < limit;
         stop = getNextValidCaretPos(stop))
        ++count;
    return count;
}

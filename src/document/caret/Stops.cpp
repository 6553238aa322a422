// The stops: the offsets at which the caret can stand, and the walks from one to the next.

#include "document/caret/Stops.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Lines.h"
#include "text/Vocabulary.h"
#include "text/XmlScan.h"

using XmlScan::Text;

namespace {

/// On the start tag of an inline whose edges may merge; a link keeps its own.
bool isInlineStart(const Document& document, int position) {
    const Text name = document.text().tagName(position);
    return document.names.isInline(name) && name != L"fo:basic-link";
}

/// On the closing tag of such an inline.
bool isInlineEnd(const Document& document, int position) {
    const Text name = document.text().tagName(position);
    return name.starts_with(L'/') && document.names.isInline(name.substr(1)) &&
           name != L"/fo:basic-link";
}

/// How many stops the element holds, counted up to `limit`.
int countStops(const Document& document, int element, int limit) {
    const int end = document.text().closingTag(element);
    int count = 0;
    for (int stop = Stops::next(document, element); stop >= 0 && stop <= end && count < limit;
         stop = Stops::next(document, stop))
        ++count;
    return count;
}

} // namespace

int Stops::nextInCell(const Document& document, int position) {
    const int stop = next(document, position);
    return isInCellAround(document, position, stop) ? stop : -1;
}

int Stops::previousInCell(const Document& document, int position) {
    const int stop = previous(document, position);
    return isInCellAround(document, position, stop) ? stop : -1;
}

bool Stops::isInCellAround(const Document& document, int position, int stop) {
    const XmlText& text = document.text();
    const int holder = text.ancestor(position, Vocabulary::strings<Vocabulary::caretRegions>());
    return holder >= 0 && text.isAround(holder, stop);
}

int Stops::outsideMarkup(const Document& document, int position) {
    const int start = document.text().unitStart(position);
    if (start == position || CaretWalk(document, start).isStop())
        return start;
    return previous(document, start);
}

bool Stops::canHoldCaret(const Document& document, int position) {
    return CaretWalk(document, position).canHoldCaret();
}

int Stops::next(const Document& document, int position, Way way) {
    const XmlText& text = document.text();
    if (!text.isValid(position))
        return -1;
    CaretWalk walk(document, position);
    if (text.holdsOnlyPlaceholder(walk.element())) {
        const int last = text.closingTag(walk.element());
        if (last != position && !walk.isSkippedInElement(last))
            return last;
    }
    int previous = position;
    int remembered = -1;
    bool wrapped = false;
    for (;;) {
        if (!walk.stepForwardOverScript()) {
            if (remembered >= 0 || !way.wrap || wrapped)
                return remembered;
            wrapped = true;
            walk.restartAt(0);
        }
        const int stop = walk.position();
        if (stop == position)
            return -1;
        if (!walk.isStop())
            continue;
        const bool fromEdge = isInlineStart(document, previous) || isInlineEnd(document, previous);
        if (!way.mergeBoundaries || !fromEdge || !Lines::areInOneBlock(document, previous, stop))
            return stop;
        if (isInlineEnd(document, previous))
            remembered = stop;
        previous = stop;
    }
}

int Stops::previous(const Document& document, int position, Way way) {
    const XmlText& text = document.text();
    if (!text.isValid(position))
        return -1;
    CaretWalk walk(document, position);
    int previous = position;
    bool wrapped = false;
    for (;;) {
        if (!walk.stepBackwardOverScript()) {
            if (!way.wrap || wrapped)
                return -1;
            wrapped = true;
            walk.restartAt(text.lastTag());
        }
        const int stop = walk.position();
        if (stop == position)
            return -1;
        if (!walk.isStop())
            continue;
        const bool entersInline = isInlineStart(document, stop) && text.next(stop) == previous;
        const bool leavesInline =
            isInlineEnd(document, stop) && Lines::areInOneBlock(document, previous, stop);
        if (!way.mergeBoundaries || (!entersInline && !leavesInline))
            return stop;
        previous = stop;
    }
}

int Stops::nextInFlow(const Document& document, int position) {
    while (position >= 0 && !document.text().isInFlow(position))
        position = next(document, position);
    return position;
}

int Stops::previousInFlow(const Document& document, int position, bool mergeBoundaries) {
    while (position >= 0 && !document.text().isInFlow(position))
        position = previous(document, position, {.mergeBoundaries = mergeBoundaries});
    return position;
}

void NearStops::forgetOldText() {
    if (version_ != document_.text().version())
        nextOf_ = previousOf_ = -1;
    version_ = document_.text().version();
}

/// From a placeholder on the next stop is the end of what it fills.
int NearStops::next(int position) {
    forgetOldText();
    const XmlText& text = document_.text();
    const bool isKnown = nextOf_ >= 0 && nextOf_ <= position && (next_ < 0 || position < next_) &&
                         !text.holdsOnlyPlaceholder(text.elementAround(position));
    if (!isKnown) {
        next_ = Stops::next(document_, position);
        nextOf_ = position;
    }
    return next_;
}

/// A step back from behind a comment passes text, but no tag, and one from behind a script all of
/// it.
int NearStops::previous(int position) {
    forgetOldText();
    const XmlText& text = document_.text();
    const bool isKnown = previous_ < position && position <= previousOf_ &&
                         text.onTagStart(position) &&
                         text.nearestNamed(position, Vocabulary::scripts) < 0;
    if (!isKnown) {
        previous_ = Stops::previous(document_, position);
        previousOf_ = position;
    }
    return previous_;
}

bool Stops::skipBackward(const Document& document, int& position, bool crossElements) {
    bool metAnother = false;
    CaretWalk walk(document, position);
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

bool Stops::skipForward(const Document& document, int& position, bool crossElements) {
    bool metAnother = false;
    CaretWalk walk(document, position);
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

bool Placeholders::isVoid(const Document& document, int element) {
    const XmlText& text = document.text();
    if (text.selfClosingAt(element))
        return true;
    if (!text.openingAt(element))
        return false;
    int depth = 1;
    for (int at = text.next(element); text.isValid(at); at = text.next(at)) {
        if (text.closingAt(at)) {
            if (--depth == 0)
                return true;
        } else if (text.onTagStart(at)) {
            if (!document.isEditableAt(at))
                return false;
            depth += text.openingAt(at) ? 1 : 0;
        } else if (!Core::String::isSpace(text.unitAt(at))) {
            return false;
        }
    }
    return false;
}

bool VoidElements::contains(int element) {
    const XmlText& text = document_.text();
    const bool isAroundFull =
        full_ >= 0 && version_ == text.version() && text.elementAround(full_) == element;
    const bool isVoid = !isAroundFull && Placeholders::isVoid(document_, element);
    version_ = text.version();
    full_ = isVoid || !text.openingAt(element) ? -1 : element;
    return isVoid;
}

bool Stops::isCaretAtEdge(const Document& document, bool forward) {
    const XmlText& text = document.text();
    const int element = text.elementAround(document.caret());
    if (element < 0)
        return false;
    if (text.holdsOnlyPlaceholder(element))
        return true;
    if (document.names.isInline(text.tagName(element)) && countStops(document, element, 3) < 3)
        return true;
    if (!forward)
        return previous(document, document.caret()) <= element;
    const int stop = next(document, document.caret());
    return stop < 0 || stop > text.closingTag(element);
}

bool Stops::isSkipped(const Document& document, int position) {
    return CaretWalk(document, position).isSkipped();
}

bool EditableDocumentBuffer::canHoldCaret(int position) const {
    return Stops::canHoldCaret(*document_, position);
}

int EditableDocumentBuffer::getNextEditablePositionInFo(int position, bool wrap,
                                                        bool mergeBoundaries) const {
    return Stops::next(*document_, position, {wrap, mergeBoundaries});
}

int EditableDocumentBuffer::getPreviousEditablePositionInFo(int position, bool wrap,
                                                            bool mergeBoundaries) const {
    return Stops::previous(*document_, position, {wrap, mergeBoundaries});
}

int EditableDocumentBuffer::getNextValidCaretPos(int position) const {
    return Stops::next(*document_, position);
}

int EditableDocumentBuffer::getPreviousValidCaretPos(int position) const {
    return Stops::previous(*document_, position);
}

int EditableDocumentBuffer::getNextPositionAdjustedToFoFlow(int position) const {
    return Stops::nextInFlow(*document_, position);
}

int EditableDocumentBuffer::getPreviousPositionAdjustedToFoFlow(int position,
                                                                bool mergeBoundaries) const {
    return Stops::previousInFlow(*document_, position, mergeBoundaries);
}

bool EditableDocumentBuffer::skipSpacesBackwards(int& position, bool crossElements) const {
    return Stops::skipBackward(*document_, position, crossElements);
}

bool EditableDocumentBuffer::skipSpacesFromPos(int& position, bool crossElements) const {
    return Stops::skipForward(*document_, position, crossElements);
}

bool EditableDocumentBuffer::elementContainsJustWhitespacesOrVoid(int element) const {
    return Placeholders::isVoid(*document_, element);
}

bool EditableDocumentBuffer::isBoudaryEditablePosition(bool forward) const {
    return Stops::isCaretAtEdge(*document_, forward);
}

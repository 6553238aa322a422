// The caret on its way left and right, home and to the end.

#include "document/caret/Moves.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/PlainPlace.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Clusters.h"
#include "document/caret/PageOrder.h"
#include "document/caret/Stops.h"
#include "document/caret/Words.h"
#include "text/Vocabulary.h"

#include <algorithm>

namespace {

bool isAtomicObjectAt(const XmlText& text, int position) {
    return XmlScan::contains(Vocabulary::atomicObjects, text.tagName(position));
}

void moveRightByStop(Document& document, bool extend, bool mergeBoundaries) {
    const XmlText& text = document.text();
    const bool passesObject = isAtomicObjectAt(text, document.caret());
    const int next =
        Moves::landingRight(document, document.caret(),
                            passesObject ? text.next(text.closingTag(document.caret()))
                                         : Stops::next(document, document.caret(),
                                                       {.mergeBoundaries = mergeBoundaries}));
    const int target = passesObject ? next : PageOrder(document).next(document.caret(), next);
    if (text.isValid(target))
        document.moveCaret(extend && target == next, target);
}

void moveLeftByStop(Document& document, bool extend, bool mergeBoundaries) {
    const int previous = Moves::landingLeft(
        document, document.caret(),
        Stops::previous(document, document.caret(), {.mergeBoundaries = mergeBoundaries}), true);
    const int target = PageOrder(document).previous(document.caret(), previous);
    if (document.text().isValid(target))
        document.moveCaret(extend && target == previous, target);
}

/// Whether the unit at the position is certainly a cluster by itself.
bool passesWholeCluster(const XmlText& text, int position) {
    return PlainPlace::isPlainAt(text, position - 1) && PlainPlace::isPlainAt(text, position + 1) &&
           Clusters::areApart(text.unitAt(position - 1), text.unitAt(position)) &&
           Clusters::areApart(text.unitAt(position), text.unitAt(position + 1));
}

/// A step that has passed a character goes on to the end of the cluster that this is of.
void completeStepRight(Document& document, bool extend, int from) {
    const int now = document.caret();
    const auto reach = Clusters::behind(document, from);
    if (!reach || !reach->isLonger() || now < reach->character || reach->cluster <= now)
        return;
    const int end = reach->cluster;
    document.moveCaret(extend,
                       CaretWalk(document, end).isStop() ? end : Stops::next(document, end));
}

void completeStepLeft(Document& document, bool extend, int from) {
    const int now = document.caret();
    const auto reach = Clusters::before(document, from);
    if (reach && reach->isLonger() && now <= reach->character && reach->cluster < now)
        document.moveCaret(extend, reach->cluster);
}

/// Nearly every step passes a character in the midst of text, where nothing else has to be asked: a
/// shortcut, and no other rule. False, with nothing done, where there may be more to it.
bool passesText(Document& document, bool forward) {
    const XmlText& text = document.text();
    const int caret = document.caret();
    const bool isInText =
        (forward ? PlainPlace::isPlainAt(text, caret) && PlainPlace::showsAt(text, caret + 1)
                 : PlainPlace::isPlainAt(text, caret - 1)) &&
        (!Clusters::areSteps(document) || passesWholeCluster(text, forward ? caret : caret - 1));
    const Document::KnownPlace* const place = isInText ? PlainPlace::ofCaret(document) : nullptr;
    if (!place || !place->isInRegion || document.isProtected())
        return false;
    document.endTyping();
    document.placeCaret(false, forward ? caret + 1 : caret - 1);
    PlainPlace::follow(document);
    return true;
}

void stepRight(Document& document, bool extend, bool mergeBoundaries) {
    const int from = document.caret();
    moveRightByStop(document, extend, mergeBoundaries);
    if (Clusters::areSteps(document))
        completeStepRight(document, extend, from);
}

void stepLeft(Document& document, bool extend, bool mergeBoundaries) {
    const int from = document.caret();
    moveLeftByStop(document, extend, mergeBoundaries);
    if (Clusters::areSteps(document))
        completeStepLeft(document, extend, from);
}

bool isInTextOfRegion(const Document& document, int position, int region) {
    const XmlText& text = document.text();
    const int element = text.elementAround(position);
    return document.isEditableAt(element) && text.staticContentAround(position) == region &&
           (region >= 0 || text.isInFlow(position)) && !Placeholders::isVoid(document, element);
}

/// The first stop with text of the static content `region`, or with -1 of the flows.
int homePosition(const Document& document, int region) {
    const XmlText& text = document.text();
    const int start = std::max(region, 0);
    const int end = region < 0 ? text.length() : text.closingTag(region);
    int stop = Stops::next(document, start);
    while (stop >= 0 && stop <= end && !isInTextOfRegion(document, stop, region)) {
        const int other = region < 0 ? text.staticContentAround(stop) : -1;
        stop = Stops::next(document, std::max(stop, text.closingTag(other)));
    }
    return stop <= end ? stop : -1;
}

/// The last such stop.
int endPosition(const Document& document, int region) {
    const int end = region < 0 ? document.text().lastTag() : document.text().closingTag(region);
    int stop = Stops::previous(document, end);
    while (stop > region && !isInTextOfRegion(document, stop, region))
        stop = Stops::previous(document, stop);
    return stop > region ? stop : -1;
}

/// To the right or, where nothing is, to the left.
void aside(Document& document) {
    const int before = document.caret();
    Moves::right(document);
    if (document.caret() == before)
        Moves::left(document);
}

} // namespace

void Moves::to(Document& document, bool extend, int position) {
    if (position != -1 && !document.modes.dummyPage &&
        (!document.text().isValid(position) || document.text().unitStart(position) != position))
        return;
    CommandScope scope(document);
    document.endTyping();
    document.moveCaret(extend, position);
}

void Moves::toStop(Document& document) {
    if (!Stops::canHoldCaret(document, document.caret()) && !toStopInCell(document))
        aside(document);
}

bool Moves::toStopInCell(Document& document) {
    const int next = Stops::nextInCell(document, document.caret());
    const int stop = next >= 0 ? next : Stops::previousInCell(document, document.caret());
    if (stop >= 0)
        document.setCaret(stop);
    return stop >= 0;
}

void Moves::right(Document& document, bool extend, bool byWord, bool mergeBoundaries) {
    if (!extend && !byWord && passesText(document, true))
        return;
    CommandScope scope(document);
    if (!document.text().isValid(document.caret()))
        return;
    document.endTyping();
    if (!extend && document.hasSelection())
        document.setCaret(std::max(document.caret(), document.pivot()));
    else if (rightThroughTable(document, Stops::next(document, document.caret())))
        return;
    else if (byWord)
        Words::stepRight(document, extend);
    else
        stepRight(document, extend, mergeBoundaries);
}

bool Moves::rightThroughTable(Document& document, int nextStop) {
    if (isAtomicObjectAt(document.text(), document.caret()))
        return false;
    const int next = landingRight(document, document.caret(), nextStop);
    const int target = PageOrder(document).next(document.caret(), next);
    if (document.text().isValid(target) && target != next)
        document.setCaret(target);
    return target != next;
}

void Moves::left(Document& document, bool extend, bool byWord, bool mergeBoundaries) {
    if (!extend && !byWord && passesText(document, false))
        return;
    CommandScope scope(document);
    document.endTyping();
    if (!document.text().isValid(document.caret()))
        return;
    if (!extend && !byWord && document.hasSelection())
        document.setCaret(std::min(document.caret(), document.pivot()));
    else if (leftThroughTable(document))
        return;
    else if (byWord)
        Words::stepLeft(document, extend);
    else
        stepLeft(document, extend, mergeBoundaries);
}

bool Moves::leftThroughTable(Document& document) {
    const int previous =
        landingLeft(document, document.caret(), Stops::previous(document, document.caret()), true);
    const int target = PageOrder(document).previous(document.caret(), previous);
    if (document.text().isValid(target) && target != previous)
        document.setCaret(target);
    return target != previous;
}

int Moves::landingRight(const Document& document, int from, int to) {
    const XmlText& text = document.text();
    if (text.isInFlow(from))
        return text.areInOneElement(from, to) ? to : Stops::nextInFlow(document, to);
    return text.areInSameStaticContent(from, to) ? to : -1;
}

int Moves::landingLeft(const Document& document, int from, int to, bool mergeBoundaries) {
    const XmlText& text = document.text();
    if (text.isInFlow(from))
        return text.areInOneElement(from, to)
                   ? to
                   : Stops::previousInFlow(document, to, mergeBoundaries);
    return text.areInSameStaticContent(from, to) ? to : -1;
}

void Moves::outOfMarkup(Document& document) {
    if (document.text().isValid(document.caret()))
        document.select(Stops::outsideMarkup(document, document.pivot()),
                        Stops::outsideMarkup(document, document.caret()));
}

void Moves::home(Document& document, bool extend) {
    CommandScope scope(document);
    document.moveCaret(
        extend, homePosition(document, document.text().staticContentAround(document.caret())));
}

void Moves::end(Document& document, bool extend) {
    CommandScope scope(document);
    const int region = document.text().staticContentAround(document.caret());
    // Deliberate: while page masters are edited, End selects.
    if (!document.modes.pageMasters || region >= 0)
        document.moveCaret(extend || document.modes.pageMasters, endPosition(document, region));
}

void EditableDocumentBuffer::setCaretPos(bool extend, int position) {
    Moves::to(*document_, extend, position);
}

void EditableDocumentBuffer::adjustCaretToAnEditablePosition() {
    if (!Stops::canHoldCaret(*document_, document_->caret()))
        aside(*document_);
}

void EditableDocumentBuffer::moveCaretRight(bool extend, bool byWord, bool mergeBoundaries) {
    Moves::right(*document_, extend, byWord, mergeBoundaries);
}

void EditableDocumentBuffer::moveCaretLeft(bool extend, bool byWord, bool mergeBoundaries) {
    Moves::left(*document_, extend, byWord, mergeBoundaries);
}

void EditableDocumentBuffer::moveCaretHome(bool extend) {
    document_->endTyping();
    Moves::home(*document_, extend);
}

void EditableDocumentBuffer::moveCaretToEnd(bool extend) {
    document_->endTyping();
    Moves::end(*document_, extend);
}

// Backspace and Delete as commands, and what they repair afterwards.

#include "editing/deletion/Deletion.h"

#include "document/BlockLevel.h"
#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/DocumentText.h"
#include "document/Edit.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Clusters.h"
#include "document/caret/Lines.h"
#include "document/caret/Moves.h"
#include "document/caret/Stops.h"
#include "document/caret/Words.h"
#include "editing/deletion/ListEdge.h"
#include "editing/deletion/PlainErase.h"
#include "text/Vocabulary.h"
#include "text/XmlScan.h"

using Core::String;

namespace {

void selectWord(Document& document, bool forward) {
    if (forward)
        Words::stepRight(document, true);
    else
        Words::stepLeft(document, true);
}

/// Whether the deletion of a word from the caret on would not cross the edge of a table cell.
bool wordStaysInCell(Document& document, bool forward) {
    if (!document.text().isWithin(document.caret(), L"fo:table-cell"))
        return true;
    CommandScope scope(document);
    const int start = document.caret();
    selectWord(document, forward);
    const int end = document.caret();
    document.placeCaret(false, start);
    scope.discardNotices();
    return Stops::isInCellAround(document, start, end);
}

/// Of two blanks that a deletion brought together and of which one would be lost, the last becomes
/// a non-breaking space.
void protectAdjacentSpaces(Document& document) {
    const auto isBlank = [&](int position) { return document.text().standsAt(L" ", position); };
    if (!isBlank(document.caret()) || !isBlank(document.caret() - 1) ||
        (!Stops::isSkipped(document, document.caret()) &&
         !Stops::isSkipped(document, document.caret() - 1)))
        return;
    int last = document.caret();
    while (isBlank(last + 1))
        ++last;
    DocumentText::replace(document, last, last, String(XmlScan::nbspEntity));
    document.setCaret(last);
    document.recordCaret();
}

void eraseUnit(Document& document, bool forward) {
    int place = document.caret();
    document.recordCaret();
    if (forward)
        Deletion::forward(document, place);
    else
        Deletion::backward(document, place);
    // Deliberate: only Delete leaves the caret alone where the place can hold none.
    if (!forward || Stops::canHoldCaret(document, place))
        document.setCaret(place);
    document.recordCaret();
    Placeholders::repairEmptied(document, document.caret(), true);
    protectAdjacentSpaces(document); // while the caret is between them
    Deletion::settleCaret(document);
}

void eraseWord(Document& document, bool forward) {
    if (!wordStaysInCell(document, forward))
        return;
    document.recordCaret();
    if (forward ? document.text().isBeforeTable(document.caret())
                : document.text().isBehindTable(document.caret()))
        Deletion::eraseText(document, forward, false);
    selectWord(document, forward);
    Deletion::eraseText(document, forward, false);
}

/// What must hold an inline and lost it gets an empty one in the place of a bare placeholder.
void keepInlineInHolder(Document& document) {
    const XmlText& text = document.text();
    const int element = text.elementAround(document.caret());
    if (!XmlScan::contains(Vocabulary::inlineHolders, text.tagName(element)) ||
        text.childNamed(element, L"fo:inline") >= 0)
        return;
    int place = document.caret();
    if (text.holdsOnlyPlaceholder(element)) {
        place = text.placeholderBehind(element);
        Edit(document).remove(place, place + text.placeholderLength(place));
    }
    Edit(document).insert(place, L"<fo:inline>" + String(XmlScan::nbspEntity) + L"</fo:inline>");
    document.setCaret(Stops::next(document, place));
    document.recordCaret();
}

/// The next stop, but not in another block: then the stop before that, unless it lies outside the
/// element around the caret. The page may go on elsewhere, but what was deleted stood here; so the
/// order is that of the text, and nothing leads out of a cell.
int stopNearSkippedPlace(const Document& document) {
    const int next = Stops::nextInCell(document, document.caret());
    if (next < 0)
        return Stops::previousInCell(document, document.caret());
    if (!Lines::blockTagLiesBetween(document, document.caret(), next))
        return next;
    const int element = document.text().elementAround(document.caret());
    const int previous = Stops::previous(document, next);
    return element < previous && previous <= document.text().closingTag(element) ? previous : next;
}

/// Removes the cluster beside the caret that is more than a character. False, with nothing done,
/// where there is none.
bool eraseCluster(Document& document, bool forward) {
    if (document.hasSelection() || !Clusters::areSteps(document) ||
        !Deletion::isInErasablePlace(document))
        return false;
    const int caret = document.caret();
    const auto reach =
        forward ? Clusters::behind(document, caret) : Clusters::before(document, caret);
    if (!reach || !reach->isLonger())
        return false;
    RecordedCommand command(document);
    document.recordCaret();
    document.select(reach->cluster, caret);
    Deletion::erase(document, forward, false);
    if (document.hasSelection() || !command.mayStand())
        command.takeBack();
    return true;
}

} // namespace

void Deletion::erase(Document& document, bool forward, bool wholeWord) {
    if (!wholeWord && eraseCluster(document, forward))
        return;
    if (!wholeWord && PlainErase::erase(document, forward))
        return;
    if (!isInErasablePlace(document))
        return;
    const bool inList =
        !document.hasSelection() && document.text().isWithin(document.caret(), L"fo:list-block");
    RecordedCommand command(document);
    if (wholeWord && !inList && !document.hasSelection() && !wordStaysInCell(document, forward)) {
        command.takeBack();
        return;
    }
    const std::size_t recorded = document.history.recordedCount();
    if (inList)
        ListEdge::erase(document, forward, wholeWord);
    else
        eraseText(document, forward, wholeWord);
    const bool didNothing = document.history.recordedCount() == recorded;
    if (didNothing || !command.mayStand()) {
        command.takeBack();
        return;
    }
    document.notifyCaretChanged();
}

bool Deletion::isInErasablePlace(const Document& document) {
    return (document.hasSelection() || Stops::canHoldCaret(document, document.caret())) &&
           document.text().isValid(document.caret()) && !document.isOutOfReach(document.caret()) &&
           !document.text().isInLabel(document.caret()) && isInRegion(document, document.caret());
}

bool Deletion::isInRegion(const Document& document, int position) {
    return document.text().isInFlow(position) || document.text().staticContentAround(position) >= 0;
}

void Deletion::removeParent(Document& document, const String& elementName) {
    removeElementAround(document, elementName, false);
}

void Deletion::removeElementAround(Document& document, const String& name,
                                   bool removeEmptyInlines) {
    const int element =
        withEmptiedSequence(document, document.text().ancestor(document.caret(), name));
    if (!isInRegion(document, element))
        return;
    RecordedCommand command(document);
    document.recordCaret();
    Edit(document).remove(element, document.text().behindElement(element));
    document.setCaret(element);
    if (removeEmptyInlines)
        Placeholders::repairEmptied(document, element, true);
    else
        Placeholders::fillAtEnd(document, element);
    settleCaret(document);
    document.recordCaret();
    if (!command.mayStand())
        command.takeBack();
}

void Deletion::eraseText(Document& document, bool forward, bool wholeWord) {
    document.endTyping();
    const int element = document.text().elementAround(document.caret());
    if (document.hasSelection()) {
        deleteSelection(document, false);
        // Deliberate: a word goes with the selection, not the selection alone.
        if (wholeWord && !document.hasSelection())
            eraseText(document, forward, true);
    } else if (forward && document.text().holdsOnlyPlaceholder(element) &&
               isLastBlockInFlow(document, element)) {
        eraseText(document, false, false);
        return;
    } else if (wholeWord) {
        eraseWord(document, forward);
    } else {
        eraseUnit(document, forward);
    }
    keepInlineInHolder(document);
    protectAdjacentSpaces(document);
}

bool Deletion::isLastBlockInFlow(const Document& document, int element) {
    const XmlText& text = document.text();
    const int flow = text.ancestor(element, L"fo:flow");
    const int last = text.previousNamed(text.closingTag(flow), L"/fo:block");
    return last >= 0 && last == text.closingTag(element);
}

void Deletion::settleCaret(Document& document) {
    const XmlText& text = document.text();
    const int before = document.caret();
    const int stop =
        Stops::isSkipped(document, document.caret()) ? stopNearSkippedPlace(document) : -1;
    if (stop >= 0)
        document.setCaret(stop);
    if (!Stops::canHoldCaret(document, document.caret()))
        Moves::toStopInCell(document);
    const int element = text.elementAround(document.caret());
    if (text.holdsOnlyPlaceholder(element))
        document.setCaret(text.placeholderBehind(element));
    if (document.caret() != before)
        document.recordCaret();
}

void EditableDocumentBuffer::erase(bool forward, bool wholeWord) {
    Deletion::erase(*document_, forward, wholeWord);
}

void EditableDocumentBuffer::deleteParent(const String& elementName) {
    Deletion::removeParent(*document_, elementName);
}

void EditableDocumentBuffer::eraseTextFromBuffer(bool forward, bool wholeWord, bool) {
    Deletion::eraseText(*document_, forward, wholeWord);
}

bool EditableDocumentBuffer::elementIsLastBlockInFlow(int element) const {
    return Deletion::isLastBlockInFlow(*document_, element);
}

void EditableDocumentBuffer::ensureValidPositionAfterDeletion() {
    Deletion::settleCaret(*document_);
}

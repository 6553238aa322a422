// Backspace and Delete as commands, and what they repair afterwards.

#include "document/CaretWalk.h"
#include "document/CommandScope.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"
#include "editing/BlockLevel.h"
#include "editing/ListBuffer.h"
#include "text/XmlScan.h"

using Core::String;
using XmlScan::Text;

namespace {

bool isInlineHolder(const String& name) {
    return name == L"qfd:conditional-inline" || name == L"qfd:inline-repeat";
}

} // namespace

// The commands

void EditableDocumentBuffer::erase(bool forward, bool wholeWord) {
    if (!isInErasablePlace())
        return;
    const bool inList = !hasSelectedText() && isInElementContext(L"fo:list-block", caretPos_);
    RecordedCommand command(this);
    if (wholeWord && !inList && !hasSelectedText() && !wordStaysInCell(forward)) {
        command.takeBack();
        return;
    }
    if (inList)
        getListBuffer().eraseTextFromListBuffer(forward, wholeWord);
    else
        eraseTextFromBuffer(forward, wholeWord, true);
    if (!command.mayStand()) {
        command.takeBack();
        return;
    }
    notifyCaretChanged();
}

bool EditableDocumentBuffer::isInErasablePlace() const {
    return (hasSelectedText() || canHoldCaret(caretPos_)) && !isOnInvalidPosition(caretPos_) &&
           !isOutOfReach(caretPos_) && !inListItemLabel(caretPos_) && isInRegion(caretPos_);
}

bool EditableDocumentBuffer::isInRegion(int position) const {
    return isInFoFlow(position) || staticContentAround(position) >= 0;
}

/// Whether the deletion of a word from the caret on would not cross the edge of a table cell.
bool EditableDocumentBuffer::wordStaysInCell(bool forward) {
    if (!isInElementContext(L"fo:table-cell", caretPos_))
        return true;
    CommandScope scope(this);
    const int start = caretPos_;
    selectWord(forward);
    const int end = caretPos_;
    placeCaret(false, start);
    scope.discardNotices();
    return isInCellAround(start, end);
}

void EditableDocumentBuffer::deleteParent(const String& elementName) {
    deleteElementAround(elementName, false);
}

void EditableDocumentBuffer::deleteElementAround(const String& name, bool removeEmptyInlines) {
    const int element = withEmptiedSequence(searchParent(name, caretPos_, false, true, L""));
    if (!isInRegion(element))
        return;
    RecordedCommand command(this);
    recordCaret();
    removeAndRecord(element, positionBehindElement(element));
    setCaret(false, element);
    handleElementsContainingJustWhiteSpaces(element, removeEmptyInlines);
    ensureValidPositionAfterDeletion();
    recordCaret();
    if (!command.mayStand())
        command.takeBack();
}

// The dispatch

void EditableDocumentBuffer::eraseTextFromBuffer(bool forward, bool wholeWord, bool) {
    endKeyTypingSequence();
    const int element = getCurrentElementPosition(caretPos_);
    if (hasSelectedText()) {
        deleteSelection(false);
        // Deliberate: a word goes with the selection, not the selection alone.
        if (wholeWord && !hasSelectedText())
            eraseTextFromBuffer(forward, true, true);
    } else if (forward && elementContainsJustNonBreakingSpace(element) &&
               elementIsLastBlockInFlow(element)) {
        eraseTextFromBuffer(false, false, false);
        return;
    } else if (wholeWord) {
        eraseWord(forward);
    } else {
        eraseUnit(forward);
    }
    keepInlineInHolder();
    protectAdjacentSpaces();
}

void EditableDocumentBuffer::eraseUnit(bool forward) {
    int place = caretPos_;
    recordCaret();
    if (forward)
        deleteForward(place);
    else
        deleteBackwards(place);
    // Deliberate: only Delete leaves the caret alone where the place can hold none.
    if (!forward || canHoldCaret(place))
        setCaret(false, place);
    recordCaret();
    handleElementsContainingJustWhiteSpaces(caretPos_, true);
    ensureValidPositionAfterDeletion();
}

void EditableDocumentBuffer::eraseWord(bool forward) {
    if (!wordStaysInCell(forward))
        return;
    recordCaret();
    if (forward ? beforeFOTable(caretPos_) : afterFOTable(caretPos_))
        eraseTextFromBuffer(forward, false, false);
    selectWord(forward);
    eraseTextFromBuffer(forward, false, false);
}

void EditableDocumentBuffer::selectWord(bool forward) {
    if (forward)
        jumpToNextWord(true);
    else
        jumpToPreviousWord(true);
}

bool EditableDocumentBuffer::elementIsLastBlockInFlow(int element) const {
    const int flow = searchParent(L"fo:flow", element, false, true, L"");
    const int last = getPreviousElementByName(L"/fo:block", getClosingTagForTagAtPosition(flow));
    return last >= 0 && last == getClosingTagForTagAtPosition(element);
}

// The repairs

/// What must hold an inline and lost it gets an empty one in the place of a bare placeholder.
void EditableDocumentBuffer::keepInlineInHolder() {
    const int element = getCurrentElementPosition(caretPos_);
    if (!isInlineHolder(getNameForTagAtPosition(element, true)) ||
        getNextChildByName(L"fo:inline", element) >= 0)
        return;
    int place = caretPos_;
    if (elementContainsJustNonBreakingSpace(element)) {
        place = getNonBreakingSpacePosition(element);
        removeAndRecord(place, place + XmlScan::placeholderLength(text_.view(), place));
    }
    insertAndRecord(place, L"<fo:inline>" + String(XmlScan::nbspEntity) + L"</fo:inline>");
    setCaret(false, getNextValidCaretPos(place));
    recordCaret();
}

/// Of two blanks that a deletion brought together and of which one would be lost, the last becomes
/// a non-breaking space.
void EditableDocumentBuffer::protectAdjacentSpaces() {
    const auto isBlank = [this](int position) {
        return XmlScan::standsAt(text_.view(), L" ", position);
    };
    if (!isBlank(caretPos_) || !isBlank(caretPos_ - 1) ||
        (!isSkippedByCaret(caretPos_) && !isSkippedByCaret(caretPos_ - 1)))
        return;
    int last = caretPos_;
    while (isBlank(last + 1))
        ++last;
    replaceXmlText(last, last, String(XmlScan::nbspEntity));
    setCaret(false, last);
    recordCaret();
}

void EditableDocumentBuffer::ensureValidPositionAfterDeletion() {
    const int before = caretPos_;
    const int stop = isSkippedByCaret(caretPos_) ? stopNearSkippedPlace() : -1;
    if (stop >= 0)
        setCaret(false, stop);
    if (!canHoldCaret(caretPos_))
        moveCaretToStopInCell();
    const int element = getCurrentElementPosition(caretPos_);
    if (elementContainsJustNonBreakingSpace(element))
        setCaret(false, getNonBreakingSpacePosition(element));
    if (caretPos_ != before)
        recordCaret();
}

/// The next stop, but not in another block: then the stop before that, unless it lies outside the
/// element around the caret. The page may go on elsewhere, but what was deleted stood here; so the
/// order is that of the text, and nothing leads out of a cell.
int EditableDocumentBuffer::stopNearSkippedPlace() const {
    const int next = nextStopInCell(caretPos_);
    if (next < 0)
        return previousStopInCell(caretPos_);
    if (!blockTagLiesBetween(caretPos_, next))
        return next;
    const int element = getCurrentElementPosition(caretPos_);
    const int previous = getPreviousValidCaretPos(next);
    return element < previous && previous <= getClosingTagForTagAtPosition(element) ? previous
                                                                                    : next;
}

bool EditableDocumentBuffer::blockTagLiesBetween(int start, int end) const {
    for (int tag = getNextTagPosition(start); tag >= 0 && tag < end;
         tag = getNextTagPosition(getNextEditablePositionInXml(tag)))
        if (getNameForTagAtPosition(tag, true).substringAfter(L"/") == L"fo:block")
            return true;
    return false;
}

// What both directions share

bool EditableDocumentBuffer::isSkippedByCaret(int position) const {
    return CaretWalk(*this, position).isSkipped();
}

/// Back over the white space before the position that does not show.
int EditableDocumentBuffer::startOfSkippedSpaces(int position) const {
    CaretWalk walk(*this, position);
    while (position > 0 && String::isSpace(XmlScan::unitAt(text_.view(), position - 1)) &&
           walk.isSkippedInElement(position - 1))
        --position;
    return position;
}

/// On over the white space at the position that does not show.
int EditableDocumentBuffer::endOfSkippedSpaces(int position) const {
    CaretWalk walk(*this, position);
    while (!isOnInvalidPosition(position) &&
           String::isSpace(XmlScan::unitAt(text_.view(), position)) &&
           walk.isSkippedInElement(position))
        ++position;
    return position;
}

/// The same, but blanks alone beside text are not passed over: they are no layout of the markup,
/// somebody typed them, and they show again when the break beside which they do not is deleted.
int EditableDocumentBuffer::startOfLayout(int position) const {
    const int start = startOfSkippedSpaces(position);
    const Text passed = XmlScan::slice(text_.view(), start, position);
    const bool areBlanks = passed.find_first_not_of(L' ') == Text::npos;
    return areBlanks && !isBehindBlockLevelTag(start) ? position : start;
}

bool EditableDocumentBuffer::isBehindBlockLevelTag(int position) const {
    return getElementTypeOnEndTagPosition(position - 1) == xmlElement &&
           isBlockLevelTag(text_.view(), getPreviousEditablePositionInXml(position));
}

int EditableDocumentBuffer::endOfLayout(int position) const {
    const int end = endOfSkippedSpaces(position);
    const Text passed = XmlScan::slice(text_.view(), position, end);
    const bool areBlanks = passed.find_first_not_of(L' ') == Text::npos;
    return areBlanks && !isBlockLevelTag(text_.view(), end) ? position : end;
}

/// Whether nothing shows between the start of a line and the position.
bool EditableDocumentBuffer::isLineStart(int position) const {
    int start = startOfSkippedSpaces(position);
    for (int hidden = startOfHidden(start); hidden >= 0; hidden = startOfHidden(start))
        start = startOfSkippedSpaces(hidden);
    return isBehindBlockLevelTag(start);
}

/// Where the edge of an inline, the comment or the instruction begins that ends at the position; -1
/// if none does.
int EditableDocumentBuffer::startOfHidden(int position) const {
    const XmlElementType type = getElementTypeOnEndTagPosition(position - 1);
    if (type == xmlComment || type == xmlProcessingInstruction)
        return getElementStartPosition(type, position - 1);
    const int tag = type == xmlElement ? getPreviousEditablePositionInXml(position) : -1;
    return isInlineEdgeAt(tag) ? tag : -1;
}

/// Whether nothing shows between the position and the end of a line.
bool EditableDocumentBuffer::isLineEnd(int position) const {
    const auto isHidden = [this](int at) {
        return isInlineEdgeAt(at) ||
               (ignoredElementAtPosition(at) && !XmlScan::cdataAt(text_.view(), at));
    };
    int tag = endOfSkippedSpaces(position);
    while (isHidden(tag))
        tag = endOfSkippedSpaces(getNextEditablePositionInXml(tag));
    return isBlockLevelTag(text_.view(), tag);
}

/// Whether a line break ends right before the position and nothing of the next line shows behind
/// it.
bool EditableDocumentBuffer::isEmptyBehindLineBreak(int position) const {
    const int before = getPreviousEditablePositionInXml(startOfSkippedSpaces(position));
    return XmlScan::tagName(text_.view(), before) == L"fo:block" &&
           selfClosingTagAtPosition(before) && isLineEnd(position);
}

/// Whether a placeholder stands at the position that is all of its line.
bool EditableDocumentBuffer::isPlaceholderLine(int position) const {
    const int length = XmlScan::placeholderLength(text_.view(), position);
    return length > 0 && isLineStart(position) && isLineEnd(position + length);
}

/// Whether a blank stands there that shows and belongs to the element. Beside a character that is
/// deleted it must be kept from collapsing.
bool EditableDocumentBuffer::isKeptBlank(int position, int element) const {
    if (isOnInvalidPosition(position) || getCurrentElementPosition(position) != element)
        return false;
    const wchar_t unit = XmlScan::unitAt(text_.view(), position);
    return String::isSpace(unit) && unit != L'\n' && !isSkippedByCaret(position);
}

void EditableDocumentBuffer::insertAndRecord(int position, const String& xml) {
    insertXmlTextAtPosition(position, xml);
    recordInsertion(position, xml);
    recordCaret();
}

/// Removes from `start` up to but excluding `end`; nothing if that is empty. Answers what went.
String EditableDocumentBuffer::removeAndRecord(int start, int end) {
    String removed = deleteXmlText(start, end - 1);
    recordDeletion(start, removed);
    recordCaret();
    return removed;
}

// The selection: set from elements and paths, grown outward, and read back as text.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;

int EditableDocumentBuffer::getSelectionStartIndex() const {
    return std::min(caretPos_, selectionPivotPos_);
}

int EditableDocumentBuffer::getSelectionEndIndex() const {
    return hasSelectedText() ? selectionUpperEnd() - 1 : caretPos_;
}

int EditableDocumentBuffer::selectionUpperEnd() const {
    return std::max(caretPos_, selectionPivotPos_);
}

bool EditableDocumentBuffer::offsetIsInSelection(int offset) const {
    return hasSelectedText() && getSelectionStartIndex() <= offset && offset <= selectionUpperEnd();
}

void EditableDocumentBuffer::resetSelection() {
    CommandScope scope(this);
    endKeyTypingSequence();
    setCaret(false, caretPos_);
}

void EditableDocumentBuffer::resetSelectionOfElement() {
    selectedElementName_.clear();
}

void EditableDocumentBuffer::selectRange(int pivot, int caret) {
    setCaret(false, pivot);
    setCaret(true, caret);
}

// Setting

void EditableDocumentBuffer::selectCurrentElement() {
    CommandScope scope(this);
    const int element = getCurrentElementPosition(caretPos_);
    const int behind = positionBehindElement(element);
    if (element >= 0 && behind >= 0)
        selectRange(element, behind);
}

void EditableDocumentBuffer::selectElement(const String& path) {
    CommandScope scope(this);
    const int element = getElementPositionFromPath(path, caretPos_);
    const int closing = getClosingTagForTagAtPosition(element);
    // Deliberate: unlike selectCurrentElement() this leaves the closing tag out.
    if (element >= 0 && closing >= 0)
        selectRange(element, closing);
}

void EditableDocumentBuffer::selectElementStartingAtCaretPosition() {
    CommandScope scope(this);
    setCaret(true, positionBehindElement(caretPos_));
}

int EditableDocumentBuffer::positionBehindElement(int element) const {
    return getNextEditablePositionInXml(getClosingTagForTagAtPosition(element));
}

// Growing outward

void EditableDocumentBuffer::selectParent() {
    CommandScope scope(this);
    const String parentName = getParentElementName(caretPos_);
    const StopRange content = stopsOfElement(searchParent(parentName, caretPos_, false, true, L""));
    if (!hasSelectedText() || selectedElementName_.empty())
        selectedElementName_ = parentName;
    if (!isElementSelected(selectedElementName_) && content.first != content.last) {
        selectedElementName_ = parentName;
        selectStops(content);
        return;
    }
    growSelection(parentName);
}

/// Selects the next enclosing element; the levels that mean nothing alone to a reader are passed.
void EditableDocumentBuffer::growSelection(const String& innermostName) {
    int inner = searchParent(selectedElementName_, caretPos_, false, true, L"");
    selectedElementName_ = getCurrentElementName(inner);
    if (selectedElementName_ == L"fo:page-sequence") {
        selectedElementName_ = innermostName;
        return;
    }
    // Deliberate: "fo:table-footer" is not among them.
    while (selectedElementName_ == L"fo:table-body" || selectedElementName_ == L"fo:table-header" ||
           selectedElementName_ == L"fo:list-item") {
        selectedElementName_ = getParentElementName(inner);
        inner = getCurrentElementPosition(inner);
    }
    selectStops(stopsOfElement(getCurrentElementPosition(inner)));
}

EditableDocumentBuffer::StopRange EditableDocumentBuffer::stopsOfElement(int element) const {
    return {getNextEditablePositionInFo(element, false, false),
            getPreviousEditablePositionInFo(positionBehindElement(element), false, false)};
}

void EditableDocumentBuffer::selectStops(const StopRange& stops) {
    if (stops.first >= 0 && stops.last >= 0)
        selectRange(stops.first, stops.last);
}

bool EditableDocumentBuffer::isElementSelected(const String& name) const {
    if (!hasSelectedText() || name.empty())
        return false;
    const int element = searchParent(name, caretPos_, false, true, L"");
    const int closing = getClosingTagForTagAtPosition(element);
    return getNextEditablePositionInFo(element, false, false) >= getSelectionStartIndex() &&
           getPreviousEditablePositionInFo(closing, false, false) <= selectionUpperEnd();
}

bool EditableDocumentBuffer::selectionIsEntireElementContent(int start, int end) const {
    if (isOnInvalidPosition(start) || isOnInvalidPosition(end))
        return false;
    const int element = getCurrentElementPosition(start);
    const int closing = getClosingTagForTagAtPosition(element);
    return closing >= 0 && start == getNextEditablePositionInXml(element) && end == closing;
}

String EditableDocumentBuffer::getSelectedElementPath(int position) const {
    return getElementPath(position) + L"/" + getNameForTagAtPosition(position, true);
}

// Reading

String EditableDocumentBuffer::getSelectionAs(TextFormat format) const {
    switch (format) {
    case TextFormat::Plain:
        return getSelectionAsPlainText();
    case TextFormat::Native:
        return getSelectionAsNativeText();
    }
    return {};
}

String EditableDocumentBuffer::getSelectionAsPlainText() const {
    return hasSelectedText() ? getPlainText(getSelectionStartIndex(), selectionUpperEnd())
                             : String();
}

String EditableDocumentBuffer::getSelectionAsNativeText() const {
    return hasSelectedText() ? getNativeText(getSelectionStartIndex(), selectionUpperEnd() - 1)
                             : String();
}

String EditableDocumentBuffer::getSelectionAs(TextFormat format, const String& path) {
    const int caret = caretPos_;
    const int element = getElementPositionFromPath(path, caret);
    if (element < 0)
        return {};
    // Deliberate: no scope holds the notices back, and an earlier selection is lost; hosts that
    // read an element follow the caret through it.
    selectRange(element, positionBehindElement(element));
    String selected = getSelectionAs(format);
    setCaret(false, caret);
    return selected;
}

String EditableDocumentBuffer::getPlainText(int start, int end) const {
    String plain;
    end = std::min(end, text_.length());
    for (int position = start; !isOnInvalidPosition(position) && position < end;) {
        const int tag = getNextTagPosition(position);
        const int limit = tag < 0 ? end : std::min(tag, end);
        if (position < limit)
            plain +=
                text_.subString(static_cast<unsigned>(position), static_cast<unsigned>(limit - 1));
        if (tag < 0)
            break;
        // Deliberate: the next tag counts also where the range ends in the middle of text, so that
        // a range ending in a block's text ends with a line break.
        const String name = getNextTagName(limit);
        if (!isInlineEditableElementName(name) && !isInlineEditableElementClosingTagName(name))
            plain += L'\n';
        position = getNextEditablePositionInFo(limit, false, false);
    }
    return plain;
}

// Objects that a host shows as units: deleting them, and what it asks before.

#include "document/EditableDocumentBuffer.h"

#include "document/FreezeNotifications.h"
#include "document/RecordedCommand.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <array>

using Core::String;
using XmlScan::Text;

namespace {

constexpr std::array<Text, 4> repeatingElements{L"qfd:block-repeat", L"qfd:table-row-repeat",
                                                L"qfd:inline-repeat", L"qfd:page-sequence-repeat"};

constexpr const wchar_t* blockFiller = L"<fo:block>&#x00A0;</fo:block>";
constexpr const wchar_t* inlineFiller = L"<fo:inline>&#x00A0;</fo:inline>";

} // namespace

// Deleting an object

void EditableDocumentBuffer::deleteObject(const String& path, const String& container,
                                          bool inlineContext) {
    const int object = getElementPositionFromPath(path, caretPos_);
    const int end = lastOffsetOfElement(object);
    if (end < 0 || !isInRegion(object))
        return;
    RecordedCommand command(this);
    recordCaret();
    recordDeletion(object, deleteXmlText(object, end));
    const RemovedObject removed{object, container, inlineContext ? inlineFiller : blockFiller};
    if (isContainerLost(removed))
        return; // the caret stays where the object was
    setCaret(false, stopForRemoved(removed));
    handleElementsContainingJustWhiteSpaces(object, false);
    recordCaret();
    if (command.keepsWellFormed())
        notifyCaretChanged();
    else
        command.takeBack();
}

/// The next stop, or if there is none the previous.
int EditableDocumentBuffer::nearestStop(int place) const {
    const int next = getNextEditablePositionInFo(place, false, false);
    return next >= 0 ? next : getPreviousEditablePositionInFo(place, false, false);
}

/// Whether the caret is to stay in an element that is not around it.
bool EditableDocumentBuffer::isContainerLost(const RemovedObject& removed) const {
    return !removed.container.empty() && nearestStop(removed.place) >= 0 &&
           lastOffsetOfElement(searchParent(removed.container, caretPos_, false, true, L"")) < 0;
}

int EditableDocumentBuffer::stopForRemoved(const RemovedObject& removed) {
    const int stop =
        removed.container.empty() ? stopInRegion(removed.place) : stopInContainer(removed);
    return stop >= 0 ? stop : stopInFiller(removed);
}

/// A stop near the place: in a flow if that lies in one, else in its static content.
int EditableDocumentBuffer::stopInRegion(int place) const {
    const int stop = nearestStop(place);
    if (isInFoFlow(place) && positionsAreInSameFlowTypes(place, stop))
        return stop;
    for (const int near : {stop, getPreviousEditablePositionInFo(place, false, false)})
        if (positionsAreInTheSameStaticContent(place, near))
            return near;
    return -1;
}

int EditableDocumentBuffer::stopInContainer(const RemovedObject& removed) const {
    const int start = searchParent(removed.container, caretPos_, false, true, L"");
    const int end = lastOffsetOfElement(start);
    const int stop = nearestStop(removed.place);
    if (start <= stop && stop <= end)
        return stop;
    const int previous = getPreviousEditablePositionInFo(removed.place, false, false);
    return start < previous && previous < end ? previous : -1;
}

/// Puts something to stand in where the object was.
int EditableDocumentBuffer::stopInFiller(const RemovedObject& removed) {
    setCaret(false, removed.place);
    insertText(removed.filler, true, false);
    endKeyTypingSequence();
    return getNextEditablePositionInFo(removed.place, false, false);
}

// Objects that have a command of their own

void EditableDocumentBuffer::deleteFloatingRegion() {
    deleteElementAround(L"fo:block-container", true);
}

void EditableDocumentBuffer::deleteCurrentConditionalBlock() {
    deleteParent(L"qfd:conditional-block");
}

void EditableDocumentBuffer::deleteConditionalBlockSequence() {
    deleteParent(L"qfd:conditional-block-sequence");
}

void EditableDocumentBuffer::deleteCurrentConditionalInline() {
    deleteParent(L"qfd:conditional-inline");
}

void EditableDocumentBuffer::deleteConditionalInlineSequence() {
    deleteParent(L"qfd:conditional-inline-sequence");
}

void EditableDocumentBuffer::deleteRepeatingSection() {
    deleteParent(L"qfd:block-repeat");
}

void EditableDocumentBuffer::removeComponent(int position) {
    if (getNameForTagAtPosition(position, true) != L"qfd:subdocument-content" ||
        XmlScan::unitStart(text_.view(), position) != position)
        return;
    const int parent = getCurrentElementPosition(position);
    const int start = isWrapperOf(parent, position) ? parent : position;
    const int end = lastOffsetOfElement(start);
    if (end < 0)
        return;
    FreezeNotifications freeze(this);
    endKeyTypingSequence();
    recordCaret();
    recordDeletion(start, deleteXmlText(start, end));
    adjustCaretToAnEditablePosition();
    recordCaret();
}

/// Whether an element was made just to hold this one. What is not editable, such as a table cell,
/// has its place in what is around it.
bool EditableDocumentBuffer::isWrapperOf(int element, int only) const {
    const Text text = text_.view();
    const int first = XmlScan::skipSpaces(text, getNextEditablePositionInXml(element));
    const int behind = XmlScan::skipSpaces(text, lastOffsetOfElement(only) + 1);
    return isEditableElementAtPosition(element) && getPropertiesFromElementAt(element).isEmpty() &&
           first == only && behind == getClosingTagForTagAtPosition(element);
}

// Questions

bool EditableDocumentBuffer::isRepeatingElement(const String& name) {
    return std::find(repeatingElements.begin(), repeatingElements.end(), name.view()) !=
           repeatingElements.end();
}

String EditableDocumentBuffer::getComponentContentFromPath(const String& path) const {
    const int start = getSelectionStartIndex();
    if (!hasSelectedText() || getSelectedElementPath(start) != path)
        return markupOfElement(getElementPositionFromPath(path, caretPos_));
    const String content = markupOfElement(start);
    return content.empty() ? content : L"<fo:block>" + content + L"</fo:block>";
}

bool EditableDocumentBuffer::canDeleteListItem(const String& path) const {
    const int item = path.empty() ? searchParent(L"fo:list-item", caretPos_, false, true, L"")
                                  : getElementPositionFromPath(path, caretPos_);
    const int list = getCurrentElementPosition(item);
    if (getNameForTagAtPosition(item, true) != L"fo:list-item" ||
        getNameForTagAtPosition(list, true) != L"fo:list-block")
        return false;
    return getNextChildByName(L"fo:list-item", list) != item || hasItemBehind(item);
}

/// Whether another item of the same list follows.
bool EditableDocumentBuffer::hasItemBehind(int item) const {
    int sibling = getSiblingElement(item);
    while (sibling >= 0 && getNameForTagAtPosition(sibling, true) != L"fo:list-item")
        sibling = getSiblingElement(sibling);
    return sibling >= 0;
}

// Objects that a host shows as units: deleting them, and what it asks before.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "document/RecordedCommand.h"
#include "text/NameList.h"
#include "text/XmlScan.h"

#include <array>

using Core::String;
using XmlScan::contains;
using XmlScan::Text;

namespace {

constexpr std::array<Text, 4> repeatingElements{L"qfd:block-repeat", L"qfd:table-row-repeat",
                                                L"qfd:inline-repeat", L"qfd:page-sequence-repeat"};

/// What is nothing without the parts that it is made of.
constexpr std::array<Text, 3> sequences{L"qfd:conditional-block-sequence",
                                        L"qfd:conditional-inline-sequence", L"fo:list-block"};

/// What a table or a list has a place for, whether it holds something or not.
constexpr std::array<Text, 3> partsOfStructures{L"fo:table-cell", L"fo:list-item-label",
                                                L"fo:list-item-body"};

constexpr const wchar_t* blockFiller = L"<fo:block>&#x00A0;</fo:block>";
constexpr const wchar_t* inlineFiller = L"<fo:inline>&#x00A0;</fo:inline>";

} // namespace

// Deleting an object

void EditableDocumentBuffer::deleteObject(const String& path, const String& container,
                                          bool inlineContext) {
    const int object = withEmptiedSequence(objectNamedByPath(path));
    const int end = lastOffsetOfElement(object);
    if (end < 0 || !isInRegion(object))
        return;
    RecordedCommand command(this);
    recordCaret();
    recordDeletion(object, deleteXmlText(object, end));
    placeCaretForRemoved(object, container, inlineContext);
    handleElementsContainingJustWhiteSpaces(object, false);
    adjustCaretToAnEditablePosition();
    recordCaret();
    if (command.mayStand())
        notifyCaretChanged();
    else
        command.takeBack();
}

/// The element around the caret or, for what the caret is never in, such as a graphic, the
/// selected.
int EditableDocumentBuffer::objectNamedByPath(const String& path) const {
    const int around = getElementPositionFromPath(path, caretPos_);
    return around >= 0 ? around : elementNamedByPath(path);
}

/// The sequence that would be left with no part, if the element is its last.
int EditableDocumentBuffer::withEmptiedSequence(int element) const {
    const int parent = getCurrentElementPosition(element);
    return contains(sequences, XmlScan::tagName(text_.view(), parent)) &&
                   holdsNothingBut(element, parent)
               ? parent
               : element;
}

void EditableDocumentBuffer::placeCaretForRemoved(int place, const String& container,
                                                  bool inlineContext) {
    const int nearest = nearestStop(place);
    const int around = searchParent(container, place, false, true, L"");
    if (nearest >= 0 && !container.empty() && around < 0)
        return; // with no container to stay in, the caret stays where the object was
    const int stop =
        container.empty() ? stopInRegion(place, nearest) : stopInContainer(place, nearest, around);
    setCaret(false,
             stop >= 0 ? stop : stopInFiller(place, inlineContext ? inlineFiller : blockFiller));
}

/// The next stop behind the place, or if there is none the previous.
int EditableDocumentBuffer::nearestStop(int place) const {
    // Deliberate: a place in the middle of a line is a stop itself, and is passed over.
    const int next = getNextEditablePositionInFo(place, false, false);
    return next >= 0 ? next : getPreviousEditablePositionInFo(place, false, false);
}

/// The nearest stop or else the previous, if that lies in the same flow or static content; -1 if
/// neither does.
int EditableDocumentBuffer::stopInRegion(int place, int nearest) const {
    for (const int stop : {nearest, getPreviousEditablePositionInFo(place, false, false)})
        if (positionsAreInTheSameFlowElement(place, stop))
            return stop;
    return -1;
}

/// The nearest stop or else the previous, if that lies in the container.
int EditableDocumentBuffer::stopInContainer(int place, int nearest, int container) const {
    const int end = lastOffsetOfElement(container);
    if (container <= nearest && nearest <= end)
        return nearest;
    const int previous = getPreviousEditablePositionInFo(place, false, false);
    return container < previous && previous < end ? previous : -1;
}

/// Puts something to stand in where an object was.
int EditableDocumentBuffer::stopInFiller(int place, const String& filler) {
    setCaret(false, place); // a selection that reached beyond the object stays in the text
    insertText(filler, true, false);
    endKeyTypingSequence();
    return getNextEditablePositionInFo(place, false, false);
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
        XmlScan::unitStart(text_.view(), position) != position || isOutOfReach(position))
        return;
    const int parent = getCurrentElementPosition(position);
    const int start = isWrapperOf(parent, position) ? parent : position;
    const int end = lastOffsetOfElement(start);
    if (end < 0)
        return;
    CommandScope scope(this);
    endKeyTypingSequence();
    recordCaret();
    recordDeletion(start, deleteXmlText(start, end));
    adjustCaretToAnEditablePosition();
    recordCaret();
}

/// Whether an element was made just to hold this one.
bool EditableDocumentBuffer::isWrapperOf(int element, int only) const {
    return isInRegion(element) &&
           !contains(partsOfStructures, XmlScan::tagName(text_.view(), element)) &&
           getPropertiesFromElementAt(element).isEmpty() && holdsNothingBut(only, element);
}

bool EditableDocumentBuffer::holdsNothingBut(int only, int element) const {
    const Text text = text_.view();
    const int first = XmlScan::skipSpaces(text, getNextEditablePositionInXml(element));
    const int behind = XmlScan::skipSpaces(text, lastOffsetOfElement(only) + 1);
    return first == only && behind == getClosingTagForTagAtPosition(element);
}

// Questions

bool EditableDocumentBuffer::isRepeatingElement(const String& name) {
    return contains(repeatingElements, name.view());
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

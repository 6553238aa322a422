// What keeps a place for the caret in what a deletion emptied, and the questions that deleting asks
// about an element's content.

#include "editing/PlaceholderRepair.h"

#include "document/EditActionGroup.h"
#include "document/EditableDocumentBuffer.h"
#include "text/NameList.h"
#include "text/XmlScan.h"

#include <array>

using Core::String;
using XmlScan::contains;
using XmlScan::Text;

namespace {

constexpr Text block = L"fo:block";

constexpr std::array<Text, 2> inlineHolders{L"qfd:conditional-inline", L"qfd:inline-repeat"};

constexpr std::array<Text, 6> blockContainers{
    L"fo:flow",           L"fo:static-content",  L"fo:table-cell",
    L"fo:list-item-body", L"fo:block-container", L"fo:footnote-body"};

/// Whether a tag that opens, closes or is a block stands at the position.
bool isBlockTag(Text text, int position) {
    const Text name = XmlScan::tagName(text, position);
    return name == block || name == L"/fo:block";
}

int placeholderLengthBefore(Text text, int position) {
    for (const Text placeholder : {XmlScan::nbspEntity, XmlScan::nbspCharacter}) {
        const int length = static_cast<int>(placeholder.size());
        if (XmlScan::standsAt(text, placeholder, position - length))
            return length;
    }
    return 0;
}

} // namespace

// What was done

void PlaceholderRepair::addRemoval(int start, int end) {
    const int removedBefore = removedEnd - removedStart;
    removedStart = start;
    removedEnd = end + removedBefore;
}

int PlaceholderRepair::map(int offset) const {
    if (offset >= removedEnd)
        offset -= removedEnd - removedStart;
    else if (offset > removedStart)
        offset = removedStart;
    return insertedPlaceholder() && offset >= insertedStart ? offset + insertedEnd - insertedStart
                                                            : offset;
}

// The repair

bool EditableDocumentBuffer::handleElementsContainingJustWhiteSpaces(int position,
                                                                     bool removeEmptyInlines) {
    return repairEmptied(position, removeEmptyInlines).done();
}

PlaceholderRepair EditableDocumentBuffer::repairEmptied(int position, bool removeEmptyInlines) {
    const EditActionGroup group(this);
    recordCaret();
    PlaceholderRepair repair;
    int element = getCurrentElementPosition(position);
    while (removeEmptyInlines && isRemovableInline(element) &&
           elementContainsJustWhitespacesOrVoid(element)) {
        const int behind = positionBehindElement(element);
        recordDeletion(element, deleteXmlText(element, behind - 1));
        recordCaret();
        repair.addRemoval(element, behind);
        element = getCurrentElementPosition(element);
    }
    if (elementContainsJustWhitespacesOrVoid(element))
        insertPlaceholderInto(element, repair);
    return repair;
}

/// What the caret can stand in gets a placeholder, what holds inlines or blocks gets one of these
/// with a placeholder.
void EditableDocumentBuffer::insertPlaceholderInto(int element, PlaceholderRepair& repair) {
    const Text name = XmlScan::tagName(text_.view(), element);
    const bool holdsText = isEditableName(name);
    const bool holdsInline = contains(inlineHolders, name);
    if (!holdsText && !holdsInline && !contains(blockContainers, name))
        return;
    const String child = holdsInline ? L"fo:inline" : L"fo:block";
    const String start = holdsText ? String() : L"<" + child + L">";
    const String end = holdsText ? String() : L"</" + child + L">";
    const String xml = start + String(XmlScan::nbspEntity) + end;
    repair.insertedStart = getNextEditablePositionInXml(element);
    repair.insertedEnd = repair.insertedStart + xml.length();
    repair.placeholder = repair.insertedStart + start.length();
    const bool caretThere = caretPos_ == repair.insertedStart;
    insertXmlTextAtPosition(repair.insertedStart, xml);
    if (caretThere)
        setCaret(false, repair.placeholder);
    recordInsertion(repair.insertedStart, xml);
    recordCaret();
}

/// An inline goes when it is empty, unless what is around it must hold one.
bool EditableDocumentBuffer::isRemovableInline(int element) const {
    return isInlineName(XmlScan::tagName(text_.view(), element)) &&
           !contains(inlineHolders, getCurrentElementName(element).view()) &&
           !isFootnoteMark(element);
}

/// Without its mark a footnote would have no place in the text, and what is typed in the place of
/// the mark would go into the note.
bool EditableDocumentBuffer::isFootnoteMark(int element) const {
    return isInlineName(XmlScan::tagName(text_.view(), element)) &&
           getCurrentElementName(element) == L"fo:footnote";
}

// Questions

bool EditableDocumentBuffer::editableElementContainsJustOneMoreChar(int element) const {
    const int first = getNextEditablePositionInFo(element, false, false);
    const int closing = getClosingTagForTagAtPosition(element);
    return first >= 0 && closing >= 0 &&
           (first == closing || first == getPreviousEditablePositionInFo(closing, false, false));
}

bool EditableDocumentBuffer::imbricatedBlocksContext(int position) const {
    return XmlScan::tagName(text_.view(), position) == block &&
           getCurrentElementName(position).view() == block;
}

bool EditableDocumentBuffer::singleNbspBetweenLineBreakTags(int position, bool& isCharacter,
                                                            bool& follows) const {
    const Text text = text_.view();
    const int lengthBefore = placeholderLengthBefore(text, position);
    const int lengthAt = XmlScan::placeholderLength(text, position);
    if ((lengthBefore > 0) == (lengthAt > 0))
        return false;
    follows = lengthAt > 0;
    isCharacter = lengthBefore + lengthAt == 1;
    const int start = position - lengthBefore;
    const int before = getPreviousEditablePositionInXml(start);
    const int behind = position + lengthAt;
    const bool isWholeBlock = XmlScan::openingAt(text, before) && XmlScan::closingAt(text, behind);
    return isBlockTag(text, before) && isBlockTag(text, behind) && !isWholeBlock;
}

void EditableDocumentBuffer::deleteSpacesBetweenTags(int& position) const {
    if (position < 1 || position > text_.length())
        return;
    const Text text = text_.view();
    while (position > 0 && XmlScan::unitAt(text, position - 1) == L'\t')
        --position;
    if (position > 0 && XmlScan::unitAt(text, position - 1) == L'\n')
        --position;
}

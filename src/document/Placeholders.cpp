// What keeps a place for the caret in what a deletion emptied, and the questions that deleting asks
// about an element's content.

#include "document/Placeholders.h"

#include "document/Document.h"
#include "document/Edit.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/Lines.h"
#include "document/caret/Stops.h"
#include "document/history/EditActionGroup.h"
#include "text/Vocabulary.h"
#include "text/XmlScan.h"

using Core::String;
using XmlScan::contains;
using XmlScan::Text;

namespace {

constexpr Text block = L"fo:block";

/// Whether a tag that opens, closes or is a block stands at the position.
bool isBlockTag(const XmlText& text, int position) {
    const Text name = text.tagName(position);
    return name == block || name == L"/fo:block";
}

int placeholderLengthBefore(const XmlText& text, int position) {
    for (const Text placeholder : {XmlScan::nbspEntity, XmlScan::nbspCharacter}) {
        const int length = static_cast<int>(placeholder.size());
        if (text.standsAt(placeholder, position - length))
            return length;
    }
    return 0;
}

/// What the caret can stand in gets a placeholder, what holds inlines or blocks gets one of these
/// with a placeholder.
void insertPlaceholder(Document& document, int element, int place, PlaceholderRepair& repair) {
    const Text name = document.text().tagName(element);
    const bool holdsText = document.names.isEditable(name);
    const bool holdsInline = contains(Vocabulary::inlineHolders, name);
    if (!holdsText && !holdsInline && !contains(Vocabulary::blockContainers, name))
        return;
    const String child = holdsInline ? L"fo:inline" : L"fo:block";
    const String start = holdsText ? String() : L"<" + child + L">";
    const String end = holdsText ? String() : L"</" + child + L">";
    const String xml = start + String(XmlScan::nbspEntity) + end;
    repair.insertedStart = place;
    repair.insertedEnd = repair.insertedStart + xml.length();
    repair.placeholder = repair.insertedStart + start.length();
    const bool caretThere = document.caret() == repair.insertedStart;
    document.insertUnrecorded(repair.insertedStart, xml);
    if (caretThere)
        document.setCaret(repair.placeholder);
    document.recordInsertion(repair.insertedStart, xml);
    document.recordCaret();
}

/// An inline goes when it is empty, unless what is around it must hold one.
bool isRemovableInline(const Document& document, int element) {
    return document.names.isInline(document.text().tagName(element)) &&
           !contains(Vocabulary::inlineHolders, document.text().nameAround(element).view()) &&
           !Placeholders::isFootnoteMark(document, element);
}

/// An inline with those around it, the end excluded.
struct EmptyInlines {
    int start;
    int end;
};

/// An empty inline takes those along that hold nothing else, however many they are.
EmptyInlines emptyInlinesAround(const Document& document, int element) {
    const XmlText& text = document.text();
    EmptyInlines inlines{element, text.behindElement(element)};
    for (;;) {
        const int outer = text.elementAround(inlines.start);
        const int closing = text.skipSpaces(inlines.end);
        const int behind = text.next(closing);
        if (!isRemovableInline(document, outer) ||
            text.skipSpaces(text.next(outer)) != inlines.start || !text.closingAt(closing) ||
            text.tagName(closing).substr(1) != text.tagName(outer) || behind < 0)
            return inlines;
        inlines = {outer, behind};
    }
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

bool Placeholders::repairEmptied(Document& document, int position, bool removeEmptyInlines) {
    return Placeholders::repair(document, position, removeEmptyInlines).done();
}

PlaceholderRepair Placeholders::repair(Document& document, int position, bool removeEmptyInlines) {
    const XmlText& text = document.text();
    const EditActionGroup group(document);
    document.recordCaret();
    PlaceholderRepair repair;
    int element = text.elementAround(position);
    while (removeEmptyInlines && isRemovableInline(document, element) &&
           Placeholders::isVoid(document, element)) {
        const auto [start, end] = emptyInlinesAround(document, element);
        document.recordDeletion(start, document.removeUnrecorded(start, end - 1));
        document.recordCaret();
        repair.addRemoval(start, end);
        element = text.elementAround(start);
    }
    if (Placeholders::isVoid(document, element))
        insertPlaceholder(document, element, text.next(element), repair);
    return repair;
}

void Placeholders::fillAtEnd(Document& document, int position) {
    const int element = document.text().elementAround(position);
    PlaceholderRepair repair;
    if (isVoid(document, element))
        insertPlaceholder(document, element, document.text().closingTag(element), repair);
}

int Placeholders::repairLine(Document& document, int position) {
    const PlaceholderRepair repaired = Placeholders::repair(document, position, true);
    const int place =
        repaired.insertedPlaceholder() ? repaired.placeholder : repaired.map(position);
    if (Lines::isStart(document, place) && Lines::isEnd(document, place))
        Edit(document).insert(place, String(XmlScan::nbspEntity));
    return place;
}

bool Placeholders::isFootnoteMark(const Document& document, int element) {
    return document.names.isInline(document.text().tagName(element)) &&
           document.text().nameAround(element) == L"fo:footnote";
}

bool Placeholders::holdsOneUnit(const Document& document, int element) {
    NearStops stops(document);
    return holdsOneUnit(document, element, stops);
}

bool Placeholders::holdsOneUnit(const Document& document, int element, NearStops& stops) {
    const int first = stops.next(element);
    const int closing = document.text().closingTag(element);
    return first >= 0 && closing >= 0 && (first == closing || first == stops.previous(closing));
}

bool Placeholders::isBetweenBreaks(const Document& document, int position, bool& isCharacter,
                                   bool& follows) {
    const XmlText& text = document.text();
    const int lengthBefore = placeholderLengthBefore(text, position);
    const int lengthAt = text.placeholderLength(position);
    if ((lengthBefore > 0) == (lengthAt > 0))
        return false;
    follows = lengthAt > 0;
    isCharacter = lengthBefore + lengthAt == 1;
    const int start = position - lengthBefore;
    const int before = document.text().previous(start);
    const int behind = position + lengthAt;
    const bool isWholeBlock = text.openingAt(before) && text.closingAt(behind);
    return isBlockTag(text, before) && isBlockTag(text, behind) && !isWholeBlock;
}

bool EditableDocumentBuffer::handleElementsContainingJustWhiteSpaces(int position,
                                                                     bool removeEmptyInlines) {
    return Placeholders::repairEmptied(*document_, position, removeEmptyInlines);
}

bool EditableDocumentBuffer::editableElementContainsJustOneMoreChar(int element) const {
    return Placeholders::holdsOneUnit(*document_, element);
}

bool EditableDocumentBuffer::singleNbspBetweenLineBreakTags(int position, bool& isCharacter,
                                                            bool& follows) const {
    return Placeholders::isBetweenBreaks(*document_, position, isCharacter, follows);
}

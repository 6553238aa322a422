// Objects that a host shows as units: deleting them, and what it asks before.

#include "editing/objects/Objects.h"

#include "document/Attributes.h"
#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/caret/Moves.h"
#include "document/caret/Selection.h"
#include "document/caret/Stops.h"
#include "editing/deletion/Deletion.h"
#include "editing/formatting/Formatting.h"
#include "editing/typing/Typing.h"
#include "text/Vocabulary.h"

using Core::String;
using XmlScan::contains;

namespace {

constexpr const wchar_t* blockFiller = L"<fo:block>&#x00A0;</fo:block>";
constexpr const wchar_t* inlineFiller = L"<fo:inline>&#x00A0;</fo:inline>";

/// The next stop behind the place, or if there is none the previous.
int nearestStop(const Document& document, int place) {
    // Deliberate: a place in the middle of a line is a stop itself, and is passed over.
    const int next = Stops::next(document, place);
    return next >= 0 ? next : Stops::previous(document, place);
}

/// The nearest stop or else the previous, if that lies in the same flow or static content; -1 if
/// neither does.
int stopInRegion(const Document& document, int place, int nearest) {
    for (const int stop : {nearest, Stops::previous(document, place)})
        if (document.text().areInSameRegion(place, stop))
            return stop;
    return -1;
}

/// The nearest stop or else the previous, if that lies in the container.
int stopInContainer(const Document& document, int place, int nearest, int container) {
    const int end = document.text().lastOffsetOf(container);
    if (container <= nearest && nearest <= end)
        return nearest;
    const int previous = Stops::previous(document, place);
    return container < previous && previous < end ? previous : -1;
}

/// Puts something to stand in where an object was.
int stopInFiller(Document& document, int place, const String& filler) {
    document.setCaret(place); // a selection that reached beyond the object stays in the text
    Typing::insertText(document, filler, true, false);
    document.endTyping();
    return Stops::next(document, place);
}

void placeCaretForRemoved(Document& document, int place, const String& container,
                          bool inlineContext) {
    const int nearest = nearestStop(document, place);
    const int around = document.text().ancestor(place, container);
    if (nearest >= 0 && !container.empty() && around < 0)
        return; // with no container to stay in, the caret stays where the object was
    const int stop = container.empty() ? stopInRegion(document, place, nearest)
                                       : stopInContainer(document, place, nearest, around);
    document.setCaret(
        stop >= 0 ? stop
                  : stopInFiller(document, place, inlineContext ? inlineFiller : blockFiller));
}

bool holdsNothingBut(const Document& document, int only, int element) {
    const XmlText& text = document.text();
    const int first = text.skipSpaces(document.text().next(element));
    const int behind = text.skipSpaces(document.text().lastOffsetOf(only) + 1);
    return first == only && behind == document.text().closingTag(element);
}

/// Whether an element was made just to hold this one.
bool isWrapperOf(const Document& document, int element, int only) {
    return Deletion::isInRegion(document, element) &&
           !contains(Vocabulary::partsOfStructures, document.text().tagName(element)) &&
           Attributes::of(document, element).isEmpty() && holdsNothingBut(document, only, element);
}

/// Whether another item of the same list follows.
bool hasItemBehind(const Document& document, int item) {
    const XmlText& text = document.text();
    int sibling = text.sibling(item);
    while (sibling >= 0 && text.tagName(sibling) != L"fo:list-item")
        sibling = text.sibling(sibling);
    return sibling >= 0;
}

} // namespace

int Objects::namedByPath(const Document& document, const String& path) {
    const int around = document.text().elementNamedByPath(path, document.caret());
    return around >= 0 ? around : Formatting::elementNamedByPath(document, path);
}

int Deletion::withEmptiedSequence(const Document& document, int element) {
    const int parent = document.text().elementAround(element);
    return contains(Vocabulary::madeOfParts, document.text().tagName(parent)) &&
                   holdsNothingBut(document, element, parent)
               ? parent
               : element;
}

bool Objects::isRepeating(const String& name) {
    return contains(Vocabulary::repeating, name.view());
}

void EditableDocumentBuffer::deleteObject(const String& path, const String& container,
                                          bool inlineContext) {
    Document& document = *document_;
    const int object =
        Deletion::withEmptiedSequence(document, Objects::namedByPath(document, path));
    const int end = document.text().lastOffsetOf(object);
    if (end < 0 || !Deletion::isInRegion(document, object))
        return;
    RecordedCommand command(document);
    document.recordCaret();
    document.recordDeletion(object, document.removeUnrecorded(object, end));
    placeCaretForRemoved(document, object, container, inlineContext);
    Placeholders::repairEmptied(document, object, false);
    Moves::toStop(document);
    document.recordCaret();
    if (command.mayStand())
        document.notifyCaretChanged();
    else
        command.takeBack();
}

void EditableDocumentBuffer::deleteFloatingRegion() {
    Document& document = *document_;
    Deletion::removeElementAround(document, L"fo:block-container", true);
}

void EditableDocumentBuffer::deleteCurrentConditionalBlock() {
    Document& document = *document_;
    Deletion::removeParent(document, L"qfd:conditional-block");
}

void EditableDocumentBuffer::deleteConditionalBlockSequence() {
    Document& document = *document_;
    Deletion::removeParent(document, L"qfd:conditional-block-sequence");
}

void EditableDocumentBuffer::deleteCurrentConditionalInline() {
    Document& document = *document_;
    Deletion::removeParent(document, L"qfd:conditional-inline");
}

void EditableDocumentBuffer::deleteConditionalInlineSequence() {
    Document& document = *document_;
    Deletion::removeParent(document, L"qfd:conditional-inline-sequence");
}

void EditableDocumentBuffer::deleteRepeatingSection() {
    Document& document = *document_;
    Deletion::removeParent(document, L"qfd:block-repeat");
}

void EditableDocumentBuffer::removeComponent(int position) {
    Document& document = *document_;
    const XmlText& text = document.text();
    if (text.tagName(position) != L"qfd:subdocument-content" ||
        text.unitStart(position) != position || document.isOutOfReach(position))
        return;
    const int parent = text.elementAround(position);
    const int start = isWrapperOf(document, parent, position) ? parent : position;
    const int end = text.lastOffsetOf(start);
    if (end < 0)
        return;
    CommandScope scope(document);
    document.endTyping();
    document.recordCaret();
    document.recordDeletion(start, document.removeUnrecorded(start, end));
    Moves::toStop(document);
    document.recordCaret();
}

bool EditableDocumentBuffer::isRepeatingElement(const String& name) {
    return Objects::isRepeating(name);
}

String EditableDocumentBuffer::getComponentContentFromPath(const String& path) const {
    const Document& document = *document_;
    const XmlText& text = document.text();
    const int start = document.selectionStart();
    if (!document.hasSelection() || Selection::pathOf(document, start) != path)
        return text.markupOf(text.elementNamedByPath(path, document.caret()));
    const String content = text.markupOf(start);
    return content.empty() ? content : L"<fo:block>" + content + L"</fo:block>";
}

bool EditableDocumentBuffer::canDeleteListItem(const String& path) const {
    const Document& document = *document_;
    const XmlText& text = document.text();
    const int item = path.empty() ? text.ancestor(document.caret(), L"fo:list-item")
                                  : text.elementNamedByPath(path, document.caret());
    const int list = text.elementAround(item);
    if (text.tagName(item) != L"fo:list-item" || text.tagName(list) != L"fo:list-block")
        return false;
    return text.childNamed(list, L"fo:list-item") != item || hasItemBehind(document, item);
}

#include "view/Places.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/CaretWalk.h"

namespace {

/// From an offset inside a unit the first stop behind it is one behind the unit.
int stopBehind(const Document& document, int position) {
    CaretWalk walk(document, document.text().unitStart(position));
    if (walk.position() == position && walk.isStop())
        return position;
    return walk.toNextStop() ? walk.position() : -1;
}

int stopBefore(const Document& document, int position) {
    CaretWalk walk(document, document.text().unitStart(position));
    return walk.isStop() || walk.toPreviousStop() ? walk.position() : -1;
}

int nearerStop(const Document& document, int position) {
    const int before = stopBefore(document, position);
    if (before == position)
        return before;
    const int behind = stopBehind(document, position);
    if (before < 0 || behind < 0)
        return before < 0 ? behind : before;
    return position - before <= behind - position ? before : behind;
}

} // namespace

int Places::nearestStop(const Document& document, int position, StopSide side) {
    if (!document.text().isValid(position))
        return -1;
    switch (side) {
    case StopSide::Before:
        return stopBefore(document, position);
    case StopSide::Behind:
        return stopBehind(document, position);
    case StopSide::Either:
        return nearerStop(document, position);
    }
    return -1;
}

int Places::elementHolding(const Document& document, int position) {
    const XmlText& text = document.text();
    if (!text.isValid(position))
        return -1;
    const int markup = text.onTagStart(position) ? position : text.markupAround(position);
    const bool isStartTag = text.openingAt(markup) || text.selfClosingAt(markup);
    return isStartTag ? markup : text.elementAround(markup < 0 ? position : markup);
}

ElementPlace Places::elementAt(const Document& document, int position) {
    const XmlText& text = document.text();
    const int element = elementHolding(document, position);
    if (element < 0)
        return {};
    const Core::String name = text.nameAt(element);
    Core::String path = text.path(element); // "/" of the root
    if (!path.endsIn(L"/"))
        path += L'/';
    return {element, name, path + name, text.elementsAround(element)};
}

int EditableDocumentBuffer::getNearestStop(int position, StopSide side) const {
    return Places::nearestStop(*document_, position, side);
}

ElementPlace EditableDocumentBuffer::getElementAt(int position) const {
    return Places::elementAt(*document_, position);
}

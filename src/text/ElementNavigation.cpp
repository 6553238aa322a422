#include "text/EditableXmlBuffer.h"

#include "text/XmlScan.h"

#include <algorithm>

using Core::String;
using Core::StringArray;
using XmlScan::Text;

namespace {

bool contains(const StringArray& names, Text wanted) {
    return std::any_of(names.begin(), names.end(),
                       [wanted](const String& name) { return name.view() == wanted; });
}

} // namespace

// The current element

int EditableXmlBuffer::getCurrentElementPosition(int position) const {
    return XmlScan::currentElement(text_.view(), position, elementMemo_);
}

void EditableXmlBuffer::textChangedFrom(int position) {
    elementMemo_.forgetBehind(position);
}

int EditableXmlBuffer::getCurrentElementPosition(int position, const String& text) {
    return XmlScan::currentElement(text.view(), position, XmlScan::Source::Fragment);
}

String EditableXmlBuffer::getCurrentElementName(int position) const {
    return getNameForTagAtPosition(getCurrentElementPosition(position), true);
}

String EditableXmlBuffer::getCurrentElementName(int position, const String& text) {
    return String(XmlScan::fragmentElementName(text.view(), position));
}

int EditableXmlBuffer::getCurrentElementNameAndPos(int position, String& name) const {
    const int element = getCurrentElementPosition(position);
    name = getNameForTagAtPosition(element, true);
    return element;
}

String EditableXmlBuffer::getCurrentElementStartTagString(int position) const {
    const int element = getCurrentElementPosition(position);
    const int behind = getNextEditablePositionInXml(element);
    return behind < 0 ? String() : String(XmlScan::slice(text_.view(), element + 1, behind - 1));
}

int EditableXmlBuffer::getFirstPositionInElementContaining(int position) const {
    return getNextEditablePositionInXml(getCurrentElementPosition(position));
}

int EditableXmlBuffer::getLastPositionInElementContaining(int position) const {
    return getClosingTagForTagAtPosition(getCurrentElementPosition(position));
}

// Ancestors

String EditableXmlBuffer::getParentElementName(int position) const {
    return getCurrentElementName(getCurrentElementPosition(position));
}

int EditableXmlBuffer::getParentElementPosition(int position) const {
    // Deliberate: the search begins at the current element, so that a block in a block answers
    // itself; callers rely on names.
    const String parent = getParentElementName(position);
    return parent.empty() ? -1 : searchParent(parent, position, false, true, L"");
}

int EditableXmlBuffer::searchParent(const String& name, int position, bool wantLast,
                                    bool withPrefix, const String& stopName) const {
    return searchFirstParent({name}, position, wantLast, withPrefix, stopName);
}

int EditableXmlBuffer::searchFirstParent(const StringArray& names, int position, bool wantLast,
                                         bool withPrefix, const String& stopName) const {
    const Text text = text_.view();
    const String& stop = stopName.empty() ? rootElementName_ : stopName;
    int outermost = -1;
    for (int element = getCurrentElementPosition(position); element >= 0;
         element = getCurrentElementPosition(element)) {
        const Text fullName = XmlScan::tagName(text, element);
        const Text name = withPrefix ? fullName : XmlScan::localName(fullName);
        if (contains(names, name)) {
            if (!wantLast)
                return element;
            outermost = element;
        }
        if (name == stop.view())
            break;
    }
    return outermost;
}

bool EditableXmlBuffer::isInElementContext(const String& name, int position) const {
    return searchParent(name, position, false, true, L"") >= 0;
}

bool EditableXmlBuffer::inListItemLabel(int position) const {
    return isInElementContext(L"fo:list-item-label", position);
}

bool EditableXmlBuffer::isInFoFlow(int position) const {
    return isInElementContext(L"fo:flow", position);
}

bool EditableXmlBuffer::positionsAreInTheSameElement(const String& name, int a, int b) const {
    const int around = searchParent(name, a, false, true, L"");
    return around >= 0 && around == searchParent(name, b, false, true, L"");
}

bool EditableXmlBuffer::positionsAreInTheSameStaticContent(int a, int b) const {
    return positionsAreInTheSameElement(L"fo:static-content", a, b);
}

bool EditableXmlBuffer::positionsAreInSameFlowTypes(int a, int b) const {
    return isInFoFlow(a) == isInFoFlow(b);
}

bool EditableXmlBuffer::positionsAreInTheSameFlowElement(int a, int b) const {
    int flow = searchParent(L"fo:flow", a, false, true, L"");
    if (flow < 0)
        flow = searchParent(L"fo:static-content", a, false, true, L"");
    return flow >= 0 && flow < b && b <= getClosingTagForTagAtPosition(flow);
}

bool EditableXmlBuffer::elementContainsPosition(int element, int position) const {
    return onTagStartPosition(element) && element < position &&
           position < getClosingTagForTagAtPosition(element);
}

// Elements in document order

int EditableXmlBuffer::getNextElementPosition(int position) const {
    const Text text = text_.view();
    if (XmlScan::onTagStart(text, position))
        position = XmlScan::stepForward(text, position);
    int tag = XmlScan::nextTag(text, position);
    while (XmlScan::closingAt(text, tag)) {
        if (!rootElementName_.empty() &&
            XmlScan::tagName(text, tag).substr(1) == rootElementName_.view())
            return -1;
        tag = XmlScan::nextTag(text, XmlScan::stepForward(text, tag));
    }
    return tag;
}

int EditableXmlBuffer::getPreviousElementPosition(int position) const {
    const Text text = text_.view();
    int tag = XmlScan::previousTag(text, getCurrentElementPosition(position));
    while (XmlScan::closingAt(text, tag) || XmlScan::ignoredAt(text, tag))
        tag = XmlScan::previousTag(text, tag);
    return tag;
}

String EditableXmlBuffer::getNextElementName(int position) const {
    // Deliberate: from inside text the answer is empty; callers that want a name there use the next
    // tag.
    if (!onTagStartPosition(position))
        return {};
    const int element =
        ignoredElementAtPosition(position) ? getNextElementPosition(position) : position;
    return getNameForTagAtPosition(element, true);
}

int EditableXmlBuffer::getNextElementByName(const String& name, int position) const {
    return getFirstElementByName({name}, position);
}

int EditableXmlBuffer::getFirstElementByName(const StringArray& names, int position) const {
    const Text text = text_.view();
    int element = getNextElementPosition(position);
    while (element >= 0 && !contains(names, XmlScan::tagName(text, element)))
        element = getNextElementPosition(element);
    return element;
}

int EditableXmlBuffer::getPreviousElementByName(const String& name, int position) const {
    const Text text = text_.view();
    int tag = XmlScan::previousTag(text, position);
    while (tag >= 0 && XmlScan::tagName(text, tag) != name.view())
        tag = XmlScan::previousTag(text, tag);
    return tag;
}

// Children and siblings

int EditableXmlBuffer::getFirstChildPosition(int element) const {
    if (!onTagStartPosition(element) || selfClosingTagAtPosition(element))
        return -1;
    const int tag = getNextTagPosition(getNextEditablePositionInXml(element));
    return tag > getClosingTagForTagAtPosition(element) ? -1 : tag;
}

int EditableXmlBuffer::getNextChildByName(const String& name, int element) const {
    const int end = getClosingTagForTagAtPosition(element);
    int child = getFirstChildPosition(element);
    while (child >= 0 && child <= end) {
        if (getNameForTagAtPosition(child, true) == name)
            return child;
        child =
            getNextTagPosition(getNextEditablePositionInXml(getClosingTagForTagAtPosition(child)));
    }
    return -1;
}

int EditableXmlBuffer::getNextSiblingElementPos(int element) const {
    return getNextElementPosition(getClosingTagForTagAtPosition(element));
}

int EditableXmlBuffer::getSiblingElement(int element) const {
    const int sibling = getNextSiblingElementPos(element);
    return sibling < getLastPositionInElementContaining(element) ? sibling : -1;
}

int EditableXmlBuffer::getPreviousNeighborPosition(int position, bool useCurrent) const {
    const Text text = text_.view();
    const bool atSelfClosing = !useCurrent && XmlScan::selfClosingAt(text, position);
    int tag =
        XmlScan::previousTag(text, atSelfClosing ? position : getCurrentElementPosition(position));
    while (XmlScan::commentAt(text, tag))
        tag = XmlScan::previousTag(text, tag);
    if (XmlScan::closingAt(text, tag))
        return getCurrentElementPosition(tag);
    return XmlScan::selfClosingAt(text, tag) ? tag : -1;
}

String EditableXmlBuffer::getPreviousNeighborName(int position, bool useCurrent) const {
    return getNameForTagAtPosition(getPreviousNeighborPosition(position, useCurrent), true);
}

int EditableXmlBuffer::positionBehindNeighbor(int position, bool useCurrent) const {
    const bool atSelfClosing = !useCurrent && selfClosingTagAtPosition(position);
    const int last = atSelfClosing ? position : getLastPositionInElementContaining(position);
    return XmlScan::skipSpaces(text_.view(), getNextEditablePositionInXml(last));
}

int EditableXmlBuffer::getNextNeighborPosition(int position, bool useCurrent) const {
    const int next = positionBehindNeighbor(position, useCurrent);
    return onTagStartPosition(next) ? getNextTagPosition(next) : -1;
}

String EditableXmlBuffer::getNextNeighborName(int position, bool useCurrent) const {
    int next = positionBehindNeighbor(position, useCurrent);
    while (commentTagAtPosition(next))
        next = XmlScan::skipSpaces(text_.view(), getNextEditablePositionInXml(next));
    return onTagStartPosition(next) ? getNextTagName(getNextTagPosition(next)) : String();
}

// The operations by their given names; what they answer is told by XmlText, Markup and Namespaces.

#include "text/EditableXmlBuffer.h"

#include "text/Markup.h"
#include "text/XmlText.h"

#include <utility>

using Core::String;
using Core::StringArray;
using XmlScan::Source;
using XmlScan::Text;

EditableXmlBuffer::EditableXmlBuffer() : EditableXmlBuffer(std::make_shared<XmlText>()) {}

EditableXmlBuffer::EditableXmlBuffer(std::shared_ptr<XmlText> text) : text_(std::move(text)) {}

EditableXmlBuffer::~EditableXmlBuffer() = default;

void EditableXmlBuffer::setRootElement(const String& name) {
    text_->setRootName(name);
}

bool EditableXmlBuffer::isInElementContext(const String& name, int position) const {
    return text_->isWithin(position, name.view());
}

String EditableXmlBuffer::getRootElementName() const {
    return text_->rootName();
}

bool EditableXmlBuffer::isOnInvalidPosition(int position) const {
    return !text_->isValid(position);
}

bool EditableXmlBuffer::onTagStartPosition(int position) const {
    return text_->onTagStart(position);
}

bool EditableXmlBuffer::commentTagAtPosition(int position) const {
    return text_->commentAt(position);
}

bool EditableXmlBuffer::cdataSectionAtPosition(int position) const {
    return text_->cdataAt(position);
}

bool EditableXmlBuffer::processingInstructionTagAtPosition(int position) const {
    return text_->instructionAt(position);
}

bool EditableXmlBuffer::ignoredElementAtPosition(int position) const {
    return text_->ignoredAt(position);
}

bool EditableXmlBuffer::selfClosingTagAtPosition(int position) const {
    return text_->selfClosingAt(position);
}

bool EditableXmlBuffer::closingElementTagAtPosition(int position) const {
    return text_->closingTagFollows(position);
}

XmlElementType EditableXmlBuffer::getElementTypeOnStartTagPosition(int position) const {
    return text_->kindBeginningAt(position);
}

XmlElementType EditableXmlBuffer::getElementTypeOnEndTagPosition(int position) const {
    return text_->kindEndingAt(position);
}

bool EditableXmlBuffer::nextContentEquals(const String& what, int position) const {
    return text_->isValid(position) && text_->standsAt(what.view(), position);
}

bool EditableXmlBuffer::beforeFOTable(int position) const {
    return text_->isBeforeTable(position);
}

bool EditableXmlBuffer::afterFOTable(int position) const {
    return text_->isBehindTable(position);
}

String EditableXmlBuffer::getNameForTagAtPosition(int position, bool withPrefix) const {
    return withPrefix ? text_->nameAt(position) : text_->localNameAt(position);
}

String EditableXmlBuffer::getNextTagName(int position) const {
    return text_->nextTagName(position);
}

String EditableXmlBuffer::getPreviousTagName(int position) const {
    return text_->previousTagName(position);
}

int EditableXmlBuffer::getPreviousTagNameAndPos(int position, String& name) const {
    const int tag = text_->previousTag(position);
    name = text_->nameAt(tag);
    return tag;
}

int EditableXmlBuffer::getNextTagPosition(int position) const {
    return text_->nextTag(position);
}

int EditableXmlBuffer::getPreviousTagPosition(int position) const {
    return text_->previousTag(position);
}

int EditableXmlBuffer::getClosingTagForTagAtPosition(int position) const {
    return text_->closingTag(position);
}

int EditableXmlBuffer::getStartTagForTagAtPosition(int position) const {
    return text_->startTag(position);
}

int EditableXmlBuffer::getElementStartPosition(XmlElementType type, int position) const {
    return text_->kindStart(type, position);
}

int EditableXmlBuffer::getElementEndPosition(XmlElementType type, int position) const {
    return text_->kindEnd(type, position);
}

int EditableXmlBuffer::getNextEditablePositionInXml(int position) const {
    return text_->next(position);
}

int EditableXmlBuffer::getPreviousEditablePositionInXml(int position) const {
    return text_->previous(position);
}

int EditableXmlBuffer::getFirstEditablePositionInXml() const {
    return text_->firstPositionInRoot();
}

int EditableXmlBuffer::getRootElementPos() const {
    return text_->root();
}

int EditableXmlBuffer::getNextAttributePosition(int position) const {
    return text_->nextAttribute(position);
}

int EditableXmlBuffer::getPreviousAttributePosition(int position) const {
    return text_->previousAttribute(position);
}

String EditableXmlBuffer::getNameForAttributeAt(int position) const {
    return String(text_->attributeName(position));
}

String EditableXmlBuffer::getValueForAttributeAt(int position) const {
    return String(text_->attributeValue(position));
}

int EditableXmlBuffer::getNextAttributeValuePosition(int position) const {
    const int quote = text_->findQuote(position);
    return quote < 0 ? -1 : quote + 1;
}

bool EditableXmlBuffer::containsAttribute(int position, const String& name, int& found) const {
    for (int at = text_->nextAttribute(position); at >= 0; at = text_->nextAttribute(at)) {
        if (text_->attributeName(at) == name.view()) {
            found = at;
            return true;
        }
    }
    return false;
}

String EditableXmlBuffer::getEscapeCharacterString(int position) const {
    if (!text_->isValid(position))
        return {};
    const int semicolon = text_->find(L';', position);
    return text_->slice(position, semicolon < 0 ? text_->length() : semicolon + 1);
}

void EditableXmlBuffer::convertToValidXMLText(String& plain) const {
    Markup::escape(plain);
}

int EditableXmlBuffer::getCurrentElementPosition(int position) const {
    return text_->elementAround(position);
}

String EditableXmlBuffer::getCurrentElementName(int position) const {
    return text_->nameAround(position);
}

int EditableXmlBuffer::getCurrentElementNameAndPos(int position, String& name) const {
    const int element = text_->elementAround(position);
    name = text_->nameAt(element);
    return element;
}

String EditableXmlBuffer::getCurrentElementStartTagString(int position) const {
    return text_->startTagAround(position);
}

int EditableXmlBuffer::getFirstPositionInElementContaining(int position) const {
    return text_->startOfContentAround(position);
}

int EditableXmlBuffer::getLastPositionInElementContaining(int position) const {
    return text_->closingTagAround(position);
}

String EditableXmlBuffer::getParentElementName(int position) const {
    return text_->parentName(position);
}

int EditableXmlBuffer::getParentElementPosition(int position) const {
    // Deliberate: the search begins at the current element, so that a block in a block answers
    // itself; callers rely on names.
    const String parent = text_->parentName(position);
    return parent.empty() ? -1 : text_->ancestor(position, parent.view());
}

int EditableXmlBuffer::searchParent(const String& name, int position, bool wantLast,
                                    bool withPrefix, const String& stopName) const {
    return text_->searchAncestor(position, {name}, {wantLast, withPrefix, stopName.view()});
}

int EditableXmlBuffer::searchFirstParent(const StringArray& names, int position, bool wantLast,
                                         bool withPrefix, const String& stopName) const {
    return text_->searchAncestor(position, names, {wantLast, withPrefix, stopName.view()});
}

bool EditableXmlBuffer::inListItemLabel(int position) const {
    return text_->isInLabel(position);
}

bool EditableXmlBuffer::isInFoFlow(int position) const {
    return text_->isInFlow(position);
}

bool EditableXmlBuffer::positionsAreInTheSameElement(const String& name, int a, int b) const {
    return text_->areInSameElement(name.view(), a, b);
}

bool EditableXmlBuffer::positionsAreInTheSameStaticContent(int a, int b) const {
    return text_->areInSameStaticContent(a, b);
}

bool EditableXmlBuffer::positionsAreInSameFlowTypes(int a, int b) const {
    return text_->isInFlow(a) == text_->isInFlow(b);
}

bool EditableXmlBuffer::positionsAreInTheSameFlowElement(int a, int b) const {
    return text_->areInSameRegion(a, b);
}

bool EditableXmlBuffer::elementContainsPosition(int element, int position) const {
    return text_->elementContains(element, position);
}

int EditableXmlBuffer::getNextElementPosition(int position) const {
    return text_->nextElement(position);
}

int EditableXmlBuffer::getPreviousElementPosition(int position) const {
    return text_->previousElement(position);
}

String EditableXmlBuffer::getNextElementName(int position) const {
    // Deliberate: from inside text the answer is empty; callers that want a name there use the next
    // tag.
    if (!text_->onTagStart(position))
        return {};
    return text_->nameAt(text_->ignoredAt(position) ? text_->nextElement(position) : position);
}

int EditableXmlBuffer::getNextElementByName(const String& name, int position) const {
    return text_->nextNamed(position, name.view());
}

int EditableXmlBuffer::getPreviousElementByName(const String& name, int position) const {
    return text_->previousNamed(position, name.view());
}

int EditableXmlBuffer::getFirstElementByName(const StringArray& names, int position) const {
    return text_->nextNamed(position, names);
}

int EditableXmlBuffer::getFirstChildPosition(int element) const {
    return text_->firstChild(element);
}

int EditableXmlBuffer::getNextChildByName(const String& name, int element) const {
    return text_->childNamed(element, name.view());
}

int EditableXmlBuffer::getNextSiblingElementPos(int element) const {
    return text_->nextSibling(element);
}

int EditableXmlBuffer::getSiblingElement(int element) const {
    return text_->sibling(element);
}

int EditableXmlBuffer::getPreviousNeighborPosition(int position, bool useCurrent) const {
    return text_->previousNeighbor(position, useCurrent);
}

String EditableXmlBuffer::getPreviousNeighborName(int position, bool useCurrent) const {
    return text_->nameAt(text_->previousNeighbor(position, useCurrent));
}

int EditableXmlBuffer::getNextNeighborPosition(int position, bool useCurrent) const {
    return text_->nextNeighbor(position, useCurrent);
}

String EditableXmlBuffer::getNextNeighborName(int position, bool useCurrent) const {
    return text_->nextNeighborName(position, useCurrent);
}

String EditableXmlBuffer::getElementPath(int position) const {
    return text_->path(position);
}

String EditableXmlBuffer::getPathForPosition(int position) const {
    return text_->pathOfPosition(position);
}

int EditableXmlBuffer::getElementPositionFromPath(const String& path, int position) const {
    return text_->elementNamedByPath(path, position);
}

String EditableXmlBuffer::getPathToParent(const String& path, const String& parentName) const {
    return Markup::pathToParent(path, parentName);
}

String EditableXmlBuffer::getCharacterDataForElementAt(int element) const {
    return Markup::characterData(*text_, element);
}

String EditableXmlBuffer::getNativeText(int start, int end) const {
    return Markup::cutOut(*text_, start, end);
}

StringArray EditableXmlBuffer::getClosingTagsBetweenPositions(int start, int end) const {
    return Markup::openedBetween(*text_, start, end);
}

String EditableXmlBuffer::stringArrayToTagString(const StringArray& names) const {
    return Markup::closingTags(names);
}

String EditableXmlBuffer::stringArrayToReverseTagString(const StringArray& names) const {
    return Markup::closingTagsInReverse(names);
}

bool EditableXmlBuffer::namespaceIsDefined(const String& declaration,
                                           const std::set<String>& declared) const {
    return Namespaces::declares(declared, declaration);
}

String EditableXmlBuffer::namespaceSetToString(const std::set<String>& declared) const {
    return Namespaces::asAttributes(declared);
}

std::set<String> EditableXmlBuffer::getNamespacesFromElementAt(int element) const {
    return Namespaces::of(*text_, element);
}

std::set<String> EditableXmlBuffer::getNamespacesFromAllContainers(int position) const {
    return Namespaces::around(*text_, position);
}

bool EditableXmlBuffer::elementContainsJustNonBreakingSpace(int element) const {
    return text_->holdsOnlyPlaceholder(element);
}

bool EditableXmlBuffer::isNbspFollowedByCloseElement(int position) const {
    return text_->isPlaceholderAtElementEnd(position);
}

bool EditableXmlBuffer::nbspFollowedByWspaceAndElementCloseTagAt(int position) const {
    return text_->isPlaceholderBeforeClosingTag(position);
}

bool EditableXmlBuffer::isLastValidWhiteSpaceBeforeElementClosed(int position) const {
    return text_->beginsTrailingSpaces(position);
}

int EditableXmlBuffer::getNonBreakingSpacePosition(int position) const {
    return text_->placeholderBehind(position);
}

// The twins, which scan a fragment

bool EditableXmlBuffer::isInsideStartTag(const String& content, int position) {
    const Text text = content.view();
    if (!XmlScan::isValid(text, position))
        return false;
    // Deliberate: with no further "<" the last tag of a text never holds a position; an insertion
    // behind the root is refused elsewhere.
    if (XmlScan::find(text, L'>', position) > XmlScan::find(text, L'<', position) ||
        XmlScan::rFind(text, L'>', position) > XmlScan::rFind(text, L'<', position))
        return false;
    const auto insideSection = [&](Text start, Text end) {
        const int opened = XmlScan::rFind(text, start, XmlScan::find(text, end, position));
        return opened >= 0 && opened < position;
    };
    return !insideSection(XmlScan::commentStart, XmlScan::commentEnd) &&
           !insideSection(XmlScan::cdataStart, XmlScan::cdataEnd) &&
           !insideSection(XmlScan::instructionStart, XmlScan::instructionEnd);
}

bool EditableXmlBuffer::isOnInvalidPosition(int position, const String& text) {
    return !XmlScan::isValid(text.view(), position);
}

bool EditableXmlBuffer::onTagStartPosition(int position, const String& text) {
    return XmlScan::onTagStart(text.view(), position);
}

bool EditableXmlBuffer::commentTagAtPosition(int position, const String& text) {
    return XmlScan::commentAt(text.view(), position);
}

bool EditableXmlBuffer::cdataSectionAtPosition(int position, const String& text) {
    return XmlScan::cdataAt(text.view(), position);
}

bool EditableXmlBuffer::processingInstructionTagAtPosition(int position, const String& text) {
    return XmlScan::instructionAt(text.view(), position);
}

bool EditableXmlBuffer::ignoredElementAtPosition(int position, const String& text) {
    return XmlScan::ignoredAt(text.view(), position);
}

bool EditableXmlBuffer::selfClosingTagAtPosition(int position, const String& text) {
    return XmlScan::selfClosingAt(text.view(), position);
}

bool EditableXmlBuffer::nextContentEquals(const String& what, int position, const String& text) {
    return !isOnInvalidPosition(position, text) &&
           XmlScan::standsAt(text.view(), what.view(), position);
}

bool EditableXmlBuffer::nextContentEquals(const String& what, const String& text, int position) {
    return XmlScan::standsAt(text.view(), what.view(), position);
}

String EditableXmlBuffer::getNameForTagAtPosition(int position, const String& text) {
    return String(XmlScan::tagName(text.view(), position));
}

String EditableXmlBuffer::getPreviousTagName(int position, const String& text) {
    return getNameForTagAtPosition(getPreviousTagPosition(position, text), text);
}

int EditableXmlBuffer::getPreviousTagNameAndPosition(int position, const String& text,
                                                     String& name) {
    const int tag = getPreviousTagPosition(position, text);
    name = getNameForTagAtPosition(tag, text);
    return tag;
}

int EditableXmlBuffer::getPreviousTagPosition(int position, const String& text) {
    return XmlScan::previousTag(text.view(), position, Source::Fragment);
}

int EditableXmlBuffer::getClosingTagForTagAtPosition(int position, const String& text) {
    return XmlScan::closingTag(text.view(), position, Source::Fragment);
}

int EditableXmlBuffer::getNextEditablePositionInXml(int position, const String& text) {
    return XmlScan::stepForward(text.view(), position, Source::Fragment);
}

int EditableXmlBuffer::getCurrentElementPosition(int position, const String& text) {
    return XmlScan::currentElement(text.view(), position, Source::Fragment);
}

String EditableXmlBuffer::getCurrentElementName(int position, const String& text) {
    return String(XmlScan::fragmentElementName(text.view(), position));
}

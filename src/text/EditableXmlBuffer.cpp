#include "text/EditableXmlBuffer.h"

#include "text/XmlScan.h"

#include <utility>

using Core::String;
using XmlScan::Source;
using XmlScan::Text;

EditableXmlBuffer::EditableXmlBuffer() = default;

EditableXmlBuffer::~EditableXmlBuffer() = default;

void EditableXmlBuffer::setRootElement(const String& name) {
    rootElementName_ = name;
}

// What stands at a position

bool EditableXmlBuffer::isOnInvalidPosition(int position) const {
    return isOnInvalidPosition(position, text_);
}

bool EditableXmlBuffer::isOnInvalidPosition(int position, const String& text) {
    return !XmlScan::isValid(text.view(), position);
}

bool EditableXmlBuffer::onTagStartPosition(int position) const {
    return onTagStartPosition(position, text_);
}

bool EditableXmlBuffer::onTagStartPosition(int position, const String& text) {
    return XmlScan::onTagStart(text.view(), position);
}

bool EditableXmlBuffer::commentTagAtPosition(int position) const {
    return commentTagAtPosition(position, text_);
}

bool EditableXmlBuffer::commentTagAtPosition(int position, const String& text) {
    return XmlScan::commentAt(text.view(), position);
}

bool EditableXmlBuffer::cdataSectionAtPosition(int position) const {
    return cdataSectionAtPosition(position, text_);
}

bool EditableXmlBuffer::cdataSectionAtPosition(int position, const String& text) {
    return XmlScan::cdataAt(text.view(), position);
}

bool EditableXmlBuffer::processingInstructionTagAtPosition(int position) const {
    return processingInstructionTagAtPosition(position, text_);
}

bool EditableXmlBuffer::processingInstructionTagAtPosition(int position, const String& text) {
    return XmlScan::instructionAt(text.view(), position);
}

bool EditableXmlBuffer::ignoredElementAtPosition(int position) const {
    return ignoredElementAtPosition(position, text_);
}

bool EditableXmlBuffer::ignoredElementAtPosition(int position, const String& text) {
    return XmlScan::ignoredAt(text.view(), position);
}

bool EditableXmlBuffer::selfClosingTagAtPosition(int position) const {
    return selfClosingTagAtPosition(position, text_);
}

bool EditableXmlBuffer::selfClosingTagAtPosition(int position, const String& text) {
    return XmlScan::selfClosingAt(text.view(), position);
}

bool EditableXmlBuffer::closingElementTagAtPosition(int position) const {
    return !isOnInvalidPosition(position) && getNextTagName(position).startsWith(L"/");
}

XmlElementType EditableXmlBuffer::getElementTypeOnStartTagPosition(int position) const {
    const Text text = text_.view();
    if (!XmlScan::onTagStart(text, position))
        return xmlNone;
    if (XmlScan::instructionAt(text, position))
        return xmlProcessingInstruction;
    if (XmlScan::commentAt(text, position))
        return xmlComment;
    return XmlScan::cdataAt(text, position) ? xmlCData : xmlElement;
}

XmlElementType EditableXmlBuffer::getElementTypeOnEndTagPosition(int position) const {
    const Text text = text_.view();
    if (!XmlScan::isValid(text, position) || XmlScan::unitAt(text, position) != L'>')
        return xmlNone;
    struct Kind {
        XmlElementType type;
        Text start;
        Text end;
    };
    static constexpr Kind kinds[] = {
        {xmlProcessingInstruction, XmlScan::instructionStart, XmlScan::instructionEnd},
        {xmlComment, XmlScan::commentStart, XmlScan::commentEnd},
        {xmlCData, XmlScan::cdataStart, XmlScan::cdataEnd}};
    for (const Kind& kind : kinds) {
        const int delimiter = position - static_cast<int>(kind.end.size()) + 1;
        if (delimiter < 1 || !XmlScan::standsAt(text, kind.end, delimiter))
            continue;
        const int opened = XmlScan::rFind(text, kind.start, delimiter - 1);
        const int closed = XmlScan::rFind(text, kind.end, delimiter - 1);
        return opened >= 0 && opened >= closed ? kind.type : xmlNone;
    }
    return xmlElement;
}

bool EditableXmlBuffer::nextContentEquals(const String& what, int position) const {
    return nextContentEquals(what, position, text_);
}

bool EditableXmlBuffer::nextContentEquals(const String& what, int position, const String& text) {
    return !isOnInvalidPosition(position, text) &&
           XmlScan::standsAt(text.view(), what.view(), position);
}

bool EditableXmlBuffer::nextContentEquals(const String& what, const String& text, int position) {
    return XmlScan::standsAt(text.view(), what.view(), position);
}

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

bool EditableXmlBuffer::beforeFOTable(int position) const {
    return XmlScan::tagName(text_.view(), position) == L"fo:table";
}

bool EditableXmlBuffer::afterFOTable(int position) const {
    return !isOnInvalidPosition(position) && position > 0 &&
           XmlScan::unitAt(text_.view(), position - 1) == L'>' &&
           getPreviousTagName(position) == L"/fo:table";
}

// Tags

String EditableXmlBuffer::getNameForTagAtPosition(int position, bool withPrefix) const {
    const Text name = XmlScan::tagName(text_.view(), position);
    return String(withPrefix ? name : XmlScan::localName(name));
}

String EditableXmlBuffer::getNameForTagAtPosition(int position, const String& text) {
    return String(XmlScan::tagName(text.view(), position));
}

String EditableXmlBuffer::getNextTagName(int position) const {
    const int tag = onTagStartPosition(position) ? position : getNextTagPosition(position);
    return getNameForTagAtPosition(tag, true);
}

String EditableXmlBuffer::getPreviousTagName(int position) const {
    return getNameForTagAtPosition(getPreviousTagPosition(position), true);
}

String EditableXmlBuffer::getPreviousTagName(int position, const String& text) {
    return getNameForTagAtPosition(getPreviousTagPosition(position, text), text);
}

int EditableXmlBuffer::getPreviousTagNameAndPos(int position, String& name) const {
    const int tag = getPreviousTagPosition(position);
    name = getNameForTagAtPosition(tag, true);
    return tag;
}

int EditableXmlBuffer::getPreviousTagNameAndPosition(int position, const String& text,
                                                     String& name) {
    const int tag = getPreviousTagPosition(position, text);
    name = getNameForTagAtPosition(tag, text);
    return tag;
}

int EditableXmlBuffer::getNextTagPosition(int position) const {
    return XmlScan::nextTag(text_.view(), position);
}

int EditableXmlBuffer::getPreviousTagPosition(int position) const {
    return XmlScan::previousTag(text_.view(), position);
}

int EditableXmlBuffer::getPreviousTagPosition(int position, const String& text) {
    return XmlScan::previousTag(text.view(), position, Source::Fragment);
}

int EditableXmlBuffer::getClosingTagForTagAtPosition(int position) const {
    return XmlScan::closingTag(text_.view(), position);
}

int EditableXmlBuffer::getClosingTagForTagAtPosition(int position, const String& text) {
    return XmlScan::closingTag(text.view(), position, Source::Fragment);
}

int EditableXmlBuffer::getStartTagForTagAtPosition(int position) const {
    return XmlScan::startTag(text_.view(), position);
}

int EditableXmlBuffer::getElementStartPosition(XmlElementType type, int position) const {
    switch (type) {
    case xmlComment:
        return XmlScan::rFind(text_.view(), XmlScan::commentStart, position);
    case xmlCData:
        return XmlScan::rFind(text_.view(), XmlScan::cdataStart, position);
    case xmlProcessingInstruction:
        return XmlScan::rFind(text_.view(), XmlScan::instructionStart, position);
    case xmlElement:
        return position < 1
                   ? -1
                   : getStartTagForTagAtPosition(getPreviousEditablePositionInXml(position - 1));
    case xmlNone:
        break;
    }
    return position;
}

int EditableXmlBuffer::getElementEndPosition(XmlElementType type, int position) const {
    const auto behind = [&](Text delimiter) {
        const int found = XmlScan::find(text_.view(), delimiter, position);
        return found < 0 ? -1 : found + static_cast<int>(delimiter.size());
    };
    switch (type) {
    case xmlComment:
        return behind(XmlScan::commentEnd);
    case xmlCData:
        return behind(XmlScan::cdataEnd);
    case xmlProcessingInstruction:
        return behind(XmlScan::instructionEnd);
    case xmlElement:
        return getNextEditablePositionInXml(getClosingTagForTagAtPosition(position));
    case xmlNone:
        break;
    }
    return position;
}

// Steps

int EditableXmlBuffer::getNextEditablePositionInXml(int position) const {
    return XmlScan::stepForward(text_.view(), position);
}

int EditableXmlBuffer::getNextEditablePositionInXml(int position, const String& text) {
    return XmlScan::stepForward(text.view(), position, Source::Fragment);
}

int EditableXmlBuffer::getPreviousEditablePositionInXml(int position) const {
    return XmlScan::stepBackward(text_.view(), position, rootElementName_.view());
}

int EditableXmlBuffer::getFirstEditablePositionInXml() const {
    return XmlScan::firstPositionInRoot(text_.view());
}

int EditableXmlBuffer::getRootElementPos() const {
    return getPreviousEditablePositionInXml(getFirstEditablePositionInXml());
}

// Attributes

int EditableXmlBuffer::getNextAttributePosition(int position) const {
    return XmlScan::nextAttribute(text_.view(), position);
}

int EditableXmlBuffer::getPreviousAttributePosition(int position) const {
    return XmlScan::previousAttribute(text_.view(), position);
}

String EditableXmlBuffer::getNameForAttributeAt(int position) const {
    return String(XmlScan::attributeName(text_.view(), position));
}

String EditableXmlBuffer::getValueForAttributeAt(int position) const {
    return String(XmlScan::attributeValue(text_.view(), position));
}

int EditableXmlBuffer::getNextAttributeValuePosition(int position) const {
    const int quote = XmlScan::findQuote(text_.view(), position);
    return quote < 0 ? -1 : quote + 1;
}

bool EditableXmlBuffer::containsAttribute(int position, const String& name, int& found) const {
    const Text text = text_.view();
    for (int at = XmlScan::nextAttribute(text, position); at >= 0;
         at = XmlScan::nextAttribute(text, at)) {
        if (XmlScan::attributeName(text, at) == name.view()) {
            found = at;
            return true;
        }
    }
    return false;
}

// Text

String EditableXmlBuffer::getEscapeCharacterString(int position) const {
    const Text text = text_.view();
    if (!XmlScan::isValid(text, position))
        return {};
    const int semicolon = XmlScan::find(text, L';', position);
    const int end = semicolon < 0 ? static_cast<int>(text.size()) : semicolon + 1;
    return String(XmlScan::slice(text, position, end));
}

void EditableXmlBuffer::convertToValidXMLText(String& plain) const {
    std::wstring escaped;
    escaped.reserve(plain.view().size());
    for (const wchar_t unit : plain.view()) {
        switch (unit) {
        case L'"':
            escaped += L"&quot;";
            break;
        case L'&':
            escaped += L"&amp;";
            break;
        case L'\'':
            escaped += L"&apos;";
            break;
        case L'<':
            escaped += L"&lt;";
            break;
        case L'>':
            escaped += L"&gt;";
            break;
        default:
            escaped += unit < L' ' && unit != L'\t' ? L' ' : unit;
        }
    }
    plain = String(std::move(escaped));
}

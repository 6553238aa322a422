// What stands around the caret, and what the document uses.

#include "document/EditableDocumentBuffer.h"

#include "text/XmlScan.h"

using Core::String;

namespace {

constexpr const wchar_t* identifier = L"fo:id";
constexpr const wchar_t* flowNameAttribute = L"fo:flow-name";

void decodeEntities(String& text) {
    text.replaceAll(L"&lt;", L"<");
    text.replaceAll(L"&gt;", L">");
    text.replaceAll(L"&apos;", L"'");
    text.replaceAll(L"&quot;", L"\"");
    text.replaceAll(L"&amp;", L"&"); // the last, so that nothing is decoded twice
}

/// The source in a value such as "url(letter.xml)".
String sourceOf(const String& value) {
    String source = value.startsWith(L"url(")
                        ? value.subString(4, static_cast<unsigned>(value.length() - 2))
                        : value;
    decodeEntities(source);
    return source;
}

} // namespace

// The flow

int EditableDocumentBuffer::flowAroundCaret() const {
    return searchParent(L"fo:flow", caretPos_, false, true, L"");
}

String EditableDocumentBuffer::getCurrentFlowName() const {
    const int flow = flowAroundCaret();
    return getPropertiesFromElementAt(flow < 0 ? staticContentAround(caretPos_) : flow)
        .getPropertyValue(flowNameAttribute);
}

String EditableDocumentBuffer::getCurrentFlowContent() const {
    const int flow = flowAroundCaret();
    const int first = getNextTagPosition(getNextEditablePositionInXml(flow));
    const int closing = getClosingTagForTagAtPosition(flow);
    if (first < 0 || first >= closing)
        return {};
    const int last = getPreviousTagPosition(closing);
    const int end = XmlScan::tagEnd(text_.view(), last);
    return String(XmlScan::slice(text_.view(), first, end + 1));
}

int EditableDocumentBuffer::getFlowReferenceToCurrentPos() const {
    const int start = getNextEditablePositionInXml(flowAroundCaret());
    return start < 0 ? -1 : caretPos_ - start;
}

bool EditableDocumentBuffer::isInFoStaticContent(int position, const String& flowName) const {
    const int content = staticContentAround(position);
    return content >= 0 &&
           (flowName.empty() ||
            getPropertiesFromElementAt(content).getPropertyValue(flowNameAttribute) == flowName);
}

// Elements around the caret

String EditableDocumentBuffer::getCrtObjectContent(const String& path) const {
    return markupOfElement(objectNamedByPath(path));
}

String EditableDocumentBuffer::getCrtObjectContent(const String& name, bool outermost) const {
    return markupOfElement(searchParent(name, caretPos_, outermost, true, L""));
}

String EditableDocumentBuffer::markupOfElement(int element) const {
    const int end = lastOffsetOfElement(element);
    return end < 0 ? String() : String(XmlScan::slice(text_.view(), element, end + 1));
}

int EditableDocumentBuffer::lastOffsetOfElement(int element) const {
    const int closing = getClosingTagForTagAtPosition(element);
    return closing < 0 ? -1 : XmlScan::tagEnd(text_.view(), closing);
}

String EditableDocumentBuffer::getIdForCurrentPos() const {
    const int element = getCurrentElementPosition(caretPos_);
    return isEditableElementAtPosition(element)
               ? getPropertiesFromElementAt(element).getPropertyValue(identifier)
               : String();
}

bool EditableDocumentBuffer::setIdForCurrentPos(const String& id) {
    const int element = getCurrentElementPosition(caretPos_);
    if (!isEditableElementAtPosition(element))
        return false;
    PropertyCollection properties;
    properties.addProperty({identifier, id}, true);
    changeProperties(element, properties);
    return true;
}

// What the document uses

std::set<String> EditableDocumentBuffer::getUsedComponents() const {
    constexpr const wchar_t* component = L"qfd:subdocument-content";
    std::set<String> sources;
    for (int element = getNextElementByName(component, 1); element >= 0;
         element = getNextElementByName(component, element)) {
        const String source =
            sourceOf(getPropertiesFromElementAt(element).getPropertyValue(L"qfd:src"));
        if (!source.empty())
            sources.insert(source);
    }
    return sources;
}

Core::Vector<PropertyCollection> EditableDocumentBuffer::getMediaObjectParams() const {
    return selectedParameters(L"qf:media-parameter");
}

Core::Vector<PropertyCollection> EditableDocumentBuffer::getComponentParams() const {
    return selectedParameters(L"qfd:subdocument-parameter");
}

Core::Vector<PropertyCollection>
EditableDocumentBuffer::selectedParameters(const String& name) const {
    Core::Vector<PropertyCollection> parameters;
    const int end = selectionUpperEnd();
    // From the unit before, so that one at the very start is met.
    for (int element = getNextElementByName(name, getSelectionStartIndex() - 1);
         element >= 0 && element < end; element = getNextElementByName(name, element))
        parameters.push_back(getPropertiesFromElementAt(element));
    return parameters;
}

std::vector<ElementInfo> EditableDocumentBuffer::getElementsWithIdInfo() const {
    std::vector<ElementInfo> found;
    for (int generator = getNextPageSeq(0); generator >= 0;
         generator = getNextPageSeq(getClosingTagForTagAtPosition(generator)))
        appendElementsWithId(generator, found);
    return found;
}

/// The generator itself may have one.
void EditableDocumentBuffer::appendElementsWithId(int generator,
                                                  std::vector<ElementInfo>& found) const {
    const int end = getClosingTagForTagAtPosition(generator);
    for (int element = generator; element >= 0 && element <= end;
         element = getNextElementPosition(element)) {
        const PropertyCollection properties = getPropertiesFromElementAt(element);
        const String id = properties.getPropertyValue(identifier);
        if (id.empty())
            continue;
        const String name = getNameForTagAtPosition(element, true);
        found.push_back({name, id, isRepeatingElement(name),
                         properties.getPropertyValue(L"qfd:xpath"),
                         properties.getPropertyValue(L"qfd:sort")});
    }
}

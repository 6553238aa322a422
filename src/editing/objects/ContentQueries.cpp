// What stands around the caret, and what the document uses.

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/PageSequences.h"
#include "editing/formatting/Formatting.h"
#include "editing/objects/Objects.h"
#include "text/Markup.h"
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

int flowAroundCaret(const Document& document) {
    return document.text().ancestor(document.caret(), L"fo:flow");
}

Core::Vector<PropertyCollection> selectedParameters(const Document& document, const String& name) {
    Core::Vector<PropertyCollection> parameters;
    const int end = document.selectionEnd();
    // From the unit before, so that one at the very start is met.
    for (int element = document.text().nextNamed(document.selectionStart() - 1, name);
         element >= 0 && element < end; element = document.text().nextNamed(element, name))
        parameters.push_back(Attributes::of(document, element));
    return parameters;
}

/// The generator itself may have one.
void appendElementsWithId(const Document& document, int generator,
                          std::vector<ElementInfo>& found) {
    const XmlText& text = document.text();
    const int end = text.closingTag(generator);
    for (int element = generator; element >= 0 && element <= end;
         element = text.nextElement(element)) {
        const PropertyCollection properties = Attributes::of(document, element);
        const String id = properties.getPropertyValue(identifier);
        if (id.empty())
            continue;
        const String name = text.nameAt(element);
        found.push_back({name, id, Objects::isRepeating(name),
                         properties.getPropertyValue(L"qfd:xpath"),
                         properties.getPropertyValue(L"qfd:sort")});
    }
}

} // namespace

String EditableDocumentBuffer::getCurrentFlowName() const {
    const Document& document = *document_;
    const int flow = flowAroundCaret(document);
    const int region = flow < 0 ? document.text().staticContentAround(document.caret()) : flow;
    return Markup::unescaped(Attributes::of(document, region).getPropertyValue(flowNameAttribute));
}

String EditableDocumentBuffer::getCurrentFlowContent() const {
    const Document& document = *document_;
    const XmlText& text = document.text();
    const int flow = flowAroundCaret(document);
    const int first = text.nextTag(text.next(flow));
    const int closing = text.closingTag(flow);
    if (first < 0 || first >= closing)
        return {};
    const int last = text.previousTag(closing);
    const int end = text.tagEnd(last);
    return String(text.view(first, end + 1));
}

int EditableDocumentBuffer::getFlowReferenceToCurrentPos() const {
    const Document& document = *document_;
    const int start = document.text().next(flowAroundCaret(document));
    return start < 0 ? -1 : document.caret() - start;
}

bool EditableDocumentBuffer::isInFoStaticContent(int position, const String& flowName) const {
    return PageSequences::isInStaticContent(*document_, position, flowName);
}

String EditableDocumentBuffer::getCrtObjectContent(const String& path) const {
    const Document& document = *document_;
    return document.text().markupOf(Objects::namedByPath(document, path));
}

String EditableDocumentBuffer::getCrtObjectContent(const String& name, bool outermost) const {
    const Document& document = *document_;
    const XmlText& text = document.text();
    return text.markupOf(outermost ? text.outermostAncestor(document.caret(), name)
                                   : text.ancestor(document.caret(), name));
}

String EditableDocumentBuffer::getIdForCurrentPos() const {
    const Document& document = *document_;
    const int element = document.text().elementAround(document.caret());
    return document.isEditableAt(element)
               ? Attributes::of(document, element).getPropertyValue(identifier)
               : String();
}

bool EditableDocumentBuffer::setIdForCurrentPos(const String& id) {
    Document& document = *document_;
    const int element = document.text().elementAround(document.caret());
    if (!document.isEditableAt(element))
        return false;
    PropertyCollection properties;
    properties.addProperty({identifier, id}, true);
    return Formatting::change(document, element, properties);
}

std::set<String> EditableDocumentBuffer::getUsedComponents() const {
    const Document& document = *document_;
    static constexpr XmlScan::Text component = L"qfd:subdocument-content";
    std::set<String> sources;
    for (int element = document.text().nextNamed(1, component); element >= 0;
         element = document.text().nextNamed(element, component)) {
        const String source =
            sourceOf(Attributes::of(document, element).getPropertyValue(L"qfd:src"));
        if (!source.empty())
            sources.insert(source);
    }
    return sources;
}

Core::Vector<PropertyCollection> EditableDocumentBuffer::getMediaObjectParams() const {
    const Document& document = *document_;
    return selectedParameters(document, L"qf:media-parameter");
}

Core::Vector<PropertyCollection> EditableDocumentBuffer::getComponentParams() const {
    const Document& document = *document_;
    return selectedParameters(document, L"qfd:subdocument-parameter");
}

std::vector<ElementInfo> EditableDocumentBuffer::getElementsWithIdInfo() const {
    const Document& document = *document_;
    std::vector<ElementInfo> found;
    for (int generator = PageSequences::next(document, 0); generator >= 0;
         generator = PageSequences::next(document, document.text().closingTag(generator)))
        appendElementsWithId(document, generator, found);
    return found;
}

// Attributes of a tag as properties: read, merged, cleared and written back.

#include "document/Attributes.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/Edit.h"
#include "document/EditableDocumentBuffer.h"
#include "document/TextRewrite.h"
#include "document/history/EditActionGroup.h"
#include "text/Markup.h"

#include <algorithm>
#include <array>
#include <optional>

using Core::String;

namespace {

struct Namespace {
    const wchar_t* prefix;
    const wchar_t* declaration;
};

/// What can be declared on the root when a property or markup needs it.
constexpr std::array<Namespace, 4> standardNamespaces{{
    {L"fo", L"xmlns:fo=\"http://www.w3.org/1999/XSL/Format\""},
    {L"xsl", L"xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\""},
    {L"qf", L"xmlns:qf=\"urn:forme:qf/1.0\""},
    {L"qfd", L"xmlns:qfd=\"urn:forme:qfd/1.0\""},
}};

const wchar_t* standardDeclaration(const String& prefix) {
    for (const Namespace& known : standardNamespaces)
        if (prefix == known.prefix)
            return known.declaration;
    return nullptr;
}

/// The part of a tag that its attributes stand in: from behind the name up to but excluding what
/// closes the tag, "/>", "?>" or ">".
struct AttributeRange {
    int start;
    int end;
};

/// Directly behind the name, which in "<>" reaches beyond the tag.
int startOfAttributes(const XmlText& text, int element) {
    return element + 1 + static_cast<int>(text.tagName(element).size());
}

/// None where the markup at `element` bears no attributes: only a start tag and a processing
/// instruction do.
std::optional<AttributeRange> attributeRange(const XmlText& text, int element) {
    if (!text.onTagStart(element) || text.closingAt(element) || text.standsAt(L"<!", element))
        return std::nullopt;
    const int start = startOfAttributes(text, element);
    int end = text.tagEnd(start);
    if (end < 0)
        return std::nullopt;
    const wchar_t before = text.unitAt(end - 1);
    if (before == L'/' || before == L'?')
        --end;
    return AttributeRange{std::min(start, end), end};
}

String prefixOf(const String& elementName) {
    return elementName.substringBefore(L":");
}

} // namespace

PropertyCollection Attributes::of(const Document& document, int element) {
    const XmlText& text = document.text();
    PropertyCollection properties;
    if (!attributeRange(text, element))
        return properties;
    const String prefix = prefixOf(text.nameAt(element));
    for (int at = text.nextAttribute(element + 1); at >= 0; at = text.nextAttribute(at)) {
        PropertyCollection attribute;
        attribute.addProperty({String(text.attributeName(at)), String(text.attributeValue(at))},
                              true);
        attribute.setNamespaceForProperties(prefix);
        properties.addProperties(attribute);
    }
    return properties;
}

int Attributes::merge(Document& document, int element, PropertyCollection properties) {
    if (!attributeRange(document.text(), element))
        return 0;
    CommandScope scope(document);
    document.endTyping();
    EditActionGroup group(document);
    const int shift = declareNamespaces(document, properties, element);
    PropertyCollection merged = of(document, element);
    properties.setNamespaceForProperties(prefixOf(document.text().nameAt(element)));
    merged.addProperties(properties);
    return shift + replace(document, element, merged);
}

int Attributes::declareNamespaces(Document& document, const PropertyCollection& properties,
                                  int& element) {
    int shift = 0;
    for (const EditableProperty& property : properties.getPropertyList()) {
        const String prefix = property.getNamespace();
        if (!isStandardNamespace(prefix) ||
            Namespaces::isDeclaredAt(document.text(), prefix, element))
            continue;
        const int moved = declareStandard(document, prefix);
        if (document.text().root() < element)
            element += moved;
        shift += moved;
    }
    return shift;
}

String Attributes::asText(PropertyCollection properties, const String& elementPrefix) {
    properties.removeNamespaceForPropertiesWith(elementPrefix);
    return properties.isEmpty() ? String() : L" " + properties.getPropertiesString();
}

void Attributes::plan(const Document& document, int element, PropertyCollection properties,
                      TextRewrite& rewrite) {
    PropertyCollection merged = of(document, element);
    properties.setNamespaceForProperties(prefixOf(document.text().nameAt(element)));
    merged.addProperties(properties);
    planReplacement(document, element, merged, rewrite);
}

void Attributes::planReplacement(const Document& document, int element,
                                 const PropertyCollection& properties, TextRewrite& rewrite) {
    const auto attributes = attributeRange(document.text(), element);
    const String prefix = prefixOf(document.text().nameAt(element));
    if (attributes)
        rewrite.replace(attributes->start, attributes->end, asText(properties, prefix));
}

bool Attributes::isStandardNamespace(const String& prefix) {
    return standardDeclaration(prefix) != nullptr;
}

int Attributes::endOf(const XmlText& text, int element) {
    const auto attributes = attributeRange(text, element);
    int end = attributes ? attributes->end : -1;
    while (attributes && end > attributes->start && String::isSpace(text.unitAt(end - 1)))
        --end;
    return end;
}

bool Attributes::addDeclaration(Document& document, const String& prefix) {
    const int end = endOf(document.text(), document.text().root());
    if (end >= 0)
        Edit(document).insert(end, L" " + String(standardDeclaration(prefix)));
    return end >= 0;
}

int Attributes::declareStandard(Document& document, const String& prefix) {
    return declareOnRoot(document, standardDeclaration(prefix));
}

int Attributes::replace(Document& document, int element, const PropertyCollection& properties) {
    const auto attributes = attributeRange(document.text(), element);
    if (!attributes)
        return 0;
    CommandScope scope(document);
    document.endTyping();
    EditActionGroup group(document);
    const String removed = clear(document, element);
    const String text = asText(properties, prefixOf(document.text().nameAt(element)));
    document.insertUnrecorded(attributes->start, text);
    document.recordInsertion(attributes->start, text);
    document.recordCaret();
    return text.length() - removed.length();
}

String Attributes::clear(Document& document, int element) {
    const auto attributes = attributeRange(document.text(), element);
    if (!attributes)
        return {};
    CommandScope scope(document);
    document.endTyping();
    EditActionGroup group(document);
    document.recordCaret();
    String removed = document.removeUnrecorded(attributes->start, attributes->end - 1);
    if (removed.empty())
        return {};
    document.recordDeletion(attributes->start, removed);
    document.recordCaret();
    return removed;
}

PropertyCollection EditableDocumentBuffer::getPropertiesFromElementAt(int element) const {
    return Attributes::of(*document_, element);
}

int EditableDocumentBuffer::setPropertiesForElementAt(int element, PropertyCollection properties) {
    return Attributes::merge(*document_, element, properties);
}

String EditableDocumentBuffer::clearPropertiesForElementAt(int element) {
    return Attributes::clear(*document_, element);
}

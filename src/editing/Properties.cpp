// Attributes of a tag as properties: read, merged, cleared and written back.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "document/EditActionGroup.h"
#include "document/TextRewrite.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <array>
#include <set>

using Core::String;
using XmlScan::Text;

namespace {

struct Namespace {
    const wchar_t* prefix;
    const wchar_t* declaration;
};

/// What can be declared on the root when a property needs it.
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

AttributeRange attributeRange(Text text, int element) {
    const int start = element + 1 + static_cast<int>(XmlScan::tagName(text, element).size());
    int end = XmlScan::tagEnd(text, start);
    const wchar_t before = XmlScan::unitAt(text, end - 1);
    if (before == L'/' || before == L'?')
        --end;
    return {std::min(start, end), end};
}

/// Whether the markup at `element` can bear attributes: a start tag or a processing instruction.
bool bearsAttributes(Text text, int element) {
    return XmlScan::onTagStart(text, element) && !XmlScan::closingAt(text, element) &&
           !XmlScan::standsAt(text, L"<!", element) && XmlScan::tagEnd(text, element) >= 0;
}

String prefixOf(const String& elementName) {
    return elementName.substringBefore(L":");
}

} // namespace

PropertyCollection EditableDocumentBuffer::getPropertiesFromElementAt(int element) const {
    PropertyCollection properties;
    if (!bearsAttributes(text_.view(), element))
        return properties;
    const String prefix = prefixOf(getNameForTagAtPosition(element, true));
    for (int at = getNextAttributePosition(element + 1); at >= 0;
         at = getNextAttributePosition(at)) {
        PropertyCollection attribute;
        attribute.addProperty({getNameForAttributeAt(at), getValueForAttributeAt(at)}, true);
        attribute.setNamespaceForProperties(prefix);
        properties.addProperties(attribute);
    }
    return properties;
}

int EditableDocumentBuffer::setPropertiesForElementAt(int element, PropertyCollection properties) {
    if (!bearsAttributes(text_.view(), element))
        return 0;
    CommandScope scope(this);
    endKeyTypingSequence();
    EditActionGroup group(this);
    const int shift = declareNamespaces(properties, element);
    PropertyCollection merged = getPropertiesFromElementAt(element);
    properties.setNamespaceForProperties(prefixOf(getNameForTagAtPosition(element, true)));
    merged.addProperties(properties);
    return shift + replaceProperties(element, merged);
}

bool EditableDocumentBuffer::isNamespaceDeclaredAt(const String& prefix, int element) const {
    std::set<String> declared = getNamespacesFromElementAt(element);
    declared.merge(getNamespacesFromAllContainers(element));
    return std::any_of(declared.begin(), declared.end(), [&](const String& declaration) {
        return declaration.startsWith(L"xmlns:" + prefix + L"=");
    });
}

/// Declares on the root what the properties need; moves `element` along and answers by how much.
int EditableDocumentBuffer::declareNamespaces(const PropertyCollection& properties, int& element) {
    int shift = 0;
    for (const EditableProperty& property : properties.getPropertyList()) {
        const String prefix = property.getNamespace();
        const wchar_t* const declaration = standardDeclaration(prefix);
        if (!declaration || isNamespaceDeclaredAt(prefix, element))
            continue;
        const int moved = updateRootNamespaces(declaration);
        if (getRootElementPos() < element)
            element += moved;
        shift += moved;
    }
    return shift;
}

/// The properties as attributes of an element with that prefix, a blank first.
String EditableDocumentBuffer::attributesText(PropertyCollection properties,
                                              const String& elementPrefix) {
    properties.removeNamespaceForPropertiesWith(elementPrefix);
    return properties.isEmpty() ? String() : L" " + properties.getPropertiesString();
}

/// Leaves it to the rewrite to give the tag the properties, whose namespaces are declared.
void EditableDocumentBuffer::planProperties(int element, PropertyCollection properties,
                                            TextRewrite& rewrite) const {
    const String prefix = prefixOf(getNameForTagAtPosition(element, true));
    PropertyCollection merged = getPropertiesFromElementAt(element);
    properties.setNamespaceForProperties(prefix);
    merged.addProperties(properties);
    const AttributeRange attributes = attributeRange(text_.view(), element);
    rewrite.replace(attributes.start, attributes.end, attributesText(merged, prefix));
}

bool EditableDocumentBuffer::isStandardNamespace(const String& prefix) {
    return standardDeclaration(prefix) != nullptr;
}

/// Gives the tag exactly these attributes. One undo step.
int EditableDocumentBuffer::replaceProperties(int element, const PropertyCollection& properties) {
    CommandScope scope(this);
    endKeyTypingSequence();
    EditActionGroup group(this);
    const String removed = clearPropertiesForElementAt(element);
    const String text =
        attributesText(properties, prefixOf(getNameForTagAtPosition(element, true)));
    const int position = attributeRange(text_.view(), element).start;
    insertXmlTextAtPosition(position, text);
    recordInsertion(position, text);
    recordCaret();
    return text.length() - removed.length();
}

String EditableDocumentBuffer::clearPropertiesForElementAt(int element) {
    if (!bearsAttributes(text_.view(), element))
        return {};
    CommandScope scope(this);
    endKeyTypingSequence();
    EditActionGroup group(this);
    recordCaret();
    const AttributeRange attributes = attributeRange(text_.view(), element);
    String removed = deleteXmlText(attributes.start, attributes.end - 1);
    if (removed.empty())
        return {};
    recordDeletion(attributes.start, removed);
    recordCaret();
    return removed;
}

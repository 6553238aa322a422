#include "templates/AttributeEntries.h"

#include "foundation/xml/Element.h"
#include "templates/TemplateElements.h"
#include "trees/Elements.h"

using Core::String;
using Core::Vector;
using Xml::Element;

namespace {

constexpr const wchar_t* entryName = L"attribute-value";

/// A text of an entry, and the attribute that holds it.
struct Field {
    const wchar_t* attribute;
    String (QFDAttribute::*get)() const;
    void (QFDAttribute::*set)(const String&);
    bool isAlwaysWritten;
};

constexpr Field fields[] = {
    {L"object", &QFDAttribute::getObjectID, &QFDAttribute::setObjectID, true},
    {L"attribute", &QFDAttribute::getAttributeName, &QFDAttribute::setAttributeName, true},
    {L"condition", &QFDAttribute::getCondition, &QFDAttribute::setCondition, false},
    {L"value", &QFDAttribute::getValue, &QFDAttribute::setValue, false},
    {L"dynamic-value", &QFDAttribute::getDynamicValue, &QFDAttribute::setDynamicValue, false}};

void requireText(const QFDAttribute& entry) {
    for (const Field& field : fields)
        TemplateElements::requireText({(entry.*field.get)()});
}

} // namespace

QFDAttribute AttributeEntries::read(const Element& element) {
    QFDAttribute entry;
    for (const Field& field : fields)
        (entry.*field.set)(TemplateElements::valueOf(element, field.attribute));
    return entry;
}

QFDAttributeCollection AttributeEntries::of(const Element& root) {
    Vector<QFDAttribute> entries;
    for (const Element* element : Elements::childrenOf(root, entryName))
        entries.push_back(read(*element));
    QFDAttributeCollection collection;
    collection.addAttributes(entries);
    return collection;
}

void AttributeEntries::append(Element& root, const QFDAttribute& entry) {
    if (entry.getObjectID().empty())
        return;
    requireText(entry);
    Element& element = TemplateElements::append(root, entryName);
    for (const Field& field : fields)
        if (const String value = (entry.*field.get)(); field.isAlwaysWritten || !value.empty())
            element.set_attribute(field.attribute, value);
}

void AttributeEntries::override(Element& root, const QFDAttributeCollection& entries) {
    const Vector<QFDAttribute> list = entries.getAttributeList();
    for (const QFDAttribute& entry : list)
        requireText(entry);
    TemplateElements::removeAll(root, entryName);
    for (const QFDAttribute& entry : list)
        append(root, entry);
}

bool AttributeEntries::changeId(Element& root, const String& from, const String& to) {
    QFDAttributeCollection entries = of(root);
    Vector<QFDAttribute> list = entries.getAttributeList();
    bool isChanged = false;
    for (QFDAttribute& entry : list)
        if (entry.getObjectID() == from) {
            entry.setObjectID(to);
            isChanged = true;
        }
    if (!isChanged)
        return false;
    entries.setAttributes(list);
    override(root, entries);
    return true;
}

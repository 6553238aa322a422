#include "templates/AttributeEntries.h"

#include "foundation/xml/Element.h"
#include "templates/TemplateElements.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>

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

using Texts = std::array<String, std::size(fields)>;

Texts textsOf(const QFDAttribute& entry) {
    Texts texts;
    std::transform(std::begin(fields), std::end(fields), texts.begin(),
                   [&](const Field& field) { return (entry.*field.get)(); });
    return texts;
}

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

std::vector<Element*> AttributeEntries::elementsOf(const Element& root) {
    return TemplateElements::childrenOf(root, entryName);
}

QFDAttributeCollection AttributeEntries::of(const Element& root) {
    QFDAttributeCollection collection;
    for (const Element* element : elementsOf(root))
        collection.addAttribute(read(*element));
    return collection;
}

void AttributeEntries::write(Element& element, const QFDAttribute& entry) {
    requireText(entry);
    for (const Field& field : fields)
        if (const String value = (entry.*field.get)(); field.isAlwaysWritten || !value.empty())
            element.set_attribute(field.attribute, value);
        else
            element.remove_attribute(field.attribute);
}

Element& AttributeEntries::append(Element& root, const QFDAttribute& entry) {
    requireText(entry);
    Element& element = TemplateElements::append(root, entryName);
    write(element, entry);
    return element;
}

// An entry that stays takes all that its element says besides along.
void AttributeEntries::override(Element& root, const QFDAttributeCollection& entries) {
    const Vector<QFDAttribute> list = entries.getAttributeList();
    for (const QFDAttribute& entry : list)
        requireText(entry);
    std::multimap<Texts, Element*> old;
    for (Element* element : elementsOf(root))
        old.emplace(textsOf(read(*element)), element);
    for (const QFDAttribute& entry : list) {
        if (entry.getObjectID().empty())
            continue;
        if (const auto kept = old.extract(textsOf(entry))) {
            root.import_node(kept.mapped(), true);
            root.remove_child(kept.mapped());
        } else {
            append(root, entry);
        }
    }
    for (const auto& [texts, element] : old)
        root.remove_child(element);
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

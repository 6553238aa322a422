#include "pages/ComplexMasters.h"

#include "document/Attributes.h"
#include "foundation/Exception.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "trees/Elements.h"

#include <algorithm>
#include <iterator>

using Core::String;
using Xml::Element;

namespace {

const String singleName = L"single-page-master-reference";
const String repeatingName = L"repeatable-page-master-reference";
const String conditionalName = L"conditional-page-master-reference";
const String alternativesName = L"repeatable-page-master-alternatives";
const String referenceName = L"master-reference";
const String repeatsName = L"maximum-repeats";

Element& addReference(Element& parent, const String& kind, const String& reference) {
    Xml::requireXmlText(reference);
    Element& added = *parent.add_child(kind, L"fo");
    added.set_attribute(referenceName, reference);
    return added;
}

Element& alternativesOf(Element& master) {
    const std::vector<Element*> alternatives = Elements::childrenOf(master, alternativesName);
    if (!alternatives.empty())
        return *alternatives.front();
    Element& made = *master.add_child(alternativesName, L"fo");
    made.set_attribute(repeatsName, L"no-limit");
    return made;
}

/// The references in their order, those among alternatives in the place of these.
std::vector<Element*> referencesOf(const Element& master) {
    std::vector<Element*> found;
    for (Element* child : Elements::childrenOf(master))
        if (child->get_name() == alternativesName)
            for (Element* alternative : Elements::childrenOf(*child, conditionalName))
                found.push_back(alternative);
        else if (child->get_name() == repeatingName || child->get_name() == singleName)
            found.push_back(child);
    return found;
}

bool isReference(const Element* element) {
    const String name = element->get_name();
    return name == singleName || name == repeatingName || name == conditionalName;
}

/// The same, with references of any kind in either place.
std::vector<Element*> allReferencesOf(const Element& master) {
    std::vector<Element*> found;
    for (Element* child : Elements::childrenOf(master)) {
        const std::vector<Element*> group = child->get_name() == alternativesName
                                                ? Elements::childrenOf(*child)
                                                : std::vector<Element*>{child};
        std::copy_if(group.begin(), group.end(), std::back_inserter(found), isReference);
    }
    return found;
}

/// With its prefix, unless that is the element's own.
String nameOf(const Xml::Attribute& attribute, const Element& element) {
    const String prefix = attribute.get_namespace_prefix();
    return prefix.empty() || prefix == element.getNSPrefix() ? attribute.get_name()
                                                             : prefix + L":" + attribute.get_name();
}

/// The condition is what else stands beside the reference; of several the last.
void readCondition(const Element& element, ComplexPageMasterEntry& entry) {
    for (const Xml::Attribute* attribute : element.get_attributes())
        if (attribute->get_name() != referenceName) {
            entry.attributeName = nameOf(*attribute, element);
            entry.attributeValue = attribute->get_value();
        }
}

void addMasters(const Element& element, std::vector<String>& masters) {
    for (const Element* child : Elements::childrenOf(element)) {
        if (const Xml::Attribute* reference = child->get_attribute(referenceName))
            masters.push_back(reference->get_value());
        addMasters(*child, masters);
    }
}

bool declares(const Element& set, const String& prefix) {
    return prefix.empty() || prefix == L"xml" || Attributes::isStandardNamespace(prefix) ||
           set.get_namespace_defs().contains(prefix);
}

void checkCondition(const String& name, const Element& set) {
    if (name.empty())
        return;
    const Xml::QualifiedName checked = Xml::QualifiedName::checked(name, String());
    if (checked.prefix == L"xmlns" || name == L"xmlns")
        throw Core::Exception(L"\"" + name + L"\" declares a namespace and is no condition");
    if (!declares(set, checked.prefix))
        throw Core::Exception(L"the prefix of \"" + name + L"\" is not declared");
}

} // namespace

void ComplexMasters::check(const String& name, const Core::Vector<ReferenceInfo>& references,
                           const Element& set) {
    Xml::requireXmlText(name);
    for (const ReferenceInfo& reference : references) {
        for (const String& text :
             {reference.masterName, reference.getMaximumRepeat(), reference.getConditionValue()})
            Xml::requireXmlText(text);
        if (reference.kind == ReferenceInfo::conditional)
            checkCondition(reference.getCondition(), set);
    }
}

void ComplexMasters::addSingle(Element& master, const String& reference) {
    addReference(master, singleName, reference);
}

void ComplexMasters::addRepeating(Element& master, const String& reference,
                                  const String& maximumRepeats) {
    Xml::requireXmlText(maximumRepeats);
    addReference(master, repeatingName, reference).set_attribute(repeatsName, maximumRepeats);
}

void ComplexMasters::addConditional(Element& master, const String& reference,
                                    const String& condition, const String& value) {
    checkCondition(condition, *master.get_parent());
    Xml::requireXmlText(reference);
    Xml::requireXmlText(value);
    Element& added = addReference(alternativesOf(master), conditionalName, reference);
    if (!condition.empty())
        added.set_attribute(condition, value);
}

void ComplexMasters::add(Element& master, const ReferenceInfo& reference) {
    switch (reference.kind) {
    case ReferenceInfo::single:
        return addSingle(master, reference.masterName);
    case ReferenceInfo::repeating:
        return addRepeating(master, reference.masterName, reference.getMaximumRepeat());
    case ReferenceInfo::conditional:
        return addConditional(master, reference.masterName, reference.getCondition(),
                              reference.getConditionValue());
    default:
        return;
    }
}

std::vector<String> ComplexMasters::mastersOf(const Element& master) {
    std::vector<String> masters;
    addMasters(master, masters);
    return masters;
}

bool ComplexMasters::refersTo(const Element& master, const String& simpleMaster) {
    const std::vector<String> masters = mastersOf(master);
    return !simpleMaster.empty() &&
           std::find(masters.begin(), masters.end(), simpleMaster) != masters.end();
}

void ComplexMasters::changeReferences(Element& master, const String& from, const String& to) {
    for (const Element* reference : referencesOf(master))
        if (Xml::Attribute* attribute = reference->get_attribute(referenceName);
            attribute && !from.empty() && attribute->get_value() == from)
            attribute->set_value(to);
}

Core::Vector<ComplexPageMasterEntry> ComplexMasters::entriesOf(const Element& master) {
    Core::Vector<ComplexPageMasterEntry> entries;
    for (const Element* reference : allReferencesOf(master)) {
        ComplexPageMasterEntry& entry = entries.emplace_back();
        entry.elementName = reference->get_name();
        entry.masterName = Elements::valueOf(*reference, referenceName);
        if (entry.elementName == conditionalName)
            readCondition(*reference, entry);
        else if (entry.elementName == repeatingName)
            entry.attributeName = Elements::valueOf(*reference, repeatsName);
    }
    return entries;
}

#include "pages/ComplexMasters.h"

#include "foundation/Exception.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "trees/DOMBasedBuffer.h"
#include "trees/Elements.h"

#include <algorithm>

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

String valueOf(const Element& element, const String& name) {
    return DOMBasedBuffer::getAttributeValue(&element, name, String());
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

/// The condition is what else stands beside the reference; of several the last.
void readCondition(const Element& element, ComplexPageMasterEntry& entry) {
    for (const Xml::Attribute* attribute : element.get_attributes())
        if (attribute->get_name() != referenceName) {
            entry.attributeName = attribute->get_name();
            entry.attributeValue = attribute->get_value();
        }
}

void checkCondition(const String& name) {
    if (name.empty())
        return;
    const Xml::QualifiedName checked = Xml::QualifiedName::checked(name, String());
    if (checked.prefix == L"xmlns" || name == L"xmlns")
        throw Core::Exception(L"\"" + name + L"\" declares a namespace and is no condition");
}

} // namespace

void ComplexMasters::check(const Core::Vector<ReferenceInfo>& references) {
    for (const ReferenceInfo& reference : references)
        if (reference.kind == ReferenceInfo::conditional)
            checkCondition(reference.getCondition());
}

void ComplexMasters::addSingle(Element& master, const String& reference) {
    addReference(master, singleName, reference);
}

void ComplexMasters::addRepeating(Element& master, const String& reference,
                                  const String& maximumRepeats) {
    addReference(master, repeatingName, reference).set_attribute(repeatsName, maximumRepeats);
}

void ComplexMasters::addConditional(Element& master, const String& reference,
                                    const String& condition, const String& value) {
    checkCondition(condition);
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
    for (const Element* reference : referencesOf(master))
        masters.push_back(valueOf(*reference, referenceName));
    return masters;
}

bool ComplexMasters::refersTo(const Element& master, const String& simpleMaster) {
    const std::vector<String> masters = mastersOf(master);
    return !simpleMaster.empty() &&
           std::find(masters.begin(), masters.end(), simpleMaster) != masters.end();
}

void ComplexMasters::changeReferences(Element& master, const String& from, const String& to) {
    for (Element* reference : referencesOf(master))
        if (!from.empty() && valueOf(*reference, referenceName) == from)
            reference->set_attribute(referenceName, to);
}

Core::Vector<ComplexPageMasterEntry> ComplexMasters::entriesOf(const Element& master) {
    Core::Vector<ComplexPageMasterEntry> entries;
    for (const Element* reference : referencesOf(master)) {
        ComplexPageMasterEntry& entry = entries.emplace_back();
        entry.elementName = reference->get_name();
        entry.masterName = valueOf(*reference, referenceName);
        if (entry.elementName == conditionalName)
            readCondition(*reference, entry);
        else if (entry.elementName == repeatingName)
            entry.attributeName = valueOf(*reference, repeatsName);
    }
    return entries;
}

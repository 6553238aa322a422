#include "pages/Masters.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "trees/DOMBasedBuffer.h"
#include "trees/Elements.h"

#include <algorithm>
#include <iterator>

using Core::String;
using Xml::Element;

namespace {

const String masterName = L"master-name";
const String simpleName = L"simple-page-master";
const String complexName = L"page-sequence-master";

Element* add(Element& set, const String& kind, const String& name) {
    Xml::requireXmlText(name);
    Element* master = set.add_child(kind, L"fo");
    Masters::setName(*master, name);
    return master;
}

const Element* setOf(const Element& root) {
    return DOMBasedBuffer::getElementByName(&root, L"layout-master-set");
}

std::vector<Element*> childrenOf(const Element* set, const String& kind) {
    return set ? Elements::childrenOf(*set, kind) : std::vector<Element*>();
}

} // namespace

std::vector<Element*> Masters::simpleOf(const Element& set) {
    return Elements::childrenOf(set, simpleName);
}

std::vector<Element*> Masters::complexOf(const Element& set) {
    return Elements::childrenOf(set, complexName);
}

std::vector<Element*> Masters::simpleIn(const Element& root) {
    return childrenOf(setOf(root), simpleName);
}

std::vector<Element*> Masters::complexIn(const Element& root) {
    return childrenOf(setOf(root), complexName);
}

Element* Masters::addSimple(Element& set, const String& name) {
    Element* master = add(set, simpleName, name);
    master->set_attribute(L"page-height", L"11in");
    master->set_attribute(L"page-width", L"8.5in");
    return master;
}

Element* Masters::addComplex(Element& set, const String& name) {
    return add(set, complexName, name);
}

void Masters::setName(Element& master, const String& name) {
    master.set_attribute(masterName, name);
}

String Masters::nameOf(const Element& master) {
    return DOMBasedBuffer::getAttributeValue(&master, masterName, String());
}

std::vector<String> Masters::namesOf(const std::vector<Element*>& masters) {
    std::vector<String> names;
    std::transform(masters.begin(), masters.end(), std::back_inserter(names),
                   [](const Element* master) { return nameOf(*master); });
    return names;
}

Element* Masters::named(const std::vector<Element*>& masters, const String& name) {
    const auto found = std::find_if(masters.begin(), masters.end(), [&](const Element* master) {
        return !name.empty() && nameOf(*master) == name;
    });
    return found == masters.end() ? nullptr : *found;
}

Element* Masters::findSimple(const Element& set, const String& name) {
    return named(simpleOf(set), name);
}

Element* Masters::findComplex(const Element& set, const String& name) {
    return named(complexOf(set), name);
}

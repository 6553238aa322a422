#include "pages/PageMasters.h"

#include "foundation/xml/Element.h"
#include "trees/DOMBasedBuffer.h"
#include "trees/Elements.h"

#include <algorithm>

using Core::String;
using Xml::Element;

namespace {

String nameOf(const Element& master) {
    return DOMBasedBuffer::getAttributeValue(&master, L"master-name", L"");
}

bool isReference(const Element& element) {
    const String name = element.get_name();
    return name == L"single-page-master-reference" || name == L"repeatable-page-master-reference" ||
           name == L"conditional-page-master-reference";
}

} // namespace

std::vector<Element*> PageMasters::of(const Element& root, const String& kind) {
    const Element* set = DOMBasedBuffer::getElementByName(&root, L"layout-master-set");
    return set ? Elements::childrenOf(*set, kind) : std::vector<Element*>();
}

Element* PageMasters::named(const std::vector<Element*>& masters, const String& name) {
    const auto found = std::find_if(masters.begin(), masters.end(),
                                    [&](const Element* master) { return nameOf(*master) == name; });
    return name.empty() || found == masters.end() ? nullptr : *found;
}

std::vector<String> PageMasters::namesOf(const std::vector<Element*>& masters) {
    std::vector<String> names(masters.size());
    std::transform(masters.begin(), masters.end(), names.begin(),
                   [](const Element* master) { return nameOf(*master); });
    return names;
}

std::vector<String> PageMasters::referencesOf(const Element& complexMaster) {
    std::vector<String> references;
    for (const Element* child : Elements::childrenOf(complexMaster)) {
        if (child->get_name() == L"repeatable-page-master-alternatives") {
            const std::vector<String> alternatives = referencesOf(*child);
            references.insert(references.end(), alternatives.begin(), alternatives.end());
        } else if (isReference(*child)) {
            references.push_back(
                DOMBasedBuffer::getAttributeValue(child, L"master-reference", L""));
        }
    }
    return references;
}

bool PageMasters::refersTo(const Element& root, const String& complexName, const String& simple) {
    const Element* complex = named(of(root, complexMaster), complexName);
    const std::vector<String> references = complex ? referencesOf(*complex) : std::vector<String>();
    return !simple.empty() &&
           std::find(references.begin(), references.end(), simple) != references.end();
}

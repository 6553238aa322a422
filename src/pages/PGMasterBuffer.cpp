#include "pages/PGMasterBuffer.h"

#include "foundation/xml/XmlDocument.h"
#include "pages/ComplexMasters.h"
#include "pages/HiddenRegions.h"
#include "pages/Masters.h"
#include "pages/PaginationNodes.h"
#include "pages/Regions.h"
#include "pages/SequenceAttributes.h"
#include "pages/StaticContents.h"
#include "trees/Elements.h"
#include "trees/Fragment.h"

#include <algorithm>

using Core::String;
using Xml::Element;
using Xml::Node;

namespace {

template <typename Element>
Element* at(const std::vector<Element*>& elements, int index) {
    const auto position = static_cast<std::size_t>(index);
    return index < 0 || position >= elements.size() ? nullptr : elements[position];
}

/// The master of that name, or for the empty name all.
std::vector<Element*> simpleMastersNamed(const Element& root, const String& name) {
    std::vector<Element*> masters = Masters::simpleIn(root);
    if (!name.empty()) {
        const Element* first = Masters::named(masters, name);
        std::erase_if(masters, [&](const Element* master) { return master != first; });
    }
    return masters;
}

bool isNamed(const Element& element, const wchar_t* attribute, const String& name) {
    return DOMBasedBuffer::getAttributeValue(&element, attribute, L"") == name;
}

} // namespace

PGMasterBuffer::PGMasterBuffer(const String& text) : hidden_(std::make_shared<HiddenRegions>()) {
    fragment().readText(text);
    DOMBasedBuffer::expandShorthands();
}

void PGMasterBuffer::commitChangesToEditableBuffer() {
    collapseShorthands(true);
}

void PGMasterBuffer::commitChangesToEditableBuffer(String& text) {
    text =
        Xml::XmlDocument::getXmlDeclaration(L"UTF-8") + fragment().tree()->writeToString(L"UTF-8");
}

std::list<Node*> PGMasterBuffer::getPaginationNodes() const {
    return PaginationNodes::of(*fragment().root());
}

Element* PGMasterBuffer::getPageSequenceByIdx(int index) const {
    return PaginationNodes::at(*fragment().root(), index);
}

// Page masters

int PGMasterBuffer::getSimplePageMasterCount() const {
    return static_cast<int>(Masters::simpleIn(*fragment().root()).size());
}

String PGMasterBuffer::getSimplePageMasterName(int index) const {
    return getAttributeValue(at(Masters::simpleIn(*fragment().root()), index), L"master-name", L"");
}

Element* PGMasterBuffer::getSimplePageMasterElement(const String& name) const {
    return Masters::named(Masters::simpleIn(*fragment().root()), name);
}

Element* PGMasterBuffer::getComplexPageMasterByName(const String& name) const {
    return Masters::named(Masters::complexIn(*fragment().root()), name);
}

std::vector<String> PGMasterBuffer::getAllSimplePageMasters() const {
    return Masters::namesOf(Masters::simpleIn(*fragment().root()));
}

std::vector<String> PGMasterBuffer::getAllComplexPageMasters() const {
    return Masters::namesOf(Masters::complexIn(*fragment().root()));
}

Element* PGMasterBuffer::getSimplePageMasterByName(const String& name) const {
    return Masters::findSimple(*fragment().root(), name);
}

void PGMasterBuffer::renameSimplePageMaster(const String& oldName, const String& newName) {
    Element* master = getSimplePageMasterByName(oldName);
    const auto hasName = [&](const Element* child) {
        return isNamed(*child, L"master-name", newName);
    };
    const std::vector<Element*> others = Elements::childrenOf(*fragment().root());
    if (master && !newName.empty() && std::none_of(others.begin(), others.end(), hasName))
        master->set_attribute(L"master-name", newName);
}

void PGMasterBuffer::getComplexPageMasterEntries(const String& name,
                                                 std::vector<String>& references) const {
    const Element* master = getComplexPageMasterByName(name);
    const std::vector<String> own =
        master ? ComplexMasters::mastersOf(*master) : std::vector<String>();
    references.insert(references.end(), own.begin(), own.end());
}

bool PGMasterBuffer::simplePMUsedInComplexPageMaster(const String& simple,
                                                     const String& complexName) const {
    const Element* master = getComplexPageMasterByName(complexName);
    return master && ComplexMasters::refersTo(*master, simple);
}

// Regions

Element* PGMasterBuffer::getRegionByNameFromSimplePageMaster(const Element* master,
                                                             const String& region) const {
    if (!master)
        return nullptr;
    return region.empty() ? Regions::firstUnnamed(*master) : Regions::find(*master, region);
}

bool PGMasterBuffer::isRegionVisible(const String& master, const String& region) const {
    const Element* element = getSimplePageMasterElement(master);
    return element && Regions::find(*element, region);
}

void PGMasterBuffer::setVisibleRegion(const String& master, const String& region, bool visible) {
    Element* element = getSimplePageMasterElement(master);
    if (!element)
        return;
    if (visible)
        hidden_->show(*element, region);
    else
        hidden_->hide(*element, region);
}

void PGMasterBuffer::setNameForRegion(const String& master, const String& oldName,
                                      const String& newName) {
    const Element* element = getSimplePageMasterElement(master);
    Element* region = element ? Regions::find(*element, oldName) : nullptr;
    if (region && !newName.empty())
        region->set_attribute(L"region-name", newName);
}

void PGMasterBuffer::getSimplePageMasterRegionList(std::map<String, String>& regions,
                                                   const String& master) const {
    for (const Element* element : simpleMastersNamed(*fragment().root(), master))
        for (const Element* region : Regions::of(*element))
            regions[region->get_name()] = Regions::flowNameOf(*region);
}

void PGMasterBuffer::getSimplePageMasterRegionList(std::vector<String>& regions,
                                                   const String& master) const {
    for (const Element* element : simpleMastersNamed(*fragment().root(), master))
        for (const Element* region : Regions::of(*element))
            regions.push_back(Regions::flowNameOf(*region));
}

void PGMasterBuffer::getSimplePageMasterRegionAttributeMap(const String&,
                                                           std::map<String, String>& regions,
                                                           const String& master) const {
    getSimplePageMasterRegionList(regions, master);
}

// Static contents

std::list<Node*> PGMasterBuffer::getStaticContentsNodes() const {
    const std::vector<Element*> found = StaticContents::of(*fragment().root());
    return {found.begin(), found.end()};
}

Element* PGMasterBuffer::getStaticContentElementByIdx(int index) const {
    return at(StaticContents::of(*fragment().root()), index);
}

String PGMasterBuffer::getFlowNameForStaticContent(int index) const {
    const Element* found = getStaticContentElementByIdx(index);
    return found ? StaticContents::flowNameOf(*found) : String();
}

String PGMasterBuffer::getPageSeqRefNameForStaticContent(int index) const {
    const Element* found = getStaticContentElementByIdx(index);
    return found ? StaticContents::masterOf(*found) : String();
}

Element* PGMasterBuffer::getStaticContentElement(const String& flowName) const {
    return StaticContents::named(*fragment().root(), flowName);
}

void PGMasterBuffer::setNameForStaticContent(const String& newName, const String& oldName) {
    if (const Element* found = getStaticContentElement(oldName))
        SequenceAttributes::renameFlow(*found->get_parent(), oldName, newName);
}

void PGMasterBuffer::addNewStaticContent(const String& flowName, const String&, int sequenceIndex,
                                         bool blank) {
    Element* sequence = getPageSequenceByIdx(sequenceIndex);
    if (sequence && PaginationNodes::hasFlows(*sequence) && !flowName.empty())
        StaticContents::add(*sequence, flowName,
                            blank ? String(L'\xA0', 1) : String(String::loadString(19602)));
}

void PGMasterBuffer::getDocumentStaticContentList(std::vector<String>& flows,
                                                  const String& master) const {
    for (const Element* found : StaticContents::of(*fragment().root())) {
        const String name = StaticContents::flowNameOf(*found);
        const bool counts = master.empty() || StaticContents::masterOf(*found) == master;
        if (counts && !stringArrayContains(flows, name))
            flows.push_back(name);
    }
}

// What helps

bool PGMasterBuffer::stringArrayContains(const std::vector<String>& array, const String& text) {
    return std::find(array.begin(), array.end(), text) != array.end();
}

void PGMasterBuffer::parseAttributes(const String& ignored) const {
    walkDomTree(fragment().root(), ignored);
}

void PGMasterBuffer::walkDomTree(const Node* node, const String& ignored) const {
    if (!node || !node->is_element())
        return;
    getElementProperties(static_cast<const Element*>(node));
    for (const Node* child : node->get_children())
        walkDomTree(child, ignored);
}

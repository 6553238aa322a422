#include "pages/LayoutMasterSetBuffer.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/PageSequences.h"
#include "foundation/Format.h"
#include "foundation/values/BoxShadow.h"
#include "foundation/xml/Element.h"
#include "pages/ComplexMasters.h"
#include "pages/MasterSet.h"
#include "pages/Masters.h"
#include "pages/PageLayout.h"
#include "pages/PrintingOptions.h"
#include "pages/RegionAttributes.h"
#include "pages/RegionLayout.h"
#include "pages/Regions.h"
#include "trees/Elements.h"
#include "trees/Fragment.h"

#include <array>
#include <set>

using Core::String;
using Xml::Element;

namespace {

/// The region that the two names stand for; null without one.
Element* regionOf(const Element& set, const String& master, const String& region) {
    const Element* page = Masters::findSimple(set, master);
    return page ? Regions::find(*page, region) : nullptr;
}

String valueOf(const Element* element, const String& attribute) {
    return element ? RegionAttributes::get(*element, attribute) : String();
}

void setValue(Element* element, const String& attribute, const String& value) {
    if (element)
        RegionAttributes::set(*element, attribute, value);
}

void getSides(const Element* element, const RegionAttributes::Sides& names, String& left,
              String& right, String& top, String& bottom) {
    if (!element)
        return;
    const RegionAttributes::SideValues values = RegionAttributes::get(*element, names);
    left = values.left;
    right = values.right;
    top = values.top;
    bottom = values.bottom;
}

void setSides(Element* element, const RegionAttributes::Sides& names,
              const RegionAttributes::SideValues& values) {
    if (element)
        RegionAttributes::set(*element, names, values);
}

bool hasName(const Element& set, const String& name) {
    return Masters::findSimple(set, name) || Masters::findComplex(set, name);
}

/// The text, or the one that stands for it where it is empty.
String orElse(const String& text, const wchar_t* otherwise) {
    return text.empty() ? String(otherwise) : text;
}

/// The number of quarters further on, going round.
String turned(const String& quarters, int by) {
    int number = 0;
    const bool isTurn = Core::Format::parseInt(quarters, number) &&
                        quarters == String::formatS(number) && number >= 0 && number < 4;
    return String::formatS(isTurn ? (number + by) % 4 : 0);
}

/// A region's place in the lists of five, and what it is.
constexpr std::array<RegionType, 5> listedTypes{RegionType::REGION_START, RegionType::REGION_END,
                                                RegionType::REGION_BEFORE, RegionType::REGION_AFTER,
                                                RegionType::REGION_BODY};

} // namespace

LayoutMasterSetBuffer::LayoutMasterSetBuffer(EditableDocumentBuffer* document)
    : DOMBasedBuffer(Document::of(document)), document_(&Document::of(document)) {
    readExpanded(MasterSet::elementIn(*document_));
}

void LayoutMasterSetBuffer::commitChangesToEditableBuffer() {
    if (MasterSet::commit(*document_, fragment(), collapsedText(true)))
        readExpanded(MasterSet::elementIn(*document_));
    else
        fragment().moveTo(MasterSet::elementIn(*document_));
}

String LayoutMasterSetBuffer::getLayoutMasterXml() const {
    return MasterSet::withoutAttributes(Fragment::textOf(*fragment().tree()));
}

// Simple page masters

int LayoutMasterSetBuffer::getSimplePageMasterCount() const {
    return static_cast<int>(Masters::simpleOf(*fragment().root()).size());
}

String LayoutMasterSetBuffer::getSimplePageMasterName(int index) const {
    const std::vector<String> names = getAllSimplePageMasters();
    const auto place = static_cast<std::size_t>(index);
    return place < names.size() ? names[place] : String();
}

Element* LayoutMasterSetBuffer::getSimplePageMasterByName(const String& name) const {
    return Masters::findSimple(*fragment().root(), name);
}

std::vector<String> LayoutMasterSetBuffer::getAllSimplePageMasters() const {
    return Masters::namesOf(Masters::simpleOf(*fragment().root()));
}

bool LayoutMasterSetBuffer::elementHasAttribute(const Element* element, const String& name) const {
    return element && element->get_attribute(name);
}

void LayoutMasterSetBuffer::addSimplePageMaster(const String& name, bool uniqueRegionNames) {
    Element& set = *fragment().root();
    if (name.empty() || hasName(set, name))
        return;
    Element* master = Masters::addSimple(set, name);
    for (const RegionType type :
         {RegionType::REGION_BODY, RegionType::REGION_BEFORE, RegionType::REGION_AFTER,
          RegionType::REGION_START, RegionType::REGION_END})
        addNewRegion(master, name, type, type == RegionType::REGION_BODY || !uniqueRegionNames);
}

void LayoutMasterSetBuffer::deleteSimplePageMaster(const String& name) {
    if (Element* master = getSimplePageMasterByName(name))
        fragment().root()->remove_child(master);
}

void LayoutMasterSetBuffer::renameSimplePageMaster(const String& oldName, const String& newName) {
    const Element& set = *fragment().root();
    Element* master = Masters::findSimple(set, oldName);
    if (!master || newName.empty() || hasName(set, newName))
        return;
    Masters::setName(*master, newName);
    for (Element* complex : Masters::complexOf(set))
        ComplexMasters::changeReferences(*complex, oldName, newName);
}

String LayoutMasterSetBuffer::getPageHeight(const String& master) const {
    return valueOf(getSimplePageMasterByName(master), L"page-height");
}

String LayoutMasterSetBuffer::getPageWidth(const String& master) const {
    return valueOf(getSimplePageMasterByName(master), L"page-width");
}

PageSize LayoutMasterSetBuffer::getPageSize(const String& master) const {
    return {getPageWidth(master), getPageHeight(master)};
}

void LayoutMasterSetBuffer::setPageDimensions(const String& master, const String& width,
                                              const String& height) {
    if (Element* page = getSimplePageMasterByName(master))
        PageLayout::setSize(*page, width, height);
}

void LayoutMasterSetBuffer::getPageMargins(const String& master, String& left, String& right,
                                           String& top, String& bottom) const {
    getSides(getSimplePageMasterByName(master), RegionAttributes::margin, left, right, top, bottom);
}

PageMargins LayoutMasterSetBuffer::getPageMargins(const String& master) const {
    PageMargins margins;
    getPageMargins(master, margins.left, margins.right, margins.top, margins.bottom);
    return margins;
}

void LayoutMasterSetBuffer::setPageMargins(const String& master, const String& left,
                                           const String& right, const String& top,
                                           const String& bottom) {
    if (Element* page = getSimplePageMasterByName(master))
        PageLayout::setMargins(*page, {left, right, top, bottom});
}

void LayoutMasterSetBuffer::setContentOrientationForMaster(const String& master,
                                                           const String& degrees) {
    setValue(getSimplePageMasterByName(master), L"reference-orientation", degrees);
}

// Printing options

std::map<String, PrintingAttributes>
LayoutMasterSetBuffer::getSimplePageMasterPrintingOptions() const {
    std::map<String, PrintingAttributes> options;
    int number = 0;
    for (const Element* master : Masters::simpleOf(*fragment().root()))
        if (const String name = Masters::nameOf(*master); !name.empty())
            options.insert_or_assign(
                name, PrintingOptions::read(*master, PrintingOptions::makeShortId(number++)));
    return options;
}

void LayoutMasterSetBuffer::setSimplePageMasterPrintingOptions(
    const std::map<String, PrintingAttributes>& options) {
    std::map<String, Element*> masters; // of several of one name the first
    for (Element* master : Masters::simpleOf(*fragment().root()))
        masters.try_emplace(Masters::nameOf(*master), master);
    masters.erase(String());
    for (const auto& [name, attributes] : options)
        PrintingOptions::check(attributes);
    for (const auto& [name, attributes] : options)
        if (const auto found = masters.find(name); found != masters.end())
            PrintingOptions::write(*found->second, attributes);
}

// Regions

String LayoutMasterSetBuffer::getRegionTypeAsString(RegionType type) const {
    return Regions::nameOf(type);
}

String LayoutMasterSetBuffer::getDefaultRegionName(RegionType type, const String& prefix) const {
    return Regions::defaultNameOf(type, prefix);
}

void LayoutMasterSetBuffer::addNewRegion(Element* master, const String& masterName, RegionType type,
                                         bool useDefaultName) {
    if (!master || Regions::nameOf(type).empty())
        return;
    const String prefix = useDefaultName ? String() : masterName;
    expandElementAttributes(&Regions::add(*master, type, Regions::defaultNameOf(type, prefix)));
}

Element* LayoutMasterSetBuffer::getRegionByNameFromSimplePageMaster(Element* master,
                                                                    const String& region) const {
    if (!master)
        return nullptr;
    return region.empty() ? Regions::firstUnnamed(*master) : Regions::find(*master, region);
}

std::vector<String> LayoutMasterSetBuffer::getRegionsForPageMaster(const String& master) const {
    std::vector<String> names;
    const Element* page = getSimplePageMasterByName(master);
    if (!page)
        return names;
    for (const RegionType type : listedTypes) {
        const std::vector<Element*> found = Elements::childrenOf(*page, Regions::nameOf(type));
        names.push_back(found.size() == 1 ? Regions::flowNameOf(*found.front()) : String());
    }
    return names;
}

RegionType LayoutMasterSetBuffer::getRegionType(const String& master, const String& region) const {
    const Element* found = regionOf(*fragment().root(), master, region);
    const RegionType type =
        found ? Regions::typeOf(*found).value_or(RegionType::REGION_BODY) : RegionType::REGION_BODY;
    // Deliberate: an end region is told as an after region, as hosts expect it to be
    // (LayoutMasters.TellsAnEndRegionAsAfter).
    return type == RegionType::REGION_END ? RegionType::REGION_AFTER : type;
}

bool LayoutMasterSetBuffer::isRegionVisible(const String& master, const String& region) const {
    return regionOf(*fragment().root(), master, region);
}

bool LayoutMasterSetBuffer::setVisibleRegion(const String& master, const String& region,
                                             RegionType type, bool visible) {
    Element* page = getSimplePageMasterByName(master);
    if (!page)
        return false;
    Element* found = Regions::find(*page, region);
    if (found && !visible) {
        page->remove_child(found);
        return PageSequences::isInStaticContent(*document_, document_->caret(), region);
    }
    if (!found && visible && !Regions::has(*page, type))
        addNewRegion(page, master, type, true);
    return false;
}

// How a region looks

void LayoutMasterSetBuffer::getPaddingsForRegion(const String& master, const String& region,
                                                 String& left, String& right, String& top,
                                                 String& bottom) const {
    getSides(regionOf(*fragment().root(), master, region), RegionAttributes::padding, left, right,
             top, bottom);
}

void LayoutMasterSetBuffer::setPaddingForRegion(const String& master, const String& region,
                                                const String& left, const String& right,
                                                const String& top, const String& bottom) {
    setSides(regionOf(*fragment().root(), master, region), RegionAttributes::padding,
             {left, right, top, bottom});
}

void LayoutMasterSetBuffer::getBordersStyleForRegion(const String& master, const String& region,
                                                     String& left, String& right, String& top,
                                                     String& bottom) const {
    getSides(regionOf(*fragment().root(), master, region), RegionAttributes::borderStyle, left,
             right, top, bottom);
}

void LayoutMasterSetBuffer::setBordersStyleForRegion(const String& master, const String& region,
                                                     const String& left, const String& right,
                                                     const String& top, const String& bottom) {
    setSides(regionOf(*fragment().root(), master, region), RegionAttributes::borderStyle,
             {left, right, top, bottom});
}

void LayoutMasterSetBuffer::getBordersWidthForRegion(const String& master, const String& region,
                                                     String& left, String& right, String& top,
                                                     String& bottom) const {
    getSides(regionOf(*fragment().root(), master, region), RegionAttributes::borderWidth, left,
             right, top, bottom);
}

void LayoutMasterSetBuffer::setBorderWidthsForRegion(const String& master, const String& region,
                                                     const String& left, const String& right,
                                                     const String& top, const String& bottom) {
    setSides(regionOf(*fragment().root(), master, region), RegionAttributes::borderWidth,
             {left, right, top, bottom});
}

void LayoutMasterSetBuffer::setBordersWidthForRegion(const String& master, const String& region,
                                                     const String& left, const String& right,
                                                     const String& top, const String& bottom) {
    setSides(regionOf(*fragment().root(), master, region), RegionAttributes::borderWidth,
             {left, right, top, bottom});
}

void LayoutMasterSetBuffer::getBordersColorForRegion(const String& master, const String& region,
                                                     String& left, String& right, String& top,
                                                     String& bottom) const {
    getSides(regionOf(*fragment().root(), master, region), RegionAttributes::borderColor, left,
             right, top, bottom);
}

void LayoutMasterSetBuffer::setBordersColorForRegion(const String& master, const String& region,
                                                     const String& left, const String& right,
                                                     const String& top, const String& bottom) {
    setSides(regionOf(*fragment().root(), master, region), RegionAttributes::borderColor,
             {left, right, top, bottom});
}

String LayoutMasterSetBuffer::getExtentForRegion(const String& master, const String& region) const {
    return valueOf(regionOf(*fragment().root(), master, region), L"extent");
}

void LayoutMasterSetBuffer::setExtentForRegion(const String& master, const String& region,
                                               const String& extent) {
    setValue(regionOf(*fragment().root(), master, region), L"extent", extent);
}

String LayoutMasterSetBuffer::getDisplayAlignForRegion(const String& master,
                                                       const String& region) const {
    const Element* found = regionOf(*fragment().root(), master, region);
    return found ? orElse(valueOf(found, L"display-align"), L"before") : String();
}

void LayoutMasterSetBuffer::setDisplayAlignForRegion(const String& master, const String& region,
                                                     const String& align) {
    setValue(regionOf(*fragment().root(), master, region), L"display-align", align);
}

String LayoutMasterSetBuffer::getPrecedenceForRegion(const String& master,
                                                     const String& region) const {
    const String value = valueOf(regionOf(*fragment().root(), master, region), L"precedence");
    return value == L"true" ? value : String(L"false");
}

void LayoutMasterSetBuffer::setPrecedenceForRegion(const String& master, const String& region,
                                                   bool precedence) {
    setValue(regionOf(*fragment().root(), master, region), L"precedence",
             precedence ? String(L"true") : String());
}

String LayoutMasterSetBuffer::getBackgroundColorForRegion(const String& master,
                                                          const String& region) const {
    return valueOf(regionOf(*fragment().root(), master, region), L"background-color");
}

void LayoutMasterSetBuffer::setBackgroundColorForRegion(const String& master, const String& region,
                                                        const String& color) {
    setValue(regionOf(*fragment().root(), master, region), L"background-color", color);
}

String LayoutMasterSetBuffer::getBackgroundImageForRegion(const String& master,
                                                          const String& region) const {
    return valueOf(regionOf(*fragment().root(), master, region), L"background-image");
}

void LayoutMasterSetBuffer::setBackgroundImageForRegion(const String& master, const String& region,
                                                        const String& image) {
    setValue(regionOf(*fragment().root(), master, region), L"background-image", image);
}

void LayoutMasterSetBuffer::setBackgroundGradientForRegion(const String& master,
                                                           const String& region,
                                                           const String& gradient) {
    if (Element* found = regionOf(*fragment().root(), master, region))
        RegionAttributes::setGradient(*found, gradient);
}

String LayoutMasterSetBuffer::getBackgroundRepeatModeForRegion(const String& master,
                                                               const String& region) const {
    return valueOf(regionOf(*fragment().root(), master, region), L"background-repeat");
}

void LayoutMasterSetBuffer::setBackgroundRepeatModeForRegion(const String& master,
                                                             const String& region,
                                                             const String& mode) {
    setValue(regionOf(*fragment().root(), master, region), L"background-repeat", mode);
}

String LayoutMasterSetBuffer::getBackgroundVerticalPosForRegion(const String& master,
                                                                const String& region) const {
    return valueOf(regionOf(*fragment().root(), master, region), L"background-position-vertical");
}

void LayoutMasterSetBuffer::setBackgroundVerticalPosForRegion(const String& master,
                                                              const String& region,
                                                              const String& position) {
    setValue(regionOf(*fragment().root(), master, region), L"background-position-vertical",
             position);
}

String LayoutMasterSetBuffer::getBackgroundHorizontalPosForRegion(const String& master,
                                                                  const String& region) const {
    return valueOf(regionOf(*fragment().root(), master, region), L"background-position-horizontal");
}

void LayoutMasterSetBuffer::setBackgroundHorizontalPosForRegion(const String& master,
                                                                const String& region,
                                                                const String& position) {
    setValue(regionOf(*fragment().root(), master, region), L"background-position-horizontal",
             position);
}

void LayoutMasterSetBuffer::getBoxShadowDataForRegion(const String& master, const String& region,
                                                      String& x, String& y, String& color) const {
    Xml::BoxShadow shadow;
    if (!shadow.readFromString(
            valueOf(regionOf(*fragment().root(), master, region), L"box-shadow")))
        return;
    x = shadow.getX().getValueAsString();
    y = shadow.getY().getValueAsString();
    color = shadow.getColor();
}

void LayoutMasterSetBuffer::setBoxShadowDataForRegion(const String& master, const String& region,
                                                      const String& x, const String& y,
                                                      const String& color) {
    setValue(regionOf(*fragment().root(), master, region), L"box-shadow",
             RegionAttributes::shadowText({x, y, color}));
}

String LayoutMasterSetBuffer::getContentOrientationForRegion(const String& master,
                                                             const String& region) const {
    return RegionAttributes::quartersOf(
        valueOf(regionOf(*fragment().root(), master, region), L"reference-orientation"));
}

void LayoutMasterSetBuffer::setContentOrientationForRegion(const String& master,
                                                           const String& region,
                                                           const String& quarters) {
    setValue(regionOf(*fragment().root(), master, region), L"reference-orientation",
             RegionAttributes::degreesOf(quarters));
}

String LayoutMasterSetBuffer::getRightOrientationVal(const String& quarters) const {
    return turned(quarters, 3);
}

String LayoutMasterSetBuffer::getLeftOrientationVal(const String& quarters) const {
    return turned(quarters, 1);
}

// The body

void LayoutMasterSetBuffer::getMarginsForBodyRegion(const String& master, String& left,
                                                    String& right, String& top,
                                                    String& bottom) const {
    getSides(regionOf(*fragment().root(), master, RegionLayout::bodyName), RegionAttributes::margin,
             left, right, top, bottom);
}

void LayoutMasterSetBuffer::setMarginsForBodyRegion(const String& master, const String& left,
                                                    const String& right, const String& top,
                                                    const String& bottom) {
    setSides(regionOf(*fragment().root(), master, RegionLayout::bodyName), RegionAttributes::margin,
             {left, right, top, bottom});
}

String LayoutMasterSetBuffer::getColumnCountForBodyRegion(const String& master) const {
    return orElse(
        valueOf(regionOf(*fragment().root(), master, RegionLayout::bodyName), L"column-count"),
        L"1");
}

void LayoutMasterSetBuffer::setColumnCountForBodyRegion(const String& master, const String& count) {
    setValue(regionOf(*fragment().root(), master, RegionLayout::bodyName), L"column-count", count);
}

String LayoutMasterSetBuffer::getColumnGapForBodyRegion(const String& master) const {
    return valueOf(regionOf(*fragment().root(), master, RegionLayout::bodyName), L"column-gap");
}

void LayoutMasterSetBuffer::setColumnGapForBodyRegion(const String& master, const String& gap) {
    setValue(regionOf(*fragment().root(), master, RegionLayout::bodyName), L"column-gap", gap);
}

bool LayoutMasterSetBuffer::bodyHasMoreThanOneColumn(const String& master) const {
    return Core::Format::parseInt(getColumnCountForBodyRegion(master)) > 1;
}

// The layout as records

RegionData LayoutMasterSetBuffer::getRegionData(const String& master, const String& region) const {
    const Element* found = regionOf(*fragment().root(), master, region);
    return found ? RegionLayout::read(*found, region) : RegionData();
}

PageRegionsData LayoutMasterSetBuffer::getPageRegionsData(const String& master) const {
    std::vector<String> names = getRegionsForPageMaster(master);
    names.resize(listedTypes.size());
    const auto data = [&](std::size_t index) { return getRegionData(master, names[index]); };
    return {data(0), data(1), data(2), data(3), data(4)};
}

bool LayoutMasterSetBuffer::editRegionLayout(const String& master, const RegionData& data,
                                             RegionType type, const String& region) {
    RegionLayout::check(data);
    const bool losesCaret = setVisibleRegion(master, region, type, data.visible);
    Element* found = data.visible ? regionOf(*fragment().root(), master, region) : nullptr;
    if (found)
        RegionLayout::write(*found, region, data);
    return losesCaret;
}

bool LayoutMasterSetBuffer::editSimplePageMasterLayout(const String& master,
                                                       const PageLayoutData& data) {
    Element* page = getSimplePageMasterByName(master);
    if (!page)
        return false;
    const std::array regions{&data.start, &data.end, &data.before, &data.after, &data.body};
    for (const RegionData* region : regions)
        RegionLayout::check(*region);
    PageLayout::write(*page, data);
    const std::vector<String> names = getRegionsForPageMaster(master);
    bool losesCaret = false;
    for (std::size_t i = 0; i < regions.size(); ++i)
        losesCaret |= editRegionLayout(master, *regions[i], listedTypes[i], names[i]);
    return losesCaret;
}

// Complex page masters

void LayoutMasterSetBuffer::addComplexPageMaster(const String& name) {
    if (!name.empty())
        Masters::addComplex(*fragment().root(), name);
}

void LayoutMasterSetBuffer::deleteComplexPageMaster(const String& name) {
    if (Element* master = getComplexPageMasterByName(name))
        fragment().root()->remove_child(master);
}

Element* LayoutMasterSetBuffer::getComplexPageMasterByName(const String& name) const {
    return Masters::findComplex(*fragment().root(), name);
}

std::vector<String> LayoutMasterSetBuffer::getAllComplexPageMasters() const {
    return Masters::namesOf(Masters::complexOf(*fragment().root()));
}

String LayoutMasterSetBuffer::getNextComplexMasterName() const {
    const std::vector<String> all = getAllComplexPageMasters();
    const std::set<String> names(all.begin(), all.end());
    int number = 1;
    while (names.contains(L"ComplexMaster" + String::formatS(number)))
        ++number;
    return L"ComplexMaster" + String::formatS(number);
}

void LayoutMasterSetBuffer::addSingleReferenceToComplexMaster(const String& master,
                                                              const String& reference) {
    if (Element* found = getComplexPageMasterByName(master))
        ComplexMasters::addSingle(*found, reference);
}

void LayoutMasterSetBuffer::addRepeatingReferenceToComplexMaster(const String& master,
                                                                 const String& reference,
                                                                 const String& maximumRepeats) {
    if (Element* found = getComplexPageMasterByName(master))
        ComplexMasters::addRepeating(*found, reference, maximumRepeats);
}

void LayoutMasterSetBuffer::addConditionalReferenceToComplexMaster(const String& master,
                                                                   const String& reference,
                                                                   const String& conditionName,
                                                                   const String& conditionValue) {
    if (Element* found = getComplexPageMasterByName(master))
        ComplexMasters::addConditional(*found, reference, conditionName, conditionValue);
}

void LayoutMasterSetBuffer::editComplexPageMaster(const PageMasterData& data) {
    const String name = data.getName();
    if (data.isSimplePageMaster() || name.empty() || getSimplePageMasterByName(name))
        return;
    ComplexMasters::check(name, data.getReferences(), *fragment().root());
    deleteComplexPageMaster(name);
    addComplexPageMaster(name);
    Element& master = *getComplexPageMasterByName(name); // of several the one that is looked up
    for (const ReferenceInfo& reference : data.getReferences())
        ComplexMasters::add(master, reference);
}

void LayoutMasterSetBuffer::changeReferenceInComplexPageMaster(const String& master,
                                                               const String& oldReference,
                                                               const String& newReference) {
    if (Element* found = getComplexPageMasterByName(master))
        ComplexMasters::changeReferences(*found, oldReference, newReference);
}

Core::Vector<ComplexPageMasterEntry>
LayoutMasterSetBuffer::getComplexPageMasterEntries(const String& master) const {
    const Element* found = getComplexPageMasterByName(master);
    return found ? ComplexMasters::entriesOf(*found) : Core::Vector<ComplexPageMasterEntry>();
}

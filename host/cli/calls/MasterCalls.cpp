// The page masters that are edited as a tree.

#include "calls/Calls.h"
#include "calls/PageWire.h"
#include "calls/Rows.h"
#include "calls/TreeWire.h"

#include <forme/pages/LayoutMasterSetBuffer.h>

/// A length as its text.
template <>
struct Wire<Xml::Length> : Wire<Core::String> {
    static Xml::Length read(const Json& value) {
        Xml::Length length;
        Xml::Length::parseLength(Wire<Core::String>::read(value), length);
        return length;
    }
    static Json write(const Xml::Length& value) {
        return Wire<Core::String>::write(value.getValueAsString());
    }
};

template <>
struct Wire<Xml::LengthOrPercent> : Wire<Core::String> {
    static Xml::LengthOrPercent read(const Json& value) {
        Xml::LengthOrPercent length;
        Xml::LengthOrPercent::parseLengthOrPercent(Wire<Core::String>::read(value), length);
        return length;
    }
    static Json write(const Xml::LengthOrPercent& value) {
        return Wire<Core::String>::write(value.getValueAsString());
    }
};

template <>
const std::vector<RecordField<PageSize>>& fieldsOf<PageSize>() {
    static const std::vector<RecordField<PageSize>> fields{field<&PageSize::width>("width"),
                                                           field<&PageSize::height>("height")};
    return fields;
}
template <>
struct Wire<PageSize> : RecordWire<PageSize> {
    static inline const std::string name = describe("page size");
};

template <>
const std::vector<RecordField<PageMargins>>& fieldsOf<PageMargins>() {
    using P = PageMargins;
    static const std::vector<RecordField<P>> fields{
        field<&P::left>("left"), field<&P::right>("right"), field<&P::top>("top"),
        field<&P::bottom>("bottom")};
    return fields;
}
template <>
struct Wire<PageMargins> : RecordWire<PageMargins> {
    static inline const std::string name = describe("margins");
};

template <>
const std::vector<RecordField<RegionData>>& fieldsOf<RegionData>() {
    using R = RegionData;
    static const std::vector<RecordField<R>> fields{
        field<&R::paddingLeft>("paddingLeft"),
        field<&R::paddingRight>("paddingRight"),
        field<&R::paddingTop>("paddingTop"),
        field<&R::paddingBottom>("paddingBottom"),
        field<&R::marginLeft>("marginLeft"),
        field<&R::marginRight>("marginRight"),
        field<&R::marginTop>("marginTop"),
        field<&R::marginBottom>("marginBottom"),
        field<&R::extent>("extent"),
        field<&R::columnGap>("columnGap"),
        field<&R::columnCount>("columnCount"),
        field<&R::visible>("visible"),
        field<&R::precedence>("precedence"),
        field<&R::orientation>("orientation"),
        field<&R::displayAlign>("displayAlign"),
        field<&R::borderStyleLeft>("borderStyleLeft"),
        field<&R::borderStyleTop>("borderStyleTop"),
        field<&R::borderStyleRight>("borderStyleRight"),
        field<&R::borderStyleBottom>("borderStyleBottom"),
        field<&R::borderWidthLeft>("borderWidthLeft"),
        field<&R::borderWidthTop>("borderWidthTop"),
        field<&R::borderWidthRight>("borderWidthRight"),
        field<&R::borderWidthBottom>("borderWidthBottom"),
        field<&R::borderColorLeft>("borderColorLeft"),
        field<&R::borderColorTop>("borderColorTop"),
        field<&R::borderColorRight>("borderColorRight"),
        field<&R::borderColorBottom>("borderColorBottom"),
        field<&R::shadowX>("shadowX"),
        field<&R::shadowY>("shadowY"),
        field<&R::shadowColor>("shadowColor"),
        field<&R::backgroundColor>("backgroundColor"),
        field<&R::backgroundImage>("backgroundImage"),
        field<&R::backgroundGradient>("backgroundGradient"),
        field<&R::backgroundRepeat>("backgroundRepeat"),
        field<&R::backgroundPositionHorizontal>("backgroundPositionHorizontal"),
        field<&R::backgroundPositionVertical>("backgroundPositionVertical")};
    return fields;
}
template <>
struct Wire<RegionData> : RecordWire<RegionData> {
    static inline const std::string name = describe("region");
};

template <>
const std::vector<RecordField<PageRegionsData>>& fieldsOf<PageRegionsData>() {
    using P = PageRegionsData;
    static const std::vector<RecordField<P>> fields{
        field<&P::start>("start"), field<&P::end>("end"), field<&P::before>("before"),
        field<&P::after>("after"), field<&P::body>("body")};
    return fields;
}
template <>
struct Wire<PageRegionsData> : RecordWire<PageRegionsData> {
    static inline const std::string name = describe("regions");
};

template <>
const std::vector<RecordField<PageLayoutData>>& fieldsOf<PageLayoutData>() {
    using P = PageLayoutData;
    static const std::vector<RecordField<P>> fields{field<&P::width>("width"),
                                                    field<&P::height>("height"),
                                                    field<&P::marginLeft>("marginLeft"),
                                                    field<&P::marginRight>("marginRight"),
                                                    field<&P::marginTop>("marginTop"),
                                                    field<&P::marginBottom>("marginBottom"),
                                                    field<&P::start>("start"),
                                                    field<&P::end>("end"),
                                                    field<&P::before>("before"),
                                                    field<&P::after>("after"),
                                                    field<&P::body>("body")};
    return fields;
}
template <>
struct Wire<PageLayoutData> : RecordWire<PageLayoutData> {
    static inline const std::string name = describe("page layout");
};

template <>
const std::vector<RecordField<ComplexPageMasterEntry>>& fieldsOf<ComplexPageMasterEntry>() {
    using C = ComplexPageMasterEntry;
    static const std::vector<RecordField<C>> fields{
        field<&C::elementName>("element"), field<&C::masterName>("master"),
        field<&C::attributeName>("attributeName"), field<&C::attributeValue>("attributeValue")};
    return fields;
}
template <>
struct Wire<ComplexPageMasterEntry> : RecordWire<ComplexPageMasterEntry> {
    static inline const std::string name = describe("reference");
};

namespace {

using M = LayoutMasterSetBuffer;
using Core::String;
using Sides = PageMargins;

SmartPtr<M> open(Session& session) {
    return SmartPtr<M>(new M(&session.document()));
}

/// The element that holds the masters, through any of them.
OpenedObjects::Tree treeOf(M& masters) {
    return [&masters]() -> Xml::Node* {
        for (const String& name : masters.getAllSimplePageMasters())
            if (const Xml::Element* master = masters.getSimplePageMasterByName(name))
                return master->get_parent();
        for (const String& name : masters.getAllComplexPageMasters())
            if (const Xml::Element* master = masters.getComplexPageMasterByName(name))
                return master->get_parent();
        return nullptr;
    };
}

template <void (M::*get)(const String&, const String&, String&, String&, String&, String&) const>
Sides sidesOf(M& masters, const String& master, const String& region) {
    Sides sides;
    (masters.*get)(master, region, sides.left, sides.right, sides.top, sides.bottom);
    return sides;
}

Sides bodyMargins(M& masters, const String& master) {
    Sides sides;
    masters.getMarginsForBodyRegion(master, sides.left, sides.right, sides.top, sides.bottom);
    return sides;
}

std::tuple<String, String, String> shadowOf(M& masters, const String& master,
                                            const String& region) {
    std::tuple<String, String, String> shadow;
    auto& [x, y, color] = shadow;
    masters.getBoxShadowDataForRegion(master, region, x, y, color);
    return shadow;
}

} // namespace

std::vector<Operation> Calls::masters() {
    const OpenedRows<M> masters("masters");
    const auto named = [&](const char* name, auto member, ArgumentNames names) {
        names.insert(names.begin(), "master");
        return masters(name, member, names);
    };
    const auto region = [&](const char* name, auto member, ArgumentNames names = {}) {
        names.insert(names.begin(), {"master", "region"});
        return masters(name, member, names);
    };
    const auto sides = [&](const char* name, auto function) {
        return masters.made(name, function, {"master", "region"});
    };
    return {
        masters.openMade(&open, &treeOf),
        masters.close(),
        masters("commitChangesToEditableBuffer", &M::commitChangesToEditableBuffer),
        masters("commit", &M::commitChangesToEditableBuffer),
        masters("getLayoutMasterXml", &M::getLayoutMasterXml),
        masters("getDocumentBufferStart", &M::getDocumentBufferStart),
        masters("getDocumentBufferEnd", &M::getDocumentBufferEnd),
        masters("getAttributeValue", &M::getAttributeValue, {"element", "name", "prefix"}),
        masters("getElementByName", &M::getElementByName, {"parent", "name"}),
        masters("getElementProperties", &M::getElementProperties, {"element"}),
        masters("setElementProperties", &M::setElementProperties, {"element", "properties"}),

        masters("getSimplePageMasterCount", &M::getSimplePageMasterCount),
        masters("getSimplePageMasterName", &M::getSimplePageMasterName, {"index"}),
        named("getSimplePageMasterByName", &M::getSimplePageMasterByName, {}),
        masters("getAllSimplePageMasters", &M::getAllSimplePageMasters),
        masters("elementHasAttribute", &M::elementHasAttribute, {"element", "name"}),
        named("addSimplePageMaster", &M::addSimplePageMaster, {"uniqueRegionNames"}),
        named("deleteSimplePageMaster", &M::deleteSimplePageMaster, {}),
        named("renameSimplePageMaster", &M::renameSimplePageMaster, {"newName"}),
        named("getPageHeight", &M::getPageHeight, {}),
        named("getPageWidth", &M::getPageWidth, {}),
        named("getPageSize", &M::getPageSize, {}),
        named("setPageDimensions", &M::setPageDimensions, {"width", "height"}),
        named("getPageMargins", overload<PageMargins(const String&) const>(&M::getPageMargins), {}),
        named("setPageMargins", &M::setPageMargins, {"left", "right", "top", "bottom"}),
        named("setContentOrientationForMaster", &M::setContentOrientationForMaster, {"degrees"}),

        masters("getSimplePageMasterPrintingOptions", &M::getSimplePageMasterPrintingOptions),
        masters("setSimplePageMasterPrintingOptions", &M::setSimplePageMasterPrintingOptions,
                {"options"}),

        masters("getRegionTypeAsString", &M::getRegionTypeAsString, {"type"}),
        masters("getDefaultRegionName", &M::getDefaultRegionName, {"type", "prefix"}),
        masters("addNewRegion", &M::addNewRegion, {"element", "master", "type", "useDefaultName"}),
        masters("getRegionByNameFromSimplePageMaster", &M::getRegionByNameFromSimplePageMaster,
                {"element", "region"}),
        named("getRegionsForPageMaster", &M::getRegionsForPageMaster, {}),
        region("getRegionType", &M::getRegionType),
        region("isRegionVisible", &M::isRegionVisible),
        region("setVisibleRegion", &M::setVisibleRegion, {"type", "visible"}),

        sides("getPaddingsForRegion", &sidesOf<&M::getPaddingsForRegion>),
        region("setPaddingForRegion", &M::setPaddingForRegion, {"left", "right", "top", "bottom"}),
        sides("getBordersStyleForRegion", &sidesOf<&M::getBordersStyleForRegion>),
        region("setBordersStyleForRegion", &M::setBordersStyleForRegion,
               {"left", "right", "top", "bottom"}),
        sides("getBordersWidthForRegion", &sidesOf<&M::getBordersWidthForRegion>),
        region("setBorderWidthsForRegion", &M::setBorderWidthsForRegion,
               {"left", "right", "top", "bottom"}),
        region("setBordersWidthForRegion", &M::setBordersWidthForRegion,
               {"left", "right", "top", "bottom"}),
        sides("getBordersColorForRegion", &sidesOf<&M::getBordersColorForRegion>),
        region("setBordersColorForRegion", &M::setBordersColorForRegion,
               {"left", "right", "top", "bottom"}),
        region("getExtentForRegion", &M::getExtentForRegion),
        region("setExtentForRegion", &M::setExtentForRegion, {"extent"}),
        region("getDisplayAlignForRegion", &M::getDisplayAlignForRegion),
        region("setDisplayAlignForRegion", &M::setDisplayAlignForRegion, {"align"}),
        region("getPrecedenceForRegion", &M::getPrecedenceForRegion),
        region("setPrecedenceForRegion", &M::setPrecedenceForRegion, {"precedence"}),
        region("getBackgroundColorForRegion", &M::getBackgroundColorForRegion),
        region("setBackgroundColorForRegion", &M::setBackgroundColorForRegion, {"color"}),
        region("getBackgroundImageForRegion", &M::getBackgroundImageForRegion),
        region("setBackgroundImageForRegion", &M::setBackgroundImageForRegion, {"image"}),
        region("setBackgroundGradientForRegion", &M::setBackgroundGradientForRegion, {"gradient"}),
        region("getBackgroundRepeatModeForRegion", &M::getBackgroundRepeatModeForRegion),
        region("setBackgroundRepeatModeForRegion", &M::setBackgroundRepeatModeForRegion, {"mode"}),
        region("getBackgroundVerticalPosForRegion", &M::getBackgroundVerticalPosForRegion),
        region("setBackgroundVerticalPosForRegion", &M::setBackgroundVerticalPosForRegion,
               {"position"}),
        region("getBackgroundHorizontalPosForRegion", &M::getBackgroundHorizontalPosForRegion),
        region("setBackgroundHorizontalPosForRegion", &M::setBackgroundHorizontalPosForRegion,
               {"position"}),
        sides("getBoxShadowDataForRegion", &shadowOf),
        region("setBoxShadowDataForRegion", &M::setBoxShadowDataForRegion, {"x", "y", "color"}),
        region("getContentOrientationForRegion", &M::getContentOrientationForRegion),
        region("setContentOrientationForRegion", &M::setContentOrientationForRegion, {"quarters"}),
        masters("getRightOrientationVal", &M::getRightOrientationVal, {"quarters"}),
        masters("getLeftOrientationVal", &M::getLeftOrientationVal, {"quarters"}),

        masters.made("getMarginsForBodyRegion", &bodyMargins, {"master"}),
        named("setMarginsForBodyRegion", &M::setMarginsForBodyRegion,
              {"left", "right", "top", "bottom"}),
        named("getColumnCountForBodyRegion", &M::getColumnCountForBodyRegion, {}),
        named("setColumnCountForBodyRegion", &M::setColumnCountForBodyRegion, {"count"}),
        named("getColumnGapForBodyRegion", &M::getColumnGapForBodyRegion, {}),
        named("setColumnGapForBodyRegion", &M::setColumnGapForBodyRegion, {"gap"}),
        named("bodyHasMoreThanOneColumn", &M::bodyHasMoreThanOneColumn, {}),

        region("getRegionData", &M::getRegionData),
        named("getPageRegionsData", &M::getPageRegionsData, {}),
        named("editRegionLayout", &M::editRegionLayout, {"data", "type", "region"}),
        named("editSimplePageMasterLayout", &M::editSimplePageMasterLayout, {"data"}),

        named("addComplexPageMaster", &M::addComplexPageMaster, {}),
        named("deleteComplexPageMaster", &M::deleteComplexPageMaster, {}),
        named("getComplexPageMasterByName", &M::getComplexPageMasterByName, {}),
        masters("getAllComplexPageMasters", &M::getAllComplexPageMasters),
        masters("getNextComplexMasterName", &M::getNextComplexMasterName),
        named("addSingleReferenceToComplexMaster", &M::addSingleReferenceToComplexMaster,
              {"reference"}),
        named("addRepeatingReferenceToComplexMaster", &M::addRepeatingReferenceToComplexMaster,
              {"reference", "maximumRepeats"}),
        named("addConditionalReferenceToComplexMaster", &M::addConditionalReferenceToComplexMaster,
              {"reference", "conditionName", "conditionValue"}),
        masters("editComplexPageMaster", &M::editComplexPageMaster, {"data"}),
        named("changeReferenceInComplexPageMaster", &M::changeReferenceInComplexPageMaster,
              {"oldReference", "newReference"}),
        named("getComplexPageMasterEntries", &M::getComplexPageMasterEntries, {}),
    };
}

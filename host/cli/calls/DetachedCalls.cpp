// Pages on which headers, footers and side regions are edited: whole documents as texts.

#include "calls/Calls.h"
#include "calls/PageWire.h"
#include "calls/Rows.h"
#include "calls/TreeWire.h"

#include <forme/pages/PGMasterBufferUtilities.h>
#include <forme/pages/PGMasterUtilities.h>

template <>
struct Wire<std::pair<int, int>> {
    static constexpr const char* name = "range [start, end]";
    static bool matches(const Json& value) {
        return value.is_array() && value.size() == 2 && Wire<int>::matches(value[0]) &&
               Wire<int>::matches(value[1]);
    }
    static std::pair<int, int> read(const Json& value) {
        return {value[0].get<int>(), value[1].get<int>()};
    }
    static Json write(const std::pair<int, int>& value) { return {value.first, value.second}; }
};

namespace {

using D = EditableDocumentBuffer;
using Pages = PGMasterBuffer;
using U = PGMasterBufferUtilities;
using P = PGMasterUtilities;
using Core::String;
using Names = std::vector<String>;
using Texts = std::map<String, String>;
using Range = std::pair<int, int>;

/// Nodes are numbered only where there are some.
template <typename Buffer>
OpenedObjects::Tree treeOf(Buffer& buffer) {
    return [&buffer]() -> Xml::Node* {
        const auto nodes = buffer.getPaginationNodes();
        Xml::Node* node = nodes.empty()
                              ? buffer.getSimplePageMasterElement(buffer.getSimplePageMasterName(0))
                              : nodes.front();
        while (node && node->get_parent())
            node = node->get_parent();
        return node;
    };
}

template <typename Buffer>
SmartPtr<Buffer> ofText(Session&, const String& text) {
    return SmartPtr<Buffer>(new Buffer(text));
}

// What C++ gives back through an argument is the result.

template <typename Buffer>
String textOf(Buffer& buffer, String text) {
    buffer.commitChangesToEditableBuffer(text);
    return text;
}

template <typename Buffer>
Names referencesIn(Buffer& buffer, const String& name, Names references) {
    buffer.getComplexPageMasterEntries(name, references);
    return references;
}

template <typename Buffer, typename Regions>
Regions regionsIn(Buffer& buffer, Regions regions, const String& master) {
    buffer.getSimplePageMasterRegionList(regions, master);
    return regions;
}

template <typename Buffer>
Texts regionAttributesIn(Buffer& buffer, const String& ignored, Texts regions,
                         const String& master) {
    buffer.getSimplePageMasterRegionAttributeMap(ignored, regions, master);
    return regions;
}

template <typename Buffer>
Names flowsIn(Buffer& buffer, Names flows, const String& master) {
    buffer.getDocumentStaticContentList(flows, master);
    return flows;
}

Range nextSequence(U& buffer, Range range) {
    buffer.getNextPageSimpleOrRepeatPos(range);
    return range;
}

Texts chosenTexts(U& buffer, Texts texts, const String& master, bool matchMaster,
                  bool matchRegions) {
    buffer.getStaticContentTextMap(texts, master, matchMaster, matchRegions);
    return texts;
}

Texts textsOfSequence(U& buffer, Texts texts, int sequenceIndex) {
    buffer.getStaticContentTextMap(texts, sequenceIndex);
    return texts;
}

String withStaticContent(U& buffer, String text, const String& ignored, const String& staticText) {
    buffer.insertStaticContentFromDifferentPage(text, ignored, staticText);
    return text;
}

std::tuple<String, String> withoutComplexMasters(U& buffer, const String& text, String removed) {
    const String rest = buffer.stripComplexMastersFromBuffer(text, removed);
    return {rest, removed};
}

String spliced(U& buffer, String text, int start, int end, const String& insertion,
               bool insertOnly) {
    buffer.insertReplace(text, start, end, insertion, insertOnly);
    return text;
}

String splicedRange(U& buffer, String text, const Range& range, const String& insertion,
                    bool insertOnly) {
    buffer.insertReplace(text, range, insertion, insertOnly);
    return text;
}

std::tuple<bool, String> cleared(U& buffer, String text, const String& path) {
    const bool result = buffer.clearFormattingOnSelectedText(text, path);
    return {result, text};
}

template <typename Master>
Texts regionMap(D&, const String& text, Texts regions, Master master) {
    P::getRegionsMapList(text, regions, master);
    return regions;
}

template <typename Master>
Names regionList(D&, Names regions, const String& text, Master master) {
    P::getRegionsListUpdate(regions, text, master);
    return regions;
}

Texts regionAttributes(D&, const String& ignored, Texts regions, const String& text,
                       int masterIndex) {
    P::getRegionAttributesMap(ignored, regions, text, masterIndex);
    return regions;
}

Texts withRegionName(D&, Texts regions, RegionType type, const String& name) {
    P::setRegionName(regions, type, name);
    return regions;
}

std::tuple<String, Texts> regionName(D&, const String& text, Texts regions, RegionType type,
                                     const String& master) {
    const String name = P::getRegionName(text, regions, type, master);
    return {name, regions};
}

std::tuple<String, Texts> renamedRegion(D&, const String& text, const Texts& staticTexts,
                                        const String& master, const String& newName, Texts regions,
                                        RegionType type) {
    const String changed = P::renameRegion(text, staticTexts, master, newName, regions, type);
    return {changed, regions};
}

Texts staticTexts(D&, const String& text, Texts map, const String& master, bool matchMaster,
                  bool matchRegions) {
    P::getStaticContentMapListWithText(text, map, master, matchMaster, matchRegions);
    return map;
}

Texts staticTextsOfSequence(D&, const String& text, Texts map, int sequenceIndex) {
    P::getStaticContentMapListWithText(text, map, sequenceIndex);
    return map;
}

Names staticContentList(D&, Names flows, const String& text, const String& master) {
    P::getStaticContentListFromDocument(flows, text, master);
    return flows;
}

std::tuple<String, Texts> withNewRegion(D&, const String& text, const String& master,
                                        const String& flowName, Texts regions, RegionType type,
                                        int sequenceIndex, bool blank) {
    const String changed =
        P::addNewStaticRegion(text, master, flowName, regions, type, sequenceIndex, blank);
    return {changed, regions};
}

/// The source is opened as a text of its own.
void applyChanges(D& target, const String& source, const String& master,
                  const std::vector<int>& sequences) {
    const SmartPtr<D> edited(new D);
    setUpAsHost(*edited);
    edited->setContent(source, true);
    P::applyChanges(&target, edited.get(), master, sequences);
}

String withReference(D&, String text, const String& name) {
    P::changePageMasterReferenceForSequence(text, name);
    return text;
}

/// What both objects have: the second one is the first and more.
template <typename Buffer>
std::vector<Operation> treeRows(const OpenedRows<Buffer>& tree) {
    return {
        tree.openMade(&ofText<Buffer>, &treeOf<Buffer>, {"text"}),
        tree.close(),
        tree("commitChangesToEditableBuffer",
             overload<void()>(&Pages::commitChangesToEditableBuffer)),
        tree("commit", overload<void()>(&Pages::commitChangesToEditableBuffer)),
        tree.made("commitChangesToEditableBuffer", &textOf<Buffer>, {"text"}),
        tree("getDocumentBufferStart", &Pages::getDocumentBufferStart),
        tree("getDocumentBufferEnd", &Pages::getDocumentBufferEnd),
        tree("getAttributeValue", &Pages::getAttributeValue, {"element", "name", "prefix"}),
        tree("getElementByName", &Pages::getElementByName, {"parent", "name"}),
        tree("getElementProperties", &Pages::getElementProperties, {"element"}),
        tree("setElementProperties", &Pages::setElementProperties, {"element", "properties"}),
        tree("getPaginationNodes", &Pages::getPaginationNodes),
        tree("getPageSequenceByIdx", &Pages::getPageSequenceByIdx, {"index"}),
        tree("stringArrayContains", &Pages::stringArrayContains, {"array", "text"}),
        tree("parseAttributes", &Pages::parseAttributes, {"ignored"}),
        tree("walkDomTree", &Pages::walkDomTree, {"node", "ignored"}),

        // Page masters and their regions
        tree("getSimplePageMasterCount", &Pages::getSimplePageMasterCount),
        tree("getSimplePageMasterName", &Pages::getSimplePageMasterName, {"index"}),
        tree("getSimplePageMasterElement", &Pages::getSimplePageMasterElement, {"name"}),
        tree("getComplexPageMasterByName", &Pages::getComplexPageMasterByName, {"name"}),
        tree("getAllSimplePageMasters", &Pages::getAllSimplePageMasters),
        tree("getAllComplexPageMasters", &Pages::getAllComplexPageMasters),
        tree("getSimplePageMasterByName", &Pages::getSimplePageMasterByName, {"name"}),
        tree("renameSimplePageMaster", &Pages::renameSimplePageMaster, {"oldName", "newName"}),
        tree.made("getComplexPageMasterEntries", &referencesIn<Buffer>, {"name", "references"}),
        tree("simplePMUsedInComplexPageMaster", &Pages::simplePMUsedInComplexPageMaster,
             {"simple", "complexName"}),
        tree("getRegionByNameFromSimplePageMaster", &Pages::getRegionByNameFromSimplePageMaster,
             {"master", "region"}),
        tree("isRegionVisible", &Pages::isRegionVisible, {"master", "region"}),
        tree("setVisibleRegion", &Pages::setVisibleRegion, {"master", "region", "visible"}),
        tree("setNameForRegion", &Pages::setNameForRegion, {"master", "oldName", "newName"}),
        tree.made("getSimplePageMasterRegionList", &regionsIn<Buffer, Texts>,
                  {"regions", "master"}),
        tree.made("getSimplePageMasterRegionList", &regionsIn<Buffer, Names>,
                  {"regions", "master"}),
        tree.made("getSimplePageMasterRegionAttributeMap", &regionAttributesIn<Buffer>,
                  {"ignored", "regions", "master"}),

        // Static contents
        tree("getStaticContentsNodes", &Pages::getStaticContentsNodes),
        tree("getStaticContentElementByIdx", &Pages::getStaticContentElementByIdx, {"index"}),
        tree("getFlowNameForStaticContent", &Pages::getFlowNameForStaticContent, {"index"}),
        tree("getPageSeqRefNameForStaticContent", &Pages::getPageSeqRefNameForStaticContent,
             {"index"}),
        tree("getStaticContentElement", &Pages::getStaticContentElement, {"flowName"}),
        tree("setNameForStaticContent", &Pages::setNameForStaticContent, {"newName", "oldName"}),
        tree("addNewStaticContent", &Pages::addNewStaticContent,
             {"flowName", "ignored", "sequenceIndex", "blank"}),
        tree.made("getDocumentStaticContentList", &flowsIn<Buffer>, {"flows", "master"}),
    };
}

std::vector<Operation> textRows(const OpenedRows<U>& text) {
    return {
        text("setWorkingRootElement", &U::setWorkingRootElement, {"name"}),
        text("getWorkingRootElement", &U::getWorkingRootElement),
        text("setOriginalFoFlow", &U::setOriginalFoFlow, {"flow"}),
        text("getOriginalFoFlow", &U::getOriginalFoFlow),
        text("makeCommentsPositionList", &U::makeCommentsPositionList),
        text("isCommentAtPos", &U::isCommentAtPos, {"position"}),
        text("getFirstElementPos", &U::getFirstElementPos, {"name"}),
        text("getNextElementPos", &U::getNextElementPos, {"name", "from"}),
        text("getFirstPageSimpleOrRepeatPos", &U::getFirstPageSimpleOrRepeatPos),
        text.made("getNextPageSimpleOrRepeatPos", &nextSequence, {"range"}),
        text("getPageSeqPos", &U::getPageSeqPos, {"index"}),
        text("getCurrentPageSequencePos", &U::getCurrentPageSequencePos, {"position"}),
        text("getRefForPageSeqAtPos", &U::getRefForPageSeqAtPos, {"range"}),
        text("getFirstStaticContentPos", &U::getFirstStaticContentPos, {"reference"}),
        text("getNextStaticContentPos", &U::getNextStaticContentPos, {"from", "reference"}),
        text.made("getStaticContentTextMap", &chosenTexts,
                  {"texts", "master", "matchMaster", "matchRegions"}),
        text.made("getStaticContentTextMap", &textsOfSequence, {"texts", "sequenceIndex"}),
        text.made("insertStaticContentFromDifferentPage", &withStaticContent,
                  {"text", "ignored", "staticText"}),
        text("getComplexMasterBufferTextByName", &U::getComplexMasterBufferTextByName, {"name"}),
        text.made("stripComplexMastersFromBuffer", &withoutComplexMasters, {"buffer", "removed"}),
        text("getFoFlowFromBuffer", &U::getFoFlowFromBuffer, {"text"}),
        text("emptyFoFlowFromBuffer", &U::emptyFoFlowFromBuffer, {"text", "flowContent"}),
        text.made("insertReplace", &spliced, {"text", "start", "end", "insertion", "insertOnly"}),
        text.made("insertReplace", &splicedRange, {"text", "range", "insertion", "insertOnly"}),
        text("getDummyPage", &U::getDummyPage, {"master", "regions"}),
        text("makeDummyBuffer", &U::makeDummyBuffer, {"markup"}),
        text("getNewFoFlow", &U::getNewFoFlow, {"master"}),
        text.made("clearFormattingOnSelectedText", &cleared, {"ignored", "path"}),
    };
}

std::vector<Operation> documentTextRows() {
    const auto document = documentRows();
    return {
        document("getSimplePageMasterPosition", &D::getSimplePageMasterPosition, {"name"}),
        document("getSimplePageMaster", &D::getSimplePageMaster, {"name"}),
        document("replaceSimplePageMaster", &D::replaceSimplePageMaster, {"name", "markup"}),
        document("getRegionBodyNameForPageMaster", &D::getRegionBodyNameForPageMaster, {"name"}),
        document("getPageSequenceForEditing", &D::getPageSequenceForEditing,
                 {"index", "master", "flowName"}),
        document("getPageSequenceContentWithReplacedFoFlow",
                 &D::getPageSequenceContentWithReplacedFoFlow, {"index", "flow"}),
        document("deleteStaticContentsFromPageSequence", &D::deleteStaticContentsFromPageSequence,
                 {"index"}),
        document("replaceStaticContentsFromPageSeq", &D::replaceStaticContentsFromPageSeq,
                 {"index", "markup"}),
    };
}

std::vector<Operation> functionRows() {
    const Rows pages([](Session& session) -> D& { return session.document(); }, "pages");
    return {
        pages("enableDisableRegion", &P::enableDisableRegion,
              {"text", "master", "region", "visible"}),
        pages.made("getRegionsMapList", &regionMap<String>, {"text", "regions", "master"}),
        pages.made("getRegionsMapList", &regionMap<int>, {"text", "regions", "masterIndex"}),
        pages.made("getRegionsListUpdate", &regionList<String>, {"regions", "text", "master"}),
        pages.made("getRegionsListUpdate", &regionList<int>, {"regions", "text", "masterIndex"}),
        pages.made("getRegionAttributesMap", &regionAttributes,
                   {"ignored", "regions", "text", "masterIndex"}),
        pages.made("setRegionName", &withRegionName, {"regions", "type", "name"}),
        pages.made("getRegionName", &regionName, {"text", "regions", "type", "master"}),
        pages.made("renameRegion", &renamedRegion,
                   {"text", "staticTexts", "master", "newName", "regions", "type"}),
        pages.made("getStaticContentMapListWithText", &staticTexts,
                   {"text", "map", "master", "matchMaster", "matchRegions"}),
        pages.made("getStaticContentMapListWithText", &staticTextsOfSequence,
                   {"text", "map", "sequenceIndex"}),
        pages.made("getStaticContentListFromDocument", &staticContentList,
                   {"flows", "text", "master"}),
        pages.made("addNewStaticRegion", &withNewRegion,
                   {"text", "master", "flowName", "regions", "type", "sequenceIndex", "blank"}),
        pages.made("applyChanges", &applyChanges, {"source", "master", "sequences"}),
        pages("clearTextFormatting", &P::clearTextFormatting, {"text", "sequenceIndex"}),
        pages.made("changePageMasterReferenceForSequence", &withReference, {"text", "name"}),
    };
}

} // namespace

std::vector<Operation> Calls::detachedPages() {
    const OpenedRows<U> text("detachedText");
    std::vector<Operation> all;
    for (const std::vector<Operation>& rows :
         {documentTextRows(), functionRows(), treeRows(OpenedRows<Pages>("detached")),
          treeRows(text), textRows(text)})
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

#include "pages/PGMasterUtilities.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "foundation/Exception.h"
#include "pages/AppliedChanges.h"
#include "pages/DetachedText.h"
#include "pages/PGMasterBufferUtilities.h"
#include "pages/PaginationNodes.h"
#include "pages/PracticePages.h"
#include "pages/Regions.h"
#include "pages/TextElements.h"

#include <algorithm>

using Core::String;
using Names = std::map<String, String>;

namespace {

String textOf(PGMasterBuffer& buffer) {
    String text;
    buffer.commitChangesToEditableBuffer(text);
    return text;
}

void fillWithRegions(Names& regions, const PGMasterBuffer& buffer, const String& master) {
    if (!buffer.getSimplePageMasterElement(master))
        return;
    regions.clear();
    buffer.getSimplePageMasterRegionList(regions, master);
}

/// What the master calls the region, or what it is called until it has a name.
String nameOfRegion(Names& regions, const PGMasterBuffer& buffer, RegionType type,
                    const String& master) {
    fillWithRegions(regions, buffer, master);
    const String element = Regions::nameOf(type);
    const auto known = regions.find(element);
    if (known != regions.end() && !known->second.empty())
        return known->second;
    // Deliberate: not "xsl", by which a region that nobody named would go.
    return element.empty() ? String() : L"xls-" + element;
}

/// Gives the region of that type the name, and makes it if there is none.
void nameRegion(PGMasterBuffer& buffer, Names& regions, RegionType type, const String& master,
                const String& newName) {
    const String name = nameOfRegion(regions, buffer, type, master);
    buffer.setVisibleRegion(master, name, true);
    buffer.setNameForRegion(master, name, newName);
}

/// The first page sequence or repeat that uses the master; -1 if none does.
int firstSequenceOf(const String& master, const DetachedText& text, const PGMasterBuffer& buffer) {
    const std::vector<int>& sequences = text.sequences();
    const auto found = std::find_if(sequences.begin(), sequences.end(), [&](int sequence) {
        const String reference =
            TextElements::attributeOf(text.text(), sequence, L"master-reference");
        return reference == master || buffer.simplePMUsedInComplexPageMaster(master, reference);
    });
    return found == sequences.end() ? -1 : *found;
}

/// Puts the markup before the sequence's static contents, or without these before its flow, unless
/// it has one of that flow name.
void insertStaticContent(String& content, const String& markup, const String& flowName,
                         const String& master, const PGMasterBuffer& buffer) {
    const DetachedText text(content);
    const int sequence = firstSequenceOf(master, text, buffer);
    if (sequence < 0 || text.text().selfClosingAt(sequence))
        return;
    const std::vector<int> own = TextElements::childrenOf(text.text(), sequence, L"static-content");
    const bool stands = std::any_of(own.begin(), own.end(), [&](int element) {
        return TextElements::attributeOf(text.text(), element, L"flow-name") == flowName;
    });
    const int flow = TextElements::childOf(text.text(), sequence, L"flow");
    const int behind = flow < 0 ? text.text().closingTag(sequence) : flow;
    if (!stands)
        content.insert(static_cast<unsigned>(own.empty() ? behind : own.front()), markup);
}

} // namespace

// Regions

String PGMasterUtilities::enableDisableRegion(const String& text, const String& master,
                                              const String& region, bool visible) {
    PGMasterBufferUtilities buffer(text);
    const bool wasVisible = buffer.isRegionVisible(master, region);
    buffer.setVisibleRegion(master, region, visible);
    return buffer.isRegionVisible(master, region) == wasVisible ? text : textOf(buffer);
}

void PGMasterUtilities::getRegionsMapList(const String& text, Names& regions,
                                          const String& master) {
    if (!master.empty())
        fillWithRegions(regions, PGMasterBufferUtilities(text), master);
}

void PGMasterUtilities::getRegionsMapList(const String& text, Names& regions, int masterIndex) {
    const PGMasterBufferUtilities buffer(text);
    fillWithRegions(regions, buffer, buffer.getSimplePageMasterName(masterIndex));
}

void PGMasterUtilities::getRegionsListUpdate(std::vector<String>& regions, const String& text,
                                             const String& master) {
    if (!master.empty())
        PGMasterBufferUtilities(text).getSimplePageMasterRegionList(regions, master);
}

void PGMasterUtilities::getRegionsListUpdate(std::vector<String>& regions, const String& text,
                                             int masterIndex) {
    const PGMasterBufferUtilities buffer(text);
    if (const String master = buffer.getSimplePageMasterName(masterIndex); !master.empty())
        buffer.getSimplePageMasterRegionList(regions, master);
}

void PGMasterUtilities::getRegionAttributesMap(const String& ignored, Names& regions,
                                               const String& text, int masterIndex) {
    const PGMasterBufferUtilities buffer(text);
    if (const String master = buffer.getSimplePageMasterName(masterIndex); !master.empty())
        buffer.getSimplePageMasterRegionAttributeMap(ignored, regions, master);
}

void PGMasterUtilities::setRegionName(Names& regions, RegionType type, const String& name) {
    if (const String element = Regions::nameOf(type); !element.empty())
        regions[element] = name;
}

String PGMasterUtilities::getRegionName(const String& text, Names& regions, RegionType type,
                                        const String& master) {
    return nameOfRegion(regions, PGMasterBufferUtilities(text), type, master);
}

String PGMasterUtilities::renameRegion(const String& text, const Names& staticTexts,
                                       const String& master, const String& newName, Names& regions,
                                       RegionType type) {
    if (master.empty() || newName.empty())
        return text;
    PGMasterBufferUtilities buffer(text);
    if (!buffer.getSimplePageMasterElement(master) || Regions::nameOf(type).empty())
        return text;
    std::vector<String> flows;
    buffer.getDocumentStaticContentList(flows, master);
    nameRegion(buffer, regions, type, master, newName);
    String changed = textOf(buffer);
    const auto stored = staticTexts.find(newName);
    if (stored != staticTexts.end() && !PGMasterBuffer::stringArrayContains(flows, newName))
        insertStaticContent(changed, stored->second, newName, master, buffer);
    return changed;
}

// Static contents

void PGMasterUtilities::getStaticContentMapListWithText(const String& text, Names& map,
                                                        const String& master, bool matchMaster,
                                                        bool matchRegions) {
    PGMasterBufferUtilities(text).getStaticContentTextMap(map, master, matchMaster, matchRegions);
}

void PGMasterUtilities::getStaticContentMapListWithText(const String& text, Names& map,
                                                        int sequenceIndex) {
    PGMasterBufferUtilities(text).getStaticContentTextMap(map, sequenceIndex);
}

void PGMasterUtilities::getStaticContentListFromDocument(std::vector<String>& flows,
                                                         const String& text, const String& master) {
    if (!master.empty())
        PGMasterBufferUtilities(text).getDocumentStaticContentList(flows, master);
}

String PGMasterUtilities::addNewStaticRegion(const String& text, const String& master,
                                             const String& flowName, Names& regions,
                                             RegionType type, int sequenceIndex, bool blank) {
    if (master.empty() || flowName.empty())
        return text;
    PGMasterBufferUtilities buffer(text);
    const Xml::Element* sequence = buffer.getPageSequenceByIdx(sequenceIndex);
    if (!buffer.getSimplePageMasterElement(master) || Regions::nameOf(type).empty() || !sequence ||
        !PaginationNodes::hasFlows(*sequence))
        return text;
    buffer.addNewStaticContent(flowName, master, sequenceIndex, blank);
    nameRegion(buffer, regions, type, master, flowName);
    return textOf(buffer);
}

// The whole

void PGMasterUtilities::applyChanges(EditableDocumentBuffer* target, EditableDocumentBuffer* source,
                                     const String& master, const std::vector<int>& sequences) {
    if (target && source)
        AppliedChanges::apply(Document::of(*target), *source, master, sequences);
}

void PGMasterUtilities::clearTextFormatting(const String& text, int sequenceIndex) {
    try {
        const PGMasterBufferUtilities buffer(PGMasterBufferUtilities::makeDummyBuffer(text));
        const String reference = buffer.getRefForPageSeqAtPos(buffer.getPageSeqPos(sequenceIndex));
        String unused;
        if (!reference.empty())
            buffer.clearFormattingOnSelectedText(unused, reference);
    } catch (const Core::Exception&) {
        return; // what cannot be read has no formatting to clear
    }
}

void PGMasterUtilities::changePageMasterReferenceForSequence(String& text, const String& name) {
    PracticePages::changeMasterReference(text, name);
}

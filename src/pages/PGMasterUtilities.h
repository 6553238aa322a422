#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "pages/RegionType.h"

#include <map>
#include <vector>

class EditableDocumentBuffer;

/// What a host does with page masters and static contents while they are edited on a page of their
/// own. The functions take a whole document as text and answer the changed text, and no undo, caret
/// or monitor is concerned; only applyChanges() changes a document.
///
/// Names are plain text. Where one is empty or unknown, or an index names no page sequence that
/// could hold a static content, the text comes back as it is, and so do maps and lists. A text that
/// is not well formed raises an Xml::ParseException. Page masters count from 0; page sequences,
/// repeats and inserted documents are counted together from 0.
class FORME_API PGMasterUtilities {
public:
    virtual ~PGMasterUtilities() = default;

    // Regions of a simple page master. In a map their names stand under those of the elements,
    // "region-before" and so on.

    /// Removes the region or puts it last in the master, as PGMasterBuffer::setVisibleRegion()
    /// does.
    static Core::String enableDisableRegion(const Core::String& text, const Core::String& master,
                                            const Core::String& region, bool visible);
    /// Lets the map hold the names of the master's regions and nothing else.
    static void getRegionsMapList(const Core::String& text,
                                  std::map<Core::String, Core::String>& regions,
                                  const Core::String& master);
    static void getRegionsMapList(const Core::String& text,
                                  std::map<Core::String, Core::String>& regions, int masterIndex);
    /// Appends the names.
    static void getRegionsListUpdate(std::vector<Core::String>& regions, const Core::String& text,
                                     const Core::String& master);
    static void getRegionsListUpdate(std::vector<Core::String>& regions, const Core::String& text,
                                     int masterIndex);
    /// Adds the names to the map; the first argument has no effect.
    static void getRegionAttributesMap(const Core::String& ignored,
                                       std::map<Core::String, Core::String>& regions,
                                       const Core::String& text, int masterIndex);
    static void setRegionName(std::map<Core::String, Core::String>& regions, RegionType type,
                              const Core::String& name);
    /// Fills the map as getRegionsMapList() does and answers the region's name. For a region that
    /// the master lacks, a name to work with until it gets its own, "xls-region-before" and so on.
    static Core::String getRegionName(const Core::String& text,
                                      std::map<Core::String, Core::String>& regions,
                                      RegionType type, const Core::String& master);
    /// Gives the region another name and thereby another flow to show; it is made if the master
    /// lacks it. Where no sequence that refers to the master has a static content of that flow
    /// name, the one stored for it in `staticTexts` goes before the static contents of the first
    /// sequence that uses the master, be it through a complex one.
    static Core::String renameRegion(const Core::String& text,
                                     const std::map<Core::String, Core::String>& staticTexts,
                                     const Core::String& master, const Core::String& newName,
                                     std::map<Core::String, Core::String>& regions,
                                     RegionType type);

    // Static contents

    /// Adds the exact texts of static contents by their flow names, of one name the last: all for
    /// the empty master, else with `matchMaster` those of sequences that use it, with
    /// `matchRegions` those that fill its regions.
    static void getStaticContentMapListWithText(const Core::String& text,
                                                std::map<Core::String, Core::String>& map,
                                                const Core::String& master, bool matchMaster,
                                                bool matchRegions);
    /// Those of one page sequence or repeat; in this index inserted documents do not count.
    static void getStaticContentMapListWithText(const Core::String& text,
                                                std::map<Core::String, Core::String>& map,
                                                int sequenceIndex);
    /// Appends the flow names of those in sequences that refer to the master itself, each but once.
    static void getStaticContentListFromDocument(std::vector<Core::String>& flows,
                                                 const Core::String& text,
                                                 const Core::String& master);
    /// Adds a static content to the page sequence, as PGMasterBuffer::addNewStaticContent() does,
    /// and gives the region that name; it is made if the master lacks it.
    static Core::String addNewStaticRegion(const Core::String& text, const Core::String& master,
                                           const Core::String& flowName,
                                           std::map<Core::String, Core::String>& regions,
                                           RegionType type, int sequenceIndex, bool blank);

    // The whole

    /// Takes over what was edited in `source`: the simple page master of that name, and for each of
    /// the target's page sequences with these indices the source's static contents that fill the
    /// master's regions. Other static contents of the sequences stay, and so do the flows, unit for
    /// unit. From one template to another, scripts, variables, values that are computed and the
    /// global style sheet come along, the sheet with what its prefixes and entities mean in the
    /// source. Between roots of either kind, "qfd:document" and "fo:root", so do settings of
    /// protection if the source has any. One undo step, which happens whole or not at all; nothing
    /// happens where the source has no such master. Raises an Xml::ParseException where one of the
    /// two does not parse, and a Core::Exception where its style sheet uses a prefix that nothing
    /// declares; the target then stays as it was. In silence it also does where no parser would
    /// take the result.
    static void applyChanges(EditableDocumentBuffer* target, EditableDocumentBuffer* source,
                             const Core::String& master, const std::vector<int>& sequences);
    /// Changes nothing and never raises.
    static void clearTextFormatting(const Core::String& text, int sequenceIndex);
    /// Makes the first master-reference in the text, which can be a part of a document, refer to
    /// the master.
    static void changePageMasterReferenceForSequence(Core::String& text, const Core::String& name);
};

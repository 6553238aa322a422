#pragma once

#include "trees/DOMBasedBuffer.h"

#include <list>
#include <map>
#include <memory>
#include <vector>

class HiddenRegions;

/// A whole document that is a text and belongs to no document buffer, as a tree: its page masters,
/// their regions, and the static contents that fill these. Nothing is written back; a host takes
/// the changed text from commitChangesToEditableBuffer(text). Copies edit the same tree.
///
/// Names are plain text. One that is empty or unknown, and a number that nothing has, change
/// nothing and give null, an empty text or false. A region without a name goes by the one that
/// flows refer to it by, as "xsl-region-before".
class FORME_API PGMasterBuffer : public DOMBasedBuffer {
public:
    /// Raises an Xml::ParseException where the text is not well formed. The shorthands of all
    /// attributes are written out.
    explicit PGMasterBuffer(const Core::String& text);

    /// Folds shorthands again where they say the same, without defaults, and writes nothing.
    void commitChangesToEditableBuffer() override;
    /// Puts the tree, as it is, into `text`, behind an XML declaration that names UTF-8.
    void commitChangesToEditableBuffer(Core::String& text);

    // Page sequences, repeats and inserted documents, counted together from 0

    std::list<Xml::Node*> getPaginationNodes() const;
    Xml::Element* getPageSequenceByIdx(int index) const;

    // Page masters, which stand in the root's fo:layout-master-set. Simple ones count from 0.

    int getSimplePageMasterCount() const;
    Core::String getSimplePageMasterName(int index) const;
    Xml::Element* getSimplePageMasterElement(const Core::String& name) const;
    Xml::Element* getComplexPageMasterByName(const Core::String& name) const;
    /// In the order of the text; empty for one without a name.
    std::vector<Core::String> getAllSimplePageMasters() const;
    std::vector<Core::String> getAllComplexPageMasters() const;

    /// Among the children of the root: in a text that is a fo:layout-master-set and no document.
    Xml::Element* getSimplePageMasterByName(const Core::String& name) const;
    /// Renames one of these. Nothing happens if another master has the new name; what refers to the
    /// master stays as it is.
    void renameSimplePageMaster(const Core::String& oldName, const Core::String& newName);

    /// Appends the names that the complex master refers to, those of its alternatives among them.
    void getComplexPageMasterEntries(const Core::String& name,
                                     std::vector<Core::String>& references) const;
    bool simplePMUsedInComplexPageMaster(const Core::String& simple,
                                         const Core::String& complexName) const;

    // Regions of a simple page master

    /// The region of that name; for the empty name the first element that has none.
    Xml::Element* getRegionByNameFromSimplePageMaster(const Xml::Element* master,
                                                      const Core::String& region) const;
    /// Whether the master has it.
    bool isRegionVisible(const Core::String& master, const Core::String& region) const;
    /// Removes the region or puts it last in the master. It comes back with the extent that it had
    /// when this object hid it, else "0.7in", and nothing else of what it had. Of which type it is,
    /// is told by what was hidden under the name, else by how the name ends, as in
    /// "A-region-before"; nothing is added where that says nothing or where the master has a region
    /// of the type.
    void setVisibleRegion(const Core::String& master, const Core::String& region, bool visible);
    void setNameForRegion(const Core::String& master, const Core::String& oldName,
                          const Core::String& newName);

    /// By the names of the elements, "region-before" and so on, the names of the master's regions,
    /// added to what is in the map; for the empty name those of all masters, of which the last
    /// counts.
    void getSimplePageMasterRegionList(std::map<Core::String, Core::String>& regions,
                                       const Core::String& master) const;
    /// Appends the names of the regions.
    void getSimplePageMasterRegionList(std::vector<Core::String>& regions,
                                       const Core::String& master) const;
    /// The same as the map above; the first argument has no effect.
    void getSimplePageMasterRegionAttributeMap(const Core::String& ignored,
                                               std::map<Core::String, Core::String>& regions,
                                               const Core::String& master) const;

    // Static contents: the children of page sequences and repeats, counted from 0 through them all

    std::list<Xml::Node*> getStaticContentsNodes() const;
    Xml::Element* getStaticContentElementByIdx(int index) const;
    Core::String getFlowNameForStaticContent(int index) const;
    /// The name of the master that its page sequence or repeat refers to.
    Core::String getPageSeqRefNameForStaticContent(int index) const;
    /// The first of that flow name in a page sequence; repeats are not searched.
    Xml::Element* getStaticContentElement(const Core::String& flowName) const;
    /// Renames the flow of that one, unless one of the new name stands beside it. The new name
    /// comes first.
    void setNameForStaticContent(const Core::String& newName, const Core::String& oldName);
    /// Adds one before the flow of the page sequence, or without a flow last. It holds a block with
    /// a no-break space or, if not `blank`, the resource text 19602. None is added where one of
    /// that flow name stands already. The second argument has no effect.
    void addNewStaticContent(const Core::String& flowName, const Core::String& ignored,
                             int sequenceIndex, bool blank);
    /// Appends the flow names of those in sequences that refer to the master itself, or for the
    /// empty name of all, each but once.
    void getDocumentStaticContentList(std::vector<Core::String>& flows,
                                      const Core::String& master) const;

    // What helps, and what visits the tree and keeps nothing of it

    static bool stringArrayContains(const std::vector<Core::String>& array,
                                    const Core::String& text);
    void parseAttributes(const Core::String& ignored) const;
    void walkDomTree(const Xml::Node* node, const Core::String& ignored) const;

private:
    std::shared_ptr<HiddenRegions> hidden_;
};

#pragma once

#include "pages/PGMasterBuffer.h"

#include <utility>

struct DetachedPages;

/// The same document also as the text that it is, from which elements are lifted out exactly as
/// they stand. What changes the tree does not change the text, nor the other way round.
///
/// A range is the offset of an element's first unit and the one behind its last; two times -1 where
/// nothing is found, or what is asked for is not in the text. Offsets count 16-bit code units. What
/// stands in a comment, a CDATA section or a processing instruction is no element.
class FORME_API PGMasterBufferUtilities : public PGMasterBuffer {
public:
    /// Raises an Xml::ParseException where the text is not well formed.
    explicit PGMasterBufferUtilities(const Core::String& text);

    /// "fo:root" if the text holds these letters, else "qfd:document"; until it is set.
    void setWorkingRootElement(const Core::String& name);
    Core::String getWorkingRootElement() const;
    /// What getFoFlowFromBuffer() found last; until it is set.
    void setOriginalFoFlow(const Core::String& flow);
    Core::String getOriginalFoFlow() const;

    // Finding by letters

    /// Finds the comments of the text, which is done when the object is made.
    void makeCommentsPositionList();
    /// Whether the offset lies in a comment, from its "<" to the first unit of its "-->".
    bool isCommentAtPos(int position) const;
    /// From "<", the name and a blank through the next closing tag of that name, wherever these
    /// stand but in comments.
    std::pair<int, int> getFirstElementPos(const Core::String& name) const;
    /// The same from an offset on.
    std::pair<int, int> getNextElementPos(const Core::String& name, int from) const;

    // Page sequences and repeats that are children of the root; inserted documents do not count

    std::pair<int, int> getFirstPageSimpleOrRepeatPos() const;
    /// Puts the next one that begins at or behind the range's end in its place.
    void getNextPageSimpleOrRepeatPos(std::pair<int, int>& range) const;
    /// The one with that number, from 0.
    std::pair<int, int> getPageSeqPos(int index) const;
    /// The fo:page-sequence around the offset; repeats do not count.
    std::pair<int, int> getCurrentPageSequencePos(int position) const;
    /// The master that the one at the range refers to.
    Core::String getRefForPageSeqAtPos(const std::pair<int, int>& range) const;

    // The static contents of these

    /// The first of the text. With a reference, only if the first sequence refers to that master.
    std::pair<int, int> getFirstStaticContentPos(const Core::String& reference) const;
    /// The first that begins at or behind the offset. With a reference, the first of those in a
    /// fo:page-sequence that refers to that master.
    std::pair<int, int> getNextStaticContentPos(int from, const Core::String& reference) const;
    /// Puts the static contents into the map by their flow names, of one name the last: for the
    /// empty name all, else with `matchMaster` those of sequences that refer to the master,
    /// directly or through a complex one, with `matchRegions` those that fill one of its regions.
    void getStaticContentTextMap(std::map<Core::String, Core::String>& texts,
                                 const Core::String& master, bool matchMaster,
                                 bool matchRegions) const;
    /// Those of the page sequence or repeat with that number.
    void getStaticContentTextMap(std::map<Core::String, Core::String>& texts,
                                 int sequenceIndex) const;
    /// Takes `text` for the object's own and puts the markup before its first static content, if it
    /// has any. The second argument has no effect.
    void insertStaticContentFromDifferentPage(Core::String& text, const Core::String& ignored,
                                              const Core::String& staticText);

    // Complex page masters

    /// As it stands; empty for one that is self-closing.
    Core::String getComplexMasterBufferTextByName(const Core::String& name) const;
    /// The buffer without the complex page masters of this object's text; those that it had are
    /// appended to `removed`.
    Core::String stripComplexMastersFromBuffer(const Core::String& buffer,
                                               Core::String& removed) const;

    // Flows of any text, be it a part of a document

    /// What stands in the first fo:flow that has a fo:block, from the child on that is or holds the
    /// first one; empty without these, and then the original flow stays as it was.
    Core::String getFoFlowFromBuffer(const Core::String& text);
    /// The text with `flowContent` in the place of the same, if that is not empty; empty where the
    /// text has no flow with a block.
    Core::String emptyFoFlowFromBuffer(const Core::String& text,
                                       const Core::String& flowContent) const;

    // Splicing. A "<" right before the range goes with it. Where the range's end is at "<" it is
    // one less, and a ">" there stays out of what follows. With `insertOnly` nothing else goes.
    // What is no range leaves the text as it is.

    /// A range that begins at the start of the text leaves the first unit where it is.
    void insertReplace(Core::String& text, int start, int end, const Core::String& insertion,
                       bool insertOnly) const;
    /// A range that begins with the first or second unit takes the first along.
    void insertReplace(Core::String& text, const std::pair<int, int>& range,
                       const Core::String& insertion, bool insertOnly) const;

    // Texts of pages for editing; names are escaped

    /// A page sequence for a master that none uses, with the flow names of the regions by the names
    /// of their elements, and the resource texts 19600, for which the master's name is {0}, and
    /// 19601 in its flow.
    Core::String getDummyPage(const Core::String& master,
                              std::map<Core::String, Core::String> regions) const;
    /// A whole document with one page, whose only block holds the markup.
    static Core::String makeDummyBuffer(const Core::String& markup);
    /// Ten empty lines and a notice that tells which page type is edited.
    Core::String getNewFoFlow(const Core::String& master) const;

    /// Visits the tree and changes nothing; false.
    bool clearFormattingOnSelectedText(Core::String& ignored, const Core::String& path) const;

private:
    std::shared_ptr<DetachedPages> pages_;
};

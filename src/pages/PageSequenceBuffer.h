#pragma once

#include "foundation/Vector.h"
#include "foundation/values/PageMasterData.h"
#include "foundation/values/PageSequenceInfo.h"
#include "foundation/values/PrintingAttributes.h"
#include "trees/DOMBasedBuffer.h"

#include <list>
#include <memory>
#include <vector>

class EditableDocumentBuffer;
class PageSequenceTree;

/// The page sequences of a document, which a host adds, removes, converts, orders and describes. It
/// makes one for a dialog or a command, edits and commits:
///
///     const SmartPtr<PageSequenceBuffer> sequences(new PageSequenceBuffer(document));
///     sequences->addNewPageSequence(PageMasterData(L"Letter"));
///     sequences->commitChangesToEditableBuffer();
///
/// The tree is that of the whole document, of which a commit writes what stands behind the page
/// masters. In it fo:page-sequence, qfd:page-sequence-repeat and qf:insert-document are the nodes:
/// those that are children of the root, counted together from 0.
///
/// An index that names no node, a node of another kind than is asked for and an empty name of a
/// master or a flow change nothing and give nothing. Names are plain text. Nothing checks that a
/// name is that of a page master. A value with a character that XML has no way to write raises a
/// Core::Exception, and the tree stays as it was.
class FORME_API PageSequenceBuffer : public DOMBasedBuffer {
public:
    // Reading and writing back

    /// Reads the document, which must not be null. Raises a Core::Exception where it has no page
    /// masters.
    explicit PageSequenceBuffer(EditableDocumentBuffer* document);
    /// Reads a text that belongs to no document. Then no sequence can be added or set to duplex
    /// printing, and a commit does nothing.
    explicit PageSequenceBuffer(const Core::String& text);
    /// A copy edits the same tree. When one of the two has committed, the other cannot any more.
    PageSequenceBuffer(const PageSequenceBuffer& other);
    PageSequenceBuffer& operator=(const PageSequenceBuffer& other);
    ~PageSequenceBuffer() override;

    /// Writes the page sequences back as one undo step, without space around them all, and declares
    /// on the root what prefixes they need. The caret goes to the first place of the flows. Raises
    /// a Core::Exception, and changes nothing, where what stands behind the page masters is no
    /// longer what was read. Without a change only the caret moves, and nothing is recorded. What
    /// no parser would take, or what touches a flow while page masters are edited, is dropped: the
    /// document stays as it is. Afterwards the buffer can be edited on and committed again.
    void commitChangesToEditableBuffer() override;

    // What is there

    std::list<Xml::Node*> getPaginationNodes() const;
    /// Null if there is none. The pointer is valid until the node is removed or moved.
    Xml::Element* getPageSequenceByIdx(int index) const;
    /// A row for each node that names its page master, or of an inserted document its address.
    Core::Vector<PageSequenceInfo> getPageSequenceInfo() const;
    /// The page master of a sequence or repeat.
    Core::String getReferenceForSequence(int index) const;
    /// The page master that a node of whatever kind names.
    Core::String getMasterReferenceByIdx(int index) const;
    Core::String getIdForSequence(int index) const;
    /// Whether a sequence or repeat names the master; one that has it through a complex master does
    /// not.
    bool masterIsUsedByPageSequence(const Core::String& master) const;
    /// The first static content of that flow name in the sequence; null without one or for null.
    static Xml::Element* getStaticContent(const Xml::Element* sequence,
                                          const Core::String& flowName);
    /// The path to the nodes of the repeat with that id: its own behind those of its parents,
    /// without predicates. "/" for an id that no repeat has, or that is among the `visited`; a
    /// chain of parents that comes round ends so, too.
    Core::String getXPathContextFromParentSet(const std::vector<Core::String>& visited,
                                              const Core::String& id) const;

    // Adding and removing

    /// Appends a sequence on that master. It gets the static contents that other sequences on it
    /// have, as they stand in the document; those come with the commit. For the other regions of
    /// the master it gets one with an empty block, and a flow. Of several sequences added before
    /// one commit the last gets what was found for all: better add one at a time.
    void addNewPageSequence(const PageMasterData& master);
    /// The same with a repeat over the nodes of `xpath`; what else is empty is not written.
    void addNewPageSequenceRepeat(const PageMasterData& master, const Core::String& xpath,
                                  const Core::String& condition, const Core::String& sort,
                                  const Core::String& parentId);
    /// Appends a document that is inserted from that address.
    void addExternalDocument(const Core::String& address);
    void deletePageSequence(int index);
    void removeExternalDocument(int index);
    void setSourceForExternalDocument(int index, const Core::String& address);
    /// Exchange a node with the one before or behind it. Of the two the upper one becomes a copy.
    void movePageSequenceUp(int index);
    void movePageSequenceDown(int index);
    /// Makes a sequence a repeat on that master, where what is empty is not written, and a repeat a
    /// sequence, which keeps its master. What it holds stays.
    void convertPageSequence(int index, const PageMasterData& master, const Core::String& xpath,
                             const Core::String& condition, const Core::String& sort,
                             const Core::String& parentId);

    // Attributes

    /// The page master of a sequence or repeat.
    void setReferenceForSequence(int index, const Core::String& master);
    /// In all nodes that name the old one.
    void changeReferenceName(const Core::String& oldName, const Core::String& newName);
    /// Of a repeat: written also if empty.
    void changeXPathReferenceForPageIndx(int index, const Core::String& xpath);
    void changeConditionForPageIndx(int index, const Core::String& condition);
    void changeSortForPageIndx(int index, const Core::String& sort);
    /// The repeat from whose nodes a repeat's path starts; empty for none.
    void setParentSetIdForSequence(int index, const Core::String& parentId);
    void setIdForSequence(int index, const Core::String& id);
    /// Nothing where the sequence has a static content of the new name already.
    void changeFlowNameForStaticContent(int index, const Core::String& oldName,
                                        const Core::String& newName);

    // Printing

    /// Have the sequence that holds the document's caret printed on both sides of the paper, or say
    /// nothing of that.
    void setDuplexPrinting();
    void removePrintingOptions();
    /// One for each sequence and repeat. Without options of its own it has a new id.
    std::vector<PrintingAttributes> getPageSequencesPrintingOptions() const;
    /// Gives each sequence and repeat the options at its own index. Inserted documents count in
    /// that, which they do not in what getPageSequencesPrintingOptions() gives: a host puts in what
    /// stands for them. Raises a Core::Exception, and changes nothing, where there are too few.
    void setPageSequencesPrintingOptions(const std::vector<PrintingAttributes>& options);

private:
    std::unique_ptr<PageSequenceTree> sequences_;
};

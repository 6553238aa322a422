#include "pages/PageSequenceTree.h"

#include "document/Document.h"
#include "document/PageSequences.h"
#include "foundation/xml/Element.h"
#include "pages/NewSequence.h"
#include "pages/PaginationNodes.h"
#include "pages/RunningTexts.h"
#include "pages/SequenceAttributes.h"
#include "trees/Fragment.h"

#include <algorithm>
#include <map>
#include <utility>

using Core::String;
using Xml::Element;

PageSequenceTree::PageSequenceTree(Document& document, Fragment& fragment)
    : fragment_(&fragment), document_(&document), commit_(std::in_place, document, fragment) {}

PageSequenceTree::PageSequenceTree(const String& text, Fragment& fragment) : fragment_(&fragment) {
    fragment.readText(text);
}

PageSequenceTree::PageSequenceTree(const PageSequenceTree& other, Fragment& fragment)
    : PageSequenceTree(other) {
    fragment_ = &fragment;
}

Element& PageSequenceTree::root() const {
    return *fragment_->root();
}

Element* PageSequenceTree::at(int index) const {
    return PaginationNodes::at(root(), index);
}

Element* PageSequenceTree::current() const {
    if (!document_)
        return nullptr;
    const Document& document = *document_;
    return at(PageSequences::indexOf(document, PageSequences::around(document, document.caret())));
}

void PageSequenceTree::add(PageSequenceType type, const PageMasterData& master,
                           const RepeatData& data) {
    if (!document_ || master.getName().empty())
        return;
    SequenceAttributes::requireWritable(master.getName(), data);
    const RunningTexts running(*document_);
    NewSequence::collectTexts(running, master, awaited_.texts);
    awaited_.sequence = &NewSequence::append(root(), type, master.getName(), data);
    const std::map<String, String> regions = master.isSimplePageMaster()
                                                 ? running.regionsOf(master.getName())
                                                 : std::map<String, String>();
    NewSequence::addFlows(*awaited_.sequence, regions, awaited_.texts);
}

void PageSequenceTree::remove(int index) {
    Element* const sequence = at(index);
    if (!sequence)
        return;
    if (sequence == awaited_.sequence)
        awaited_ = {};
    root().remove_child(sequence);
}

void PageSequenceTree::moveDown(int index) {
    Element* const sequence = at(index);
    Element* const next = sequence ? at(index + 1) : nullptr;
    if (!next)
        return;
    Xml::Node* const copy = root().import_node_as_sibling(sequence, next, true);
    if (sequence == awaited_.sequence)
        awaited_.sequence = static_cast<Element*>(copy);
    root().remove_child(sequence);
}

void PageSequenceTree::commit() {
    if (!commit_)
        return;
    const auto nodes = PaginationNodes::of(root());
    // A host can have removed the element itself.
    if (std::find(nodes.begin(), nodes.end(), awaited_.sequence) == nodes.end())
        awaited_ = {};
    commit_->carryOut(*fragment_, awaited_);
}

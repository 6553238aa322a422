#include "pages/PageSequenceBuffer.h"

#include "document/Document.h"
#include "foundation/Exception.h"
#include "pages/NewSequence.h"
#include "pages/PageSequenceRows.h"
#include "pages/PageSequenceTree.h"
#include "pages/PaginationNodes.h"
#include "pages/PrintingOptions.h"
#include "pages/SequenceAttributes.h"
#include "pages/SequenceConversion.h"
#include "pages/SequencePrinting.h"

#include <algorithm>

using Core::String;
using Core::Vector;
using Xml::Element;
using Xml::Node;

namespace {

Document& documentOf(EditableDocumentBuffer* face) {
    if (!face)
        throw Core::NullPointerException();
    return Document::of(*face);
}

} // namespace

PageSequenceBuffer::PageSequenceBuffer(EditableDocumentBuffer* document)
    : DOMBasedBuffer(documentOf(document)),
      sequences_(std::make_unique<PageSequenceTree>(documentOf(document), fragment())) {}

PageSequenceBuffer::PageSequenceBuffer(const String& text)
    : sequences_(std::make_unique<PageSequenceTree>(text, fragment())) {}

PageSequenceBuffer::PageSequenceBuffer(const PageSequenceBuffer& other)
    : DOMBasedBuffer(other),
      sequences_(std::make_unique<PageSequenceTree>(*other.sequences_, fragment())) {}

PageSequenceBuffer& PageSequenceBuffer::operator=(const PageSequenceBuffer& other) {
    DOMBasedBuffer::operator=(other);
    sequences_ = std::make_unique<PageSequenceTree>(*other.sequences_, fragment());
    return *this;
}

PageSequenceBuffer::~PageSequenceBuffer() = default;

void PageSequenceBuffer::commitChangesToEditableBuffer() {
    sequences_->commit();
}

// What is there

std::list<Node*> PageSequenceBuffer::getPaginationNodes() const {
    return PaginationNodes::of(sequences_->root());
}

Element* PageSequenceBuffer::getPageSequenceByIdx(int index) const {
    return sequences_->at(index);
}

Vector<PageSequenceInfo> PageSequenceBuffer::getPageSequenceInfo() const {
    return PageSequenceRows::of(sequences_->root());
}

String PageSequenceBuffer::getReferenceForSequence(int index) const {
    const Element* sequence = sequences_->at(index);
    return sequence && PaginationNodes::hasFlows(*sequence)
               ? SequenceAttributes::referenceOf(*sequence)
               : String();
}

String PageSequenceBuffer::getMasterReferenceByIdx(int index) const {
    const Element* sequence = sequences_->at(index);
    return sequence ? SequenceAttributes::referenceOf(*sequence) : String();
}

String PageSequenceBuffer::getIdForSequence(int index) const {
    const Element* sequence = sequences_->at(index);
    return sequence ? SequenceAttributes::idOf(*sequence) : String();
}

bool PageSequenceBuffer::masterIsUsedByPageSequence(const String& master) const {
    const Vector<PageSequenceInfo> rows = getPageSequenceInfo();
    return !master.empty() &&
           std::any_of(rows.begin(), rows.end(),
                       [&](const PageSequenceInfo& row) { return row.masterReference == master; });
}

Element* PageSequenceBuffer::getStaticContent(const Element* sequence, const String& flowName) {
    return sequence ? SequenceAttributes::staticContent(*sequence, flowName) : nullptr;
}

String PageSequenceBuffer::getXPathContextFromParentSet(const std::vector<String>& visited,
                                                        const String& id) const {
    return PageSequenceRows::contextOf(getPageSequenceInfo(), visited, id);
}

// Adding and removing

void PageSequenceBuffer::addNewPageSequence(const PageMasterData& master) {
    sequences_->add(PageSequenceType::PageSequence, master, {});
}

void PageSequenceBuffer::addNewPageSequenceRepeat(const PageMasterData& master, const String& xpath,
                                                  const String& condition, const String& sort,
                                                  const String& parentId) {
    sequences_->add(PageSequenceType::PageSequenceRepeat, master,
                    {xpath, condition, sort, parentId});
}

void PageSequenceBuffer::addExternalDocument(const String& address) {
    NewSequence::appendDocument(sequences_->root(), address);
}

void PageSequenceBuffer::deletePageSequence(int index) {
    sequences_->remove(index);
}

void PageSequenceBuffer::removeExternalDocument(int index) {
    const Element* document = sequences_->at(index);
    if (document && PaginationNodes::isInsertedDocument(*document))
        sequences_->remove(index);
}

void PageSequenceBuffer::setSourceForExternalDocument(int index, const String& address) {
    if (Element* document = sequences_->at(index))
        SequenceAttributes::setSource(*document, address);
}

void PageSequenceBuffer::movePageSequenceUp(int index) {
    sequences_->moveDown(index - 1);
}

void PageSequenceBuffer::movePageSequenceDown(int index) {
    sequences_->moveDown(index);
}

void PageSequenceBuffer::convertPageSequence(int index, const PageMasterData& master,
                                             const String& xpath, const String& condition,
                                             const String& sort, const String& parentId) {
    if (Element* sequence = sequences_->at(index))
        SequenceConversion::convert(*sequence, master.getName(),
                                    {xpath, condition, sort, parentId});
}

// Attributes

void PageSequenceBuffer::setReferenceForSequence(int index, const String& master) {
    if (Element* sequence = sequences_->at(index))
        SequenceAttributes::setReference(*sequence, master);
}

void PageSequenceBuffer::changeReferenceName(const String& oldName, const String& newName) {
    for (Node* node : getPaginationNodes())
        SequenceAttributes::renameReference(static_cast<Element&>(*node), oldName, newName);
}

void PageSequenceBuffer::changeXPathReferenceForPageIndx(int index, const String& xpath) {
    if (Element* repeat = sequences_->at(index))
        SequenceAttributes::setOfRepeat(*repeat, L"xpath", xpath);
}

void PageSequenceBuffer::changeConditionForPageIndx(int index, const String& condition) {
    if (Element* repeat = sequences_->at(index))
        SequenceAttributes::setOfRepeat(*repeat, L"condition", condition);
}

void PageSequenceBuffer::changeSortForPageIndx(int index, const String& sort) {
    if (Element* repeat = sequences_->at(index))
        SequenceAttributes::setOfRepeat(*repeat, L"sort", sort);
}

void PageSequenceBuffer::setParentSetIdForSequence(int index, const String& parentId) {
    if (Element* repeat = sequences_->at(index))
        SequenceAttributes::setParentId(*repeat, parentId);
}

void PageSequenceBuffer::setIdForSequence(int index, const String& id) {
    if (Element* sequence = sequences_->at(index))
        SequenceAttributes::setId(*sequence, id);
}

void PageSequenceBuffer::changeFlowNameForStaticContent(int index, const String& oldName,
                                                        const String& newName) {
    if (const Element* sequence = sequences_->at(index))
        SequenceAttributes::renameFlow(*sequence, oldName, newName);
}

// Printing

void PageSequenceBuffer::setDuplexPrinting() {
    if (Element* sequence = sequences_->current())
        PrintingOptions::setDuplex(*sequence);
}

void PageSequenceBuffer::removePrintingOptions() {
    if (Element* sequence = sequences_->current())
        PrintingOptions::removeDuplex(*sequence);
}

std::vector<PrintingAttributes> PageSequenceBuffer::getPageSequencesPrintingOptions() const {
    return SequencePrinting::of(sequences_->root());
}

void PageSequenceBuffer::setPageSequencesPrintingOptions(
    const std::vector<PrintingAttributes>& options) {
    SequencePrinting::write(sequences_->root(), options);
}

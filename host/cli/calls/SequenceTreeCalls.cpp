// The page sequences of a document that are edited as a tree.

#include "calls/Calls.h"
#include "calls/PageWire.h"
#include "calls/Rows.h"
#include "calls/TreeWire.h"

#include <forme/pages/PageSequenceBuffer.h>

template <>
inline const std::vector<RecordField<PageSequenceInfo>>& fieldsOf<PageSequenceInfo>() {
    using I = PageSequenceInfo;
    static const std::vector<RecordField<I>> fields{
        field<&I::kind>("kind"),
        field<&I::masterReference>("masterReference"),
        field<&I::externalSource>("externalSource"),
        field<&I::id>("id"),
        field<&I::xpath>("xpath"),
        field<&I::sort>("sort"),
        field<&I::condition>("condition"),
        field<&I::parentSequenceId>("parentSequenceId")};
    return fields;
}
template <>
struct Wire<PageSequenceInfo> : RecordWire<PageSequenceInfo> {
    static inline const std::string name =
        describe("page sequence (kind 0 sequence, 1 inserted document, 2 repeat)");
};

namespace {

using S = PageSequenceBuffer;
using Core::String;

/// Nodes are numbered only where there are some.
OpenedObjects::Tree treeOf(S& sequences) {
    return [&sequences]() -> Xml::Node* {
        const auto nodes = sequences.getPaginationNodes();
        return nodes.empty() ? nullptr : nodes.front()->get_parent();
    };
}

SmartPtr<S> sequencesOf(Session& session) {
    return SmartPtr<S>(new S(&session.document()));
}

SmartPtr<S> sequencesIn(Session&, const String& text) {
    return SmartPtr<S>(new S(text));
}

} // namespace

std::vector<Operation> Calls::pageSequenceTree() {
    const OpenedRows<S> sequences("sequences");
    return {
        sequences.openMade(&sequencesOf, &treeOf),
        sequences.openMade(&sequencesIn, &treeOf, {"text"}),
        sequences.close(),
        sequences("commitChangesToEditableBuffer", &S::commitChangesToEditableBuffer),
        sequences("commit", &S::commitChangesToEditableBuffer),
        sequences("getDocumentBufferStart", &S::getDocumentBufferStart),
        sequences("getDocumentBufferEnd", &S::getDocumentBufferEnd),

        // What is there
        sequences("getPaginationNodes", &S::getPaginationNodes),
        sequences("getPageSequenceByIdx", &S::getPageSequenceByIdx, {"index"}),
        sequences("getPageSequenceInfo", &S::getPageSequenceInfo),
        sequences("getReferenceForSequence", &S::getReferenceForSequence, {"index"}),
        sequences("getMasterReferenceByIdx", &S::getMasterReferenceByIdx, {"index"}),
        sequences("getIdForSequence", &S::getIdForSequence, {"index"}),
        sequences("masterIsUsedByPageSequence", &S::masterIsUsedByPageSequence, {"master"}),
        sequences("getStaticContent", &S::getStaticContent, {"sequence", "flowName"}),
        sequences("getXPathContextFromParentSet", &S::getXPathContextFromParentSet,
                  {"visited", "id"}),

        // Adding and removing
        sequences("addNewPageSequence", &S::addNewPageSequence, {"master"}),
        sequences("addNewPageSequenceRepeat", &S::addNewPageSequenceRepeat,
                  {"master", "xpath", "condition", "sort", "parentId"}),
        sequences("addExternalDocument", &S::addExternalDocument, {"address"}),
        sequences("deletePageSequence", &S::deletePageSequence, {"index"}),
        sequences("removeExternalDocument", &S::removeExternalDocument, {"index"}),
        sequences("setSourceForExternalDocument", &S::setSourceForExternalDocument,
                  {"index", "address"}),
        sequences("movePageSequenceUp", &S::movePageSequenceUp, {"index"}),
        sequences("movePageSequenceDown", &S::movePageSequenceDown, {"index"}),
        sequences("convertPageSequence", &S::convertPageSequence,
                  {"index", "master", "xpath", "condition", "sort", "parentId"}),

        // Attributes
        sequences("setReferenceForSequence", &S::setReferenceForSequence, {"index", "master"}),
        sequences("changeReferenceName", &S::changeReferenceName, {"oldName", "newName"}),
        sequences("changeXPathReferenceForPageIndx", &S::changeXPathReferenceForPageIndx,
                  {"index", "xpath"}),
        sequences("changeConditionForPageIndx", &S::changeConditionForPageIndx,
                  {"index", "condition"}),
        sequences("changeSortForPageIndx", &S::changeSortForPageIndx, {"index", "sort"}),
        sequences("setParentSetIdForSequence", &S::setParentSetIdForSequence,
                  {"index", "parentId"}),
        sequences("setIdForSequence", &S::setIdForSequence, {"index", "id"}),
        sequences("changeFlowNameForStaticContent", &S::changeFlowNameForStaticContent,
                  {"index", "oldName", "newName"}),

        // Printing
        sequences("setDuplexPrinting", &S::setDuplexPrinting),
        sequences("removePrintingOptions", &S::removePrintingOptions),
        sequences("getPageSequencesPrintingOptions", &S::getPageSequencesPrintingOptions),
        sequences("setPageSequencesPrintingOptions", &S::setPageSequencesPrintingOptions,
                  {"options"}),
    };
}

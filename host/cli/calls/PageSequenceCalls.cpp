// Page sequences and what stands in their place.

#include "calls/Calls.h"
#include "calls/Rows.h"

#include <forme/document/PageSequenceAlg.h>

using BufferAlgorithms::PageSequenceAlg;
using D = EditableDocumentBuffer;

std::vector<Operation> Calls::pageSequences() {
    const auto document = documentRows();
    const Rows pageSequence([](Session& session) { return PageSequenceAlg(&session.document()); },
                            "pageSequence");
    return {
        document("getNextPageSeq", &D::getNextPageSeq, {"position"}),
        document("getPageSequencePosition", &D::getPageSequencePosition, {"index"}),
        document("getPageSequenceIdxFromPos", &D::getPageSequenceIdxFromPos, {"position"}),
        document("getPageSeqPosFrom", &D::getPageSeqPosFrom, {"position"}),
        document("getCurrentPageSequenceIdx", &D::getCurrentPageSequenceIdx),
        document("getFirstFlowFromPageSequence", &D::getFirstFlowFromPageSequence, {"index"}),
        document("replacePageSequence", &D::replacePageSequence, {"index", "xml"}),
        document("pageSequenceHasPrintingOptionsOn",
                 static_cast<bool (D::*)() const>(&D::pageSequenceHasPrintingOptionsOn)),
        document("pageSequenceHasPrintingOptionsOn",
                 static_cast<bool (D::*)(int) const>(&D::pageSequenceHasPrintingOptionsOn),
                 {"index"}),
        pageSequence("getPageSequenceIdxFromPos", &PageSequenceAlg::getPageSequenceIdxFromPos,
                     {"position"}),
        pageSequence("getCurrentPageSequenceIdx", &PageSequenceAlg::getCurrentPageSequenceIdx),
    };
}

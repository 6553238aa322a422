// The elements that make pages, by index and by offset.

#include "document/EditableDocumentBuffer.h"

using Core::StringArray;

namespace {

const StringArray& pageGenerators() {
    static const StringArray names{L"fo:page-sequence", L"qf:insert-document",
                                   L"qfd:page-sequence-repeat"};
    return names;
}

} // namespace

int EditableDocumentBuffer::getNextPageSeq(int position) const {
    return getFirstElementByName(pageGenerators(), position);
}

int EditableDocumentBuffer::getPageSequencePosition(int index) const {
    int generator = index < 0 ? -1 : getNextPageSeq(0);
    for (int i = 0; i < index && generator >= 0; ++i)
        generator = getNextPageSeq(getClosingTagForTagAtPosition(generator));
    return generator;
}

int EditableDocumentBuffer::getPageSequenceIdxFromPos(int position) const {
    int index = -1;
    const int root = searchParent(getRootElementName(), position, true, true, L"");
    for (int generator = getNextPageSeq(root); generator >= 0 && generator <= position;
         generator = getNextPageSeq(getClosingTagForTagAtPosition(generator)))
        ++index;
    return index;
}

int EditableDocumentBuffer::getPageSeqPosFrom(int position) const {
    const int sequence = searchParent(L"fo:page-sequence", position, false, true, L"");
    return sequence >= 0 ? sequence
                         : searchParent(L"qfd:page-sequence-repeat", position, false, true, L"");
}

int EditableDocumentBuffer::getCurrentPageSequenceIdx() const {
    return getPageSequenceIdxFromPos(getPageSeqPosFrom(caretPos_));
}

int EditableDocumentBuffer::firstFlowOf(int generator) const {
    const int flow = getNextElementByName(L"fo:flow", generator);
    return flow < getClosingTagForTagAtPosition(generator) ? flow : -1;
}

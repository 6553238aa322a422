#include "document/PageSequenceAlg.h"

namespace BufferAlgorithms {

int PageSequenceAlg::getPageSequenceIdxFromPos(int position) const {
    return buffer().getPageSequenceIdxFromPos(buffer().getPageSeqPosFrom(position));
}

int PageSequenceAlg::getCurrentPageSequenceIdx() const {
    return getPageSequenceIdxFromPos(getCaretPos());
}

} // namespace BufferAlgorithms

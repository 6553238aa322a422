#pragma once

#include "document/BufferAlg.h"

namespace BufferAlgorithms {

/// Which page sequence a position belongs to. Page sequences, repeats and inserted documents are
/// counted together from 0, in the order of the text; a repeat is one with all that stands in it.
class FORME_API PageSequenceAlg : public BufferAlg {
public:
    using BufferAlg::BufferAlg;

    /// The index of the fo:page-sequence or else the qfd:page-sequence-repeat around the position;
    /// -1 in neither.
    int getPageSequenceIdxFromPos(int position) const;
    /// The same for the caret.
    int getCurrentPageSequenceIdx() const;
};

} // namespace BufferAlgorithms

#pragma once

#include "foundation/String.h"

/// A page sequence, or what stands in the place of one, as a list of them shows it. What an element
/// does not say is empty.
struct PageSequenceInfo {
    // What `kind` can be
    static constexpr int pageSequence = 0;       ///< fo:page-sequence
    static constexpr int insertDocument = 1;     ///< qf:insert-document
    static constexpr int pageSequenceRepeat = 2; ///< qfd:page-sequence-repeat

    int kind = pageSequence;
    Core::String masterReference;
    Core::String externalSource; ///< the inserted document's address
    Core::String id;

    // Of a repeat
    Core::String xpath; ///< the nodes over which it is repeated
    Core::String sort;
    Core::String condition;
    Core::String parentSequenceId; ///< the repeat from whose nodes its path starts
};

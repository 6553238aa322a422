#pragma once

/// What a page sequence that has flows is.
enum class PageSequenceType {
    NoSequence = 0,
    PageSequence = 1,      ///< fo:page-sequence
    PageSequenceRepeat = 2 ///< qfd:page-sequence-repeat, repeated over the nodes of the data
};

#pragma once

#include "foundation/String.h"

/// What a repeat says of the nodes that it is repeated over.
struct RepeatData {
    Core::String xpath;
    Core::String condition;
    Core::String sort;
    Core::String parentId; ///< of the repeat from whose nodes the path starts
};

#pragma once

#include "foundation/String.h"

/// An element with an id, as a host lists it.
struct ElementInfo {
    Core::String name; ///< with prefix
    Core::String id;
    bool repeats; ///< whether it is written once for each node of the data
    Core::String xpath;
    Core::String sort;
};

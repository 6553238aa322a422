#pragma once

#include "foundation/String.h"

#include <vector>

/// An element and where it stands.
struct ElementPlace {
    int start = -1;          ///< its `<`; -1 where no element is
    Core::String name;       ///< with prefix
    Core::String path;       ///< from the root down, the element last, as commands take it
    std::vector<int> around; ///< where the elements around it start, the root first
};

#pragma once

#include "foundation/String.h"

/// What a border that is set gets besides its style. What is empty is not written.
struct BorderInfo {
    Core::String width;
    Core::String color;
    Core::String style; ///< for the host's own use: borders that are set are solid
};

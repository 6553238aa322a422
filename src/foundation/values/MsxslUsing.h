#pragma once

#include "foundation/String.h"

/// A namespace whose names a script uses without saying it.
struct MsxslUsing {
    Core::String nameSpace;

    bool operator==(const MsxslUsing&) const = default;
};

#pragma once

#include "foundation/String.h"

/// An assembly that a script uses, told by its name or, without one, its address.
struct MsxslAssembly {
    Core::String name;
    Core::String href;

    bool operator==(const MsxslAssembly&) const = default;
};

#pragma once

#include "foundation/String.h"

/// The margins of a page as the attributes say them, lengths or percentages; empty where one says
/// nothing.
struct PageMargins {
    Core::String left;
    Core::String right;
    Core::String top;
    Core::String bottom;
};

#pragma once

#include "foundation/String.h"

/// The size of a page as the attributes say it, lengths as in "8.5in"; empty where one says
/// nothing.
struct PageSize {
    Core::String width;
    Core::String height;
};

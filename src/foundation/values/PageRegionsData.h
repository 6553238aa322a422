#pragma once

#include "foundation/values/RegionData.h"

/// The regions of a page master. One that the page does not have is not visible, and else as a
/// default record.
struct PageRegionsData {
    RegionData start;
    RegionData end;
    RegionData before;
    RegionData after;
    RegionData body;
};

#pragma once

/// The regions that a page can have.
enum class RegionType {
    REGION_BEFORE = 0, ///< the header
    REGION_AFTER = 1,  ///< the footer
    REGION_START = 2,  ///< the left side, where one writes to the right
    REGION_END = 3,
    REGION_BODY = 4
};

#pragma once

/// On which side of an offset a stop is looked for. A stop at the offset itself is on each.
enum class StopSide {
    Before = 0,
    Behind = 1,
    Either = 2 ///< the nearer one, counted in units of the text; of two as near the one before
};

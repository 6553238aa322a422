#pragma once

#include "text/store/MarkKinds.h"
#include "text/store/MarkupFaults.h"

#include <algorithm>

/// What is known of a stretch of text without reading it.
struct Measure {
    int length = 0;
    MarkupFaults faults{};
    int net = 0;  ///< the start tags that end in it, less the closing tags
    int rise = 0; ///< the same of that part at its end for which it is the most; at least 0
    MarkKinds kinds{};
    bool endsInText = true;

    /// Of this stretch and of what follows it, as one.
    Measure& operator+=(const Measure& next) {
        length += next.length;
        faults += next.faults;
        rise = std::max(next.rise, next.net + rise);
        net += next.net;
        kinds |= next.kinds;
        endsInText = next.endsInText;
        return *this;
    }

    friend bool operator==(const Measure&, const Measure&) = default;
};

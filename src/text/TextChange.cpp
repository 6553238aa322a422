#include "text/TextChange.h"

#include <algorithm>

/// A change that has come to nothing counts, for the range is to hold every place that was touched.
void TextChange::add(const TextChange& later) {
    const int first = std::min(start, later.start);
    const int lead = start - first;
    const int tail = std::max(0, later.start + later.removed - (start + inserted));
    start = first;
    removed += lead + tail;
    inserted += lead + tail + later.inserted - later.removed;
}

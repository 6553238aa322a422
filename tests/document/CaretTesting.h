#pragma once

#include "document/caret/Stops.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <vector>

/// All stops found by walking right from the start of the document, or left from its end, in the
/// text's order.
inline std::vector<int> stopsOf(const Document& document, bool right) {
    std::vector<int> found;
    for (int stop = right ? 0 : document.text().length() - 1;;) {
        stop = right ? Stops::next(document, stop) : Stops::previous(document, stop);
        if (stop < 0)
            return found;
        found.insert(right ? found.end() : found.begin(), stop);
    }
}

#pragma once

#include "text/TextView.h"

/// Where the root element of a text begins and ends.
struct RootEdges {
    static RootEdges of(TextView text);

    int root = -1;         ///< its start tag
    int content = 0;       ///< behind that; the length of the text where it is not complete
    int behindContent = 0; ///< how many units there are from its closing tag on; -1 where
                           ///< anything but white space follows that, which is rare enough not to
                           ///< be looked through

    /// Whether units from `start` up to but excluding `end`, of a text so long, are content.
    bool areAround(int start, int end, int length) const {
        return root >= 0 && content <= start && behindContent >= 0 && end <= length - behindContent;
    }
};

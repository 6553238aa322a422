#pragma once

#include "foundation/String.h"
#include "view/EditingState.h"

#include <vector>

class Document;

/// The formats that were told last. They follow from the start tags of an element and of those
/// around it and from nothing else, so where these are the same, as behind nearly every key, so are
/// they.
class KnownFormats {
public:
    /// Notes what was told of an element.
    KnownFormats(const Document& document, int element, std::vector<Format> formats);

    /// Whether they are those of this element.
    bool areOf(const Document& document, int element) const;
    const std::vector<Format>& formats() const { return formats_; }

private:
    struct Level {
        Core::String tag;
        bool isInline;
    };

    std::vector<Level> levels_; // the element, then those around it
    std::vector<Format> formats_;
};

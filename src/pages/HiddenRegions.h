#pragma once

#include "foundation/String.h"
#include "pages/RegionType.h"

#include <map>

namespace Xml {
class Element;
}

/// What is known of the regions that were hidden, by their names.
class HiddenRegions {
public:
    /// Removes the region of that name from the master.
    void hide(Xml::Element& master, const Core::String& region);
    /// Puts it last in the master, if it is of a type that the master lacks.
    void show(Xml::Element& master, const Core::String& region) const;

private:
    struct Hidden {
        RegionType type;
        Core::String extent;
    };
    std::map<Core::String, Hidden> hidden_;
};

#pragma once

#include "foundation/String.h"
#include "pages/DetachedText.h"

#include <map>

namespace Xml {
class Element;
}

/// Which static contents of a document count.
struct StaticContentChoice {
    /// Empty for those of every master.
    Core::String master;
    /// Only those of sequences that refer to the master, directly or through a complex one.
    bool ofItsSequences = false;
    /// Only those that fill a region of the master.
    bool ofItsRegions = false;
    /// The sequence that they must be children of; -1 for any.
    int sequence = -1;

    /// Where they are in the text, by their flow names; of one name the last. `root` is that of the
    /// text's tree, which tells the names. None where text and tree do not have as many.
    std::map<Core::String, int> in(const DetachedText& text, const Xml::Element& root) const;
};

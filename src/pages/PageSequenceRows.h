#pragma once

#include "foundation/String.h"
#include "foundation/Vector.h"
#include "foundation/values/PageSequenceInfo.h"

#include <vector>

namespace Xml {
class Element;
}

/// The page sequences of a document as a list of them shows them.
namespace PageSequenceRows {

/// A row for each that names its master or its source; the others are left out.
Core::Vector<PageSequenceInfo> of(const Xml::Element& root);

/// The path from the root of the data to the nodes of the repeat with that id, without predicates;
/// "/" for an id that no repeat has. Parents are followed until one is met again or is among the
/// `visited`.
Core::String contextOf(const Core::Vector<PageSequenceInfo>& rows,
                       const std::vector<Core::String>& visited, const Core::String& id);

} // namespace PageSequenceRows

#pragma once

#include "foundation/String.h"

struct RepeatData;

namespace Xml {
class Element;
}

namespace SequenceConversion {

/// Makes a page sequence a repeat on that master, and a repeat a page sequence, which keeps the one
/// it has. What it holds stays. An inserted document stays what it is, and so does a sequence for
/// which no master is named. Throws Core::Exception, and changes nothing, where a value cannot be
/// written in XML.
void convert(Xml::Element& sequence, const Core::String& master, const RepeatData& data);

} // namespace SequenceConversion

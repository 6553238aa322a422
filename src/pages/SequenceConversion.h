#pragma once

#include "foundation/String.h"

struct RepeatData;

namespace Xml {
class Element;
}

/// A page sequence made into a repeat, and a repeat into a page sequence. What it holds stays.
namespace SequenceConversion {

/// Its attributes keep their meaning under the prefix "fo".
void toRepeat(Xml::Element& sequence, const Core::String& master, const RepeatData& data);
/// It keeps its master. The attributes that only repeats have become "qfd" ones.
void toSequence(Xml::Element& repeat);

} // namespace SequenceConversion

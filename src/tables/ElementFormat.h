#pragma once

#include "foundation/xml/Element.h"

/// The attributes of an element that say how it looks.
namespace ElementFormat {

/// Gives the target those of the source; with `clear` it keeps none of its own.
void apply(Xml::Element& target, const Xml::Element& source, bool clear);

} // namespace ElementFormat

#pragma once

#include "foundation/String.h"

namespace Xml {

/// Whether a parser accepts the text, which is read as it is decoded here, whatever encoding it
/// declares. Nothing outside is read: references to what stands there are passed over, and where a
/// document type points outside, an entity may be declared there.
bool isWellFormed(const Core::String& document);

} // namespace Xml

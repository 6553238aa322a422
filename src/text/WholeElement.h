#pragma once

#include "text/XmlScan.h"

namespace XmlScan {

/// The length of the element that a well-formed text begins with; -1 without an end. Tags are
/// counted, whatever their names, and other than the scans this passes the end of a fo:root, which
/// a style sheet can hold.
int elementLength(Text text) noexcept;

} // namespace XmlScan

#pragma once

#include "text/XmlScan.h"

#include <array>
#include <cstddef>
#include <optional>

/// The properties that tell which white space shows. What is in an element inherits them.
namespace SpaceProperties {

/// In the order in which they are applied: the shorthand gives way to what is set by itself.
enum Property : std::size_t { Shorthand, Treatment, Collapse, Linefeed, Count };

using Values = std::array<std::optional<XmlScan::Text>, Count>;

/// What the start tag of an element with that name sets. A property without a prefix counts as its
/// element's, but gives way to one written out.
Values setBy(XmlScan::Text text, int element, XmlScan::Text name);

} // namespace SpaceProperties

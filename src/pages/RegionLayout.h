#pragma once

#include "foundation/String.h"
#include "foundation/values/RegionData.h"

namespace Xml {
class Element;
}

/// A region's attributes as one record.
namespace RegionLayout {

/// The name by which the body's own attributes are found.
inline constexpr const wchar_t* bodyName = L"xsl-region-body";

/// Throws Core::Exception where one of the values is what XML cannot hold.
void check(const RegionData& data);
/// The record of a region that is known by the name.
RegionData read(const Xml::Element& region, const Core::String& flowName);
/// Gives the region what the record says otherwise than the attributes do. So what a record cannot
/// hold, as a width of "auto" or a shadow's blur, stays where something else is changed.
void write(Xml::Element& region, const Core::String& flowName, const RegionData& data);

} // namespace RegionLayout

#pragma once

#include "foundation/values/PageLayoutData.h"
#include "pages/RegionAttributes.h"

namespace Xml {
class Element;
}

/// The size and the margins of a simple page master.
namespace PageLayout {

// Each throws Core::Exception for what XML cannot hold, and then changes nothing.

void setSize(Xml::Element& master, const Core::String& width, const Core::String& height);
/// New ones are written in the order top, bottom, right, left.
void setMargins(Xml::Element& master, const RegionAttributes::SideValues& margins);

/// Gives the master what the record says otherwise than its attributes do.
void write(Xml::Element& master, const PageLayoutData& data);

} // namespace PageLayout

#pragma once

namespace Xml {

/// The region that a promo place is in. The numbers are not those of RegionType.
enum class PageRegionConstraint { None = 0, Body = 1, Before = 2, After = 3, Start = 4, End = 5 };

} // namespace Xml

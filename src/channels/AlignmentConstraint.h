#pragma once

namespace Xml {

/// Where in its region a promo place is.
enum class AlignmentConstraint { None = 0, Left = 1, Center = 2, Right = 3 };

} // namespace Xml

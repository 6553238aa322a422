#pragma once

namespace Xml {

/// The pages on which a promo place appears.
enum class PageConstraint { None = 0, First = 1, Last = 2, Odd = 3, Even = 4, Blank = 5 };

} // namespace Xml

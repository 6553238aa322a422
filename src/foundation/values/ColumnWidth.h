#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/values/LengthOrPercent.h"

namespace Xml {

/// The width of a table's column: a length, a percentage, or a share of what the other columns
/// leave, "proportional-column-width(2)". A share N and N% are the same width, so that a share is
/// read as a percentage.
class FORME_API ColumnWidth {
public:
    /// Reads `text`, white space around it aside. False when that is no width; `result` is then
    /// neither length nor percentage.
    static bool parseColumnWidth(const Core::String& text, ColumnWidth& result);

    LengthOrPercent getLengthOrPercent() const { return value_; }

    /// The share of `percent`, with at most three decimals, as it is written.
    static Core::String formatShare(float percent);
    /// Whether `text` is a share, whatever stands between its parentheses.
    static bool isShare(const Core::String& text);

private:
    LengthOrPercent value_;
};

} // namespace Xml

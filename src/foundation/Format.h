#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

namespace Core {

/// Numbers to text and back, the same in every locale.
class FORME_API Format {
public:
    /// The integer that `text` is: an optional sign and decimal digits, with nothing around them. 0
    /// when it is none or does not fit into an int.
    static int parseInt(const String& text);

    /// The same; false when `text` is no integer, and `result` keeps its value.
    static bool parseInt(const String& text, int& result);

    /// The number that `text` is: an optional sign, decimal digits, and an optional point among
    /// them, with nothing around them. False when it is none (an exponent counts as none) or lies
    /// out of a float's range; `result` then keeps its value.
    static bool parseFloat(const String& text, float& result);

    /// The number as text, without an exponent. A format such as "0.00" or "0.0##" rounds to the
    /// nearest: it gives as many decimals as there are zeros behind the point, and as many more as
    /// there are "#", unless they are zeros. The empty format, and one that is none, gives the
    /// shortest text that reads back as the same number. Infinity and not-a-number, for which there
    /// is no such text, give "0".
    static String formatValue(float value, const String& format);
};

} // namespace Core

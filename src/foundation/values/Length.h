#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

namespace Xml {

/// A length as attributes hold it: a number and one of the units px, pt, pc, cm, mm, in, em and ex,
/// with nothing between, as in "12.5pt". The number has an optional sign and an optional point, no
/// exponent.
///
/// A length that was read gives back the text that it was read from, also when that is no length:
/// an attribute that is read and written keeps what it says. A default length is the empty text.
class FORME_API Length {
public:
    /// Reads `text`, white space around it aside. False when that is no length; `result` then keeps
    /// the text all the same.
    static bool parseLength(const Core::String& text, Length& result);

    /// Whether there is a number and a unit.
    bool isValid() const { return !unit_.empty(); }
    /// The number, in the length's own unit; 0 when there is none.
    float getSize() const { return size_; }
    /// Changes the number of a valid length, and with it the text. Any other stays as it is.
    void setSize(float size);
    /// "pt"; empty when there is none.
    Core::String getUnit() const { return unit_; }
    Core::String getValueAsString() const { return text_; }

private:
    Core::String text_;
    Core::String unit_;
    float size_ = 0;
};

} // namespace Xml

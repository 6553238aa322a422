#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/values/Length.h"

namespace Xml {

/// A length, or a percentage: a number and "%", as in "33.3%". What was read gives back its text,
/// as a Length does.
class FORME_API LengthOrPercent {
public:
    /// Reads `text`, white space around it aside. False when that is neither; `result` then keeps
    /// the text all the same.
    static bool parseLengthOrPercent(const Core::String& text, LengthOrPercent& result);

    bool isPercent() const { return isPercent_; }
    /// The number before the "%"; 0 when this is no percentage.
    float getPercent() const { return percent_; }
    /// Makes this a percentage.
    void setPercent(float percent);

    /// Not valid when this is a percentage.
    Length getLength() const { return length_; }
    /// Makes this a length.
    void setLength(const Length& length);

    Core::String getValueAsString() const { return text_; }

private:
    Core::String text_;
    Length length_;
    float percent_ = 0;
    bool isPercent_ = false;
};

} // namespace Xml

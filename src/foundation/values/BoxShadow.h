#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/values/Length.h"

namespace Xml {

/// The shadow of a box: how far it lies to the right and below, and its color, as in
/// "2pt 3pt 0 #808080". A blur and a spread are read over.
class FORME_API BoxShadow {
public:
    /// Reads two lengths, further lengths and a color, in this order. False when `text` is anything
    /// else; the shadow then keeps its value.
    bool readFromString(const Core::String& text);

    Length getX() const { return x_; }
    Length getY() const { return y_; }
    /// The color as it was written.
    Core::String getColor() const { return color_; }

private:
    Length x_;
    Length y_;
    Core::String color_;
};

} // namespace Xml

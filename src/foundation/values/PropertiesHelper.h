#pragma once

#include "foundation/Api.h"
#include "foundation/values/PropertyCollection.h"

/// Rewrites between shorthand properties and the single ones that they stand for. Works on names
/// with the prefix "fo" or none; what it writes has the prefix of what it replaces.
class FORME_API PropertiesHelper {
public:
    /// Writes four `margin-*`, and four `padding-*`, as the shortest `margin` and `padding` that
    /// say the same, in the place of the first of the four. A shorthand that stands beside all four
    /// has no effect on the page and goes. Nothing else is collapsed.
    static void collapseShorthands(PropertyCollection& properties);

    /// Writes `margin` and `padding` (one to four values: top, right, bottom, left) and
    /// `border-top`, `border-right`, `border-bottom` and `border-left` (width, style and color in
    /// any order; what is left out is not written) as the single properties, in their place. A
    /// single property that stands already wins. `border`, `border-style`, `border-width` and
    /// `border-color` stay, and so does a shorthand whose value makes no sense.
    static void expandShorthands(PropertyCollection& properties);

    /// Removes properties that have their initial value and do not inherit: `border-*-style`,
    /// `padding-*`, `margin-*` and the background's color, image, repeat and attachment. One that
    /// overrides a shorthand beside it stays, since without it the shorthand would speak.
    static void removeDefaultValues(PropertyCollection& properties);
};

#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

namespace Xml {

/// Tells whether a text is a color. Components are numbers or percentages; names and functions are
/// given without white space around them.
class FORME_API ColorParse {
public:
    /// Any of the forms below, told apart by how it begins.
    static bool parseColor(const Core::String& text);

    /// "rgb-icc(1, 0, 0, #CMYK, 0, 1, 1, 0)": a color for those who lack the profile, the profile's
    /// name, and the components in it, if there are any.
    static bool parseICCColor(const Core::String& text);
    /// "spot-color(PANTONE 185, 1, 0, 0)": the name of an ink and any components.
    static bool parseSpotColor(const Core::String& text);
    /// "rgb(255, 0, 0)".
    static bool parseRGB(const Core::String& text);
    /// "cmyk(0, 1, 1, 0)".
    static bool parseCMYKString(const Core::String& text);
    /// "#f00" or "#ff0000".
    static bool parseHexaColor(const Core::String& text);
    /// A name that SVG has, in any case, or "transparent".
    static bool parseColorName(const Core::String& text);
};

} // namespace Xml

#pragma once

#include "foundation/String.h"
#include "foundation/values/RegionData.h"

namespace Xml {
class Element;
}

/// What the attributes of a region, or of a page master, say. An empty value means that there is no
/// such attribute, in both directions.
namespace RegionAttributes {

/// The names of four attributes that are one value.
struct Sides {
    const wchar_t* left;
    const wchar_t* right;
    const wchar_t* top;
    const wchar_t* bottom;
};
inline constexpr Sides padding{L"padding-left", L"padding-right", L"padding-top",
                               L"padding-bottom"};
inline constexpr Sides margin{L"margin-left", L"margin-right", L"margin-top", L"margin-bottom"};
inline constexpr Sides borderStyle{L"border-left-style", L"border-right-style", L"border-top-style",
                                   L"border-bottom-style"};
inline constexpr Sides borderWidth{L"border-left-width", L"border-right-width", L"border-top-width",
                                   L"border-bottom-width"};
inline constexpr Sides borderColor{L"border-left-color", L"border-right-color", L"border-top-color",
                                   L"border-bottom-color"};

/// The values of such attributes.
struct SideValues {
    Core::String left;
    Core::String right;
    Core::String top;
    Core::String bottom;

    bool operator==(const SideValues&) const = default;
};

/// Throws Core::Exception where one is what XML cannot hold.
void check(const SideValues& values);

Core::String get(const Xml::Element& element, const Core::String& name);
void set(Xml::Element& element, const Core::String& name, const Core::String& value);
SideValues get(const Xml::Element& element, const Sides& names);
/// New ones are written in the order top, bottom, left, right. Throws Core::Exception, as each of
/// these does, for what XML cannot hold, and then changes nothing.
void set(Xml::Element& element, const Sides& names, const SideValues& values);

// Turns. A document says them in degrees, hosts in quarters, "0" to "3".

Core::String quartersOf(const Core::String& degrees);
/// Empty for what is no number of quarters.
Core::String degreesOf(const Core::String& quarters);

// The shadow

struct Shadow {
    Core::String x;
    Core::String y;
    Core::String color;

    bool operator==(const Shadow&) const = default;
};

/// As an attribute, with no blur; empty for a shadow of which nothing is told.
Core::String shadowText(const Shadow& shadow);

/// Puts a gradient in the place of the background's image; nothing for an empty one.
void setGradient(Xml::Element& region, const Core::String& gradient);

} // namespace RegionAttributes

#include "foundation/values/FormattingProperties.h"

#include "foundation/values/OneOf.h"

#include <algorithm>
#include <array>

namespace {

/// Which components a property may be written with, behind a ".".
enum class Components { None, ConditionalLength, LengthRange, Space, Keep, BothDirections };

struct Property {
    std::wstring_view name;
    Components components = Components::None;
};

constexpr auto properties = std::to_array<Property>({
    // Background
    {L"background"},
    {L"background-attachment"},
    {L"background-color"},
    {L"background-image"},
    {L"background-position"},
    {L"background-position-horizontal"},
    {L"background-position-vertical"},
    {L"background-repeat"},
    // Border
    {L"border"},
    {L"border-color"},
    {L"border-style"},
    {L"border-width"},
    {L"border-before-color"},
    {L"border-before-style"},
    {L"border-before-width", Components::ConditionalLength},
    {L"border-after-color"},
    {L"border-after-style"},
    {L"border-after-width", Components::ConditionalLength},
    {L"border-start-color"},
    {L"border-start-style"},
    {L"border-start-width", Components::ConditionalLength},
    {L"border-end-color"},
    {L"border-end-style"},
    {L"border-end-width", Components::ConditionalLength},
    {L"border-top"},
    {L"border-top-color"},
    {L"border-top-style"},
    {L"border-top-width"},
    {L"border-right"},
    {L"border-right-color"},
    {L"border-right-style"},
    {L"border-right-width"},
    {L"border-bottom"},
    {L"border-bottom-color"},
    {L"border-bottom-style"},
    {L"border-bottom-width"},
    {L"border-left"},
    {L"border-left-color"},
    {L"border-left-style"},
    {L"border-left-width"},
    // Padding
    {L"padding"},
    {L"padding-before", Components::ConditionalLength},
    {L"padding-after", Components::ConditionalLength},
    {L"padding-start", Components::ConditionalLength},
    {L"padding-end", Components::ConditionalLength},
    {L"padding-top"},
    {L"padding-right"},
    {L"padding-bottom"},
    {L"padding-left"},
    // Font
    {L"font"},
    {L"font-family"},
    {L"font-selection-strategy"},
    {L"font-size"},
    {L"font-size-adjust"},
    {L"font-stretch"},
    {L"font-style"},
    {L"font-variant"},
    {L"font-weight"},
    // Hyphenation
    {L"country"},
    {L"language"},
    {L"script"},
    {L"hyphenate"},
    {L"hyphenation-character"},
    {L"hyphenation-push-character-count"},
    {L"hyphenation-remain-character-count"},
    // Margin of blocks and inlines
    {L"margin"},
    {L"margin-top"},
    {L"margin-right"},
    {L"margin-bottom"},
    {L"margin-left"},
    {L"space-before", Components::Space},
    {L"space-after", Components::Space},
    {L"space-start", Components::Space},
    {L"space-end", Components::Space},
    {L"start-indent"},
    {L"end-indent"},
    // Relative position
    {L"position"},
    {L"relative-position"},
    {L"top"},
    {L"right"},
    {L"bottom"},
    {L"left"},
    // Area alignment
    {L"alignment-adjust"},
    {L"alignment-baseline"},
    {L"baseline-shift"},
    {L"display-align"},
    {L"dominant-baseline"},
    {L"relative-align"},
    {L"vertical-align"},
    // Area dimension
    {L"allowed-height-scale"},
    {L"allowed-width-scale"},
    {L"block-progression-dimension", Components::LengthRange},
    {L"content-height"},
    {L"content-width"},
    {L"height"},
    {L"inline-progression-dimension", Components::LengthRange},
    {L"max-height"},
    {L"max-width"},
    {L"min-height"},
    {L"min-width"},
    {L"scaling"},
    {L"scaling-method"},
    {L"width"},
    // Block and line
    {L"hyphenation-keep"},
    {L"hyphenation-ladder-count"},
    {L"last-line-end-indent"},
    {L"line-height", Components::Space},
    {L"line-height-shift-adjustment"},
    {L"line-stacking-strategy"},
    {L"linefeed-treatment"},
    {L"text-align"},
    {L"text-align-last"},
    {L"text-indent"},
    {L"white-space"},
    {L"white-space-collapse"},
    {L"white-space-treatment"},
    {L"wrap-option"},
    // Character. Deliberate: not "character", which is the content of its element.
    {L"letter-spacing", Components::Space},
    {L"suppress-at-line-break"},
    {L"text-decoration"},
    {L"text-shadow"},
    {L"text-transform"},
    {L"treat-as-word-space"},
    {L"word-spacing", Components::Space},
    // Decoration lines one by one, as documents of this format have them
    {L"text-underline-color"},
    {L"text-underline-style"},
    {L"text-underline-width"},
    {L"text-overline-color"},
    {L"text-overline-style"},
    {L"text-overline-width"},
    {L"text-line-through-color"},
    {L"text-line-through-style"},
    {L"text-line-through-width"},
    // Color. Deliberate: not "color-profile-name", which is a name to refer to.
    {L"color"},
    {L"rendering-intent"},
    // Float
    {L"clear"},
    {L"float"},
    {L"intrusion-displace"},
    // Keeps and breaks
    {L"break-after"},
    {L"break-before"},
    {L"keep-together", Components::Keep},
    {L"keep-with-next", Components::Keep},
    {L"keep-with-previous", Components::Keep},
    {L"orphans"},
    {L"page-break-after"},
    {L"page-break-before"},
    {L"page-break-inside"},
    {L"widows"},
    // Leader and rule
    {L"leader-alignment"},
    {L"leader-length", Components::LengthRange},
    {L"leader-pattern"},
    {L"leader-pattern-width"},
    {L"rule-style"},
    {L"rule-thickness"},
    // Table
    {L"border-collapse"},
    {L"border-separation", Components::BothDirections},
    {L"border-spacing"},
    {L"caption-side"},
    {L"empty-cells"},
    {L"table-layout"},
    // Writing mode
    {L"direction"},
    {L"glyph-orientation-horizontal"},
    {L"glyph-orientation-vertical"},
    {L"text-altitude"},
    {L"text-depth"},
    {L"unicode-bidi"},
    {L"writing-mode"},
});

constexpr bool comesBefore(const Property& a, const Property& b) {
    return a.name < b.name;
}

constexpr auto sortedProperties = [] {
    auto sorted = properties;
    std::sort(sorted.begin(), sorted.end(), comesBefore);
    return sorted;
}();

bool hasComponent(Components components, std::wstring_view name) noexcept {
    switch (components) {
    case Components::ConditionalLength:
        return isOneOf(name, {L"length", L"conditionality"});
    case Components::LengthRange:
        return isOneOf(name, {L"minimum", L"optimum", L"maximum"});
    case Components::Space:
        return isOneOf(name,
                       {L"minimum", L"optimum", L"maximum", L"precedence", L"conditionality"});
    case Components::Keep:
        return isOneOf(name, {L"within-line", L"within-column", L"within-page"});
    case Components::BothDirections:
        return isOneOf(name, {L"block-progression-direction", L"inline-progression-direction"});
    case Components::None:
        break;
    }
    return false;
}

} // namespace

bool FormattingProperties::contains(std::wstring_view name) noexcept {
    const std::size_t dot = name.find(L'.');
    const std::wstring_view property = name.substr(0, dot);
    const auto found = std::lower_bound(sortedProperties.begin(), sortedProperties.end(),
                                        Property{property}, comesBefore);
    if (found == sortedProperties.end() || found->name != property)
        return false;
    return dot == std::wstring_view::npos || hasComponent(found->components, name.substr(dot + 1));
}

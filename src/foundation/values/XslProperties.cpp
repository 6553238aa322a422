#include "foundation/values/XslProperties.h"

#include <algorithm>
#include <array>

namespace XslProperties {

namespace {

constexpr bool inherits = true;

constexpr auto properties = std::to_array<XslProperty>({
    // Background
    {L"background-attachment", L"scroll"},
    {L"background-color", L"transparent"},
    {L"background-image", L"none"},
    {L"background-position-horizontal", L"0%"},
    {L"background-position-vertical", L"0%"},
    {L"background-repeat", L"repeat"},
    // Border. The initial color is that of the text.
    {L"border-before-color", L""},
    {L"border-before-style", L"none"},
    {L"border-before-width", L"medium"},
    {L"border-after-color", L""},
    {L"border-after-style", L"none"},
    {L"border-after-width", L"medium"},
    {L"border-start-color", L""},
    {L"border-start-style", L"none"},
    {L"border-start-width", L"medium"},
    {L"border-end-color", L""},
    {L"border-end-style", L"none"},
    {L"border-end-width", L"medium"},
    {L"border-top-color", L""},
    {L"border-top-style", L"none"},
    {L"border-top-width", L"medium"},
    {L"border-right-color", L""},
    {L"border-right-style", L"none"},
    {L"border-right-width", L"medium"},
    {L"border-bottom-color", L""},
    {L"border-bottom-style", L"none"},
    {L"border-bottom-width", L"medium"},
    {L"border-left-color", L""},
    {L"border-left-style", L"none"},
    {L"border-left-width", L"medium"},
    // Padding
    {L"padding-before", L"0pt"},
    {L"padding-after", L"0pt"},
    {L"padding-start", L"0pt"},
    {L"padding-end", L"0pt"},
    {L"padding-top", L"0pt"},
    {L"padding-right", L"0pt"},
    {L"padding-bottom", L"0pt"},
    {L"padding-left", L"0pt"},
    // Font
    {L"font-family", L"", inherits},
    {L"font-selection-strategy", L"auto", inherits},
    {L"font-size", L"medium", inherits},
    {L"font-size-adjust", L"none", inherits},
    {L"font-stretch", L"normal", inherits},
    {L"font-style", L"normal", inherits},
    {L"font-variant", L"normal", inherits},
    {L"font-weight", L"normal", inherits},
    // Hyphenation
    {L"country", L"none", inherits},
    {L"language", L"none", inherits},
    {L"script", L"auto", inherits},
    {L"hyphenate", L"false", inherits},
    {L"hyphenation-character", L"\x2010", inherits},
    {L"hyphenation-push-character-count", L"2", inherits},
    {L"hyphenation-remain-character-count", L"2", inherits},
    // Margins of blocks and inlines
    {L"margin-top", L"0pt"},
    {L"margin-right", L"0pt"},
    {L"margin-bottom", L"0pt"},
    {L"margin-left", L"0pt"},
    {L"space-before", L"0pt"},
    {L"space-after", L"0pt"},
    {L"space-start", L"0pt"},
    {L"space-end", L"0pt"},
    {L"start-indent", L"0pt", inherits},
    {L"end-indent", L"0pt", inherits},
    // Position
    {L"absolute-position", L"auto"},
    {L"relative-position", L"static"},
    {L"top", L"auto"},
    {L"right", L"auto"},
    {L"bottom", L"auto"},
    {L"left", L"auto"},
    // Area alignment
    {L"alignment-adjust", L"auto"},
    {L"alignment-baseline", L"auto"},
    {L"baseline-shift", L"baseline"},
    {L"display-align", L"auto", inherits},
    {L"dominant-baseline", L"auto"},
    {L"relative-align", L"before", inherits},
    // Area dimension
    {L"allowed-height-scale", L"any", inherits},
    {L"allowed-width-scale", L"any", inherits},
    {L"block-progression-dimension", L"auto"},
    {L"content-height", L"auto"},
    {L"content-width", L"auto"},
    {L"height", L"auto"},
    {L"inline-progression-dimension", L"auto"},
    {L"max-height", L"none"},
    {L"max-width", L"none"},
    {L"min-height", L"0pt"},
    {L"min-width", L""},
    {L"scaling", L"uniform"},
    {L"scaling-method", L"auto"},
    {L"width", L"auto"},
    // Block and line
    {L"hyphenation-keep", L"auto", inherits},
    {L"hyphenation-ladder-count", L"no-limit", inherits},
    {L"last-line-end-indent", L"0pt", inherits},
    {L"line-height", L"normal", inherits},
    {L"line-height-shift-adjustment", L"consider-shifts", inherits},
    {L"line-stacking-strategy", L"max-height", inherits},
    {L"linefeed-treatment", L"treat-as-space", inherits},
    {L"text-align", L"start", inherits},
    {L"text-align-last", L"relative", inherits},
    {L"text-indent", L"0pt", inherits},
    {L"white-space-collapse", L"true", inherits},
    {L"white-space-treatment", L"ignore-if-surrounding-linefeed", inherits},
    {L"wrap-option", L"wrap", inherits},
    // Character
    {L"letter-spacing", L"normal", inherits},
    {L"score-spaces", L"true", inherits},
    {L"suppress-at-line-break", L"auto"},
    {L"text-decoration", L"none"},
    {L"text-shadow", L"none"},
    {L"text-transform", L"none", inherits},
    {L"treat-as-word-space", L"auto"},
    {L"word-spacing", L"normal", inherits},
    // Decoration lines one by one, which XSL does not have and documents of this format do. A line
    // goes through all that its element holds.
    {L"text-underline-color", L"", inherits},
    {L"text-underline-style", L"none", inherits},
    {L"text-underline-width", L"", inherits},
    {L"text-overline-color", L"", inherits},
    {L"text-overline-style", L"none", inherits},
    {L"text-overline-width", L"", inherits},
    {L"text-line-through-color", L"", inherits},
    {L"text-line-through-style", L"none", inherits},
    {L"text-line-through-width", L"", inherits},
    // Color
    {L"color", L"", inherits},
    {L"rendering-intent", L"auto"},
    // Float
    {L"clear", L"none"},
    {L"float", L"none"},
    {L"intrusion-displace", L"auto", inherits},
    // Keeps and breaks
    {L"break-after", L"auto"},
    {L"break-before", L"auto"},
    {L"keep-together", L"auto", inherits},
    {L"keep-with-next", L"auto"},
    {L"keep-with-previous", L"auto"},
    {L"orphans", L"2", inherits},
    {L"widows", L"2", inherits},
    // Layout
    {L"clip", L"auto"},
    {L"overflow", L"auto"},
    {L"reference-orientation", L"0", inherits},
    {L"span", L"none"},
    {L"visibility", L"visible", inherits},
    {L"z-index", L"auto"},
    // Leader and rule
    {L"leader-alignment", L"none", inherits},
    {L"leader-length", L"12pt", inherits},
    {L"leader-pattern", L"space", inherits},
    {L"leader-pattern-width", L"use-font-metrics", inherits},
    {L"rule-style", L"solid", inherits},
    {L"rule-thickness", L"1pt", inherits},
    // List
    {L"provisional-distance-between-starts", L"24pt", inherits},
    {L"provisional-label-separation", L"6pt", inherits},
    // Table
    {L"border-collapse", L"collapse", inherits},
    {L"border-separation", L"0pt", inherits},
    {L"caption-side", L"before", inherits},
    {L"empty-cells", L"show", inherits},
    {L"ends-row", L"false"},
    {L"number-columns-repeated", L"1"},
    {L"number-columns-spanned", L"1"},
    {L"number-rows-spanned", L"1"},
    {L"starts-row", L"false"},
    {L"table-layout", L"auto"},
    {L"table-omit-footer-at-break", L"false"},
    {L"table-omit-header-at-break", L"false"},
    // Writing mode
    {L"direction", L"ltr", inherits},
    {L"glyph-orientation-horizontal", L"0deg", inherits},
    {L"glyph-orientation-vertical", L"auto", inherits},
    {L"text-altitude", L"use-font-metrics"},
    {L"text-depth", L"use-font-metrics"},
    {L"unicode-bidi", L"normal"},
    {L"writing-mode", L"lr-tb", inherits},
});

constexpr bool comesBefore(const XslProperty& a, const XslProperty& b) {
    return a.name < b.name;
}

constexpr auto sortedProperties = [] {
    auto sorted = properties;
    std::sort(sorted.begin(), sorted.end(), comesBefore);
    return sorted;
}();

} // namespace

const XslProperty* find(std::wstring_view name) noexcept {
    const auto found = std::lower_bound(sortedProperties.begin(), sortedProperties.end(),
                                        XslProperty{name, {}}, comesBefore);
    return found != sortedProperties.end() && found->name == name ? &*found : nullptr;
}

} // namespace XslProperties

#include "export/FoModel.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace FoModel {

namespace {

/// The bits behind those that have names in the header.
constexpr Kinds bit(int number) {
    return Kinds{1} << number;
}

constexpr Kinds masterSet = bit(42);
constexpr Kinds declarations = bit(7);
constexpr Kinds colorProfile = bit(8);
constexpr Kinds bookmarkTree = bit(9);
constexpr Kinds bookmark = bit(10);
constexpr Kinds bookmarkTitle = bit(11);
constexpr Kinds sequence = bit(12);
constexpr Kinds master = bit(13);
constexpr Kinds subSequence = bit(14);
constexpr Kinds conditionalReference = bit(15);
constexpr Kinds regionBody = bit(16);
constexpr Kinds regionBefore = bit(17);
constexpr Kinds regionAfter = bit(18);
constexpr Kinds regionStart = bit(19);
constexpr Kinds regionEnd = bit(20);
constexpr Kinds title = bit(21);
constexpr Kinds folioPrefix = bit(22);
constexpr Kinds folioSuffix = bit(23);
constexpr Kinds staticContent = bit(24);
constexpr Kinds flow = bit(25);
constexpr Kinds table = bit(26);
constexpr Kinds caption = bit(27);
constexpr Kinds column = bit(28);
constexpr Kinds header = bit(29);
constexpr Kinds footer = bit(30);
constexpr Kinds body = bit(31);
constexpr Kinds row = bit(32);
constexpr Kinds cell = bit(33);
constexpr Kinds item = bit(34);
constexpr Kinds label = bit(35);
constexpr Kinds itemBody = bit(36);
constexpr Kinds inlineObject = bit(37);
constexpr Kinds footnoteBody = bit(38);
constexpr Kinds multiCase = bit(39);
constexpr Kinds propertySet = bit(40);
constexpr Kinds initialProperties = bit(41);
constexpr Kinds keyReference = bit(43);
constexpr Kinds citationSeparator = bit(44);
constexpr Kinds rangeSeparator = bit(45);
constexpr Kinds numberPrefix = bit(46);
constexpr Kinds numberSuffix = bit(47);

constexpr Kinds blocks = block | anywhere | marker;
constexpr Kinds line = text | block | inlineLevel | anywhere | marker;
constexpr Kinds inlines = text | inlineLevel | anywhere;

constexpr WhenEmpty stays = WhenEmpty::Stays;
constexpr WhenEmpty goes = WhenEmpty::Goes;
constexpr WhenEmpty filled = WhenEmpty::IsFilled;

// By name, for the search.
constexpr Object objects[] = {
    {"basic-link", inlineLevel, {line}, {}, stays, "internal-destination", "inline"},
    {"bidi-override", inlineLevel, {line}},
    {"block", block, {line | initialProperties}},
    {"block-container", block, {blocks}, "block", filled},
    {"bookmark", bookmark, {bookmarkTitle, bookmark}, {}, filled},
    {"bookmark-title", bookmarkTitle, {text}},
    {"bookmark-tree", bookmarkTree, {bookmark}, {}, goes},
    {"change-bar-begin", anywhere},
    {"change-bar-end", anywhere},
    {"character", inlineLevel, {}, {}, stays, "character"},
    {"color-profile", colorProfile, {}, {}, stays, "src"},
    {"conditional-page-master-reference", conditionalReference, {}, {}, stays, "master-reference"},
    {"declarations", declarations, {colorProfile | foreign}, {}, goes},
    {"external-graphic", inlineLevel, {}, {}, stays, "src"},
    {"float", anywhere, {blocks}, "block", filled},
    {"flow", flow, {blocks}, "block", filled},
    {"folio-prefix", folioPrefix, {inlines}},
    {"folio-suffix", folioSuffix, {inlines}},
    {"footnote", inlineLevel, {inlineObject, footnoteBody}, "inline", filled},
    {"footnote-body", footnoteBody, {blocks}, "block", filled},
    {"index-key-reference", keyReference, {numberPrefix, numberSuffix}, {}, stays, "ref-index-key"},
    {"index-page-citation-list",
     inlineLevel,
     {citationSeparator, rangeSeparator, keyReference},
     {},
     goes,
     {},
     {},
     keyReference},
    {"index-page-citation-list-separator", citationSeparator, {inlines}},
    {"index-page-citation-range-separator", rangeSeparator, {inlines}},
    {"index-page-number-prefix", numberPrefix, {inlines}},
    {"index-page-number-suffix", numberSuffix, {inlines}},
    {"index-range-begin", anywhere, {}, {}, stays, "id"},
    {"index-range-end", anywhere, {}, {}, stays, "ref-id"},
    {"initial-property-set", initialProperties},
    {"inline", inlineLevel | inlineObject, {line}},
    {"inline-container", inlineLevel, {blocks}, "block", filled},
    {"instream-foreign-object", inlineLevel, {foreign}, {}, goes},
    {"layout-master-set", masterSet, {master}, {}, goes},
    {"leader", inlineLevel, {inlines}},
    {"list-block", block, {item | marker}, "list-item", goes},
    {"list-item", item, {marker, label, itemBody}, "list-item-body", filled},
    {"list-item-body", itemBody, {blocks}, "block", filled},
    {"list-item-label", label, {blocks}, "block", filled},
    {"marker", marker, {line & ~marker}, {}, stays, "marker-class-name"},
    {"multi-case", multiCase | wrapper, {line}},
    {"multi-properties", anywhere, {propertySet, wrapper}, {}, goes, {}, {}, propertySet},
    {"multi-property-set", propertySet},
    {"multi-switch", anywhere, {multiCase}, {}, goes},
    {"multi-toggle", inlineLevel, {line}},
    {"page-number", inlineLevel},
    {"page-number-citation", inlineLevel, {}, {}, stays, "ref-id"},
    {"page-number-citation-last", inlineLevel, {}, {}, stays, "ref-id"},
    {"page-sequence",
     sequence,
     {title, folioPrefix, folioSuffix, staticContent, flow},
     "flow",
     filled},
    {"page-sequence-master", master, {subSequence}, {}, goes, "master-name"},
    {"page-sequence-wrapper", sequence, {sequence}, {}, goes},
    {"region-after", regionAfter},
    {"region-before", regionBefore},
    {"region-body", regionBody},
    {"region-end", regionEnd},
    {"region-start", regionStart},
    {"repeatable-page-master-alternatives", subSequence, {conditionalReference}, {}, goes},
    {"repeatable-page-master-reference", subSequence, {}, {}, stays, "master-reference"},
    {"retrieve-marker", anywhere, {}, {}, stays, "retrieve-class-name"},
    {"retrieve-table-marker", anywhere, {}, {}, stays, "retrieve-class-name"},
    {"root", 0, {masterSet, declarations, bookmarkTree, sequence}, {}, filled},
    {"scaling-value-citation", inlineLevel, {}, {}, stays, "ref-id"},
    {"simple-page-master",
     master,
     {regionBody, regionBefore, regionAfter, regionStart, regionEnd},
     {},
     filled,
     "master-name"},
    {"single-page-master-reference", subSequence, {}, {}, stays, "master-reference"},
    {"static-content", staticContent, {blocks}, "block", filled, "flow-name"},
    {"table",
     block | table,
     {marker, column, header, footer, body},
     "table-body",
     filled,
     {},
     {},
     header | footer | body},
    {"table-and-caption", block, {marker, caption, table}, "table", goes, {}, {}, table},
    {"table-body", body, {row | marker}, "table-row", goes},
    {"table-caption", caption, {blocks}, "block", filled},
    {"table-cell", cell, {blocks}, "block", filled},
    {"table-column", column},
    {"table-footer", footer, {row | marker}, "table-row", goes},
    {"table-header", header, {row | marker}, "table-row", goes},
    {"table-row", row, {cell}, "table-cell", goes},
    {"title", title, {inlines}},
    {"wrapper", anywhere | wrapper, {line}},
};
constexpr auto byName = [](const Object& a, const Object& b) { return a.name < b.name; };
static_assert(std::is_sorted(std::begin(objects), std::end(objects), byName));

struct Filler {
    std::string_view object;
    std::size_t group;
    std::string_view markup;
};

constexpr Filler fillers[] = {
    {"bookmark", 0, "\n<fo:bookmark-title/>"},
    {"footnote", 0, "\n<fo:inline/>"},
    {"footnote", 1, "\n<fo:footnote-body>\n<fo:block/>\n</fo:footnote-body>"},
    {"list-item", 1, "\n<fo:list-item-label>\n<fo:block/>\n</fo:list-item-label>"},
    {"list-item", 2, "\n<fo:list-item-body>\n<fo:block/>\n</fo:list-item-body>"},
    {"simple-page-master", 0, "\n<fo:region-body/>"},
    {"table", 4,
     "\n<fo:table-body>\n<fo:table-row>\n<fo:table-cell>\n<fo:block/>\n</fo:table-cell>"
     "\n</fo:table-row>\n</fo:table-body>"},
};

constexpr std::string_view properties[] = {
    "absolute-position",
    "active-state",
    "alignment-adjust",
    "alignment-baseline",
    "allowed-height-scale",
    "allowed-width-scale",
    "auto-restore",
    "azimuth",
    "background",
    "background-attachment",
    "background-color",
    "background-image",
    "background-position",
    "background-position-horizontal",
    "background-position-vertical",
    "background-repeat",
    "baseline-shift",
    "blank-or-not-blank",
    "block-progression-dimension",
    "border",
    "border-after-color",
    "border-after-precedence",
    "border-after-style",
    "border-after-width",
    "border-before-color",
    "border-before-precedence",
    "border-before-style",
    "border-before-width",
    "border-bottom",
    "border-bottom-color",
    "border-bottom-style",
    "border-bottom-width",
    "border-collapse",
    "border-color",
    "border-end-color",
    "border-end-precedence",
    "border-end-style",
    "border-end-width",
    "border-left",
    "border-left-color",
    "border-left-style",
    "border-left-width",
    "border-right",
    "border-right-color",
    "border-right-style",
    "border-right-width",
    "border-separation",
    "border-spacing",
    "border-start-color",
    "border-start-precedence",
    "border-start-style",
    "border-start-width",
    "border-style",
    "border-top",
    "border-top-color",
    "border-top-style",
    "border-top-width",
    "border-width",
    "bottom",
    "break-after",
    "break-before",
    "caption-side",
    "case-name",
    "case-title",
    "change-bar-class",
    "change-bar-color",
    "change-bar-offset",
    "change-bar-placement",
    "change-bar-style",
    "change-bar-width",
    "character",
    "clear",
    "clip",
    "color",
    "color-profile-name",
    "column-count",
    "column-gap",
    "column-number",
    "column-width",
    "content-height",
    "content-type",
    "content-width",
    "country",
    "cue",
    "cue-after",
    "cue-before",
    "destination-placement-offset",
    "direction",
    "display-align",
    "dominant-baseline",
    "elevation",
    "empty-cells",
    "end-indent",
    "ends-row",
    "extent",
    "external-destination",
    "float",
    "flow-name",
    "font",
    "font-family",
    "font-selection-strategy",
    "font-size",
    "font-size-adjust",
    "font-stretch",
    "font-style",
    "font-variant",
    "font-weight",
    "force-page-count",
    "format",
    "glyph-orientation-horizontal",
    "glyph-orientation-vertical",
    "grouping-separator",
    "grouping-size",
    "height",
    "hyphenate",
    "hyphenation-character",
    "hyphenation-keep",
    "hyphenation-ladder-count",
    "hyphenation-push-character-count",
    "hyphenation-remain-character-count",
    "id",
    "index-class",
    "index-key",
    "indicate-destination",
    "initial-page-number",
    "inline-progression-dimension",
    "internal-destination",
    "intrinsic-scale-value",
    "intrusion-displace",
    "keep-together",
    "keep-with-next",
    "keep-with-previous",
    "language",
    "last-line-end-indent",
    "leader-alignment",
    "leader-length",
    "leader-pattern",
    "leader-pattern-width",
    "left",
    "letter-spacing",
    "letter-value",
    "line-height",
    "line-height-shift-adjustment",
    "line-stacking-strategy",
    "linefeed-treatment",
    "margin",
    "margin-bottom",
    "margin-left",
    "margin-right",
    "margin-top",
    "marker-class-name",
    "master-name",
    "master-reference",
    "max-height",
    "max-width",
    "maximum-repeats",
    "media-usage",
    "merge-pages-across-index-key-references",
    "merge-ranges-across-index-key-references",
    "merge-sequential-page-numbers",
    "min-height",
    "min-width",
    "number-columns-repeated",
    "number-columns-spanned",
    "number-rows-spanned",
    "odd-or-even",
    "orphans",
    "overflow",
    "padding",
    "padding-after",
    "padding-before",
    "padding-bottom",
    "padding-end",
    "padding-left",
    "padding-right",
    "padding-start",
    "padding-top",
    "page-break-after",
    "page-break-before",
    "page-break-inside",
    "page-citation-strategy",
    "page-height",
    "page-number-treatment",
    "page-position",
    "page-width",
    "pause",
    "pause-after",
    "pause-before",
    "pitch",
    "pitch-range",
    "play-during",
    "position",
    "precedence",
    "provisional-distance-between-starts",
    "provisional-label-separation",
    "ref-id",
    "ref-index-key",
    "reference-orientation",
    "region-name",
    "relative-align",
    "relative-position",
    "rendering-intent",
    "retrieve-boundary",
    "retrieve-boundary-within-table",
    "retrieve-class-name",
    "retrieve-position",
    "retrieve-position-within-table",
    "richness",
    "right",
    "role",
    "rule-style",
    "rule-thickness",
    "scale-option",
    "scaling",
    "scaling-method",
    "score-spaces",
    "script",
    "show-destination",
    "size",
    "source-document",
    "space-after",
    "space-before",
    "space-end",
    "space-start",
    "span",
    "speak",
    "speak-header",
    "speak-numeral",
    "speak-punctuation",
    "speech-rate",
    "src",
    "start-indent",
    "starting-state",
    "starts-row",
    "stress",
    "suppress-at-line-break",
    "switch-to",
    "table-layout",
    "table-omit-footer-at-break",
    "table-omit-header-at-break",
    "target-presentation-context",
    "target-processing-context",
    "target-stylesheet",
    "text-align",
    "text-align-last",
    "text-altitude",
    "text-decoration",
    "text-depth",
    "text-indent",
    "text-shadow",
    "text-transform",
    "top",
    "treat-as-word-space",
    "unicode-bidi",
    "vertical-align",
    "visibility",
    "voice-family",
    "volume",
    "white-space",
    "white-space-collapse",
    "white-space-treatment",
    "widows",
    "width",
    "word-spacing",
    "wrap-option",
    "writing-mode",
    "z-index",
};
static_assert(std::is_sorted(std::begin(properties), std::end(properties)));

} // namespace

const Kinds once = masterSet | declarations | bookmarkTree | bookmarkTitle | regionBody |
                   regionBefore | regionAfter | regionStart | regionEnd | title | folioPrefix |
                   folioSuffix | caption | header | footer | label | itemBody | footnoteBody |
                   citationSeparator | rangeSeparator | numberPrefix | numberSuffix;

std::size_t Object::groupOf(Kinds child) const {
    const auto* group =
        std::find_if(groups.begin(), groups.end(), [&](Kinds kinds) { return kinds & child; });
    return static_cast<std::size_t>(std::distance(groups.begin(), group));
}

const Object* find(std::string_view name) {
    const auto* found = std::lower_bound(
        std::begin(objects), std::end(objects), name,
        [](const Object& each, std::string_view wanted) { return each.name < wanted; });
    return found != std::end(objects) && found->name == name ? found : nullptr;
}

bool canTake(const Object& object, Kinds child) {
    for (const Object* in = &object; in; in = find(in->implied))
        if (in->holds() & child)
            return true;
    return false;
}

std::string_view fillerOf(const Object& object, std::size_t group) {
    if (object.whenEmpty != WhenEmpty::IsFilled)
        return {};
    if (object.groups[group] == blocks)
        return "\n<fo:block/>";
    const auto* found =
        std::find_if(std::begin(fillers), std::end(fillers), [&](const Filler& filler) {
            return filler.object == object.name && filler.group == group;
        });
    return found == std::end(fillers) ? std::string_view() : found->markup;
}

bool isProperty(std::string_view name) {
    return std::binary_search(std::begin(properties), std::end(properties),
                              name.substr(0, name.find('.')));
}

} // namespace FoModel

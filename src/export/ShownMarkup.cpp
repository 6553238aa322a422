#include "export/ShownMarkup.h"

#include <algorithm>
#include <array>

namespace ShownMarkup {

namespace {

struct Row {
    std::string_view prefix;
    std::string_view name;
    Shown shown;
};

constexpr Row rows[] = {
    {"qfd", "document", {As::Object, "root"}},
    {"qfd", "page-sequence-repeat", {As::Object, "page-sequence"}},
    {"qfd", "table-row-repeat", {As::Object, "table-row"}},
    {"qfd", "dynamic-bookmark", {As::Object, "bookmark"}},
    {"qf", "form", {As::Object, "block"}},
    {"qfd", "field", {As::Object, "inline"}},
    {"qf", "tab", {As::Object, "leader", "leader-length", "0.5in"}},
    {"qfd", "block-repeat", {As::Blocks, "block"}},
    {"qfd", "conditional-block-sequence", {As::Blocks, "block"}},
    {"qfd", "conditional-block", {As::Blocks, "block"}},
    {"qfd", "inline-repeat", {As::Inlines, "inline"}},
    {"qfd", "conditional-inline-sequence", {As::Inlines, "inline"}},
    {"qfd", "conditional-inline", {As::Inlines, "inline"}},
    {"qf", "form-control", {As::Control, "inline"}},
    {"qfd", "chart", {As::Picture, "external-graphic"}},
    {"qfd", "subdocument-content", {As::Picture, "external-graphic"}},
    {"qf", "barcode", {As::Picture, "external-graphic"}},
    {"qf", "geomap", {As::Picture, "external-graphic"}},
    {"qf", "object-3d", {As::Picture, "external-graphic"}},
    {"qf", "media-object", {As::Picture, "external-graphic"}},
    {"qfd", "xslt-global", {As::Nothing}},
    {"qfd", "xslt", {As::Nothing}},
    {"qfd", "inline-xslt", {As::Nothing}},
};

// Signs that every font has; a line to write on has spaces that no formatter drops.
constexpr std::array<Control, 5> controls{{
    {"button", "0.5pt solid", "", ""},
    {"submit", "0.5pt solid", "", ""},
    {"text", "0.5pt solid", "", "\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0"},
    {"checkbox", "", "[x]", "[\u00A0]"},
    {"radiobutton", "", "(x)", "(\u00A0)"},
}};

} // namespace

Shown of(std::string_view prefix, std::string_view name) {
    const auto* found = std::find_if(std::begin(rows), std::end(rows), [&](const Row& row) {
        return row.prefix == prefix && row.name == name;
    });
    return found == std::end(rows) ? Shown() : found->shown;
}

const Control& controlOf(std::string_view type) {
    const auto* found = std::find_if(controls.begin(), controls.end(),
                                     [&](const Control& each) { return each.type == type; });
    return found == controls.end() ? controls.front() : *found;
}

} // namespace ShownMarkup

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// Writes the short forms of the markup in tests out: B a block, I an inline, L a link, T a table,
/// H, F and D its header, footer and body, R a row and C a cell; `_` is a placeholder.
template <typename Char>
std::basic_string<Char> writtenOut(const std::basic_string<Char>& brief) {
    static constexpr std::string_view letters = "BILTHFDRC";
    static constexpr std::array<std::string_view, letters.size()> names{
        "fo:block",        "fo:inline",     "fo:basic-link", "fo:table",     "fo:table-header",
        "fo:table-footer", "fo:table-body", "fo:table-row",  "fo:table-cell"};
    const auto unitAt = [&brief](std::size_t at) { return at < brief.size() ? brief[at] : Char(); };
    std::basic_string<Char> text;
    const auto append = [&text](std::string_view all) { text.append(all.begin(), all.end()); };
    for (std::size_t at = 0; at < brief.size(); ++at) {
        const auto letter = std::find(letters.begin(), letters.end(), brief[at]);
        const Char before = unitAt(unitAt(at - 1) == '/' ? at - 2 : at - 1);
        const Char behind = unitAt(at + 1);
        const bool endsName = behind == ' ' || behind == '/' || behind == '>';
        if (brief[at] == '_')
            append("&#x00A0;");
        else if (before == '<' && letter != letters.end() && endsName)
            append(names[static_cast<std::size_t>(letter - letters.begin())]);
        else
            text += brief[at];
    }
    return text;
}

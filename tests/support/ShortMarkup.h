#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// The short forms of the markup in tests: B is a block, I an inline, L a link, T a table, H, F and
// D its header, footer and body, R a row and C a cell; `_` is a placeholder.

inline constexpr std::string_view shortNames = "BILTHFDRC";
inline constexpr std::array<std::string_view, shortNames.size()> longNames{
    "fo:block",        "fo:inline",     "fo:basic-link", "fo:table",     "fo:table-header",
    "fo:table-footer", "fo:table-body", "fo:table-row",  "fo:table-cell"};

/// Whether the name of a tag, of this size, stands there.
template <typename Char>
bool isTagName(const std::basic_string<Char>& text, std::size_t at, std::size_t size) {
    const auto unitAt = [&text](std::size_t at) { return at < text.size() ? text[at] : Char(); };
    const Char behind = unitAt(at + size);
    return unitAt(unitAt(at - 1) == '/' ? at - 2 : at - 1) == '<' &&
           (behind == ' ' || behind == '/' || behind == '>' || at + size == text.size());
}

/// Replaces a placeholder or the name of tags.
template <typename Char>
void replaceEach(std::basic_string<Char>& text, std::string_view old, std::string_view with) {
    const std::basic_string<Char> sought(old.begin(), old.end()), put(with.begin(), with.end());
    const bool isName = old != "_" && with != "_";
    for (std::size_t at = 0; (at = text.find(sought, at)) != text.npos; ++at)
        if (!isName || isTagName(text, at, sought.size()))
            text.replace(at, sought.size(), put);
}

/// Writes the short forms out.
template <typename Char>
std::basic_string<Char> writtenOut(std::basic_string<Char> text) {
    for (std::size_t i = 0; i < longNames.size(); ++i)
        replaceEach(text, shortNames.substr(i, 1), longNames[i]);
    replaceEach(text, "_", "&#x00A0;");
    return text;
}

/// The text in its short forms.
template <typename Char>
std::basic_string<Char> inShort(std::basic_string<Char> text) {
    for (std::size_t i = 0; i < longNames.size(); ++i)
        replaceEach(text, longNames[i], shortNames.substr(i, 1));
    replaceEach(text, "&#x00A0;", "_");
    return text;
}

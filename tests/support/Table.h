#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

/// The rows of a table that is written as a raw string, a line each, cut in two at its " -> ".
inline std::vector<std::pair<std::wstring, std::wstring>> rows(const std::wstring& table) {
    std::vector<std::pair<std::wstring, std::wstring>> found;
    std::wistringstream lines(table);
    for (std::wstring line; std::getline(lines, line);)
        if (const std::size_t arrow = line.find(L" -> "); arrow != std::wstring::npos)
            found.emplace_back(line.substr(0, arrow), line.substr(arrow + 4));
    return found;
}

#pragma once

#include "text/XmlScan.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One piece of markup as a parser sees it.
struct ReferenceMarkup {
    enum Kind { Opening, Closing, Empty, Instruction, Section };
    Kind kind;
    int start;
    int last;                // offset of the `>`
    std::size_t partner = 0; // index of the tag that closes or opens it
    std::wstring name;       // of a tag
};

/// Parses with a stack, from the beginning, and so shares nothing with scanning from an offset.
/// No result for a text whose tags are not properly nested.
inline std::optional<std::vector<ReferenceMarkup>> parseMarkup(std::wstring_view text) {
    std::vector<ReferenceMarkup> all;
    std::vector<std::size_t> open;
    for (std::size_t at = text.find(L'<'); at < text.size(); at = text.find(L'<', at + 1)) {
        const std::wstring_view rest = text.substr(at);
        const auto endOf = [&](std::wstring_view end) {
            return text.find(end, at) + end.size() - 1;
        };
        ReferenceMarkup found{ReferenceMarkup::Section, static_cast<int>(at), 0, 0, {}};
        std::size_t last = at;
        if (rest.starts_with(L"<!--")) {
            last = endOf(L"-->");
        } else if (rest.starts_with(L"<![CDATA[")) {
            last = endOf(L"]]>");
        } else if (rest.starts_with(L"<!DOCTYPE")) {
            last = endOf(L"]>");
        } else if (rest.starts_with(L"<?")) {
            last = endOf(L"?>");
            found.kind = ReferenceMarkup::Instruction;
        } else {
            for (wchar_t quote = 0; quote || text[last] != L'>'; ++last)
                if (quote ? text[last] == quote : text[last] == L'"' || text[last] == L'\'')
                    quote = quote ? L'\0' : text[last];
            const bool closing = rest[1] == L'/';
            const std::size_t name = at + (closing ? 2 : 1);
            found.name = text.substr(name, text.find_first_of(L" \n\t\r/>", name) - name);
            found.kind = closing                  ? ReferenceMarkup::Closing
                         : text[last - 1] == L'/' ? ReferenceMarkup::Empty
                                                  : ReferenceMarkup::Opening;
        }
        found.last = static_cast<int>(last);
        if (found.kind == ReferenceMarkup::Opening) {
            open.push_back(all.size());
        } else if (found.kind == ReferenceMarkup::Closing) {
            if (open.empty() || all[open.back()].name != found.name)
                return std::nullopt;
            found.partner = open.back();
            all[found.partner].partner = all.size();
            open.pop_back();
        }
        all.push_back(found);
        at = last;
    }
    return open.empty() ? std::optional(all) : std::nullopt;
}

/// The `<` of the innermost element whose start tag has ended and whose closing tag has not ended
/// before `position`; -1 outside all.
inline int elementAround(const std::vector<ReferenceMarkup>& markup, int position) {
    int element = -1;
    for (const ReferenceMarkup& tag : markup)
        if (tag.kind == ReferenceMarkup::Opening && tag.last <= position &&
            position < markup[tag.partner].last)
            element = tag.start;
    return element;
}

/// Whether the position lies in a comment, CDATA section, instruction or document type.
inline bool isInSection(std::wstring_view text, int position) {
    const int start = XmlScan::unitStart(text, position);
    return start < position &&
           (XmlScan::standsAt(text, L"<!", start) || XmlScan::standsAt(text, L"<?", start));
}

/// The tags and instructions that end at or before the position, read from the beginning of the
/// text: what looks like one in a section is none.
inline std::vector<int> tagsEndingBy(std::wstring_view text, int position) {
    std::vector<int> tags;
    for (int at = XmlScan::find(text, L'<', 0), end = 0; at >= 0;
         at = XmlScan::find(text, L'<', end)) {
        end = XmlScan::unitEnd(text, at);
        if (end < 0 || end > position + 1)
            break;
        if (!XmlScan::commentAt(text, at) && !XmlScan::cdataAt(text, at))
            tags.push_back(at);
    }
    return tags;
}

/// The innermost of those that opens an element which is not closed there, as tags are counted and
/// not their names.
inline int openElementIn(std::wstring_view text, const std::vector<int>& tags) {
    int closed = 0;
    for (auto tag = tags.rbegin(); tag != tags.rend(); ++tag)
        if (XmlScan::closingAt(text, *tag))
            ++closed;
        else if (XmlScan::openingAt(text, *tag) && closed-- == 0)
            return *tag;
    return -1;
}

/// The last of those that has the name of the last one, a closing tag, as names pair them, a
/// self-closing tag and no tag at offset 0 included.
inline int startTagIn(std::wstring_view text, const std::vector<int>& tags) {
    const XmlScan::Text closing = XmlScan::tagName(text, tags.back());
    int closed = 0;
    for (auto tag = tags.rbegin() + 1; tag != tags.rend() && *tag > 0; ++tag)
        if (XmlScan::tagName(text, *tag) == closing)
            ++closed;
        else if (XmlScan::tagName(text, *tag) == closing.substr(1) && closed-- == 0)
            return *tag;
    return -1;
}

#include "foundation/xml/AttributeLineBreaks.h"

#include <algorithm>

namespace Xml {

namespace {

std::size_t behind(std::string_view text, std::string_view mark, std::size_t start) {
    std::size_t found = text.find(mark, start);
    return found == std::string_view::npos ? text.size() : found + mark.size();
}

std::size_t behindTag(std::string_view text, std::size_t start) {
    std::size_t position = start;
    while ((position = text.find_first_of("\"'>", position)) != std::string_view::npos) {
        if (text[position] == '>')
            return position + 1;
        position = behind(text, text.substr(position, 1), position + 1);
    }
    return text.size();
}

std::size_t behindMarkup(std::string_view text, std::size_t start);

std::size_t behindDocumentType(std::string_view text, std::size_t start) {
    int brackets = 0;
    std::size_t position = start + 1;
    while ((position = text.find_first_of("\"'[]<>", position)) != std::string_view::npos) {
        char ch = text[position];
        if (ch == '"' || ch == '\'')
            position = behind(text, text.substr(position, 1), position + 1);
        else if (ch == '<')
            position = behindMarkup(text, position);
        else if (ch == '>' && brackets == 0)
            return position + 1;
        else {
            brackets += ch == '[' ? 1 : ch == ']' ? -1 : 0;
            ++position;
        }
    }
    return text.size();
}

/// The end, exclusive, of the tag, comment, section, instruction or declaration at `start`.
std::size_t behindMarkup(std::string_view text, std::size_t start) {
    std::string_view rest = text.substr(start);
    if (rest.starts_with("<!--"))
        return behind(text, "-->", start + 4);
    if (rest.starts_with("<![CDATA["))
        return behind(text, "]]>", start);
    if (rest.starts_with("<?"))
        return behind(text, "?>", start);
    if (rest.starts_with("<!DOCTYPE"))
        return behindDocumentType(text, start);
    return behindTag(text, start);
}

bool isTag(std::string_view text, std::size_t start) {
    return start + 1 < text.size() && text[start + 1] != '!' && text[start + 1] != '?';
}

} // namespace

AttributeLineBreaks::AttributeLineBreaks(std::string_view source) {
    text_.reserve(source.size());
    std::size_t position = 0;
    while (position < source.size()) {
        std::size_t start = std::min(source.find('<', position), source.size());
        std::size_t end = start < source.size() ? behindMarkup(source, start) : start;
        text_ += source.substr(position, start - position);
        if (isTag(source, start))
            escapeTag(source, start, end);
        else
            text_ += source.substr(start, end - start);
        position = end;
    }
}

void AttributeLineBreaks::escapeTag(std::string_view source, std::size_t start, std::size_t end) {
    std::size_t copied = start;
    char quote = 0;
    for (std::size_t i = start; i < end; ++i) {
        char ch = source[i];
        if (quote && (ch == '\n' || ch == '\r'))
            escapeLineBreak(source, copied, i);
        else if (quote)
            quote = ch == quote ? 0 : quote;
        else if (ch == '"' || ch == '\'')
            quote = ch;
    }
    text_ += source.substr(copied, end - copied);
}

void AttributeLineBreaks::escapeLineBreak(std::string_view source, std::size_t& copied,
                                          std::size_t offset) {
    if (offset < copied)
        return; // the line feed of a pair that is done
    text_ += source.substr(copied, offset - copied);
    text_ += "&#10;";
    copied = offset + (source.substr(offset).starts_with("\r\n") ? 2 : 1);
    shifts_.push_back({text_.size(), copied});
}

std::size_t AttributeLineBreaks::sourceOffset(std::size_t offset) const {
    auto next = std::upper_bound(shifts_.begin(), shifts_.end(), offset,
                                 [](std::size_t value, Shift shift) { return value < shift.text; });
    if (next == shifts_.begin())
        return offset;
    return std::prev(next)->source + (offset - std::prev(next)->text);
}

} // namespace Xml

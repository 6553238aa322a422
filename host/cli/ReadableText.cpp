#include "ReadableText.h"

#include <forme/foundation/Encoder.h>

#include <algorithm>
#include <array>
#include <cwctype>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>

namespace {

using Units = std::wstring_view;

constexpr std::array<std::pair<Units, Units>, 6> entities{{{L"&amp;", L"&"},
                                                           {L"&lt;", L"<"},
                                                           {L"&gt;", L">"},
                                                           {L"&quot;", L"\""},
                                                           {L"&apos;", L"'"},
                                                           {L"&#x00A0;", L"\u00B7"}}};

/// Builds lines from text that comes unit by unit.
class Lines {
public:
    void addSpace() { spaceDue_ = !line_.empty(); }
    void add(Units text) {
        if (spaceDue_)
            line_ += L' ';
        spaceDue_ = false;
        line_ += text;
    }
    void addCellEnd() {
        addSpace();
        add(L"\u2502");
        addSpace();
    }
    void end() {
        if (!line_.empty())
            text_.append(L"  ").append(line_).append(L"\n");
        line_.clear();
        spaceDue_ = false;
    }
    const std::wstring& text() const { return text_; }

private:
    std::wstring text_;
    std::wstring line_;
    bool spaceDue_ = false;
};

/// The offset behind what begins with a `<`.
std::size_t behindMarkup(Units content, std::size_t at) {
    const auto behind = [&](Units delimiter) {
        const std::size_t found = content.find(delimiter, at);
        return found == Units::npos ? content.size() : found + delimiter.size();
    };
    if (content.substr(at).starts_with(L"<!--"))
        return behind(L"-->");
    if (content.substr(at).starts_with(L"<?"))
        return behind(L"?>");
    return behind(L">");
}

bool beginsWithOneOf(Units tag, std::initializer_list<Units> names) {
    const Units name = tag.substr(tag.starts_with(L"</") ? 2 : 1);
    return std::any_of(names.begin(), names.end(),
                       [&](Units one) { return name.starts_with(one); });
}

bool isInlineTag(Units tag) {
    return beginsWithOneOf(tag, {L"fo:inline", L"fo:wrapper", L"fo:basic-link", L"fo:character",
                                 L"fo:page-number", L"fo:bidi-override", L"qfd:inline-xslt",
                                 L"xsl:value-of"});
}

bool isRowTag(Units tag) {
    return beginsWithOneOf(tag, {L"fo:table-row", L"qfd:table-row-repeat"});
}

/// What tags do to the lines: each ends one, but for those of inlines and those within a row of a
/// table, of which the cells stand side by side.
class Rows {
public:
    void pass(Units tag, Lines& lines) {
        const bool isClosing = tag.starts_with(L"</");
        if (isRowTag(tag) && !tag.ends_with(L"/>"))
            depth_ += isClosing ? -1 : 1;
        if (depth_ > 0 && isClosing && beginsWithOneOf(tag, {L"fo:table-cell"}))
            lines.addCellEnd();
        else if (depth_ > 0)
            lines.addSpace();
        else
            lines.end();
    }

private:
    int depth_ = 0;
};

/// The unit that "&#x2022;" or "&#8226;" stands for; nothing where there is no such reference.
std::optional<wchar_t> referencedUnit(Units entity) {
    if (!entity.starts_with(L"&#") || !entity.ends_with(L";"))
        return {};
    const bool isHex = entity.starts_with(L"&#x");
    unsigned long unit = 0;
    for (const wchar_t sign : entity.substr(isHex ? 3 : 2, entity.size() - (isHex ? 4 : 3))) {
        const unsigned long digit = std::wstring(L"0123456789abcdef").find(std::towlower(sign));
        if (digit >= (isHex ? 16U : 10U) || unit > 0xFFFF)
            return {};
        unit = unit * (isHex ? 16 : 10) + digit;
    }
    return unit > 0 && unit <= 0xFFFF ? std::optional(static_cast<wchar_t>(unit)) : std::nullopt;
}

/// What the character or entity at the offset shows, and its length in the text.
std::pair<std::wstring, std::size_t> characterAt(Units content, std::size_t at) {
    for (const auto& [entity, shown] : entities)
        if (content.substr(at).starts_with(entity))
            return {std::wstring(shown), entity.size()};
    const Units entity = content.substr(at, content.find(L';', at) - at + 1);
    if (const auto unit = referencedUnit(entity))
        return {std::wstring(1, *unit), entity.size()};
    return {std::wstring(1, content[at]), 1};
}

} // namespace

std::string readableText(const Core::String& document, const std::vector<int>& marked) {
    const Units content = document.view();
    const std::size_t body = content.find(L"</fo:layout-master-set>");
    Lines lines;
    Rows rows;
    auto mark = marked.begin();
    for (std::size_t at = body == Units::npos ? 0 : body; at < content.size();) {
        while (mark != marked.end() && *mark < static_cast<int>(at))
            ++mark;
        if (mark != marked.end() && *mark == static_cast<int>(at))
            lines.add(L"|");
        if (content[at] == L'<') {
            const std::size_t behind = behindMarkup(content, at);
            const Units tag = content.substr(at, behind - at);
            if (!isInlineTag(tag))
                rows.pass(tag, lines);
            at = behind;
        } else if (Core::String::isSpace(content[at])) {
            lines.addSpace();
            ++at;
        } else {
            const auto [shown, length] = characterAt(content, at);
            lines.add(shown);
            at += length;
        }
    }
    lines.end();
    return Core::Encoder::toDisplayText(Core::String(lines.text()));
}

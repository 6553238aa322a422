#include "tables/TableGrid.h"

#include "foundation/Wide.h"
#include "foundation/XmlTesting.h"
#include "tables/TableTree.h"

#include <algorithm>
#include <map>
#include <stdexcept>

using Xml::Element;
using Xml::Node;

namespace {

/// Reads a grid from left to right.
class GridReader {
public:
    explicit GridReader(const std::wstring& grid) : rest_(grid) {}

    std::wstring table() {
        std::wstring groups;
        for (skipBlanks(); !rest_.empty(); skipBlanks())
            groups += group();
        return L"<fo:table>" + groups + L"</fo:table>";
    }

private:
    std::wstring group() {
        const std::wstring name = take(L"head")   ? L"fo:table-header"
                                  : take(L"foot") ? L"fo:table-footer"
                                                  : L"fo:table-body";
        take(L"body");
        skipBlanks();
        const bool isDirect = take(L"{");
        const std::wstring content = isDirect ? cells(L"}") : rows();
        return L"<" + name + L">" + content + L"</" + name + L">";
    }
    std::wstring rows() {
        std::wstring markup = row();
        for (skipBlanks(); take(L"/"); skipBlanks()) {
            skipBlanks();
            markup += row();
        }
        return markup;
    }
    std::wstring row() {
        const std::wstring attributes = groups();
        const std::wstring name = take(L"*") ? L"qfd:table-row-repeat" : L"fo:table-row";
        require(L"(");
        return L"<" + name + attributes + L">" + cells(L")") + L"</" + name + L">";
    }
    std::wstring groups() {
        const std::wstring member = until(L"#*(");
        std::wstring attributes;
        if (!member.empty())
            attributes = L" qfd:parent-group=\"g" + member + L"\"";
        if (take(L"#")) {
            const std::wstring number = until(L"*(");
            attributes += L" xpath=\"/g" + number + L"\" group-by=\"k" + number +
                          L"\" is-group-heading=\"true\" fo:id=\"g" + number + L"\"";
        }
        return attributes;
    }
    std::wstring cells(const wchar_t* end) {
        std::wstring markup;
        while (!take(end)) {
            markup += cell();
            take(L",");
            skipBlanks();
        }
        return markup;
    }
    std::wstring cell() {
        std::wstring attributes;
        std::wstring words;
        if (take(L"[")) {
            words = until(L"]");
            require(L"]");
            attributes = span(L"columns", until(L"x"));
            require(L"x");
            attributes += span(L"rows", until(L",)}<"));
        } else {
            words = until(L",)}<");
        }
        if (take(L"<")) {
            for (const Core::String& each : Core::String(until(L">")).split(L';'))
                attributes += border(wide(Core::String(each).trim()));
            require(L">");
        }
        return L"<fo:table-cell" + attributes + L">" + blocks(words) + L"</fo:table-cell>";
    }
    static std::wstring span(const std::wstring& of, const std::wstring& number) {
        return number == L"1" ? L"" : L" number-" + of + L"-spanned=\"" + number + L"\"";
    }
    /// An attribute from "top", "style=dotted", "border=1pt" or "padding=1pt".
    static std::wstring border(const std::wstring& brief) {
        const std::size_t equals = std::min(brief.find(L'='), brief.size());
        const std::wstring name = brief.substr(0, equals);
        const std::wstring value = equals < brief.size() ? brief.substr(equals + 1) : L"solid";
        const bool isSide = std::wstring(L"top bottom left right").find(name) != name.npos;
        return L" " +
               (isSide             ? L"border-" + name + L"-style"
                : name == L"style" ? L"border-style"
                                   : name) +
               L"=\"" + value + L"\"";
    }
    static std::wstring blocks(const std::wstring& text) {
        std::wstring markup;
        for (const Core::String& word : words(text.c_str()))
            markup += L"<fo:block>" + (word == L"_" ? std::wstring(L"&#x00A0;") : wide(word)) +
                      L"</fo:block>";
        return markup;
    }

    bool take(const std::wstring& sign) {
        if (!rest_.starts_with(sign))
            return false;
        rest_.erase(0, sign.size());
        return true;
    }
    std::wstring until(const wchar_t* ends) {
        const std::wstring taken = rest_.substr(0, rest_.find_first_of(ends));
        rest_.erase(0, taken.size());
        return taken;
    }
    void require(const std::wstring& sign) {
        if (!take(sign))
            throw std::invalid_argument("no grid from here: " +
                                        Core::Encoder::toDisplayText(Core::String(rest_)));
    }
    void skipBlanks() { rest_.erase(0, rest_.find_first_not_of(L" \n")); }

    std::wstring rest_;
};

std::wstring wordsOf(const Element& cell) {
    std::wstring text;
    for (const Node* block : cell.get_children("block")) {
        const Xml::TextNode* word = static_cast<const Element*>(block)->get_child_text();
        std::wstring shown = word ? wide(word->get_content()) : L"";
        std::replace(shown.begin(), shown.end(), L'\xA0', L'_');
        text += (text.empty() ? L"" : L" ") + shown;
    }
    return text;
}

/// The borders of a cell and its padding, " <top; left=dashed>".
std::wstring bordersOf(const Element& cell) {
    std::wstring text;
    for (const Xml::Attribute* attribute : cell.get_attributes()) {
        Core::String name = attribute->get_name();
        if (!name.startsWith(L"border") && !name.startsWith(L"padding"))
            continue;
        name.replaceAll(L"border-", L"");
        name.replaceAll(L"-style", L"");
        const std::wstring value = wide(attribute->get_value());
        text +=
            (text.empty() ? L"<" : L"; ") + wide(name) + (value == L"solid" ? L"" : L"=" + value);
    }
    return text.empty() ? text : text + L">";
}

std::wstring cellsOf(const Element& row) {
    std::wstring text;
    for (const Element* cell : TableTree::cellsOf(row)) {
        const int columns = TableTree::columnSpanOf(*cell);
        const int rows = TableTree::rowSpanOf(*cell);
        const std::wstring words = wordsOf(*cell);
        text += text.empty() ? L"" : L", ";
        text += columns == 1 && rows == 1 && words.find(L' ') == std::wstring::npos
                    ? words
                    : L"[" + words + L"]" + std::to_wstring(columns) + L"x" + std::to_wstring(rows);
        text += bordersOf(*cell);
    }
    return text;
}

/// The numbers of groups by their ids.
using GroupNumbers = std::map<std::wstring, std::wstring>;

std::wstring groupsOf(const Element& row, GroupNumbers& numbers) {
    const auto numberIn = [&](const char* name) {
        const std::wstring id = wide(row.get_attribute(name)->get_value());
        return numbers.try_emplace(id, std::to_wstring(numbers.size() + 1)).first->second;
    };
    std::wstring text;
    if (row.get_attribute("parent-group"))
        text += numberIn("parent-group");
    if (row.get_attribute("is-group-heading"))
        text += L"#" + numberIn("id");
    return text;
}

std::wstring rowsOf(Element& group, GroupNumbers& numbers) {
    std::wstring text;
    for (const Element* row : TableTree::rowsOf(group)) {
        text += text.empty() ? L"" : L" / ";
        if (row == &group)
            text += L"{" + cellsOf(*row) + L"}";
        else
            text += groupsOf(*row, numbers) + (row->get_name() == L"table-row" ? L"(" : L"*(") +
                    cellsOf(*row) + L")";
    }
    return text;
}

SmartPtr<Xml::XmlDocument> parsed(const std::wstring& markup) {
    return parse(Core::Encoder::convertStringToUTF8(Core::String(markup)).view());
}

} // namespace

std::wstring markupOf(const std::wstring& grid) {
    return GridReader(grid).table();
}

SmartPtr<Xml::XmlDocument> treeOf(const std::wstring& grid) {
    return parsed(markupOf(grid));
}

std::wstring gridOf(const std::wstring& markup) {
    return gridOf(*parsed(markup)->getRootNode());
}

std::wstring gridOf(const Element& table) {
    GroupNumbers numbers;
    std::wstring text;
    for (Node* child : table.get_children()) {
        const std::wstring name = wide(child->get_name());
        if (!child->is_element() || !name.starts_with(L"table-") || name == L"table-column")
            continue;
        const bool isFirst = text.empty();
        text += isFirst ? L"" : L" ";
        if (name == L"table-header" || name == L"table-footer")
            text += name == L"table-header" ? L"head " : L"foot ";
        else if (!isFirst)
            text += L"body ";
        text += rowsOf(static_cast<Element&>(*child), numbers);
    }
    return text;
}

// Documents for random commands on tables.

#include "properties/TableCommands.h"

#include <array>

namespace {

/// A cell as it will be written.
struct Cell {
    int columns = 1;
    int rows = 1;
};

class Writer {
public:
    Writer(Random& random, std::size_t strangeEvery)
        : random_(random), strangeEvery_(strangeEvery) {}

    std::string document() {
        std::string text = R"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format" xmlns:qf="urn:forme:qf/1.0">
<fo:layout-master-set><fo:simple-page-master master-name="page"><fo:region-body/></fo:simple-page-master></fo:layout-master-set>
<fo:page-sequence master-reference="page"><fo:flow flow-name="xsl-region-body">)";
        for (std::size_t i = 0; i <= random_.below(2); ++i)
            text += block() + table(1);
        return text + block() + "</fo:flow></fo:page-sequence></qfd:document>\n";
    }

private:
    std::string table(int depth) {
        isStrange_ = random_.oneIn(strangeEvery_);
        columns_ = 1 + below(random_.oneIn(3) ? 12 : 4);
        std::string text = "<fo:table" + id() + ">" + columnElements();
        const int columns = columns_; // a table in a cell has its own
        const bool isStrange = isStrange_;
        const auto add = [&](const char* name) {
            columns_ = columns;
            isStrange_ = isStrange;
            text += group(name, depth);
        };
        if (random_.oneIn(3))
            add("fo:table-header");
        if (random_.oneIn(3))
            add("fo:table-footer");
        do
            add("fo:table-body");
        while (random_.oneIn(4));
        return text + "</fo:table>" + gap();
    }

    std::string columnElements() {
        static constexpr std::array kinds{"", "proportional-column-width(20)", "2in", "30%", "25"};
        if (random_.oneIn(3))
            return "";
        const bool areShares = random_.oneIn(2);
        std::string text;
        for (int column = 0; column < columns_; ++column) {
            const std::string width = areShares ? kinds[1] : random_.oneOf(kinds);
            text += "<fo:table-column" + (width.empty() ? "" : " column-width=\"" + width + "\"") +
                    id() + "/>";
        }
        return random_.oneIn(6) ? "<fo:table-column number-columns-repeated=\"" +
                                      std::to_string(columns_) + "\"/>"
                                : text;
    }

    std::string group(const std::string& name, int depth) {
        const bool isBody = name == "fo:table-body";
        const int rows = 1 + below(isBody ? 5 : 2);
        const bool isDirect = !isBody && rows == 1 && random_.oneIn(3);
        const auto layout = layOut(rows);
        std::string text = "<" + name + (random_.oneIn(6) ? " background-color=\"red\"" : "") + ">";
        std::string heading;
        for (const std::vector<Cell>& cells : layout) {
            std::string row = gap();
            const int columns = columns_;
            const bool isStrange = isStrange_;
            for (const Cell& each : cells)
                row += cell(each, depth);
            columns_ = columns;
            isStrange_ = isStrange;
            text += isDirect ? row : withTags(row, heading);
        }
        return text + "</" + name + ">" + gap();
    }

    /// A row, in or outside of the group of a heading.
    std::string withTags(const std::string& cells, std::string& heading) {
        if (random_.oneIn(4)) {
            heading = std::string("g").append(std::to_string(++ids_));
            return "<qfd:table-row-repeat xpath=\"/d/g\" group-by=\"@k\" is-group-heading=\"true\" "
                   "fo:id=\"" +
                   heading + "\">" + cells + "</qfd:table-row-repeat>";
        }
        if (random_.oneIn(3))
            heading.clear();
        const std::string parent = heading.empty() ? "" : " qfd:parent-group=\"" + heading + "\"";
        if (random_.oneIn(6))
            return "<qfd:table-row-repeat xpath=\"/d/r\"" + parent + ">" + cells +
                   "</qfd:table-row-repeat>";
        return "<fo:table-row" + parent + (random_.oneIn(5) ? " height=\"1in\"" : "") + id() + ">" +
               cells + "</fo:table-row>";
    }

    /// Cells that cover all coordinates once.
    std::vector<std::vector<Cell>> layOut(int rows) {
        std::vector<std::vector<Cell>> layout(static_cast<std::size_t>(rows));
        std::vector<int> covered(static_cast<std::size_t>(columns_)); // rows from the top
        for (int row = 0; row < rows; ++row) {
            const auto isFree = [&](int column) {
                return column < columns_ && covered[static_cast<std::size_t>(column)] <= row;
            };
            for (int column = 0; column < columns_; ++column) {
                if (!isFree(column))
                    continue;
                Cell cell;
                while (isFree(column + cell.columns) && random_.oneIn(4))
                    ++cell.columns;
                while (row + cell.rows < rows && random_.oneIn(5))
                    ++cell.rows;
                for (int each = column; each < column + cell.columns; ++each)
                    covered[static_cast<std::size_t>(each)] = row + cell.rows;
                layout[static_cast<std::size_t>(row)].push_back(cell);
            }
        }
        return layout;
    }

    std::string cell(const Cell& cell, int depth) {
        const auto span = [&](const char* of, int number) {
            static constexpr std::array strange{"0", "-1", "5", "99999999", "abc", "2", ""};
            const std::string value =
                isStrange_ && random_.oneIn(3) ? random_.oneOf(strange) : std::to_string(number);
            return value == "1" && !random_.oneIn(8)
                       ? std::string()
                       : std::string(" number-") + of + "-spanned=\"" + value + "\"";
        };
        return "<fo:table-cell" + span("columns", cell.columns) + span("rows", cell.rows) +
               (isStrange_ && random_.oneIn(20) ? " column-number=\"2\"" : "") + border() + id() +
               ">" + content(depth) + "</fo:table-cell>" + gap();
    }

    std::string content(int depth) {
        if (depth > 0 && random_.oneIn(12))
            return block() + table(depth - 1);
        if (random_.oneIn(12))
            return "<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1.</fo:block>"
                   "</fo:list-item-label><fo:list-item-body>" +
                   block() + "</fo:list-item-body></fo:list-item></fo:list-block>";
        if (random_.oneIn(20))
            return "<fo:block-container>" + block() + "</fo:block-container>" + block();
        std::string text = block();
        while (random_.oneIn(5))
            text += gap() + block();
        return text;
    }

    std::string block() {
        if (random_.oneIn(6))
            return "<fo:block>&#x00A0;</fo:block>";
        std::string text = "<fo:block" + id() + ">" + word();
        if (random_.oneIn(4))
            text += " <fo:inline color=\"red\">" + word() + "</fo:inline>";
        if (random_.oneIn(12))
            text += "<!-- note > --> <![CDATA[" + word() + " < &]]> ";
        if (random_.oneIn(12))
            text += " &lt;<fo:external-graphic src=\"a&gt;b.png\"/>";
        return text + "</fo:block>";
    }

    std::string border() {
        static constexpr std::array kinds{" border=\"1pt solid red\"", " border-style=\"dashed\"",
                                          " border-top=\"thin dotted\" padding=\"1mm\""};
        return random_.oneIn(8) ? random_.oneOf(kinds) : "";
    }
    std::string word() { return std::string("w").append(std::to_string(++words_)); }
    std::string id() { return random_.oneIn(8) ? " id=\"i" + std::to_string(++ids_) + "\"" : ""; }
    std::string gap() { return random_.oneIn(4) ? "\n\t" : ""; }
    int below(std::size_t limit) { return static_cast<int>(random_.below(limit)); }

    Random& random_;
    std::size_t strangeEvery_;
    int columns_ = 1;
    bool isStrange_ = false;
    int words_ = 0;
    int ids_ = 0;
};

} // namespace

std::string documentWithTables(Random& random, std::size_t strangeEvery) {
    return Writer(random, strangeEvery).document();
}

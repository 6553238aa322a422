#include "tables/CellSelection.h"

#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Xml::Element;

constexpr TableRowGroupType header = TableRowGroupType::Header;
constexpr TableRowGroupType body = TableRowGroupType::Body;
constexpr TableRowGroupType footer = TableRowGroupType::Footer;

/// The first words of the cells, or of the rows' first cells.
std::wstring wordsOf(const TableTree::Elements& elements) {
    std::wstring text;
    for (const Element* element : elements) {
        const TableTree::Elements own = TableTree::cellsOf(*element);
        const Element* cell = own.empty() ? element : own.front();
        const auto* block = static_cast<const Element*>(cell->get_children("block").front());
        text += block->get_child_text()->get_content();
    }
    return text;
}

std::wstring shown(const std::vector<int>& columns) {
    std::wstring text;
    for (const int column : columns)
        text += std::to_wstring(column);
    return text;
}

TEST(CellSelection, RunsInReadingOrderFromEndToEnd) {
    const auto tree = treeOf(L"head (A, B, C, D) / ([E]2x1, F, G)"
                             L" foot (p, q, r, s) / (t, u, v, w)"
                             L" body (a, b, c, d) / (e, f, g) / (i, j, k, l) / (m, n, o, x)");
    const TableModel model(*tree->getRootNode());
    struct Case {
        CellPlace caret, end;
        std::wstring cells, rows, columns;
    };
    for (const Case& each :
         std::vector<Case>{{{body, 1, 1}, {body, 1, 1}, L"f", L"e", L"1"},
                           {{body, 0, 2}, {body, 0, 1}, L"bc", L"a", L"12"},
                           {{body, 0, 2}, {body, 2, 1}, L"cdijefg", L"aei", L"0123"},
                           {{body, 1, 0}, {body, 0, 3}, L"de", L"ae", L"03"},
                           {{body, 0, 2}, {body, 1, 1}, L"cdef", L"ae", L"0123"},
                           {{header, 1, 0}, {header, 1, 1}, L"EE", L"E", L"01"},
                           {{header, 0, 3}, {body, 1, 0}, L"DEEFGeabcd", L"AEAE", L"0123"},
                           {{body, 1, 0}, {header, 0, 3}, L"DEEFGeabcd", L"aeae", L"0123"},
                           {{footer, 0, 1}, {header, 1, 3}, L"Gpq", L"tp", L"0123"},
                           {{body, 1, 1}, {footer, 0, 2}, L"efabcdrstuvw", L"aeae", L"0123"},
                           {{footer, 1, 3}, {body, 3, 0}, L"mabcdefgijklw", L"tpt", L"0123"},
                           {{}, {body, 1, 1}, L"", L"", L""}}) {
        const CellSelection selection(model, each.caret, each.end, model.columnCount());
        EXPECT_EQ(wordsOf(selection.cells()), each.cells);
        EXPECT_EQ(wordsOf(selection.rows()), each.rows) << each.cells.size();
        EXPECT_EQ(shown(selection.columns()), each.columns);
        const CellSelection turned(model, each.end, each.caret, model.columnCount());
        EXPECT_EQ(turned.places(), selection.places());
    }
}

} // namespace

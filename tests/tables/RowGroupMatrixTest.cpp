#include "tables/RowGroupMatrix.h"

#include "foundation/Encoder.h"
#include "properties/PlainTable.h"
#include "tables/TableGrid.h"
#include "tables/TableTree.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>
#include <vector>

namespace {

using Xml::Element;
using Xml::Node;

RowGroupMatrix matrixOf(const Element& table) {
    std::vector<std::vector<Element*>> bodies;
    for (Element* body : TableTree::groupsOf(table, TableRowGroupType::Body))
        bodies.push_back(TableTree::rowsOf(*body));
    return {bodies, TableTree::countTableColumns(table)};
}

TEST(RowGroupMatrix, AgreesWithATableReadTheSimplestWay) {
    std::mt19937 random(7);
    const auto pick = [&random](int count) { return static_cast<int>(random() % count); };
    const wchar_t* spans[] = {L"1", L"1", L"1", L"2", L"3", L"5", L"0", L"-1", L"99999999", L"abc"};
    for (int table = 0; table < 200; ++table) {
        const int kinds = 3 + pick(8); // the first ones are those of ordinary tables
        std::wstring grid;
        int rows = 0;
        for (int count = 1 + pick(9); rows < count; ++rows) {
            grid += rows == 0 ? L"(" : pick(5) == 0 ? L" body (" : L" / (";
            for (int cells = pick(6); cells > 0; --cells)
                grid += std::wstring(L"[c]") + spans[pick(kinds)] + L"x" + spans[pick(kinds)] +
                        (cells > 1 ? L", " : L"");
            grid += L")";
        }
        const PlainTable plain(Core::String(markupOf(grid)), 0);
        const PlainTable::Group& body = plain.group(TableRowGroupType::Body);
        const Node* whole = body.rows.front()->get_parent()->get_parent();
        const RowGroupMatrix matrix = matrixOf(static_cast<const Element&>(*whole));
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < 24; ++column) {
                const auto there = body.matrix.find({row, column});
                ASSERT_EQ(matrix.cellAt(row, column),
                          there == body.matrix.end() ? nullptr : there->second->element)
                    << row << " " << column << " "
                    << Core::Encoder::toDisplayText(Core::String(grid));
            }
    }
}

} // namespace

#include "tables/CellSpans.h"

#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Xml::Element;

/// The first coordinate of the body's cell with the word in it.
CellPlace placeOf(const TableModel& model, const std::wstring& word) {
    CellPlace place{TableRowGroupType::Body, 0, 0};
    for (; place.row < 8; ++place.row)
        for (place.column = 0; place.column < 8; ++place.column)
            if (const Element* cell = model.cellAt(place); cell && cell->has_children())
                if (const auto* block =
                        static_cast<const Element*>(cell->get_children("block").front());
                    block->get_child_text()->get_content() == word.c_str())
                    return place;
    return {};
}

struct Case {
    std::wstring before;
    void (CellSpans::*command)();
    bool (CellSpans::*can)() const;
    bool isOffered;
    std::wstring after;
};

/// The caret is in the cell "x" and stays there.
void expectEach(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        const auto tree = treeOf(each.before);
        Element& table = *tree->getRootNode();
        const TableModel model(table);
        const CellPlace x = placeOf(model, L"x");
        TableCaret caret{x, x};
        CellSpans spans(model, caret);
        EXPECT_EQ((spans.*each.can)(), each.isOffered) << each.before;
        (spans.*each.command)();
        EXPECT_EQ(gridOf(table), each.after) << each.before;
        const TableModel after(table);
        EXPECT_EQ(after.cellAt(caret.caret), after.cellAt(placeOf(after, L"x"))) << each.before;
    }
}

TEST(CellSpans, MergeColumns) {
    const auto merge = &CellSpans::mergeColumns;
    const auto can = &CellSpans::canMergeColumns;
    expectEach({
        {L"(x, b, c)", merge, can, true, L"([x b]2x1, c)"},
        {L"([x]2x1, [b]3x1) / (c, d, e, f, g)", merge, can, true, L"([x b]5x1) / (c, d, e, f, g)"},
        {L"(x, [_]3x1)", merge, can, true, L"([x]4x1)"},
        {L"(a, x)", merge, can, false, L"([x a]2x1)"},
        {L"(x, [b]1x2) / (c)", merge, can, false, L"(x, [b]1x2) / (c)"},
        {L"(a) / (x)", merge, can, false, L"(a) / (x)"},
        {L"(a, b) body (x)", merge, can, false, L"(a, b) body (x)"},
    });
}

TEST(CellSpans, MergeRows) {
    const auto merge = &CellSpans::mergeRows;
    const auto can = &CellSpans::canMergeRows;
    expectEach({
        {L"(a, x) / (c, d)", merge, can, true, L"(a, [x d]1x2) / (c)"},
        {L"([x]1x2, b) / (c) / (d, e)", merge, can, true, L"([x d]1x3, b) / (c) / (e)"},
        {L"(x, b) / ([c]2x1)", merge, can, false, L"(x, b) / ([c]2x1)"},
        {L"(a, b) / (c, x)", merge, can, false, L"(a, [x b]1x2) / (c)"},
        {L"([a]1x2, b) / (c) / (x, d)", merge, can, false, L"([x a]1x3, b) / (c) / (d)"},
        {L"(x, b) body (c, d)", merge, can, false, L"(x, b) body (c, d)"},
        {L"(a, b) body (x, d)", merge, can, false, L"(a, b) body (x, d)"},
        {L"*(x) / (b)", merge, can, false, L"*([x b]1x2) / ()"},
        {L"(x, b)", merge, can, false, L"(x, b)"},
    });
}

TEST(CellSpans, Split) {
    const auto column = &CellSpans::splitColumn;
    const auto canColumn = &CellSpans::canSplitColumn;
    const auto row = &CellSpans::splitRow;
    const auto canRow = &CellSpans::canSplitRow;
    expectEach({
        {L"([x]2x1, b)", column, canColumn, true, L"(x, _, b)"},
        {L"([x y]3x2, b) / (c)", column, canColumn, true, L"([x y]2x2, [_]1x2, b) / (c)"},
        {L"(x, [b]2x1)", column, canColumn, false, L"(x, [b]2x1)"},
        {L"([x]1x2, b) / (c)", row, canRow, true, L"(x, b) / (_, c)"},
        {L"([x]1x3, b) / (c) / (d)", row, canRow, true, L"([x]1x2, b) / (c) / (_, d)"},
        {L"(a, [x]1x2) / (b)", row, canRow, true, L"(a, x) / (_, b)"},
        {L"([x]1x2, [a]1x2) / ()", row, canRow, true, L"(x, [a]1x2, [_]1x2) / ()"},
        {L"([x]1x5, b) / (c)", row, canRow, true, L"([x]1x4, b) / (c)"},
        {L"([x]1x2, b) body (c, d)", row, canRow, true, L"(x, b) body (c, d)"},
        {L"([x]1xabc, b) / (c, d)", row, canRow, false, L"(x, b) / (c, d)"},
    });
}

TEST(CellSpans, LeaveATableAloneWhoseCellsTellWhereTheyStand) {
    const auto tree = treeOf(L"([x]2x2, b) / (c) / (d, e, f)");
    const Element& body = *TableTree::groupsOf(*tree->getRootNode(), TableRowGroupType::Body)[0];
    Element& row = *TableTree::rowsOf(const_cast<Element&>(body)).back();
    TableTree::cellsOf(row)[1]->set_attribute("column-number", "2");
    const TableModel model(*tree->getRootNode());
    const std::wstring before = gridOf(*tree->getRootNode());
    TableCaret caret{placeOf(model, L"x"), {}};
    CellSpans spans(model, caret);
    EXPECT_FALSE(spans.canMergeColumns() || spans.canMergeRows() || spans.canSplitColumn() ||
                 spans.canSplitRow());
    for (const auto command : {&CellSpans::mergeColumns, &CellSpans::mergeRows,
                               &CellSpans::splitColumn, &CellSpans::splitRow})
        (spans.*command)();
    EXPECT_EQ(gridOf(*tree->getRootNode()), before);
}

} // namespace

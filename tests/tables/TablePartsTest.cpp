// What the commands on a table are made of, which hosts may call by themselves.

#include "support/MarkedDocument.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

namespace {

using Type = TableRowGroupType;

TEST(TableParts, OneGroupIsLookedAtAgainOrLosesItsColumn) {
    MarkedDocument buffer(markupOf(L"head (a, b) body (|c, d) / (e, f)"));
    const auto table = buffer->getEditableTableBuffer(-1);
    Xml::Element* c = table->getCellElementAt(0, 0, Type::Body);
    table->setColSpanToCell(c, 2);
    table->buildRowGroupMx(Type::Header);
    EXPECT_NE(table->getCellElementAt(0, 1, Type::Body), c);
    table->buildRowGroupMx(Type::Body);
    EXPECT_EQ(table->getCellElementAt(0, 1, Type::Body), c);
    EXPECT_TRUE(table->canDeleteColumnInRowGroup(Type::Header));
    EXPECT_FALSE(table->canDeleteColumnInRowGroup(Type::Body));
    table->deleteColumnInRowGroup(Type::Header);
    EXPECT_EQ(gridOf(*table->getTableElement()), L"head (b) body ([c]2x1, d) / (e, f)");
    table->recreateTableColumns();
    const auto columns = table->getColumns({7, 1, 0, 1});
    ASSERT_EQ(columns.size(), 2U);
    EXPECT_EQ(columns.front()->get_next_sibling(), columns.back());
}

/// At a place without a table it is the one that is selected.
TEST(TableParts, ASelectedTableIsOpenedFromAnywhereOutside) {
    MarkedDocument buffer(L"<B>x</B>" + markupOf(L"(|a)"));
    EXPECT_EQ(buffer->getEditableTableBuffer(buffer.find(L"x")), nullptr);
    buffer->selectTable(L"");
    const EditorState selected = stateOf(buffer.face());
    ASSERT_TRUE(buffer->getEditableTableBuffer(buffer.find(L"x")));
    EXPECT_EQ(stateOf(buffer.face()), selected);
}

} // namespace

// What the commands on a table are made of, which hosts may call by themselves.

#include "foundation/Exception.h"
#include "support/MarkedDocument.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <string>

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

TEST(TableParts, SelectsItsCellsAgainAfterACommit) {
    MarkedDocument buffer(markupOf(L"head (a, b) foot (c) body (d^, e) / (f, g|)"));
    auto table = buffer->getEditableTableBuffer(-1);
    EXPECT_EQ(table->getSelectedRows().size(), 2u);
    EXPECT_TRUE(table->getTableElement() && table->getCaretRow() == 1 && table->getCaretCol() == 1);
    table->getTableElement()->set_attribute("a", "1");
    table->commitChangesToEditableBuffer();
    EXPECT_EQ(gridOf(writtenOut(buffer.marked())), L"head (a, b) foot (c) body (^d, e) / (f, |g)");
    EXPECT_EQ(buffer->getEditableTableBuffer(-1), table);
    buffer->insertText(L"x", false, false);
    EXPECT_THROW(table->commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(MarkedDocument(L"<B>a|</B>")->getEditableTableBuffer(-1), nullptr);
}

TEST(RowGroups, AHeadingIsMadeOfARowThatKeepsWhatItIsSortedBy) {
    MarkedDocument buffer(
        L"<T><D><qfd:table-row-repeat fo:id=\"i\" sort=\"s\" parent-group=\"p\" "
        L"xpath=\"/o\"><C fo:id=\"c\"><B>|a</B></C></qfd:table-row-repeat></D></T>");
    const auto table = buffer->getEditableTableBuffer(-1);
    table->convertToGroup("/g", "k", true, "r");
    const std::wstring id = wide(EditableTableBuffer::getAttributeValue(
        EditableTableBuffer::getRowFromTableRowGroup(table->getTableElement(), 0, Type::Body), "id",
        ""));
    EXPECT_EQ(id.size(), 22U);
    table->commitChangesToEditableBuffer();
    EXPECT_EQ(
        buffer.marked(),
        L"<T>\n<D><qfd:table-row-repeat xpath=\"/g\" group-by=\"k\" is-group-heading=\"true\" "
        L"fo:id=\"" +
            id +
            L"\" merge-content=\"true\"><C><B>_</B></C></qfd:table-row-repeat>"
            L"<qfd:table-row-repeat fo:id=\"i\" sort=\"s\" parent-group=\"" +
            id + L"\" xpath=\"r\"><C fo:id=\"c\"><B>|a</B></C></qfd:table-row-repeat></D></T>");
}

/// At a place without a table it is the one that is selected.
TEST(TableParts, ASelectedTableIsOpenedFromAnywhereOutside) {
    MarkedDocument buffer(L"<B>x</B>" + markupOf(L"(|a)"));
    EXPECT_EQ(buffer->getEditableTableBuffer(buffer.find(L"x")), nullptr);
    EXPECT_EQ(buffer->getEditableTableBuffer(-1)->getCaretRow(), 0);
    buffer->selectTable(L"");
    EXPECT_EQ(buffer->getEditableTableBuffer(-1)->getCaretRow(), -1);
    const EditorState selected = stateOf(buffer.face());
    ASSERT_TRUE(buffer->getEditableTableBuffer(buffer.find(L"x")));
    EXPECT_EQ(stateOf(buffer.face()), selected);
}

TEST(TableParts, TypingEndsWhereTheCaretIsTakenIntoATable) {
    MarkedDocument buffer(L"<B>x|</B>" + markupOf(L"(a)") + L"<B>y</B>");
    buffer->insertText(L"q", false, false);
    const auto table = buffer->getEditableTableBuffer(buffer.find(L"a</"));
    buffer->insertText(L"r", false, false);
    buffer->undo();
    EXPECT_NE(buffer.find(L"xq"), -1);
    buffer->setCaretPos(false, buffer.find(L"y<"));
    buffer->insertText(L"s", false, false);
    table->updateTableBuffer();
    buffer->insertText(L"t", false, false);
    buffer->undo();
    EXPECT_NE(buffer.find(L"sy"), -1);
}

/// The kept table is not read again where nothing asks for it, so what stands in it tells.
TEST(CachedTable, FollowsTheCaretAndTheSelection) {
    const std::wstring table = markupOf(L"head (1, 2) body (3, |4) / (5, 6)");
    MarkedDocument buffer(L"<B>before</B>" + table + L"<B>behind</B>");
    const auto selected = [&] {
        return buffer->getEditableTableBuffer(-1)->getSelectedCells().size();
    };
    const auto goTo = [&](bool extend, const wchar_t* word) {
        buffer->setCaretPos(extend, buffer.find(word));
    };

    buffer->updateCacheOnCaretChange();
    EXPECT_TRUE(buffer->tableBufferCacheNull()) << "none is missed";
    const auto kept = buffer->getEditableTableBuffer(-1);
    goTo(false, L"5<");
    buffer->updateCacheOnCaretChange();
    EXPECT_EQ(std::pair(kept->getCaretRow(), kept->getCaretCol()), std::pair(1, 0));
    EXPECT_EQ(buffer->getEditableTableBuffer(-1), kept);

    goTo(true, L"4<");
    EXPECT_EQ(selected(), 1U);
    buffer->updateCacheOnSelectionChange();
    EXPECT_EQ(selected(), 1U) << "the caret's cell is the caret's move to tell";
    buffer->updateCacheOnCaretChange();
    buffer->updateCacheOnSelectionChange();
    EXPECT_EQ(selected(), 2U);
    goTo(false, L"behind");
    goTo(true, L"4<");
    buffer->updateCacheOnCaretChange();
    buffer->updateCacheOnSelectionChange();
    EXPECT_EQ(selected(), 3U) << "up to the last cell";
    goTo(false, L"before");
    goTo(true, L"4<");
    buffer->updateCacheOnSelectionChange();
    EXPECT_EQ(selected(), 4U) << "from the header's first cell";
    goTo(false, L"behind");
    goTo(true, L"2<");
    buffer->updateCacheOnCaretChange();
    buffer->updateCacheOnSelectionChange();
    EXPECT_EQ(selected(), 1U) << "on to the footer's last row, though there is none";
    buffer->getEditableTableBuffer(-1)->updateTableBuffer();
    EXPECT_EQ(selected(), 5U) << "and to the body's when it is read";

    goTo(false, L"before");
    buffer->updateCacheOnSelectionChange();
    EXPECT_FALSE(buffer->tableBufferCacheNull());
    EXPECT_FALSE(buffer->caretIsInsideSameTable());
    buffer->updateCacheOnBufferChange();
    EXPECT_TRUE(buffer->tableBufferCacheNull());
    goTo(false, L"4<");
    buffer->updateCacheOnBufferChange();
    EXPECT_TRUE(buffer->caretIsInsideSameTable());
}

} // namespace

#include "tables/EditableTableBuffer.h"

#include "foundation/Exception.h"
#include "support/MarkedDocument.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using T = EditableTableBuffer;
using Type = TableRowGroupType;

/// The table that is all of a document's flow, with the marks.
std::wstring shown(const MarkedDocument& buffer) {
    return gridOf(writtenOut(buffer.marked()));
}

TEST(EditableTableBuffer, SelectsItsCellsAgainAfterACommit) {
    MarkedDocument buffer(markupOf(L"head (a, b) foot (c) body (d^, e) / (f, g|)"));
    auto table = buffer->getEditableTableBuffer(-1);
    EXPECT_EQ(table->getSelectedRows().size(), 2u);
    EXPECT_TRUE(table->getTableElement() && table->getCaretRow() == 1 && table->getCaretCol() == 1);
    table->getTableElement()->set_attribute("a", "1");
    table->commitChangesToEditableBuffer();
    EXPECT_EQ(shown(buffer), L"head (a, b) foot (c) body (^d, e) / (f, |g)");
    EXPECT_EQ(buffer->getEditableTableBuffer(-1), table);
    buffer->insertText(L"x", false, false);
    EXPECT_THROW(table->commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(MarkedDocument(L"<B>a|</B>")->getEditableTableBuffer(-1), nullptr);
}

TEST(TableSelection, TellsWhereAPositionIs) {
    const std::wstring inner = markupOf(L"head (x) body (y, z)");
    std::wstring markup = markupOf(L"head {a, b} body ([c]2x2, d) / (|e) / (f, g, h)");
    markup.insert(markup.find(L"<fo:block>|e"), inner);
    MarkedDocument buffer(markup);
    const int table = buffer.find(L"<fo:table>");
    const auto of = buffer->getEditableTableBuffer(-1);
    for (const auto& [word, group, row, index, column] :
         {std::tuple(L"b<", Type::Header, 0, 1, 1), std::tuple(L"d<", Type::Body, 0, 1, 2),
          std::tuple(L"z<", Type::Body, 1, 0, 2), std::tuple(L"h<", Type::Body, 2, 2, 2)}) {
        const int at = buffer.find(word);
        Type found{};
        EXPECT_EQ(buffer->getTableRowNumberFrom(at, table, found), row) << word;
        EXPECT_EQ(found, group);
        EXPECT_EQ(buffer->getCellNumberOnRow(at, table), index);
        EXPECT_EQ(of->getTableColumnNumberFrom(at, row, group), column);
        const int cell = buffer->getCellPositionInTable(table, row, column, group, 3, 3, of.get());
        EXPECT_TRUE(group == Type::Header ||
                    buffer->getTableRowGroupTypeFrom(cell + 20, table) == group);
    }
    EXPECT_EQ(buffer->getCellPositionInTable(table, 0, 1, Type::Body, 3, 3, of.get()), -1);
    EXPECT_FALSE(buffer->hasSelectedTable());
    buffer->selectTable(L"");
    EXPECT_TRUE(buffer->hasSelectedTable() && !buffer->caretIsInsideTable());
    EXPECT_EQ(buffer->getEditableTableBuffer(-1)->getDocumentBufferStart(), table);
    buffer->setContent(L"<B>x</B>", true);
    EXPECT_TRUE(buffer->tableBufferCacheNull());
}

} // namespace

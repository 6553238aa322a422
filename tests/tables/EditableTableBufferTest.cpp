#include "tables/EditableTableBuffer.h"

#include "foundation/Exception.h"
#include "support/MarkedDocument.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <string>

namespace {

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

} // namespace

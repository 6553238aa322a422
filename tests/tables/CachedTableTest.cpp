#include "support/MarkedDocument.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

namespace {

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

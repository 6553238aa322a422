#include "support/MarkedDocument.h"
#include "tables/EditableTableBuffer.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using T = EditableTableBuffer;

TEST(RowGroups, AHeadingIsMadeOfARowThatKeepsWhatItIsSortedBy) {
    MarkedDocument buffer(
        L"<T><D><qfd:table-row-repeat fo:id=\"i\" sort=\"s\" parent-group=\"p\" "
        L"xpath=\"/o\"><C fo:id=\"c\"><B>|a</B></C></qfd:table-row-repeat></D></T>");
    const auto table = buffer->getEditableTableBuffer(-1);
    table->convertToGroup("/g", "k", true, "r");
    const std::wstring id = wide(T::getAttributeValue(
        T::getRowFromTableRowGroup(table->getTableElement(), 0, TableRowGroupType::Body), "id",
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

} // namespace

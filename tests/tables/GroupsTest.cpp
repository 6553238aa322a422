#include "support/MarkedDocument.h"
#include "support/Table.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableGrid.h"

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

TEST(RowGroups, TellWhatMayBeDone) {
    // In a group, its heading, its last; it can join one, one can be inserted above, below.
    for (const auto& [grid, expected] : rows(LR"(
        (|a) / (b) -> above below of / behind -
        #1*(|a) / 1(b) -> heading above below of / behind -
        #1*(a) / 1(|b) / 1(c) -> member above below of /g1 behind /g1
        #1*(a) / 1(b) / 1(|c) / (d) -> member last above below of /g1 behind /g1
        #1*(a) / 1(b) / (|c) -> joins above below of / behind /g1
        #1*(a) / 1(b) / #2*(|c) -> heading joins above below of / behind /g1
        (a) / 1(|b) -> member last above below of / behind -
        ([|a]1x2, b) / (c) -> of / behind -
        ([a]1x2, b) / (|c) -> of / behind -
        ([a]1x2, b) / (c) / (|d, e) -> below of / behind -
        (|a) / ([b]1x2, c) / (d) -> above below of / behind -
    )")) {
        MarkedDocument buffer(markupOf(grid));
        const auto table = buffer->getEditableTableBuffer(-1);
        std::wstring answers;
        for (const auto& [holds, answer] :
             {std::pair(table->currentRowIsInGroup(), L"member "),
              std::pair(table->currentRowIsGroupHeader(), L"heading "),
              std::pair(table->currentRowIsLastFromGroup(), L"last "),
              std::pair(table->canGroupCurrentRow(), L"joins "),
              std::pair(table->canInsertGroupAbove(), L"above "),
              std::pair(table->canInsertGroupBelow(), L"below ")})
            answers += holds ? answer : L"";
        const Core::String before = table->getPreviousGroupXpath();
        EXPECT_EQ(answers + L"of " + wide(table->getGroupXPath()) + L" behind " +
                      (before.empty() ? L"-" : wide(before)),
                  expected)
            << grid;
    }
}

} // namespace

#include "support/MarkedDocument.h"
#include "support/Table.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using T = EditableTableBuffer;

/// The rows of the only body, given as markup, and a caret `|` in one of them.
struct Rows {
    explicit Rows(const std::wstring& rows) : buffer(L"<T><D>" + rows + L"</D></T>") {}
    explicit Rows(const wchar_t* grid, bool /*isGrid*/) : buffer(markupOf(grid)) {}

    T* operator->() const { return table.get(); }
    Core::String at(int row, const char* attribute) const {
        return T::getAttributeValue(
            T::getRowFromTableRowGroup(table->getTableElement(), row, TableRowGroupType::Body),
            attribute, "");
    }
    std::wstring committed() const {
        table->commitChangesToEditableBuffer();
        const std::wstring text = buffer.marked();
        return text.substr(text.find(L"<D>") + 3, text.find(L"</D>") - text.find(L"<D>") - 3);
    }

    MarkedDocument buffer;
    SmartPtr<T> table = buffer->getEditableTableBuffer(-1);
};

std::wstring repeated(const std::wstring& attributes, const std::wstring& cells) {
    return L"<qfd:table-row-repeat " + attributes + L">" + cells + L"</qfd:table-row-repeat>";
}

TEST(RowGroups, SayWhatTheyAreAskedTo) {
    Rows row(repeated(L"fo:id=\"i\" sort=\"s\" parent-group=\"p\" xpath=\"/o\"",
                      L"<C fo:id=\"c\"><B>|a</B></C>"));
    row->convertToGroup("/g", "k", true, "r");
    EXPECT_FALSE(row->currentRowIsGroupHeader());
    const Core::String id = row.at(0, "id");
    EXPECT_TRUE(id.length() == 22 && row.at(1, "parent-group") == id);
    EXPECT_EQ(row.committed(),
              repeated(L"xpath=\"/g\" group-by=\"k\" is-group-heading=\"true\" fo:id=\"" +
                           wide(id) + L"\" merge-content=\"true\"",
                       L"<C><B>_</B></C>") +
                  repeated(L"fo:id=\"i\" sort=\"s\" parent-group=\"" + wide(id) + L"\" xpath=\"r\"",
                           L"<C fo:id=\"c\"><B>|a</B></C>"));
    Rows copied(repeated(L"qfd:sort=\"s\" fo:id=\"i\"", L"<C fo:id=\"c\"><B>|a</B></C>"));
    copied->insertGroupRow(false, "/g", "k", false);
    EXPECT_EQ(copied.at(0, "id"), "i");
    EXPECT_EQ(copied.at(1, "merge-content"), "");
    EXPECT_EQ(copied.at(2, "parent-group"), copied.at(1, "id"));
    const std::wstring text = copied.committed();
    EXPECT_EQ(text.find(L"\"c\""), text.rfind(L"\"c\"")) << "ids stay unique";
    EXPECT_TRUE(text.ends_with(L"<R qfd:sort=\"s\" qfd:parent-group=\"" + wide(copied.at(1, "id")) +
                               L"\"><C><B>a</B></C></R>"))
        << Core::Encoder::toDisplayText(Core::String(text));
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
        const Rows table(grid.c_str(), true);
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

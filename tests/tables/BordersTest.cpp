#include "foundation/Messages.h"
#include "support/EditorState.h"
#include "support/MarkedDocument.h"
#include "support/Table.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

namespace {

using T = EditableTableBuffer;
using Group = TableRowGroupType;
using Border = CellBorderType;
using Xml::Element;

TEST(TableBorders, OneCellByItself) {
    MarkedDocument buffer(markupOf(L"(|a, b)"));
    const auto table = buffer->getEditableTableBuffer(-1);
    Element* cell = table->getCellElementAt(0, 0, Group::Body);
    cell->set_attribute(L"padding", L"1pt");
    table->setSpecificBorderToCell(cell, Border::Top, L"dashed");
    table->setSpecificBorderToCell(cell, Border::All, L"dashed");
    EXPECT_EQ(gridOf(*table->getTableElement()), L"(a<padding=1pt; top=dashed>, b)");
    EXPECT_TRUE(T::cellHasSpecificBorder(cell, Border::Top));
    EXPECT_FALSE(T::cellHasSpecificBorder(cell, Border::None) ||
                 T::cellHasSpecificBorder(nullptr, Border::Top));
    T::removeSpecificBorderFromCell(cell, Border::Top);
    EXPECT_EQ(cell->get_attributes().size(), 4u) << "the padding of each side";
    for (const wchar_t* shorthand : {L"border", L"border-style"}) {
        cell->set_attribute(shorthand, L"dotted");
        EXPECT_EQ(T::getBorderStyleFromCell(cell, Border::Border), L"dotted");
        cell->remove_attribute(shorthand);
    }
    table->setBordersInfo({L"2pt", L"red", L"dotted"});
    table->setSpecificBorderToCell(cell, Border::Left, L"ridge");
    table->setSpecificBorderToCell(cell, Border::Style, L"solid");
    T::removeAllBordersFromCell(cell);
    EXPECT_EQ(T::getBorderAttributeName(Border::All), L"");
    EXPECT_EQ(gridOf(*table->getTableElement()),
              L"(a<padding-top=1pt; padding-right=1pt; padding-bottom=1pt; padding-left=1pt; "
              L"left-color=red; left-width=2pt; color=red; width=2pt>, b)");
}

TEST(TableBorders, ReadTheirText) {
    for (const auto& [text, expected] : rows(LR"(
            solid red 1pt -> 1pt/solid/red
            1pt -> 1pt/-/-
            1pt 2pt solid -> 1pt/-/-
            rgb(1, 2, 3) thick -> thick/-/rgb(1, 2, 3)
            cmyk(0, 0, 1, 0) inset .5em more -> .5em/inset/cmyk(0, 0, 1, 0)
        )")) {
        Core::String width = L"-", style = L"-", color = L"-";
        T::parseBorder(Core::String(text), width, style, color);
        EXPECT_EQ(wide(width) + L"/" + wide(style) + L"/" + wide(color), expected);
    }
    for (const auto& [value, expected] : {std::pair(L"12", L"12in"), std::pair(L"12pt", L"12pt"),
                                          std::pair(L"", L""), std::pair(L"5%", L"5%")}) {
        Core::String completed = value;
        T::setDefaultUnit(completed);
        EXPECT_EQ(completed, expected);
    }
}

TEST(RowAttributes, AreWrittenIntoTheTextAtOnce) {
    std::wstring markup = markupOf(L"head {h} foot (f) body (|a) / *(b)");
    markup.insert(markup.find(L"-repeat") + 7, L" height=\"1pt\"");
    MarkedDocument buffer(markup);
    const EditorState old = stateOf(buffer.face());
    const auto table = buffer->getEditableTableBuffer(-1);
    for (const auto& [group, row] : {std::pair(Group::Footer, 0), std::pair(Group::Body, 1)}) {
        table->setRowHeight(row, L"1in", group);
        table->setOverFlowHidden(row, L"hidden", group);
        table->setRowHeight(row, L"2in", group);
        EXPECT_EQ(table->getRowHeight(row, group), L"2in");
        for (int step = 0; step < 3; ++step)
            buffer->undo();
        EXPECT_EQ(stateOf(buffer.face()), old);
        EXPECT_FALSE(buffer->canUndo());
    }
    EXPECT_EQ(messageOf([&] { table->setRowHeight(2, L"1in", Group::Body); }),
              "invalid vector<T> subscript");
    EXPECT_THROW(table->setOverFlowHidden(0, L"hidden", Group::None), Core::Exception);
    for (const auto& [group, row] : {std::pair(Group::Body, -1), std::pair(Group::Body, 3),
                                     std::pair(Group::Header, 0), std::pair(Group::Header, 1)})
        table->setRowHeight(row, L"1in", group);
    EXPECT_EQ(stateOf(buffer.face()), old);
    table->setCrtRowHeight(L"3in");
    EXPECT_EQ(table->getCrtRowHeight(), L"3in");
    EXPECT_NE(buffer.find(L"<fo:table-row height=\"3in\">"), -1);
    table->removeCrtRowHeight();
    EXPECT_EQ(table->getCrtRowHeight(), L"");
    table->commitChangesToEditableBuffer();
    EXPECT_EQ(buffer.find(L"3in"), -1);
}

} // namespace

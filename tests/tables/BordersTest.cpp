#include "foundation/MemoryStream.h"
#include "foundation/Messages.h"
#include "properties/TableCommands.h"
#include "support/EditorState.h"
#include "support/MarkedDocument.h"
#include "support/Table.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableBorders.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>
#include <vector>

namespace {

using T = EditableTableBuffer;
using Group = TableRowGroupType;
using Type = CellBorderType;
using Xml::Element;

constexpr std::array groups{Group::Header, Group::Body, Group::Footer};

/// The table's cells by their words.
std::map<std::wstring, Element*> cellsOf(const Element& table) {
    std::map<std::wstring, Element*> cells;
    for (const Group group : groups)
        for (const Element* row : TableTree::rowsOf(table, group))
            for (Element* cell : TableTree::cellsOf(*row)) {
                const auto* block =
                    static_cast<const Element*>(cell->get_children("block").front());
                cells[wide(block->get_child_text()->get_content())] = cell;
            }
    return cells;
}

CellPlace placeOf(const TableModel& model, const Element* cell) {
    for (const Group group : groups)
        for (int row = 0; row < model.group(group).rowCount(); ++row)
            for (int column = 0; column < model.columnCount(); ++column)
                if (model.cellAt({group, row, column}) == cell)
                    return {group, row, column};
    return {};
}

TEST(TableBorders, AnEdgeIsTheSameFromBothOfItsCells) {
    Random random(1);
    for (int count = 0; count < 12; ++count) {
        MarkedDocument buffer;
        buffer->setContent(Core::String(documentWithTables(random, 1000000).c_str()), true);
        const auto table =
            buffer->getEditableTableBuffer(buffer.find(L"<B", buffer.find(L"<fo:table-cell")));
        const TableModel model(*table->getTableElement());
        const auto columns = static_cast<std::size_t>(model.columnCount());
        SCOPED_TRACE(gridOf(*table->getTableElement()));
        const auto written = [&] {
            const SmartPtr<Xml::XmlDocument> copy(new Xml::XmlDocument);
            copy->createRootNodeByImport(table->getTableElement(), true);
            return copy->writeToString();
        };
        std::vector<CellPlace> places; // from left to right, page row by page row
        for (const Group group : groups)
            for (int at = 0; at < model.group(group).rowCount() * model.columnCount(); ++at)
                places.push_back({group, at / model.columnCount(), at % model.columnCount()});
        const BorderInfo info;
        TableBorders cleared(model, info);
        for (const CellPlace& place : places)
            cleared.remove(place, Type::All);
        cleared.write();
        for (int step = 0; step < 15; ++step) {
            const CellPlace place = random.oneOf(places);
            const auto type = static_cast<Type>(random.below(6)); // an edge, None or All
            const bool isSet = random.oneIn(2);
            TableBorders borders(model, info);
            isSet ? borders.set(place, type) : borders.remove(place, type);
            borders.write();
            const Core::String before = written();
            if (placeOf(model, model.cellAt(place)) == place) {
                EXPECT_EQ(borders.has(place, type), isSet);
            }
            const auto expectSame = [&](std::size_t at, std::size_t behind, Type edge, Type other,
                                        int (*span)(const Element&)) {
                const Element* cell = model.cellAt(places[at]);
                const Element* next = model.cellAt(places[behind]);
                if (cell != next && span(*cell) == 1 && span(*next) == 1) {
                    EXPECT_EQ(borders.has(places[at], edge), borders.has(places[behind], other));
                }
            };
            for (std::size_t at = 0; at < places.size(); ++at) {
                if (at + columns < places.size())
                    expectSame(at, at + columns, Type::Bottom, Type::Top, TableTree::columnSpanOf);
                if ((at + 1) % columns > 0)
                    expectSame(at, at + 1, Type::Right, Type::Left, TableTree::rowSpanOf);
            }
            EXPECT_EQ(written(), before) << "questions change nothing";
        }
    }
}

TEST(TableBorders, CopeWithAnySpan) {
    const auto tree = treeOf(L"head {[h]5x5} body ([a]99999999x99999999, [b]0x-1) / ([c]abcx2, d) "
                             L"/ () body (e, [f]2x99999999, g)");
    const TableModel model(*tree->getRootNode());
    const BorderInfo info;
    TableBorders borders(model, info);
    for (const Group group : groups)
        for (int row = -1; row < 6; ++row)
            for (int column = -1; column <= model.columnCount(); ++column)
                borders.set({group, row, column}, Type::All);
    borders.write();
    EXPECT_EQ(gridOf(*tree->getRootNode()),
              L"head {[h]5x5<top; bottom; left; right>} "
              L"body ([a]1000x99999999<top; bottom; left; right>, [b]0x0) / "
              L"([c]1x2<top; bottom; left; right>, d<left>) / () "
              L"body (e<top; bottom; left; right>, [f]2x99999999<top; bottom; left; right>, "
              L"g<top; left; bottom; right>)");
}

TEST(TableBorders, AreAskedFor) {
    const auto tree = treeOf(L"(a, b) / ([c]1x3)");
    const auto cells = cellsOf(*tree->getRootNode());
    const TableModel model(*tree->getRootNode());
    const BorderInfo info{L"1pt", L"red", L"dotted"};
    TableBorders borders(model, info);
    const CellPlace a = placeOf(model, cells.at(L"a"));
    EXPECT_TRUE(borders.has(a, Type::None) && !borders.has(a, Type::All));
    borders.set({a, {Group::Body, 1, 1}, {Group::None, 0, 0}}, Type::Right);
    borders.write();
    EXPECT_EQ(gridOf(*tree->getRootNode()), L"(a<right; right-color=red; right-width=1pt>, "
                                            L"b<left; left-color=red; left-width=1pt>) / ([c]1x3)");
    EXPECT_TRUE(borders.has(a, Type::Right) && !borders.has(a, Type::None));
    EXPECT_FALSE(borders.has(a, Type::All) || borders.has(a, Type::Left) ||
                 borders.has({Group::Body, 1, 1}, Type::None));
    for (const wchar_t* shorthand : {L"border", L"border-style"}) {
        cells.at(L"b")->set_attribute(shorthand, L"dashed");
        const CellPlace b = placeOf(model, cells.at(L"b"));
        EXPECT_TRUE(borders.has(b, Type::All) && borders.has(b, Type::Top));
        EXPECT_FALSE(borders.has(b, Type::None));
        EXPECT_EQ(T::getBorderStyleFromCell(cells.at(L"b"), Type::Border), L"dashed");
    }
}

TEST(TableBorders, OneCellByItself) {
    MarkedDocument buffer(markupOf(L"(|a, b)"));
    const auto table = buffer->getEditableTableBuffer(-1);
    Element* cell = table->getCellElementAt(0, 0, Group::Body);
    cell->set_attribute(L"padding", L"1pt");
    table->setSpecificBorderToCell(cell, Type::Top, L"dashed");
    table->setSpecificBorderToCell(cell, Type::All, L"dashed");
    EXPECT_EQ(gridOf(*table->getTableElement()), L"(a<padding=1pt; top=dashed>, b)");
    EXPECT_TRUE(T::cellHasSpecificBorder(cell, Type::Top));
    EXPECT_FALSE(T::cellHasSpecificBorder(cell, Type::None) ||
                 T::cellHasSpecificBorder(nullptr, Type::Top));
    T::removeSpecificBorderFromCell(cell, Type::Top);
    EXPECT_EQ(cell->get_attributes().size(), 4u) << "the padding of each side";
    table->setBordersInfo({L"2pt", L"", L""});
    table->setSpecificBorderToCell(cell, Type::Left, L"ridge");
    table->setSpecificBorderToCell(cell, Type::Style, L"solid");
    T::removeAllBordersFromCell(cell);
    EXPECT_EQ(T::getBorderAttributeName(Type::All), L"");
    EXPECT_EQ(gridOf(*table->getTableElement()),
              L"(a<padding-top=1pt; padding-right=1pt; padding-bottom=1pt; padding-left=1pt; "
              L"left-width=2pt; width=2pt>, b)");
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

/// What the elements say, one after the other; "-" stands for no such attribute.
std::wstring valuesOf(const std::vector<const Element*>& elements, const wchar_t* attribute) {
    std::wstring values;
    for (const Element* element : elements) {
        const Xml::Attribute* found = element->get_attribute(attribute);
        values += (values.empty() ? L"" : L" ") + (found ? wide(found->get_value()) : L"-");
    }
    return values;
}

std::vector<const Element*> cellsIn(const T& table) {
    std::vector<const Element*> cells;
    for (const auto& [word, cell] : cellsOf(*table.getTableElement()))
        cells.push_back(cell);
    return cells;
}

TEST(SelectedElements, HaveAPropertyInCommon) {
    MarkedDocument buffer(markupOf(L"(^a, b|, c)"));
    const auto table = buffer->getEditableTableBuffer(-1);
    const auto cells = cellsOf(*table->getTableElement());
    const auto common = [&] {
        return table->getPropertyFromSelectedElements(L"fo:text-align", TableElements::Cells);
    };
    cells.at(L"a")->set_attribute(L"text-align", L"Left");
    EXPECT_EQ(common(), L"");
    cells.at(L"b")->set_attribute(L"text-align", L"left");
    EXPECT_EQ(common(), L"Left");
    cells.at(L"b")->set_attribute(L"text-align", L"right");
    EXPECT_EQ(common(), L"");
}

TEST(SelectedElements, TakeProperties) {
    PropertyCollection align;
    align.addProperty({L"fo:text-align", L"end"}, true);
    align.addProperty({L"color", L"red"}, true);
    for (const auto& [kind, cells] : {std::pair(TableElements::Cells, L"end left left left left"),
                                      std::pair(TableElements::Rows, L"left left left left left"),
                                      std::pair(TableElements::Columns, L"- left - - left"),
                                      std::pair(TableElements::Table, L"- - - - -")}) {
        std::wstring markup = markupOf(L"head ([h]1x1, i) body *(|a, b) / (c)");
        markup.insert(markup.find(L"<fo:table-header"), L"<fo:table-column/><fo:table-column/>");
        MarkedDocument buffer(markup);
        const auto table = buffer->getEditableTableBuffer(-1);
        for (const auto& [word, cell] : cellsOf(*table->getTableElement()))
            cell->set_attribute(L"text-align", L"left");
        EXPECT_EQ(table->getPropertyFromSelectedElements(L"text-align", kind),
                  kind == TableElements::Cells ? L"left" : L"");
        table->setPropertyToSelectedElements(align, false, kind);
        EXPECT_EQ(valuesOf(cellsIn(*table), L"text-align"), cells);
        EXPECT_EQ(table->getPropertyFromSelectedElements(L"fo:text-align", kind), L"end");
        table->commitChangesToEditableBuffer();
        EXPECT_EQ(buffer.find(L" fo:text-align=\"end\" fo:color") >= 0, kind == TableElements::Rows)
            << "which is repeated and so needs the prefix";
        table->removePropertyFromSelectedElements({L"fo:text-align"}, true, kind);
        EXPECT_EQ(table->getPropertyFromSelectedElements(L"text-align", kind), L"");
    }
}

TEST(TableFormat, IsThatOfATemplate) {
    const auto formatted = [](const std::wstring& row, const std::wstring& grid) {
        MarkedDocument buffer(markupOf(grid));
        const auto table = buffer->getEditableTableBuffer(-1);
        for (const auto& [word, cell] : cellsOf(*table->getTableElement())) {
            cell->set_attribute(L"id", word.c_str());
            cell->set_attribute(L"color", L"old");
        }
        table->commitChangesToEditableBuffer();
        const std::wstring document =
            L"<fo:root xmlns:fo=\"x\"><fo:page-sequence><fo:flow><fo:block><fo:table color=\"t\" "
            L"id=\"t\"><fo:table-body><fo:table-row color=\"r\">" +
            row +
            L"</fo:table-row></fo:table-body></fo:table></fo:block></fo:flow></fo:page-sequence>"
            L"</fo:root>";
        table->applyFormat(SmartPtr<Core::IO::Stream>(new Core::IO::MemoryStream(
            Core::Encoder::convertStringToUTF8(Core::String(document)))));
        EXPECT_EQ(valuesOf({table->getTableElement()}, L"color"), L"t");
        EXPECT_EQ(valuesOf({table->getTableElement()}, L"id"), L"-");
        EXPECT_EQ(valuesOf({table->getCellElementAt(0, 0, Group::Body)->get_parent()}, L"color"),
                  L"r");
        return valuesOf(cellsIn(*table), L"color") + L"; " +
               valuesOf(cellsIn(*table), L"font-size");
    };
    const std::wstring left = L"<fo:table-cell id=\"x\" color=\"l\" font-size=\"1\"/>";
    const std::wstring middle = L"<fo:table-cell color=\"m\"/>";
    const std::wstring right = L"<fo:table-cell color=\"r\" font-size=\"3\"/>";
    const std::wstring row = left + middle + right + middle;
    EXPECT_EQ(formatted(left + right, L"(|a, b)"), L"old old; - -");
    EXPECT_EQ(formatted(row, L"(|a, b, c, d)"), L"l m m r; 1 - - 3");
    EXPECT_EQ(formatted(row, L"([|a]2x1, [b]2x1)"), L"l m; 1 3");
    EXPECT_EQ(formatted(row, L"head (x) body (|a) body (b)"), L"l l old; 1 1 -");
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

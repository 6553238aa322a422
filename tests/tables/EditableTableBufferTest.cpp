#include "tables/EditableTableBuffer.h"

#include "foundation/Exception.h"
#include "support/EditorState.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using T = EditableTableBuffer;
using Type = TableRowGroupType;

/// The table that is all of a document's flow, with the marks.
std::wstring shown(const MarkedDocument& buffer) {
    return gridOf(writtenOut(buffer.marked()));
}

struct Case {
    std::wstring before;
    std::function<void(T&)> command;
    std::wstring after;
};

/// Gives each command, commits, undoes and redoes.
void expectEach(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        MarkedDocument buffer(markupOf(each.before));
        const EditorState old = stateOf(buffer.face());
        const auto table = buffer->getEditableTableBuffer(-1);
        each.command(*table);
        EXPECT_EQ(stateOf(buffer.face()), old) << "nothing is written yet";
        table->commitChangesToEditableBuffer();
        EXPECT_EQ(shown(buffer), each.after) << each.before;
        EXPECT_EQ(xmlError(buffer->getContent()), "");
        if (each.before == each.after)
            continue;
        const Core::String text = buffer->getContent();
        buffer->undo();
        EXPECT_EQ(stateOf(buffer.face()), (EditorState{old.text, old.caret, old.caret}))
            << each.before;
        EXPECT_FALSE(buffer->canUndo());
        buffer->redo();
        EXPECT_EQ(buffer->getContent(), text);
    }
}

TEST(EditableTableBuffer, InsertsRows) {
    const auto above = [](T& table) { table.insertRow(true); };
    const auto below = [](T& table) { table.insertRow(false); };
    const auto header = [](T& table) { table.insertHeaderRow(); };
    const auto footer = [](T& table) { table.insertFooterRow(); };
    expectEach({
        {L"(|a, b)", above, L"(_, _) / (|a, b)"},
        {L"(|a, b) / (c, d)", below, L"(|a, b) / (_, _) / (c, d)"},
        {L"(^a) / (b|)", above, L"(^a) / (_) / (|b)"},
        {L"([a]1x2, b) / (|c)", above, L"([a]1x3, b) / (_) / (|c)"},
        {L"([|a]2x2, b) / (c)", below, L"([|a]2x4, b) / (_) / (c)"},
        {L"(|a) body ([b]1x2, c) / (d)", below, L"(|a) / (_) body ([b]1x2, c) / (d)"},
        {L"([a]1x2, b) body (|c)", above, L"([a]1x2, b) body (_) / (|c)"},
        {L"*(|a)", above, L"(_) / *(|a)"},
        {L"*(|a)", below, L"*(|a) / (_)"},
        {L"head {|a, b} body (c)", below, L"head (|a, b) / (_, _) body (c)"},
        {L"(|a, [b]2x1)", header, L"head (_, [_]2x1) body (|a, [b]2x1)"},
        {L"foot (a) body (|b, c)", header, L"head (_) foot (a) body (|b, c)"},
        {L"head {a} body (|b)", header, L"head (a) / (_) body (|b)"},
        {L"head (a) body (|b, [c]1x2) / (d)", footer,
         L"head (a) foot (_, _) body (|b, [c]1x2) / (d)"},
    });
}

TEST(EditableTableBuffer, DeletesRows) {
    const auto rows = [](T& table) { table.deleteRows(true); };
    expectEach({
        {L"(a) / (|b) / (c)", rows, L"(|a) / (c)"},
        {L"(|a)", rows, L"(|a)"},
        {L"(a) / (^b) / (c|)", rows, L"(|a)"},
        {L"(a) / (b|) / (c^)", rows, L"(|a)"},
        {L"(|a) / (b^)", rows, L"(|a)"},
        {L"head (|a) body (b)", rows, L"(|b)"},
        {L"head (a) / (|b) body (c) / (d) / (^e)", rows, L"head (|a) body (e)"},
        {L"foot (^a) / (b) body (c) / (d|) / (e)", rows, L"(|e)"},
        {L"(a) / (b) body (|c)", rows, L"(a) / (|b)"},
        {L"head {a, |b} body (c, d)", rows, L"(c, |d)"},
    });
    MarkedDocument buffer(markupOf(L"head (a) body ([b]1x2, c) / (|d)"));
    const auto table = buffer->getEditableTableBuffer(-1);
    EXPECT_FALSE(table->canDeleteRow());
    EXPECT_FALSE(table->deleteRow(Type::Footer, 0) || table->deleteRow(Type::Header, 1) ||
                 table->deleteRow(Type::None, 0));
    EXPECT_TRUE(table->deleteRow(Type::Header, 0));
    EXPECT_FALSE(table->hasHeader());
}

TEST(EditableTableBuffer, InsertsAndDeletesColumns) {
    const auto after = [](T& table) { table.insertColumn(true); };
    const auto before = [](T& table) { table.insertColumn(false); };
    const auto remove = [](T& table) { table.deleteColumn(); };
    expectEach({
        {L"([|a]2x1) / (c, d)", after, L"([|a]3x1) / (c, _, d)"},
        {L"([|a]2x1) / (c, d)", before, L"(_, [|a]2x1) / (_, c, d)"},
        {L"([|a]1x2, b) / (c)", after, L"([|a]1x2, [_]1x2, b) / (c)"},
        {L"([|a]2x2, b) / (c)", after, L"([|a]4x2, b) / (c)"},
        {L"head (a) foot (b) body (|c)", before, L"head (_, a) foot (_, b) body (_, |c)"},
        {L"(a, |b) / (c, d)", remove, L"(|a) / (c)"},
        {L"head (a, b) body (|c, d)", remove, L"head (b) body (|d)"},
    });
    for (const auto& [columns, inserted] :
         {std::pair(L"", std::wstring()),
          std::pair(L"<fo:table-column number-columns-repeated=\"2\" id=\"i\"/>",
                    std::wstring(L"<fo:table-column id=\"i\" column-number=\"1\"/>"
                                 L"<fo:table-column column-number=\"2\"/>"
                                 L"<fo:table-column column-number=\"3\"/>"))}) {
        std::wstring markup = markupOf(L"(|a, b)");
        MarkedDocument buffer(markup.insert(markup.find(L"<fo:table-body"), columns));
        const auto table = buffer->getEditableTableBuffer(-1);
        table->insertColumn(false);
        EXPECT_EQ(table->getColumnCount(), 3);
        table->commitChangesToEditableBuffer();
        EXPECT_NE(buffer.find((L"\n" + inserted + L"<fo:table-body").c_str()), -1);
    }
}

/// Two columns, the caret in the first; `%` is for a share.
TEST(EditableTableBuffer, SetsWidths) {
    const auto share = [](const std::wstring& width) {
        return width.ends_with(L'%')
                   ? L"proportional-column-width(" + width.substr(0, width.size() - 1) + L")"
                   : width;
    };
    const auto change = [](const wchar_t* width) {
        return [width](T& table) { table.changeTableColWidth(width); };
    };
    const auto changeBy = [](const wchar_t* width, float delta) {
        return [=](T& table) { table.changeTableColWidth(width, delta); };
    };
    const auto set = [](const wchar_t* width) {
        return [width](T& table) { table.setCrtColumnWidth(width); };
    };
    const auto second = [](T& table) { table.setWidthAtColNo(1, L"7", true); };
    const auto normalise = [](T& table) { table.updateColumnWidths(); };
    struct Widths {
        std::wstring first, second;
        std::function<void(T&)> command;
        std::wstring firstAfter, secondAfter;
    };
    for (const Widths& each :
         std::vector<Widths>{{L"20%", L"40%", change(L"30%"), L"30%", L"30%"},
                             {L"20%", L"40%", change(L"60%"), L"20%", L"40%"},
                             {L"20%", L"40%", change(L"0%"), L"20%", L"40%"},
                             {L"20%", L"40%", change(L"12"), L"12in", L"40%"},
                             {L"1in", L"40%", change(L"50%"), L"50%", L"40%"},
                             {L"1in", L"2in", change(L"wide"), L"1in", L"2in"},
                             {L"1in", L"2in", changeBy(L"2in", -3), L"1in", L"2in"},
                             {L"1in", L"2in", changeBy(L"2in", 0.5F), L"2.5in", L"2in"},
                             {L"1in", L"2in", set(L"1.23456%"), L"1.235%", L"2in"},
                             {L"1in", L"2in", set(L"%"), L"1in", L"2in"},
                             {L"1%", L"3%", normalise, L"25", L"75"},
                             {L"25", L"75", normalise, L"25", L"75"},
                             {L"1%", L"3in", normalise, L"1%", L"3in"},
                             {L"1in", L"2in", second, L"1in", L"7%"}}) {
        std::wstring markup = markupOf(L"(|a, b)");
        markup.insert(markup.find(L"<fo:table-body"),
                      L"<fo:table-column column-width=\"" + share(each.first) +
                          L"\"/><fo:table-column column-width=\"" + share(each.second) + L"\"/>");
        MarkedDocument buffer(markup);
        const auto table = buffer->getEditableTableBuffer(-1);
        each.command(*table);
        EXPECT_EQ(table->getColumnWidth(0), share(each.firstAfter).c_str());
        EXPECT_EQ(table->getColumnWidth(1), share(each.secondAfter).c_str());
        EXPECT_EQ(table->getPrevProportionalWithCol(1), -1) << "the first is not looked at";
    }
    MarkedDocument buffer(markupOf(L"(|a, b)"));
    const auto table = buffer->getEditableTableBuffer(-1);
    table->setWidthAtColNo(66, L"7", true);
    const auto columns = table->getColumns({0, 1, 2});
    ASSERT_EQ(columns.size(), 3u);
    EXPECT_EQ(T::getAttributeValue(static_cast<Xml::Element*>(*std::next(columns.begin())),
                                   "column-number", ""),
              L"B");
    EXPECT_EQ(table->getColumnWidth(2), L"proportional-column-width(7)");
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

TEST(TableSelection, TabFollowsTheReader) {
    const std::wstring grid = L"head (a, b) foot {c} body (d, [e]1x2) / () / (f) body (g)";
    MarkedDocument buffer(markupOf(grid));
    const std::wstring order = L"abdefgc";
    const auto go = [&](wchar_t word) {
        buffer.document().setCaret(buffer.find(&std::wstring{word, L'<'}[0]));
    };
    for (std::size_t at = 0; at < order.size(); ++at) {
        const bool isLast = at + 1 == order.size();
        go(order[at]);
        buffer->moveCaretNextCell(false, false);
        EXPECT_EQ(wide(buffer->getContent())[buffer->getCaretPos()], order[isLast ? at : at + 1]);
        go(order[at]);
        buffer->moveCaretPrevCell(false);
        EXPECT_EQ(wide(buffer->getContent())[buffer->getCaretPos()], order[at == 0 ? at : at - 1]);
    }
    EXPECT_FALSE(buffer->canUndo());
}

TEST(TableSelection, TabAddsARow) {
    MarkedDocument buffer(L"<B>home</B>" + markupOf(L"(a, |b)"));
    const EditorState old = stateOf(buffer.face());
    buffer->moveCaretNextCell(false, true);
    EXPECT_EQ(gridOf(writtenOut(buffer.marked().substr(11))), L"(a, b) / (|_, _)");
    buffer->undo();
    EXPECT_EQ(stateOf(buffer.face()), old);
    buffer->redo();
    EXPECT_EQ(buffer->getCaretPos(), buffer.find(L"home")) << "and not in the new row";
    for (const std::wstring& last : {markupOf(L"([|a]1x2)"), std::wstring(L"<C><B>|a</B></C>")}) {
        MarkedDocument none(last);
        none->moveCaretNextCell(false, true);
        EXPECT_FALSE(none->canUndo());
    }
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

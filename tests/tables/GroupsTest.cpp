#include "support/MarkedDocument.h"
#include "support/WellFormed.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using T = EditableTableBuffer;

struct Case {
    std::wstring before;
    std::function<void(T&)> command;
    std::wstring after;
};

/// Gives each command and commits it, which undo takes back.
void expectEach(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        MarkedDocument buffer(markupOf(each.before));
        const std::wstring old = buffer.content();
        const auto table = buffer->getEditableTableBuffer(-1);
        each.command(*table);
        table->commitChangesToEditableBuffer();
        EXPECT_EQ(gridOf(writtenOut(buffer.marked())), each.after) << each.before;
        EXPECT_EQ(xmlError(buffer->getContent()), "");
        EXPECT_EQ(buffer->canUndo(), each.before != each.after) << each.before;
        buffer->undo();
        EXPECT_EQ(buffer.content(), old);
        EXPECT_FALSE(buffer->canUndo());
    }
}

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

const std::wstring content = L"<C><B>|a</B></C>";

std::wstring repeated(const std::wstring& attributes, const std::wstring& cells) {
    return L"<qfd:table-row-repeat " + attributes + L">" + cells + L"</qfd:table-row-repeat>";
}

TEST(RowGroups, AreInsertedAndConverted) {
    const auto above = [](T& table) { table.insertGroupRow(true, "/g", "k", true); };
    const auto below = [](T& table) { table.insertGroupRow(false, "/g", "k", false); };
    const auto convert = [](T& table) { table.convertToGroup("/g", "k", false, "r"); };
    expectEach({
        {L"(|a, b)", above, L"#1*(_, _) / 1(_, _) / (|a, b)"},
        {L"(|a, b)", below, L"(|a, b) / #1*(a, b) / 1(a, b)"},
        {L"(x) / (^a, b|)", above, L"(x) / #1*(_, _) / 1(_, _) / (^a, |b)"},
        {L"([|a]2x2) / ()", above, L"#1*([_]2x1) / 1([_]2x1) / ([|a]2x2) / ()"},
        {L"([|a]1x2, b) / (c)", below, L"([|a]1x2, b) / #1*([a]1x2, b) / 1([a]1x2, b) / (c)"},
        {L"head {|a} body (b)", above, L"head #1*(_) / 1(_) / (|a) body (b)"},
        {L"#1*(a) / 1(|b) / 1(c)", below, L"#1*(a) / 1(|b) / 1#2*(b) / 2(b) / 1(c)"},
        {L"#1*(|a) / 1(b)", above, L"#1*(_) / 1(_) / #2*(|a) / 2(b)"},
        {L"([|a]1x2, b) / (c)", convert, L"#1*(_, _) / 1([|a]1x2, b) / (c)"},
        {L"(x) / *(^a, b|)", convert, L"(x) / #1*(_, _) / 1*(^a, |b)"},
        {L"#1*(a) / 1(|b) / 1(c)", convert, L"#1*(a) / #2*(_) / 2(|b) / 1(c)"},
        {L"foot {|a} body (b)", convert, L"foot #1*(_) / 1(|a) body (b)"},
    });
}

TEST(RowGroups, AreJoinedLeftAndDeleted) {
    const auto join = [](T& table) { table.addCurrentRowToGroup("/"); };
    const auto leave = [](T& table) { table.ungroupCurrentRow("/", "/"); };
    const auto remove = [](T& table) { table.deleteGroup(); };
    const auto rows = [](T& table) { table.deleteRows(true); };
    expectEach({
        {L"#1*(a) / (|b)", join, L"#1*(a) / 1(|b)"},
        {L"#1*(a) / 1(b) / (|c)", join, L"#1*(a) / 1(b) / 1(|c)"},
        {L"(a) / (|b)", join, L"(a) / (|b)"},
        {L"(|a) / #1*(b)", join, L"(|a) / #1*(b)"},
        {L"head {|a} body (b)", join, L"head {|a} body (b)"},
        {L"#1*(a) / 1(|b) / 1(c)", leave, L"#1*(a) / (|b) / 1(c)"},
        {L"#1*(a) / 1(b) / 1(|c) / (d^)", remove, L"(b) / (|c) / (^d)"},
        {L"#1*(a) / 1(b) / 2(c) / 1(|d)", remove, L"(b) / 1(c) / (|d)"},
        {L"1(|a)", remove, L"1(|a)"},
        {L"(x) / #1*(|a) / 1(b^) / (c)", remove, L"(|x) / (b) / (c)"},
        {L"#1*(|a)", remove, L"#1*(|a)"},
        {L"head #1*(|a) body (b)", remove, L"(|b)"},
        {L"#1*(a) / 1(b) / (|c)", remove, L"#1*(a) / 1(b) / (|c)"},
        {L"#1*(|a) / 1(b)", rows, L"(|b)"},
    });
}

TEST(RowGroups, TakeInNewRows) {
    const auto above = [](T& table) { table.insertRow(true); };
    const auto below = [](T& table) { table.insertRow(false); };
    expectEach({
        {L"#1*(|a) / 1(b)", above, L"(_) / #1*(|a) / 1(b)"},
        {L"#1*(|a) / 1(b)", below, L"#1*(|a) / 1(_) / 1(b)"},
        {L"#1*(a) / 1(|b)", above, L"#1*(a) / 1(_) / 1(|b)"},
        {L"#1*(a) / 1(|b) / 1(c)", below, L"#1*(a) / 1(|b) / 1(_) / 1(c)"},
        {L"#1*(a) / 1(|b) / (c)", below, L"#1*(a) / 1(|b) / (_) / (c)"},
    });
}

TEST(RowGroups, RowsAreRepeated) {
    const auto repeat = [](T& table) { table.convertCurrentRowToRepeatingRow("/r"); };
    const auto path = [](T& table) { table.setRepeatingRowPath("/r"); };
    const auto makeStatic = [](T& table) { table.convertToStaticRow(); };
    expectEach({
        {L"(|a)", repeat, L"*(|a)"},
        {L"head {|a} body (b)", repeat, L"head *(|a) body (b)"},
        {L"*(|a)", makeStatic, L"(|a)"},
        {L"#1*(|a) / 1(b)", makeStatic, L"#1(|a) / 1(b)"},
        {L"head {|a} body (b)", path, L"head {|a} body (b)"},
        {L"head {|a} body (b)", makeStatic, L"head {|a} body (b)"},
    });
    const Rows plain(L"<R height=\"1in\" qf:a=\"b\" fo:height=\"2in\">" + content + L"</R>");
    plain->convertCurrentRowToRepeatingRow("/r");
    EXPECT_TRUE(plain->currentRowIsRepeatingRow() && plain->caretIsInRepeatingTableRow());
    EXPECT_EQ(plain.committed(), repeated(L"fo:height=\"1in\" qf:a=\"b\" xpath=\"/r\"", content));
    const Rows row(repeated(L"sort=\"s\" qfd:xpath=\"/a\" height=\"1in\"", content));
    row->convertCurrentRowToRepeatingRow("/b");
    EXPECT_EQ(row.committed(), repeated(L"sort=\"s\" qfd:xpath=\"/b\" height=\"1in\"", content));
    row->setRepeatingRowPath("/c");
    EXPECT_EQ(row.at(0, "xpath"), "/c");
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

    const Rows group(L"#1*(a) / 1(|b) / 1(c)", true);
    group->editGroup("/e", "f", false);
    EXPECT_EQ(group.at(0, "merge-content"), "false");
    Core::String xpath;
    Core::String groupBy;
    bool merge = true;
    group->getGroupProperties(xpath, groupBy, merge);
    EXPECT_TRUE(xpath == "/e" && groupBy == "f" && !merge);
    group->editGroup("/e", "f", true);
    group->getGroupProperties(xpath, groupBy, merge);
    EXPECT_TRUE(merge);
}

TEST(RowGroups, WritePathsAsTheyAreReached) {
    const std::wstring heading =
        repeated(L"xpath=\"/d/g\" is-group-heading=\"true\" fo:id=\"g\"", L"<C><B>h</B></C>");
    const Rows joining(heading + repeated(L"xpath=\"/d/g/r\"", content));
    joining->addCurrentRowToGroup("/");
    EXPECT_EQ(joining.at(1, "xpath"), "r");
    EXPECT_EQ(joining.at(1, "parent-group"), "g");
    joining->commitChangesToEditableBuffer();
    joining->ungroupCurrentRow("/d/g", "/d");
    EXPECT_EQ(joining.at(1, "xpath"), "g/r");
    EXPECT_EQ(joining.at(1, "parent-group"), "");
    const Rows none(heading + repeated(L"", content));
    none->addCurrentRowToGroup("/d");
    EXPECT_EQ(none.at(1, "xpath"), "../..") << "from the group to the root";
    const Rows without(repeated(L"xpath=\"/g\" is-group-heading=\"true\"", L"<C><B>h</B></C>") +
                       repeated(L"xpath=\"/g/r\"", content));
    EXPECT_TRUE(without->canGroupCurrentRow());
    without->addCurrentRowToGroup("/");
    EXPECT_EQ(without.at(1, "xpath"), "/g/r") << "the heading has no id";
}

TEST(RowGroups, TellWhatMayBeDone) {
    struct Answers {
        const wchar_t* grid;
        bool inGroup, heading, last, canJoin, above, below;
        const char* path;
        const char* before;
    };
    for (const Answers& each : std::vector<Answers>{
             {L"(|a) / (b)", false, false, false, false, true, true, "/", ""},
             {L"#1*(|a) / 1(b)", false, true, false, false, true, true, "/", ""},
             {L"#1*(a) / 1(|b) / 1(c)", true, false, false, false, true, true, "/g1", "/g1"},
             {L"#1*(a) / 1(b) / 1(|c) / (d)", true, false, true, false, true, true, "/g1", "/g1"},
             {L"#1*(a) / 1(b) / (|c)", false, false, false, true, true, true, "/", "/g1"},
             {L"#1*(a) / 1(b) / #2*(|c)", false, true, false, true, true, true, "/", "/g1"},
             {L"(a) / 1(|b)", true, false, true, false, true, true, "/", ""},
             {L"([|a]1x2, b) / (c)", false, false, false, false, false, false, "/", ""},
             {L"([a]1x2, b) / (|c)", false, false, false, false, false, false, "/", ""},
             {L"([a]1x2, b) / (c) / (|d, e)", false, false, false, false, false, true, "/", ""},
             {L"(|a) / ([b]1x2, c) / (d)", false, false, false, false, true, true, "/", ""},
         }) {
        const Rows table(each.grid, true);
        EXPECT_EQ(table->currentRowIsInGroup(), each.inGroup) << each.grid;
        EXPECT_EQ(table->currentRowIsGroupHeader(), each.heading) << each.grid;
        EXPECT_EQ(table->currentRowIsLastFromGroup(), each.last) << each.grid;
        EXPECT_EQ(table->canGroupCurrentRow(), each.canJoin) << each.grid;
        EXPECT_EQ(table->canInsertGroupAbove(), each.above) << each.grid;
        EXPECT_EQ(table->canInsertGroupBelow(), each.below) << each.grid;
        EXPECT_EQ(table->getGroupXPath(), each.path) << each.grid;
        EXPECT_EQ(table->getPreviousGroupXpath(), each.before) << each.grid;
    }
}

} // namespace

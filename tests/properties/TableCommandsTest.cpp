// Streams of random commands on tables. A failure is printed as a short script that `forme run`
// replays. FORME_RANDOM_COMMANDS sets how many commands are tried, FORME_RANDOM_SEED where the
// streams begin.

#include "properties/TableCommands.h"

#include "support/Documents.h"
#include "support/MarkedDocument.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableGrid.h"

#include <gtest/gtest.h>

#include <cwctype>
#include <functional>
#include <string_view>

namespace {

constexpr std::size_t perDocument = 60;

void expectNoFailure(std::size_t strangeEvery) {
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 300);
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    for (std::uint32_t seed = first; seed < first + total / perDocument; ++seed) {
        Random random(seed);
        const std::string failure = failureOnNew(
            documentWithTables(random, strangeEvery), "tables-" + std::to_string(seed),
            [&](const std::string& path) { return tableFailureOn(path, random, perDocument); });
        EXPECT_TRUE(failure.empty()) << "seed " << seed << ": " << failure;
    }
}

} // namespace

TEST(TableCommands, KeepTheirPromises) {
    expectNoFailure(20);
}

TEST(TableCommands, EndOnSpansThatFitNowhere) {
    expectNoFailure(1);
}

TEST(TableCommands, KeepTheirPromisesOnRealTables) {
    const std::size_t perTable = setting("FORME_RANDOM_COMMANDS", 400) / 40;
    const auto seed = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    for (const auto& path : corpusAndSamples()) {
        if (textOf(path).find(L"<fo:table-cell", 0U) < 0)
            continue;
        Random random(seed);
        const std::string failure = tableFailureOn(path, random, perTable);
        EXPECT_TRUE(failure.empty()) << failure;
    }
}

/// The row that Tab would have added is in no tree that a host keeps.
TEST(TableCommands, TabThatAddsNoRowLeavesNothingToCommit) {
    MarkedDocument buffer(markupOf(L"([|a]1x2)"));
    const auto table = buffer->getEditableTableBuffer(-1);
    buffer->moveCaretNextCell(false, true);
    table->commitChangesToEditableBuffer();
    EXPECT_FALSE(buffer->canUndo());
}

/// Where nothing spans, what is done and undone by commands gives the grid back, from every cell.
TEST(TableCommands, HaveTheirOpposites) {
    using T = EditableTableBuffer;
    using Command = std::function<void(T&)>;
    const auto deleteRow = [](int further) {
        return [further](T& table) {
            table.deleteRow(TableRowGroupType::Body, table.getCaretRow() + further);
        };
    };
    struct Pair {
        Command command;
        void (*move)(EditableDocumentBuffer& document);
        Command opposite;
        bool keepsWords;
    };
    const auto stay = [](EditableDocumentBuffer&) {};
    const std::vector<Pair> pairs{
        {[](T& table) { table.insertRow(true); }, stay, deleteRow(-1), true},
        {[](T& table) { table.insertRow(false); }, stay, deleteRow(1), true},
        {[](T& table) { table.insertColumn(true); },
         [](EditableDocumentBuffer& document) { document.moveCaretNextCell(false, false); },
         [](T& table) { table.deleteColumn(); }, true},
        {[](T& table) { table.insertColumn(false); },
         [](EditableDocumentBuffer& document) { document.moveCaretPrevCell(false); },
         [](T& table) { table.deleteColumn(); }, true},
        {[](T& table) { table.increaseColSpan(); }, stay, [](T& table) { table.decreaseColSpan(); },
         false},
        {[](T& table) { table.increaseRowSpan(); }, stay, [](T& table) { table.decreaseRowSpan(); },
         false}};
    const std::wstring grid = L"head (u, v, w) foot (x, y, z) body (a, b, c) / (d, e, f)";
    for (const wchar_t word : std::wstring(L"abcdef"))
        for (const Pair& pair : pairs) {
            MarkedDocument buffer(markupOf(grid));
            const auto give = [&](const Command& command) {
                const auto table = buffer->getEditableTableBuffer(-1);
                table->updateTableBuffer();
                command(*table);
                table->commitChangesToEditableBuffer();
            };
            const auto shown = [&](bool withWords) {
                std::wstring text = gridOf(writtenOut(buffer.marked()));
                // Words of one cell stand in brackets with its spans, of which those of 1 are none.
                std::erase_if(text, [&](wchar_t unit) {
                    return unit == L'|' || (!withWords && (std::iswalpha(unit) ||
                                                           std::wstring_view(L"[]1_ ").find(unit) !=
                                                               std::wstring_view::npos));
                });
                return text;
            };
            const std::wstring before = shown(pair.keepsWords);
            buffer.document().setCaret(buffer.find((L">" + std::wstring{word, L'<'}).c_str()) + 1);
            give(pair.command);
            EXPECT_NE(shown(true), grid);
            pair.move(*buffer.operator->());
            give(pair.opposite);
            EXPECT_EQ(shown(pair.keepsWords), before) << static_cast<char>(word);
        }
}

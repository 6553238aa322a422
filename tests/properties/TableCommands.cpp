#include "properties/TableCommands.h"

#include "document/Document.h"
#include "document/caret/Stops.h"
#include "foundation/Wide.h"
#include "support/WellFormed.h"
#include "tables/EditableTableBuffer.h"
#include "tables/TableTree.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <string_view>

using Core::String;
using Type = TableRowGroupType;
using Situation = TableSituation;
using Cells = PlainTable::Cells;

// The commands

namespace {

Cells cellsOfColumn(const Situation& at) {
    Cells cells;
    for (const Type type : {Type::Header, Type::Body, Type::Footer}) {
        const Cells own = at.table.group(type).cellsIn(at.column);
        cells.insert(cells.end(), own.begin(), own.end());
    }
    return cells;
}

/// From the first to behind the last row that deleteRows() takes; the first body row stays if all
/// are selected.
std::pair<int, int> takenRows(const Situation& at) {
    const int end = at.isSelection ? at.endRow : at.row;
    int first = std::min(at.row, end);
    const int last = std::max(at.row, end);
    if (at.group == Type::Body && last - first + 1 == at.table.rows(Type::Body))
        ++first;
    return {first, last + 1};
}

Cells cellsOfTakenRows(const Situation& at) {
    Cells cells;
    const auto [first, behind] = takenRows(at);
    for (int row = first; row < behind; ++row) {
        const Cells own = at.rows().ownCells(row);
        cells.insert(cells.end(), own.begin(), own.end());
    }
    return cells;
}

bool selectsInOneGroup(const Situation& at) {
    return !at.isSelection || at.endRow >= 0;
}

const Xml::Element* rowOf(const Situation& at) {
    return at.rows().rows[static_cast<std::size_t>(at.row)];
}

bool isHeading(const Xml::Element& row) {
    return row.get_name() == "table-row-repeat" && row.get_attribute("is-group-heading");
}

/// The heading that deleteGroup() takes.
int headingRow(const Situation& at) {
    const auto& rows = at.rows().rows;
    int row = at.row;
    if (isHeading(*rowOf(at)))
        return at.group == Type::Body && rows.size() == 1 ? -1 : row;
    if (!rowOf(at)->get_attribute("parent-group"))
        return -1;
    while (--row >= 0 &&
           (rows[static_cast<std::size_t>(row)]->get_parent() != rowOf(at)->get_parent() ||
            !rows[static_cast<std::size_t>(row)]->get_attribute("is-group-heading")))
        ;
    return row;
}

Cells cellsOfHeading(const Situation& at) {
    const int row = headingRow(at);
    return row < 0 ? Cells() : at.rows().ownCells(row);
}

/// A group would be torn by it: a row in its middle would name it no more.
bool tearsNoGroup(const Situation& at) {
    const auto& rows = at.rows().rows;
    const auto next = static_cast<std::size_t>(at.row) + 1;
    return next == rows.size() || !rows[next]->get_attribute("parent-group");
}

/// One in a table that was copied with its row has no id, so that nothing can join it.
bool isBehindNoNamelessHeading(const Situation& at) {
    const auto& rows = at.rows().rows;
    const auto row = static_cast<std::size_t>(at.row);
    return row == 0 || !rows[row - 1]->get_attribute("is-group-heading") ||
           rows[row - 1]->get_attribute("id");
}

/// And not in the header or footer directly.
bool standsInRow(const Situation& at) {
    return TableTree::isRow(*rowOf(at));
}

/// All of them; a new command is a row.
const std::vector<TableCommand> commands{
    // Rows
    {.weight = 6, .request = R"("insertRow",true)"},
    {.weight = 6, .request = R"("insertRow",false)"},
    {.weight = 2, .request = R"("insertHeaderRow")"},
    {.weight = 2, .request = R"("insertFooterRow")"},
    {.weight = 6,
     .request = R"("deleteRows",true)",
     .can = "canDeleteRow",
     .takes = cellsOfTakenRows,
     .isGiven = selectsInOneGroup},
    // Columns
    {.weight = 5, .request = R"("insertColumn",true)"},
    {.weight = 5, .request = R"("insertColumn",false)"},
    {.weight = 5, .request = R"("deleteColumn")", .can = "canDeleteColumn", .takes = cellsOfColumn},
    // Spans
    {.weight = 6, .request = R"("increaseColSpan")", .can = "canIncreaseColSpan", .touches = 2},
    {.weight = 6, .request = R"("increaseRowSpan")", .can = "canIncreaseRowSpan", .touches = 2},
    {.weight = 4, .request = R"("decreaseColSpan")", .can = "canDecreaseColSpan"},
    {.weight = 4, .request = R"("decreaseRowSpan")", .can = "canDecreaseRowSpan"},
    // Groups of rows
    {.weight = 3,
     .request = R"("insertGroupRow",true,"/d/g$","@k",false)",
     .can = "canInsertGroupAbove"},
    {.weight = 3,
     .request = R"("insertGroupRow",false,"/d/g$","@k",true)",
     .can = "canInsertGroupBelow",
     .copies = 2,
     .isGiven = [](const Situation& at) { return !isHeading(*rowOf(at)); }},
    {.weight = 3, .request = R"("convertToGroup","/d/g$","@k",true,"r")", .isGiven = tearsNoGroup},
    {.weight = 4,
     .request = R"("addCurrentRowToGroup","/d")",
     .can = "canGroupCurrentRow",
     .isGiven = isBehindNoNamelessHeading},
    {.weight = 2, .request = R"("ungroupCurrentRow","/d/g","/d")", .isGiven = tearsNoGroup},
    {.weight = 2, .request = R"("editGroup","/e$","@k",false)"},
    {.weight = 3, .request = R"("deleteGroup")", .takes = cellsOfHeading},
    {.weight = 2, .request = R"("convertCurrentRowToRepeatingRow","/r$")"},
    {.weight = 1, .request = R"("setRepeatingRowPath","/r$")"},
    {.weight = 1, .request = R"("convertToStaticRow")"},
    // Widths
    {.weight = 2, .request = R"("changeTableColWidth","$%")"},
    {.weight = 1, .request = R"("changeTableColWidth","$")"},
    {.weight = 1, .request = R"("changeTableColWidth","$%",3.5)"},
    {.weight = 1, .request = R"("setCrtColumnWidth","$%")"},
    {.weight = 1, .request = R"("removeCrtColumnWidth")"},
    {.weight = 1, .request = R"("setWidthAtColNo",$,"$",true)"},
    {.weight = 1, .request = R"("updateColumnWidths")"},
    // Borders
    {.weight = 7, .request = R"("setBorderToSelectedCells",~)"},
    {.weight = 7, .request = R"("removeBorderFromSelectedCells",~)"},
    // Heights of rows and formats
    {.weight = 2,
     .request = R"("setCrtRowHeight","3cm")",
     .isGiven = standsInRow,
     .question = R"("getCrtRowHeight")",
     .answer = "3cm"},
    {.weight = 1, .request = R"("removeCrtRowHeight")", .question = R"("getCrtRowHeight")"},
    {.weight = 1, .request = R"("setOverFlowHidden",0,"hidden",1)"},
    {.weight = 2,
     .request = R"("setPropertyToSelectedElements",[["fo:color","red"]],true,0)",
     .question = R"("getPropertyFromSelectedElements","fo:color",0)",
     .answer = "red"},
    {.weight = 1,
     .request = R"("setPropertyToSelectedElements",[["fo:color","navy"]],true,1)",
     .question = R"("getPropertyFromSelectedElements","color",1)",
     .answer = "navy"},
    {.weight = 1, .request = R"("setPropertyToSelectedElements",[["fo:text-align","end"]],true,2)"},
    {.weight = 1,
     .request = R"("setPropertyToSelectedElements",[["text-align","end"]],true,3)",
     .question = R"("getPropertyFromSelectedElements","fo:text-align",3)",
     .answer = "end"},
    {.weight = 1,
     .request = R"("removePropertyFromSelectedElements",["fo:color"],true,0)",
     .question = R"("getPropertyFromSelectedElements","fo:color",0)"},
    {.weight = 1,
     .request = R"("removePropertyFromSelectedElements",["height"],true,1)",
     .question = R"("getPropertyFromSelectedElements","height",1)"},
    {.weight = 2,
     .request =
         R"("applyFormat","<r xmlns:fo='x'><fo:page-sequence><fo:flow><fo:block><fo:table color='teal' id='t'><fo:table-body><fo:table-row height='1in'><fo:table-cell/><fo:table-cell color='teal'/><fo:table-cell border='thin' id='c'/></fo:table-row></fo:table-body></fo:table></fo:block></fo:flow></fo:page-sequence></r>")",
     .question = R"("getPropertyFromSelectedElements","color",3)",
     .answer = "teal"},
};

// The promises

std::multiset<std::wstring> contentsOf(const Cells& cells) {
    std::multiset<std::wstring> contents;
    for (const PlainTable::Cell* cell : cells)
        contents.insert(cell->content);
    return contents;
}

template <typename Set>
Set without(const Set& all, const Set& some) {
    Set left;
    std::set_difference(all.begin(), all.end(), some.begin(), some.end(),
                        std::inserter(left, left.end()));
    return left;
}

/// The values of all ids, found in the text.
std::multiset<std::wstring> idsOf(const String& text) {
    std::multiset<std::wstring> ids;
    for (int at = 0; (at = text.find(L"id=\"", at)) >= 0; at += 4)
        if (const wchar_t before = text.view()[static_cast<std::size_t>(at) - 1];
            before == L' ' || before == L':')
            ids.insert(
                wide(text.subString(at + 4, text.find(L'"', static_cast<unsigned>(at + 4)) - 1)));
    return ids;
}

bool areUnique(const std::multiset<std::wstring>& ids) {
    return std::set<std::wstring>(ids.begin(), ids.end()).size() == ids.size();
}

/// One that not even a placeholder gives the caret a place in, which then goes to the next.
bool hasEmptyCell(const PlainTable& table) {
    const Cells cells = table.cells();
    return std::any_of(cells.begin(), cells.end(), [](const PlainTable::Cell* cell) {
        return cell->words.empty() && cell->content.find(L"&#x00A0;") == std::wstring::npos;
    });
}

std::string excerpt(const std::multiset<std::wstring>& words) {
    std::string text;
    for (const std::wstring& word : words)
        text.append(1, ' ').append(Core::Encoder::toDisplayText(String(word.substr(0, 60))));
    return text;
}

const char* const questionTable = R"json([
    ["table.canDeleteRow"], ["table.canDeleteColumn"], ["table.canIncreaseColSpan"],
    ["table.canIncreaseRowSpan"], ["table.canDecreaseColSpan"], ["table.canDecreaseRowSpan"],
    ["table.canGroupCurrentRow"], ["table.canInsertGroupAbove"], ["table.canInsertGroupBelow"],
    ["table.getGroupProperties"], ["table.getRowGroupHeader"],
    ["table.getCellElementAt", 0, 99, 1], ["table.getSelectedRows"], ["table.getSelectedColumns"],
    ["table.allRowsSelected"], ["table.getPropertyFromSelectedElements", "border", 0],
    ["table.getPropertyFromSelectedElements", "fo:text-align", 2],
    ["table.selectedCellsHasBorder", 4], ["table.processSelectedCells", 5, 2],
    ["table.getCrtColumnWidth"], ["table.getPrevProportionalWithCol", 1],
    ["table.getTableRowPositionsInTableBuffer", 1],
    ["table.getSpanOverMatrixFromRowGroupMatrix", 1, 3, 3], ["table.getNamespaces"]
])json";

/// What is asked of the open table, of which a row gives the name and the arguments.
std::string requestOf(const char* brief) {
    return R"(["table.)" + std::string(brief + 1) + "]";
}

/// Something that a user does. The requests of a table command are: to open the table, perhaps to
/// read it again, the command, the commit.
struct Step {
    std::vector<std::string> requests;
    const TableCommand* command = nullptr;
};

/// Carries out steps on a document and tells which promise was broken.
class Checker : public WatchedSession {
public:
    using WatchedSession::WatchedSession;

    /// Empty if none is.
    std::string carryOut(const Step& step) {
        if (step.command && !(isInCell() && isGiven(*step.command)))
            return {}; // a step before it is not there any more
        const String before = state().text;
        std::string broken = step.command ? carryOutCommand(step) : carryOutOther(step);
        if (broken.empty() && state().text != before)
            broken = xmlError(state().text);
        return broken;
    }

    bool isInCell() {
        Type group{};
        return document().caretIsInsideTable() &&
               document().getTableRowNumberFrom(state().caret, start(), group) >= 0;
    }

    bool isGiven(const TableCommand& command) {
        if (!command.isGiven)
            return true;
        const PlainTable table(state().text, start());
        return command.isGiven(situationOf(table));
    }

    bool isOffered(const TableCommand& command) {
        return *command.can &&
               session().serve(Json::array({"table." + std::string(command.can)}))["result"] ==
                   true;
    }

private:
    bool undoKeepsSelection() const override { return false; } // of cells

    std::array<int, 3> caretTerms() {
        return {buffer().getCaretRow(), buffer().getCaretCol(), buffer().getColumnCount()};
    }
    EditableTableBuffer& buffer() { return *document().getEditableTableBuffer(-1); }
    int start() { return buffer().getDocumentBufferStart(); }

    Situation situationOf(const PlainTable& table) {
        const EditorState now = state();
        Type group{};
        Type endGroup{};
        const int row = document().getTableRowNumberFrom(now.caret, start(), group);
        const int endRow = document().getTableRowNumberFrom(now.pivot, start(), endGroup);
        return {table,
                group,
                row,
                buffer().getTableColumnNumberFrom(now.caret, row, group),
                endGroup == group ? endRow : -1,
                now.caret != now.pivot};
    }

    /// What was typed since the table was read is not overwritten.
    std::string brokenLateCommit() {
        const String before = state().text;
        session().serve({"table.commit"});
        return state().text == before ? "" : "a commit of what was not changed";
    }

    std::string carryOutOther(const Step& step) {
        if (step.requests.front() == R"(["table.commit"])")
            return brokenLateCommit();
        for (const std::string& request : step.requests)
            if (std::string broken = WatchedSession::carryOut(request); !broken.empty())
                return broken;
        return {};
    }

    std::string carryOutCommand(const Step& step) {
        const TableCommand& command = *step.command;
        const EditorState old = state();
        const int table = start();
        const PlainTable before(old.text, table);
        const Situation at = situationOf(before);
        const bool couldUndo = document().canUndo();
        bool offered = false;
        std::array<int, 3> terms{};
        for (const std::string& request : step.requests) {
            if (&request == &step.requests.back() - 1) {
                offered = isOffered(command);
                terms = caretTerms();
            }
            if (&request == &step.requests.back())
                if (std::string broken = brokenAnswers(command, at); !broken.empty())
                    return broken;
            if (std::string broken = WatchedSession::carryOut(request); !broken.empty())
                return broken;
        }
        if (state().text == old.text)
            return offered                             ? "it was offered and does nothing"
                   : couldUndo != document().canUndo() ? "history without a change"
                   : terms != caretTerms()             ? "another cell without a change"
                                                       : "";
        const PlainTable after(state().text, table);
        if (after.cells().empty())
            return {};
        if (!document().caretIsInsideTable())
            return hasEmptyCell(after) ? "" : "the caret left the table";
        std::string broken;
        if (before.isBalanced() && !before.hasSpans() && !after.isBalanced())
            broken = "balanced groups are balanced no more";
        for (const std::string& other :
             {brokenWords(command, at, after), brokenSurroundings(at, after, old),
              brokenPlaces(table, after), brokenTab(after), brokenUndo(old)})
            broken = broken.empty() ? other : broken;
        return broken;
    }

    /// What a host asks between a command and its commit is told, and changes nothing.
    std::string brokenAnswers(const TableCommand& command, const Situation& at) {
        const EditorState old = state();
        const Json tree = answerTo(R"(["table.getTableElement"])")["xml"];
        if (*command.question && at.table.isBalanced())
            if (const Json answer = answerTo(requestOf(command.question)); answer != command.answer)
                return command.question + (" is answered " + answer.dump());
        static const Json questions = Json::parse(questionTable);
        for (const Json& question : questions)
            session().serve(question).at("result");
        return state() == old && answerTo(R"(["table.getTableElement"])")["xml"] == tree
                   ? ""
                   : "a question changed something";
    }

    Json answerTo(const std::string& question) {
        return session().serveLine(question).at("result");
    }

    static std::string brokenWords(const TableCommand& command, const Situation& at,
                                   const PlainTable& after) {
        auto expected = wordsOf(at.table.cells());
        if (command.takes)
            expected = without(expected, wordsOf(command.takes(at)));
        for (int copy = 0; copy < command.copies; ++copy)
            expected.merge(wordsOf(at.rows().ownCells(at.row)));
        const auto words = wordsOf(after.cells());
        if (words != expected)
            return "words lost:" + excerpt(without(expected, words)) +
                   ", words gained:" + excerpt(without(words, expected));
        auto contents = contentsOf(at.table.cells());
        if (command.takes)
            contents = without(contents, contentsOf(command.takes(at)));
        const auto changed = without(contents, contentsOf(after.cells()));
        return changed.size() <= command.touches ? "" : "cells changed:" + excerpt(changed);
    }

    std::string brokenSurroundings(const Situation& at, const PlainTable& after,
                                   const EditorState& old) {
        const std::wstring was = wide(old.text);
        const std::wstring is = wide(state().text);
        const auto table = static_cast<std::size_t>(start());
        const auto tail = [&](const std::wstring& text, const PlainTable& of) {
            return text.substr(table + of.length());
        };
        if (was.substr(0, table) != is.substr(0, table) || tail(was, at.table) != tail(is, after))
            return "the text around the table changed";
        return areUnique(idsOf(old.text)) && !areUnique(idsOf(state().text)) ? "an id twice" : "";
    }

    /// Text and matrix tell the same, and the caret stands at a place for it.
    std::string brokenPlaces(int table, const PlainTable& after) {
        const EditorState now = state();
        const Document& inner = Document::of(document());
        if (!Stops::canHoldCaret(inner, now.caret) || Stops::isSkipped(inner, now.caret))
            return "the caret is at no stop";
        EditableTableBuffer& of = buffer();
        of.updateTableBuffer();
        const Situation at = situationOf(after);
        if (at.row < 0 || !after.isBalanced())
            return {};
        // Each question passes the rows before, so that of many cells some are asked.
        const auto& cells = at.rows().cells;
        for (std::size_t i = 0; i < cells.size(); i += 1 + cells.size() / 8) {
            const PlainTable::Cell& cell = *cells[i];
            const int place = document().getCellPositionInTable(
                table, cell.row, cell.column, at.group, after.rows(at.group), after.columns(), &of);
            const int within = now.text.find(L'>', static_cast<unsigned>(place)) + 1;
            Type group{};
            const int row = document().getTableRowNumberFrom(within, table, group);
            const Cells own = at.rows().ownCells(cell.row);
            const auto index = std::find(own.begin(), own.end(), &cell) - own.begin();
            if (place < 0 || row != cell.row || group != at.group ||
                document().getTableRowGroupTypeFrom(within, table) != group ||
                document().getCellNumberOnRow(within, table) != index ||
                of.getTableColumnNumberFrom(within, row, group) != cell.column)
                return "the cell at " + std::to_string(cell.row) + ", " +
                       std::to_string(cell.column) + " is found at " + std::to_string(place);
        }
        return {};
    }

    /// Tab meets each cell once, as a reader does, and Shift+Tab on the way back.
    std::string brokenTab(const PlainTable& after) {
        std::vector<int> way;
        const int end = start() + static_cast<int>(after.length());
        for (int cell = firstCell(after); cell >= 0 && way.size() <= after.cells().size();
             cell = document().getNextCellPosition(cell, false))
            way.push_back(cell);
        const std::set<int> met(way.begin(), way.end());
        if (way.size() != after.cells().size() || met.size() != way.size() ||
            (!met.empty() && (*met.begin() < start() || *met.rbegin() > end)))
            return "Tab meets " + std::to_string(met.size()) + " cells of " +
                   std::to_string(after.cells().size());
        for (std::size_t at = 0; at < way.size(); ++at)
            if (document().getPrevCellPosition(way[at], false) != (at > 0 ? way[at - 1] : -1))
                return "Shift+Tab goes another way";
        return {};
    }

    int firstCell(const PlainTable& after) {
        for (const Type type : {Type::Header, Type::Body, Type::Footer})
            if (!after.group(type).cells.empty())
                return Document::of(document())
                    .text()
                    .nextNamed(document().getTableRowGroupPosition(start(), type),
                               Core::StringArray{L"fo:table-cell"});
        return -1;
    }

    /// One step of undo takes the command back, redo brings it again; then all is as before.
    std::string brokenUndo(const EditorState& old) {
        const EditorState now = state();
        document().undo();
        const EditorState undone = state();
        document().redo();
        const bool isRedone = state().text == now.text;
        document().setCaretPos(false, now.pivot);
        document().setCaretPos(true, now.caret);
        if (undone.text != old.text || undone.caret != old.caret)
            return "undo gives something else";
        return isRedone ? "" : "redo gives another text";
    }
};

// The steps

class Steps {
public:
    Steps(Random& random, Checker& checker) : random_(random), checker_(checker) {}

    Step next() {
        const std::size_t kind = random_.below(20);
        if (kind < 5)
            return {{moveToCell()}};
        if (kind < 11 && checker_.isInCell())
            return tableCommand();
        if (kind < 16 && checker_.isInCell())
            return offeredCommand();
        static constexpr const char* others[] = {R"(["moveCaretNextCell",false,true])",
                                                 R"(["moveCaretNextCell",false,false])",
                                                 R"(["moveCaretPrevCell",false])",
                                                 R"(["insertText","x",false,false])",
                                                 R"(["insertText"," y",false,false])",
                                                 R"(["erase",false,false])",
                                                 R"(["undo"])",
                                                 R"(["undo"])",
                                                 R"(["redo"])",
                                                 R"(["selectTable",""])",
                                                 R"(["table.commit"])"};
        return {{random_.oneOf(others)}};
    }

private:
    std::string moveToCell() {
        const String text = checker_.document().getContent();
        const auto from = static_cast<unsigned>(random_.below(text.view().size()));
        int cell = text.find(L"<fo:table-cell", from);
        if (cell < 0)
            cell = text.find(L"<fo:table-cell", 0U);
        const Document& document = Document::of(checker_.document());
        int stop = Stops::next(document, std::max(cell, 0));
        for (std::size_t more = random_.below(4); more > 0 && stop >= 0; --more)
            stop = Stops::next(document, stop);
        return Json::array({"setCaretPos", random_.oneIn(5), stop}).dump();
    }

    Step tableCommand() {
        const TableCommand& command = random_.oneByWeight(commands);
        return checker_.isGiven(command) ? stepOf(command) : next();
    }

    /// As a host does that asks first.
    Step offeredCommand() {
        const std::size_t first = random_.below(commands.size());
        checker_.carryOut({{R"(["table.open",-1])"}});
        checker_.carryOut({{R"(["table.updateTableBuffer"])"}});
        for (std::size_t i = 0; i < commands.size(); ++i) {
            const TableCommand& command = commands[(first + i) % commands.size()];
            if (checker_.isOffered(command) && checker_.isGiven(command))
                return stepOf(command);
        }
        return tableCommand();
    }

    Step stepOf(const TableCommand& command) {
        std::string request;
        for (const char unit : requestOf(command.request))
            request += unit == '$'   ? std::to_string(1 + random_.below(60))
                       : unit == '~' ? std::to_string(random_.below(6))
                                     : std::string(1, unit);
        return {{R"(["table.open",-1])", R"(["table.updateTableBuffer"])", request,
                 R"(["table.commit"])"},
                &command};
    }

    Random& random_;
    Checker& checker_;
};

} // namespace

std::string tableFailureOn(const std::string& document, Random& random, std::size_t count) {
    return failureOfSteps(
        document, count, [](const std::string& path) { return Checker(path); },
        [&](Checker& checker) { return Steps(random, checker).next(); });
}

std::string withTablesEdited(const std::string& document, Random& random, std::size_t count) {
    Checker checker(document);
    Steps steps(random, checker);
    for (std::size_t i = 0; i < count; ++i)
        checker.carryOut(steps.next());
    return Core::Encoder::toDisplayText(checker.document().getContent());
}

#include "scenarios/Scenario.h"

#include "support/MarkedDocument.h"
#include "support/WellFormed.h"
#include "tables/TableGrid.h"

#include <algorithm>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <regex>
#include <set>
#include <stdexcept>
#include <string_view>

namespace {

const std::string documentStart =
    R"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format" xmlns:qf="urn:forme:qf/1.0">
<fo:layout-master-set><fo:simple-page-master master-name="page"><fo:region-body/></fo:simple-page-master></fo:layout-master-set>
<fo:page-sequence master-reference="page"><fo:flow flow-name="xsl-region-body">)";
const std::string documentEnd = "</fo:flow></fo:page-sequence>\n</qfd:document>";

bool isWholeDocument(std::string_view text) {
    return text.starts_with("<?xml") || text.starts_with("<qfd:document") ||
           text.starts_with("<fo:root");
}

EditorState stateBefore(const std::string& marked) {
    const Core::String text = Core::Encoder::convertUTF8ToString(
        isWholeDocument(marked) ? marked : documentStart + marked + documentEnd);
    return parseMarks(std::wstring(text.view()));
}

/// A state with its marks, as a scenario shows it: the whole text, or what stands in its flow.
std::string show(const EditorState& state, bool whole) {
    const std::string all = Core::Encoder::toDisplayText(Core::String(withMarks(state)));
    const std::size_t flow = all.find("<fo:flow");
    const std::size_t end = all.rfind("</fo:flow>");
    if (whole || flow == std::string::npos || end == std::string::npos)
        return all;
    const std::size_t content = all.find('>', flow) + 1;
    return all.substr(content, end - content);
}

std::string narrow(const std::wstring& text) {
    return Core::Encoder::toDisplayText(Core::String(text));
}

std::wstring widened(const std::string& text) {
    return std::wstring(Core::Encoder::convertUTF8ToString(text).view());
}

class Runner {
public:
    explicit Runner(const Scenario& scenario) : scenario_(scenario) {}

    void run() {
        if (scenario_.steps.empty())
            fail(scenario_.line, "no command");
        begin();
        for (const ScenarioStep& step : scenario_.steps)
            carryOut(step);
        if (!scenario_.notUndoable)
            checkHistory();
    }

private:
    EditorState current() { return stateOf(session_.document()); }

    void begin() {
        const EditorState before = stateBefore(scenario_.before);
        const bool foRoot = scenario_.before.find("<fo:root") != std::string::npos;
        session_.document().setRootElement(foRoot ? L"fo:root" : L"qfd:document");
        session_.document().setContent(before.text, true);
        session_.document().setCaretPos(false, before.pivot);
        session_.document().setCaretPos(true, before.caret);
        if (current() != before)
            fail(scenario_.line, "the caret cannot stand there:\n" + show(current(), false));
        first_ = last_ = before;
    }

    void carryOut(const ScenarioStep& step) {
        const EditorState before = current();
        const bool couldUndo = session_.document().canUndo();
        const Json reply = serve(step);
        if (reply.contains("error"))
            fail(step.line, reply["error"].get<std::string>());
        checkNotices(step, before, reply["notices"].get<std::vector<std::string>>());
        checkReply(step, reply);
        if (isOneStep(step) && current().text != before.text)
            checkStep(step, before, couldUndo);
        if (!couldUndo && session_.document().canUndo())
            first_ = before;
        if (current().text != before.text)
            last_ = current();
        replays_ = replays_ || isReplay(step);
    }

    static bool isForTable(const ScenarioStep& step) {
        return step.request.starts_with("[\"table.");
    }

    /// A table is read anew, and written back behind the request.
    Json serve(const ScenarioStep& step) {
        if (!isForTable(step))
            return session_.serveLine(step.request);
        const EditorState before = current();
        const bool couldUndo = session_.document().canUndo();
        session_.serve({"table.open", -1});
        Json reply = session_.serveLine(step.request);
        require(step.line, "before it is committed", before);
        reply["notices"] = session_.serve({"table.commit"})["notices"];
        if (current().text == before.text && session_.document().canUndo() != couldUndo)
            fail(step.line, "history without a change");
        return reply;
    }

    static bool isOneOf(const ScenarioStep& step, std::initializer_list<const char*> names) {
        const std::string name = Json::parse(step.request)[0].get<std::string>();
        return std::find(names.begin(), names.end(), name) != names.end();
    }

    static bool isReplay(const ScenarioStep& step) { return isOneOf(step, {"undo", "redo"}); }

    /// Most commands are one step. A run of typing is undone whole, and would be ended by that; the
    /// records of others stand alone, for a host to group them.
    bool isOneStep(const ScenarioStep& step) {
        const auto isTyping = [](const ScenarioStep& each) {
            return isOneOf(each, {"insertText"});
        };
        if (isTyping(step) &&
            std::count_if(scenario_.steps.begin(), scenario_.steps.end(), isTyping) > 1)
            return false;
        return !scenario_.notUndoable && !isReplay(step) &&
               !isOneOf(step, {"setContent", "removeComponent"});
    }

    /// One undo brings back what stood before a command, one redo what it left.
    void checkStep(const ScenarioStep& step, const EditorState& before, bool couldUndo) {
        const EditorState after = current();
        session_.document().undo();
        require(step.line, "undone", undone(before));
        if (session_.document().canUndo() != couldUndo)
            fail(step.line, "it is not one step");
        session_.document().redo();
        require(step.line, "redone", redone(after));
        if (session_.document().canRedo())
            fail(step.line, "redone, it can be redone");
        if (scenario_.areGrids) {
            session_.document().setCaretPos(false, after.pivot);
            session_.document().setCaretPos(true, after.caret);
        }
    }

    /// What undo brings back of a state: in a table the caret, but not the selection of cells.
    EditorState undone(const EditorState& state) const {
        return {state.text, state.caret, scenario_.areGrids ? state.caret : state.pivot};
    }

    /// What redo brings back of a state: of a table nothing but the text.
    EditorState redone(const EditorState& state) {
        const EditorState now = current();
        return scenario_.areGrids ? EditorState{state.text, now.caret, now.pivot} : state;
    }

    void checkNotices(const ScenarioStep& step, const EditorState& before,
                      const std::vector<std::string>& notices) {
        const std::set<std::string> kinds(notices.begin(), notices.end());
        if (!scenario_.manyNotices && kinds.size() != notices.size())
            fail(step.line, "a notice came twice");
        if (current().text != before.text && !kinds.contains("buffer"))
            fail(step.line, "no notice of the text");
        if (current().caret != before.caret && !kinds.contains("caret"))
            fail(step.line, "no notice of the caret");
    }

    void checkReply(const ScenarioStep& step, const Json& reply) {
        if (const std::string error = xmlError(current().text); !error.empty())
            fail(step.line, "not well formed, " + error + "\n" + show(current(), true));
        if (step.result && Json::parse(*step.result) != reply["result"])
            fail(step.line, "the result is " + reply["result"].dump());
        if (!step.after)
            return;
        std::string shown = show(current(), isWholeDocument(*step.after));
        if (scenario_.areGrids && !step.after->starts_with('<'))
            shown = narrow(gridOf(widened(shown)));
        if (shown != *step.after)
            fail(step.line, "expected\n" + *step.after + "\nbut it is\n" + shown);
    }

    /// Undoing everything brings back what stood before the first change, redoing what stood after
    /// the last.
    void checkHistory() {
        EditableDocumentBuffer& document = session_.document();
        if (!document.canUndo())
            return;
        while (document.canUndo())
            document.undo();
        require(scenario_.line, "undone", undone(first_));
        while (document.canRedo())
            document.redo();
        if (!replays_)
            require(scenario_.line, "redone", redone(last_));
    }

    void require(int line, const std::string& when, const EditorState& state) {
        if (current() != state)
            fail(line,
                 when + ", it is\n" + show(current(), false) + "\nbut was\n" + show(state, false));
    }

    [[noreturn]] static void fail(int line, const std::string& what) {
        throw std::runtime_error("line " + std::to_string(line) + ": " + what);
    }

    const Scenario& scenario_;
    Session session_;
    EditorState first_;
    EditorState last_;
    bool replays_ = false; // the commands undo and redo themselves
};

void appendLine(std::string& text, const std::string& line) {
    text += (text.empty() ? "" : "\n") + line;
}

void trimLineEnds(std::string& text) {
    text.erase(text.find_last_not_of('\n') + 1);
}

ScenarioStep parseStep(const std::string& request, int number) {
    ScenarioStep step{number, request, std::nullopt, std::nullopt};
    if (const std::size_t arrow = request.find(" => "); arrow != std::string::npos) {
        step.result = request.substr(arrow + 4);
        step.request.erase(arrow);
    }
    return step;
}

using Names = std::vector<std::pair<std::string, std::string>>;

/// The keys of the rows, and what a host asks for when they are pressed.
Names usualKeys() {
    return {{"Enter", R"(["insertBreak",5,false])"},
            {"Shift+Enter", R"(["insertBreak",2,false])"},
            {"Backspace", R"(["erase",false,false])"},
            {"Ctrl+Backspace", R"(["erase",false,true])"},
            {"Delete", R"(["erase",true,false])"},
            {"Ctrl+Delete", R"(["erase",true,true])"},
            {"Left", R"(["moveCaretLeft",false,false,false])"},
            {"Right", R"(["moveCaretRight",false,false,false])"},
            {"Shift+Right", R"(["moveCaretRight",true,false,false])"},
            {"Ctrl+Left", R"(["jumpToPreviousWord",false])"},
            {"Ctrl+Right", R"(["jumpToNextWord",false])"},
            {"Home", R"(["moveCaretHome",false])"},
            {"End", R"(["moveCaretToEnd",false])"},
            {"Undo", R"(["undo"])"},
            {"Redo", R"(["redo"])"},
            {"CannotUndo", R"(["canUndo"] => false)"}};
}

/// "SHORT = LONG"
std::pair<std::string, std::string> parseName(const std::string& line) {
    const std::size_t equals = line.find(" = ");
    if (equals == std::string::npos)
        throw std::runtime_error("no name: " + line);
    return {line.substr(0, equals), line.substr(equals + 3)};
}

/// Reads a file of scenarios line by line.
class Reader {
public:
    std::vector<Scenario> read(std::istream& file) {
        for (std::string line; std::getline(file, line);) {
            ++number_;
            readLine(line);
        }
        for (Scenario& scenario : scenarios_) {
            trimLineEnds(scenario.before);
            if (scenario.areGrids && !scenario.before.starts_with('<'))
                scenario.before = narrow(markupOf(widened(scenario.before)));
            for (ScenarioStep& step : scenario.steps)
                if (step.after)
                    trimLineEnds(*step.after);
        }
        return std::move(scenarios_);
    }

private:
    void readLine(const std::string& line) {
        if (line.starts_with("# "))
            scenarios_.push_back({line.substr(2), number_, {}, {}, areGrids_, false, {}});
        else if (line.starts_with("! "))
            readDirective(line.substr(2));
        else if (!scenarios_.empty())
            readContent(scenarios_.back(), line);
    }

    void readDirective(const std::string& line) {
        if (line.starts_with("let "))
            abbreviations_.push_back(parseName(line.substr(4)));
        else if (line.starts_with("key "))
            keys_.insert(keys_.begin(), parseName(line.substr(4)));
        else if (line == "grids")
            areGrids_ = true;
        else if (line.starts_with("not-undoable:"))
            scenarios_.back().notUndoable = line.substr(13);
        else if (line.starts_with("many-notices:"))
            scenarios_.back().manyNotices = true;
        else
            throw std::runtime_error("line " + std::to_string(number_) + ": no directive: " + line);
    }

    void readContent(Scenario& scenario, const std::string& line) {
        static const std::regex arrow(
            R"re((?:^| )-("[^"]*"|\[.*?\](?: => .*?)?|[A-Z][A-Za-z+]*(?: .*?)?)->(?= |$))re");
        std::smatch found;
        if (!std::regex_search(line, found, arrow))
            return readText(scenario, line);
        const bool beginsCase = found.prefix().length() > 0 && !scenario.steps.empty();
        readRow(beginsCase ? anotherCaseOf(scenario) : scenario, line,
                std::sregex_iterator(line.begin(), line.end(), arrow));
    }

    /// A row that begins with a text, behind the commands of another.
    Scenario& anotherCaseOf(const Scenario& scenario) {
        scenarios_.push_back({scenario.title,
                              number_,
                              {},
                              {},
                              areGrids_,
                              scenario.manyNotices,
                              scenario.notUndoable});
        return scenarios_.back();
    }

    /// "before -Key-> after -Key-> after", in which any text may be missing.
    void readRow(Scenario& scenario, const std::string& line, std::sregex_iterator arrow) {
        if (arrow->prefix().matched)
            readText(scenario, arrow->prefix());
        for (; arrow != std::sregex_iterator(); ++arrow) {
            scenario.steps.push_back(parseStep(requestOf((*arrow)[1]), number_));
            const auto next = std::next(arrow);
            const auto end = next == std::sregex_iterator() ? line.end() : (*next)[0].first;
            if (const auto text = (*arrow)[0].second; text != end)
                readText(scenario, std::string(std::next(text), end)); // behind a blank
        }
    }

    void readText(Scenario& scenario, const std::string& line) {
        if (scenario.steps.empty()) {
            appendLine(scenario.before, expand(line));
        } else if (scenario.steps.back().after || !line.empty()) {
            std::optional<std::string>& after = scenario.steps.back().after;
            appendLine(after.emplace(after.value_or("")), expand(line));
        }
    }

    std::string requestOf(const std::string& key) const {
        if (key.starts_with('['))
            return key;
        if (key.starts_with('"'))
            return R"(["insertText",)" + key + ",false,false]";
        const std::size_t result = std::min(key.find(" => "), key.size());
        const std::string pressed = key.substr(0, result);
        for (const auto& [name, request] : keys_)
            if (std::smatch found;
                name == pressed || std::regex_match(pressed, found, std::regex(name)))
                return (found.empty() ? request : found.format(request)) + key.substr(result);
        throw std::runtime_error("line " + std::to_string(number_) + ": no key: " + key);
    }

    /// Writes the short forms out, at each place the first that stands there.
    std::string expand(const std::string& brief) const {
        const std::string line = std::regex_replace(brief, std::regex("¶"), "\n");
        std::string text;
        for (std::size_t at = 0; at < line.size();) {
            const auto found =
                std::find_if(abbreviations_.begin(), abbreviations_.end(), [&](const auto& each) {
                    return line.compare(at, each.first.size(), each.first) == 0;
                });
            const bool isShort = found != abbreviations_.end();
            text += isShort ? found->second : line.substr(at, 1);
            at += isShort ? found->first.size() : 1;
        }
        return areGrids_ && !text.starts_with('<') ? text : writtenOut(text);
    }

    std::vector<Scenario> scenarios_;
    Names abbreviations_;
    Names keys_ = usualKeys();
    bool areGrids_ = false;
    int number_ = 0;
};

} // namespace

std::vector<Scenario> readScenarios(const std::string& path) {
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error(path + ": cannot be read");
    try {
        return Reader().read(file);
    } catch (const std::exception& failure) {
        throw std::runtime_error(path + ": " + failure.what());
    }
}

std::string runScenario(const Scenario& scenario) {
    try {
        Runner(scenario).run();
        return {};
    } catch (const std::exception& failure) {
        return failure.what();
    }
}

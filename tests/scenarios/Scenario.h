#pragma once

#include <optional>
#include <string>
#include <vector>

/// One command of a scenario, with what is expected behind it.
struct ScenarioStep {
    int line = 0;
    std::string request;
    std::optional<std::string> result; ///< the result as JSON
    std::optional<std::string> after;  ///< the text with its marks
};

/// A behaviour of the editor: text before, commands, text after. `|` marks the caret, `^` the pivot
/// where it differs. A text that begins neither with "<?xml" nor with a root stands in the flow of
/// a standard document.
struct Scenario {
    std::string title;
    int line = 0;
    std::string before;
    std::vector<ScenarioStep> steps;
    bool manyNotices = false; ///< a command may give a notice of one kind several times
    std::optional<std::string> notUndoable; ///< why undo does not bring everything back
};

/// Reads a file of scenarios. Each begins with a line "# title"; a line "--- [request]" is a
/// command, with " => json" behind it where its result matters; what follows is the text expected.
/// A command may also be written "-[request]->", "-[request] => json->", "-Key->", or "-"text"->"
/// for typing, with the text expected on the same line, several one behind the other, in which "¶"
/// is a line feed. A line "! key NAME = [request]" at the top of the file names another. A line "!
/// not-undoable: why" takes the scenario out of the check that undo and redo bring everything back.
/// Blank lines at the end of a text do not count. The texts are in the short forms of
/// support/ShortMarkup.h; a line "! let SHORT = LONG" at the top of the file adds one.
std::vector<Scenario> readScenarios(const std::string& path);

/// Carries out a scenario; answers what went wrong, with its line, or nothing.
std::string runScenario(const Scenario& scenario);

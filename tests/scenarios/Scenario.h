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
    bool areGrids = false;    ///< the texts are tables as in tables/TableGrid.h
    bool manyNotices = false; ///< a command may give a notice of one kind several times
    std::optional<std::string> notUndoable; ///< why undo does not bring everything back
};

/// Reads a file of scenarios. A line "# title" begins one; the text before follows, in the short
/// forms of support/ShortMarkup.h, and then the commands, each with the text expected behind it or
/// none:
///
///     <B>one|two</B> -Enter-> <B>one</B>¶<B>|two</B> -Backspace-> <B>one|two</B>
///
/// A command is an arrow: "-Key->", "-"text"->" for typing, "-[request]->" or, where its result
/// matters, "-[request] => json->" or "-Key => json->". "¶" is a line feed, and a text may also go
/// over several lines; blank lines at its end do not count. A line that begins with an arrow goes
/// on with the row before it. One that begins with a text and has an arrow is a further case under
/// the same title.
///
/// At the top of a file "! let SHORT = LONG" names a short form and "! key NAME = [request]" a key.
/// The name may be a pattern, whose parts stand in the request as $1 and $2: "! key Find (.*) = …".
/// With "! grids" there, texts that begin with no "<" are tables as in tables/TableGrid.h, and what
/// is asked of a table is committed at once.
/// Below a title "! not-undoable: why" takes its cases out of the check that undo and redo bring
/// everything back.
std::vector<Scenario> readScenarios(const std::string& path);

/// Carries out a scenario; answers what went wrong, with its line, or nothing.
std::string runScenario(const Scenario& scenario);

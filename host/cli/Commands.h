#pragma once

#include <string>

/// What the program's subcommands do. Each answers the exit status: 0, or 1 after a failure that it
/// has told on standard error.

struct RunOptions {
    std::string document;
    std::string script;
    std::string output; ///< where the edited document goes; nowhere if empty
    int encoding = 1;
    bool show = false; ///< print the readable text before and after
};

int runScript(const RunOptions& options);

struct ExportOptions {
    std::string document;
    std::string output;
    bool asFo = false; ///< one of the two
    bool asPdf = false;
};

/// Writes a document in another language. The file is there whole or as it was before.
int exportDocument(const ExportOptions& options);

/// Serves requests from standard input until it ends: one reply for each line.
int serveRequests(const std::string& document);

/// Prints a document as a reader sees it, with a mark at every stop of the caret.
int printStops(const std::string& document);

int printCalls();

/// Has the library check itself and prints its verdicts. Answers 1 if any check failed.
int runSelfChecks();

struct SpellOptions;

/// Lists the words of a document that no dictionary knows. Answers 0 when there are none, 1 when
/// there are some, and 2 after a failure that it has told on standard error.
int spellDocument(const SpellOptions& options);

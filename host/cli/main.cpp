#include "Commands.h"
#include "Spelling.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <iostream>

int main(int argc, char** argv) {
    // A file that grows too large is then an error like any other, and the half of it goes.
    std::signal(SIGXFSZ, SIG_IGN);

    CLI::App app{"Edits page-oriented documents by script or by request."};
    app.set_version_flag("--version", "forme " FORME_VERSION);
    app.require_subcommand(1);

    RunOptions options;
    CLI::App* run = app.add_subcommand("run", "Edit a document by a script of requests");
    run->add_option("document", options.document, "The document")->required();
    run->add_option("script", options.script,
                    "Requests, one on a line, as in [\"undo\"]; a line with # is a comment")
        ->required();
    run->add_option("-o,--output", options.output,
                    "Where to write the edited document, if no request fails");
    run->add_option("--encoding", options.encoding,
                    "1 UTF-8, 2 UTF-8 with mark, 3 UTF-16 with mark")
        ->check(CLI::Range(1, 3));
    run->add_flag("--show", options.show, "Print the readable text before and after");

    ExportOptions exported;
    CLI::App* exporting = app.add_subcommand("export", "Write a document in another language");
    CLI::Option* asFo = exporting->add_flag("--fo", exported.asFo, "As plain XSL-FO");
    CLI::Option* asPdf = exporting->add_flag(
        "--pdf", exported.asPdf, "As PDF, by the formatter fop, which must be installed");
    asFo->excludes(asPdf);
    exporting->add_option("document", exported.document, "The document")->required();
    exporting->add_option("output", exported.output, "The file to write")->required();

    std::string document;
    CLI::App* serve =
        app.add_subcommand("serve", "Answer requests, one on a line, from standard input");
    serve->add_option("document", document, "The document to begin with");

    CLI::App* stops =
        app.add_subcommand("stops", "Print a document with a mark at every caret stop");
    stops->add_option("document", document, "The document")->required();

    SpellOptions spelling;
    CLI::App* spell = app.add_subcommand("spell", "List the misspelt words of a document");
    spell->add_option("document", spelling.document, "The document")->required();
    spell->add_option("--dict", spelling.dictionaries,
                      "The dictionaries, as in en_US or en_US:de_DE, in the place of those that "
                      "the document names; en_US if neither names any");
    spell->footer("Each word with its offset in 16-bit code units, suggestions and context.\n"
                  "The exit status is 0 without misspelt words, 1 with some, 2 after an error.");

    CLI::App* selfcheck = app.add_subcommand(
        "selfcheck", "Check whether the library works; the exit status is 1 if it does not");
    app.add_subcommand("calls", "List every operation with its arguments and result");

    try {
        app.parse(argc, argv);
        if (exporting->parsed() && !exported.asFo && !exported.asPdf)
            throw CLI::RequiredError("--fo or --pdf");
    } catch (const CLI::ParseError& outcome) { // a call for help is one too
        const bool isHelp = app.exit(outcome) == 0;
        return isHelp && std::cout.flush() ? 0 : 2;
    }
    if (run->parsed())
        return runScript(options);
    if (exporting->parsed())
        return exportDocument(exported);
    if (serve->parsed())
        return serveRequests(document);
    if (stops->parsed())
        return printStops(document);
    if (spell->parsed())
        return spellDocument(spelling);
    if (selfcheck->parsed())
        return runSelfChecks();
    return printCalls();
}

#include "Commands.h"

#include "CallTable.h"
#include "Formatter.h"
#include "ReadableText.h"
#include "Session.h"
#include "Spelling.h"
#include "StopList.h"

#include <forme/checks/SelfChecks.h>
#include <forme/export/XslFoExport.h>
#include <forme/foundation/Encoder.h>
#include <forme/foundation/xml/ParseException.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <fstream>
#include <iostream>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

#include <unistd.h>

namespace {

/// What one run did, for the line at its end.
struct Summary {
    int requests = 0;
    int changes = 0;
};

void requireOutput() {
    if (!std::cout.flush())
        throw std::runtime_error("the output cannot be written");
}

Core::String wide(const std::string& text) {
    return Core::Encoder::convertUTF8ToString(text);
}

bool isBlankOrComment(const std::string& line) {
    const std::size_t first = line.find_first_not_of(" \t\r");
    return first == std::string::npos || line[first] == '#';
}

void printText(const char* title, Session& session) {
    std::cout << title << ":\n"
              << readableText(session.document().getContent(), {session.document().getCaretPos()})
              << '\n';
}

void printReply(const std::string& request, const Json& reply) {
    std::cout << request << "\n    ";
    if (!reply["result"].is_null())
        std::cout << "result " << reply["result"].dump() << ", ";
    std::cout << "caret " << reply["caret"];
    if (reply["pivot"] != reply["caret"])
        std::cout << ", pivot " << reply["pivot"];
    std::cout << ", notices:";
    for (const Json& notice : reply["notices"])
        std::cout << ' ' << notice.get_ref<const std::string&>();
    std::cout << (reply["notices"].empty() ? " none\n" : "\n");
}

bool changedText(const Json& reply) {
    const Json& notices = reply["notices"];
    return std::find(notices.begin(), notices.end(), "buffer") != notices.end();
}

/// Serves the script's requests up to the first that fails; answers whether none did.
bool serveScript(Session& session, const std::string& path, Summary& summary) {
    std::ifstream script(path);
    std::string line;
    for (int number = 1; std::getline(script, line); ++number) {
        if (isBlankOrComment(line)) {
            std::cout << line << '\n'; // a comment explains the requests below it
            continue;
        }
        const Json reply = session.serveLine(line);
        if (reply.contains("error")) {
            std::cerr << path << ':' << number << ": "
                      << reply["error"].get_ref<const std::string&>() << '\n';
            return false;
        }
        printReply(line, reply);
        ++summary.requests;
        summary.changes += changedText(reply) ? 1 : 0;
    }
    if (!script.is_open() || script.bad()) {
        std::cerr << path << ": " << std::generic_category().message(errno) << '\n';
        return false;
    }
    return true;
}

/// Answers what the command answers, or after a failure, which is told, the other status. What was
/// printed must have arrived.
template <typename Command>
int statusOf(int afterFailure, Command command) try {
    const int status = command();
    requireOutput();
    return status;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return afterFailure;
}

/// Reads the next line. Of one that there is no memory for, the rest is left out.
bool readLine(std::string& line) try {
    return static_cast<bool>(std::getline(std::cin, line));
} catch (const std::bad_alloc&) {
    std::cin.clear();
    std::cin.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    throw;
}

/// Answers the next line, whatever happens; false at the end of the input.
bool serveNextLine(Session& session) {
    try {
        std::string line;
        if (!readLine(line))
            return false;
        std::cout << session.replyTo(line) << '\n';
    } catch (const std::bad_alloc&) {
        std::cout << "{\"error\":\"out of memory\"}\n";
    }
    requireOutput();
    return true;
}

/// While it lives, what the library tells on its console, which is standard error, is this
/// program's output, and fails with it.
class ConsoleOnOutput {
public:
    ConsoleOnOutput() : console_(std::cerr.rdbuf(std::cout.rdbuf())) {}
    ~ConsoleOnOutput() {
        if (!std::cerr)
            std::cout.setstate(std::ios::badbit);
        std::cerr.rdbuf(console_);
    }

    ConsoleOnOutput(const ConsoleOnOutput&) = delete;
    ConsoleOnOutput& operator=(const ConsoleOnOutput&) = delete;

private:
    std::streambuf* console_;
};

/// Prints misspelt words and, where standard error is a terminal, keeps a bar below them.
class SpellingPrinter : public SpellingMonitor {
public:
    ~SpellingPrinter() override { clearBar(); }

    void onProgress(double part) override {
        const int percent = static_cast<int>(part * 100);
        if (!hasBar_ || percent == percent_)
            return;
        percent_ = percent;
        const auto done = static_cast<std::size_t>(percent * barWidth / 100);
        std::cerr << "\r[" << std::string(done, '#') << std::string(barWidth - done, ' ') << "] "
                  << percent << " %" << std::flush;
    }
    void onMisspeltWord(const std::string& lines) override {
        clearBar();
        std::cout << lines << std::flush;
    }

private:
    static constexpr std::size_t barWidth = 40;

    void clearBar() {
        if (hasBar_)
            std::cerr << "\r\033[K" << std::flush;
        percent_ = -1; // so that it is drawn again
    }

    bool hasBar_ = isatty(STDERR_FILENO) != 0;
    int percent_ = -1;
};

} // namespace

int runScript(const RunOptions& options) {
    return statusOf(1, [&] {
        Session session;
        session.open(wide(options.document));
        if (options.show)
            printText("Before", session);
        Summary summary;
        if (!serveScript(session, options.script, summary))
            return 1;
        if (options.show) {
            std::cout << '\n';
            printText("After", session);
        }
        std::cout << summary.requests << (summary.requests == 1 ? " request, " : " requests, ")
                  << summary.changes << " changed the text; "
                  << session.document().getContent().length() << " code units\n";
        requireOutput();
        if (!options.output.empty()) {
            session.save(wide(options.output), static_cast<DocumentEncoding>(options.encoding));
            std::cout << "written to " << options.output << '\n';
        }
        return 0;
    });
}

int exportDocument(const ExportOptions& options) {
    return statusOf(1, [&] {
        Session session;
        session.open(wide(options.document));
        const XslFoExport document(&session.document());
        try {
            if (options.asPdf)
                saveAsPdf(document.getText(), options.document, options.output);
            else
                document.saveToFile(wide(options.output));
        } catch (const Xml::ParseException& failure) {
            throw std::runtime_error(options.document + ":" + failure.what());
        }
        return 0;
    });
}

int serveRequests(const std::string& document) {
    return statusOf(1, [&] {
        std::cin.exceptions(std::ios::badbit);
        Session session;
        if (!document.empty())
            session.open(wide(document));
        while (serveNextLine(session))
            ;
        return 0;
    });
}

int printStops(const std::string& document) {
    return statusOf(1, [&] {
        std::cout << listStops(document);
        return 0;
    });
}

int printCalls() {
    return statusOf(1, [] {
        std::size_t width = 0;
        for (const Operation& operation : callTable())
            width = std::max(width, operation.signature().size());
        for (const Operation& operation : callTable()) {
            const std::string signature = operation.signature();
            std::cout << signature << std::string(width + 2 - signature.size(), ' ')
                      << operation.result << '\n';
        }
        return 0;
    });
}

int runSelfChecks() {
    return statusOf(1, [] {
        const ConsoleOnOutput verdicts;
        bool havePassed = true;
        for (const auto check :
             {testBuffer, testFormBuffer, testListBuffer, testTableBuffer, testXmlValidator})
            havePassed = check() && havePassed;
        return havePassed ? 0 : 1;
    });
}

int spellDocument(const SpellOptions& options) {
    return statusOf(2, [&] {
        const SmartPtr<Drawing::SpellChecker> checker = systemSpellChecker();
        if (!checker)
            throw std::runtime_error("this program was built without a spell checker");
        SpellingPrinter printer;
        return listMisspeltWords(options, *checker, printer) > 0 ? 1 : 0;
    });
}

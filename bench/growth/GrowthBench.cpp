// How the time of each operation grows with the text: every operation that a request can name, on
// documents of several shapes and three sizes, each four times the one before. What grows faster
// than the text is printed at the end, and then the program fails.
//   forme_growth [--shape NAME] [--request PART] [--largest UNITS] [--all]
// Each call runs in a process of its own on a copy of the document, so that none sees what another
// did and one that does not end is stopped.

#include "Requests.h"

#include "cli/CallTable.h"
#include "cli/Session.h"
#include "document/Document.h"

#include <forme/foundation/Encoder.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::array sizes{100'000, 400'000, 1'600'000};
constexpr double tooFast = 6;     // for four times the text
constexpr double noise = 0.030;   // seconds below which a time says nothing
constexpr int secondsAllowed = 5; // of the processor
constexpr int attempts = 3;       // at what looks as if it grew too fast
constexpr double notEnded = std::numeric_limits<double>::infinity();

struct Row {
    std::string title;
    std::vector<Json> requests; // the last is measured
    bool isOfPages = false;     // so that the caret does not matter
};

struct Options {
    std::string shape;
    std::string request;
    int largest = sizes.back();
    bool all = false;
};

Json parsed(const char* table) {
    return Json::parse(table);
}

// The rows

/// Whether the document gives the value.
bool isFilledIn(const Json& value) {
    return value.is_string() && value.get_ref<const std::string&>().starts_with('$');
}

/// What stands before the dot in the name of an operation on an opened object; else empty.
std::string qualifierOf(const std::string& operation) {
    const std::size_t dot = operation.find('.');
    return dot == std::string::npos ? "" : operation.substr(0, dot);
}

/// The entry for a parameter, null where that may be, or else a usual value; none for a boolean
/// that is asked both ways.
std::optional<Json> argumentFor(const Operation& operation, const Parameter& parameter) {
    static const Json table = parsed(argumentTable);
    static const Json usual = parsed(usualValues);
    if (parameter.matches(nullptr))
        return nullptr;
    const std::string name = "." + parameter.name;
    for (const std::string& key :
         {operation.name + name, qualifierOf(operation.name) + name, parameter.name})
        if (table.contains(key) && (isFilledIn(table[key]) || parameter.matches(table[key])))
            return table[key];
    if (parameter.matches(true))
        return std::nullopt;
    for (const Json& value : usual)
        if (parameter.matches(value))
            return value;
    throw std::logic_error("no argument for " + operation.signature());
}

Row rowOf(std::vector<Json> requests) {
    Row row{"", std::move(requests)};
    for (const Json& request : row.requests)
        row.title += (row.title.empty() ? "" : ", ") + request.dump();
    return row;
}

std::vector<Row> rows() {
    const Json opening = parsed(openingRequests);
    std::vector<Row> rows;
    for (const Operation& operation : callTable()) {
        std::set<Json> requests;
        for (const bool answer : {false, true}) {
            Json request{operation.name};
            for (const Parameter& parameter : operation.parameters)
                request.push_back(argumentFor(operation, parameter).value_or(answer));
            requests.insert(request);
        }
        const std::string qualifier = qualifierOf(operation.name);
        for (const Json& request : requests) {
            const std::string opened = request.back() == "table" ? "table" : qualifier;
            rows.push_back(rowOf(opening.contains(opened)
                                     ? std::vector<Json>{opening[opened], request}
                                     : std::vector<Json>{request}));
            rows.back().isOfPages = !qualifier.empty() && opened != "table";
        }
    }
    for (const Json& requests : parsed(furtherRequests))
        rows.push_back(rowOf(requests));
    return rows;
}

// The documents

std::string temporaryFile(const char* name) {
    return std::filesystem::temp_directory_path() /
           ("forme-growth-" + std::to_string(getpid()) + name);
}

std::wstring numbered(std::wstring piece, int number) {
    if (const std::size_t place = piece.find(L'@'); place != std::wstring::npos)
        piece.replace(place, 1, std::to_wstring(number));
    return piece;
}

std::wstring documentOf(const Shape& shape, int size) {
    std::wstring text = LR"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format">
<fo:layout-master-set><fo:simple-page-master master-name="page"><fo:region-body/><fo:region-before/>
</fo:simple-page-master></fo:layout-master-set><fo:page-sequence master-reference="page"><fo:flow flow-name="xsl-region-body">)";
    text += shape.start;
    std::wstring inner;
    std::wstring closing;
    for (int i = 0; static_cast<int>(text.size() + inner.size() + closing.size()) < size; ++i) {
        text += numbered(shape.piece, i);
        inner += shape.inner;
        closing += shape.closing;
    }
    return text + inner + closing + shape.end + L"</fo:flow></fo:page-sequence></qfd:document>\n";
}

class Filler {
public:
    explicit Filler(Session& session)
        : document_(session.document()), content_(document_.getContent()) {}

    Json fill(const Json& request) const {
        Json filled = request;
        for (Json& part : filled)
            if (isFilledIn(part))
                part = valueOf(part.get<std::string>());
        return filled;
    }

private:
    Json valueOf(const std::string& name) const {
        const int caret = document_.getCaretPos();
        if (name == "$caret")
            return std::max(caret, document_.getSelectionPivotPos());
        if (name == "$pivot")
            return std::min(caret, document_.getSelectionPivotPos());
        if (name == "$middle")
            return Document::of(document_).text().unitStart(content_.length() / 2);
        if (name == "$item")
            return document_.getListBuffer().getItemPos(caret);
        if (name == "$element")
            return document_.getListBuffer().getListPos(caret);
        if (name == "$cell")
            return Document::of(document_).text().ancestor(caret, L"fo:table-cell");
        if (name == "$group")
            return Document::of(document_).text().ancestor(caret, L"fo:table-body");
        if (name == "$table")
            return Document::of(document_).text().ancestor(caret, L"fo:table");
        if (name == "$content")
            return Wire<Core::String>::write(content_);
        if (name == "$content text")
            return Wire<Core::String>::write(
                Core::String(std::wstring(static_cast<std::size_t>(content_.length()), L'x')));
        if (name == "$blanks")
            return std::string(static_cast<std::size_t>(content_.length()), ' ');
        if (name == "$file")
            return temporaryFile(".xml");
        if (name == "$other file")
            return temporaryFile("-saved.xml");
        throw std::logic_error("nothing is called " + name);
    }

    EditableDocumentBuffer& document_;
    Core::String content_;
};

// The clock

/// Of this thread: that of the process is only told roughly while a signal is to end it.
double processorTime() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Carries out the requests and writes how long the last took.
[[noreturn]] void measureAsChild(Session& session, const Filler& filler, const Row& row,
                                 int output) {
    for (const Json& request : row.requests) {
        const itimerval allowed{{0, 0}, {secondsAllowed, 0}}; // then a signal ends the process
        setitimer(ITIMER_PROF, &allowed, nullptr);
        const Json filled = filler.fill(request);
        const Operation& operation = operationFor(filled);
        const double start = processorTime();
        try {
            operation.invoke(session, filled);
        } catch (const std::exception&) {
            // What is refused takes its time, too.
        }
        const double taken = processorTime() - start;
        if (&request == &row.requests.back() && write(output, &taken, sizeof taken) < 0)
            _exit(1);
    }
    _exit(0);
}

double measure(Session& session, const Filler& filler, const Row& row) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        throw std::runtime_error(std::strerror(errno));
    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error(std::strerror(errno));
    if (child == 0)
        measureAsChild(session, filler, row, ends[1]);
    close(ends[1]);
    double taken = notEnded;
    if (read(ends[0], &taken, sizeof taken) != static_cast<ssize_t>(sizeof taken))
        taken = notEnded;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return taken;
}

// The findings

struct Finding {
    std::string title;
    std::vector<double> times; // by size
};

/// Whether the last of the times is too long for the one before, or did not end.
bool growsTooFast(const std::vector<double>& times) {
    const double last = times.back();
    if (last == notEnded)
        return true;
    return times.size() > 1 && last > noise && last > tooFast * times[times.size() - 2];
}

void print(const Finding& finding) {
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        if (i >= finding.times.size())
            std::printf("%10s", "-");
        else if (finding.times[i] == notEnded)
            std::printf("%8s>%ds", "", secondsAllowed);
        else
            std::printf("%10.2f", finding.times[i] * 1000);
    }
    std::printf("  %s\n", finding.title.c_str());
    std::fflush(stdout);
}

/// All findings of one shape, by place and row, filled size by size.
class ShapeRun {
public:
    ShapeRun(const Shape& shape, const std::vector<Row>& rows, int largest)
        : shape_(shape), rows_(rows), largest_(largest) {}

    /// What seems to grow too fast is measured anew in all sizes, since the machine may have been
    /// busy with something else, and counts if it does so each time.
    const std::map<std::string, Finding>& run() {
        measureAll();
        for (int i = 1; i < attempts; ++i) {
            const std::size_t count = std::erase_if(
                findings_, [](const auto& entry) { return growsTooFast(entry.second.times); });
            if (count == 0)
                break;
            measureAll();
        }
        return findings_;
    }

private:
    /// All of which nothing is known yet.
    void measureAll() {
        known_.clear();
        for (const auto& [title, finding] : findings_)
            known_.insert(title);
        for (const int size : sizes)
            if (size <= largest_)
                runSize(size);
    }

    void runSize(int size) {
        const Core::String content(documentOf(shape_, size));
        const std::string path = temporaryFile(".xml");
        std::ofstream(path, std::ios::binary) << Core::Encoder::toDisplayText(content);
        Session session;
        session.document().setContent(content, true);
        const Json places = parsed(placeTable);
        for (const auto& [place, requests] : places.items())
            runPlace(session, std::string(shape_.name) + ", " + place, requests, place == "start");
        std::filesystem::remove(path);
        std::filesystem::remove(temporaryFile("-saved.xml"));
    }

    void runPlace(Session& session, const std::string& place, const Json& requests, bool isFirst) {
        const Filler filler(session);
        if (!run(session, filler, {place, requests}))
            return;
        for (const Json& request : requests)
            session.serve(filler.fill(request));
        for (const Row& row : rows_)
            if (!row.isOfPages || isFirst)
                run(session, filler, {place + ": " + row.title, row.requests});
    }

    /// Answers whether it ended.
    bool run(Session& session, const Filler& filler, const Row& row) {
        if (known_.contains(row.title))
            return findings_[row.title].times.back() != notEnded;
        Finding& finding = findings_[row.title];
        finding.title = row.title;
        std::vector<double>& times = finding.times;
        if (!times.empty() && growsTooFast(times))
            return times.back() != notEnded;
        times.push_back(measure(session, filler, row));
        return times.back() != notEnded;
    }

    const Shape& shape_;
    const std::vector<Row>& rows_;
    int largest_;
    std::map<std::string, Finding> findings_;
    std::set<std::string> known_;
};

Options optionsFrom(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool hasValue = i + 1 < arguments.size();
        if (arguments[i] == "--shape" && hasValue)
            options.shape = arguments[++i];
        else if (arguments[i] == "--request" && hasValue)
            options.request = arguments[++i];
        else if (arguments[i] == "--largest" && hasValue)
            options.largest = std::stoi(arguments[++i]);
        else if (arguments[i] == "--all")
            options.all = true;
        else
            throw std::invalid_argument(
                "forme_growth [--shape NAME] [--request PART] [--largest UNITS] [--all]");
    }
    return options;
}

/// Prints what grows too fast, or all; answers how much of it there is.
int report(const Options& options) {
    std::vector<Row> chosen = rows();
    std::erase_if(chosen, [&](const Row& row) {
        return row.title.find(options.request) == std::string::npos;
    });
    std::printf("%10s%10s%10s  milliseconds for so many KB\n", "100", "400", "1600");
    int count = 0;
    for (const Shape& shape : shapes) {
        if (!options.shape.empty() && shape.name != options.shape)
            continue;
        ShapeRun run(shape, chosen, options.largest);
        for (const auto& [title, finding] : run.run()) {
            const bool tooFastHere = growsTooFast(finding.times);
            count += tooFastHere ? 1 : 0;
            if (tooFastHere || options.all)
                print(finding);
        }
    }
    std::printf("%d grow faster than the text\n", count);
    return count;
}

} // namespace

int main(int count, char** arguments) {
    try {
        return report(optionsFrom({arguments + 1, arguments + count})) == 0 ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 2;
    }
}

// Forme beside QTextDocument: the same keys in the same documents, in turn, a few at a time, so
// that what else the machine does meets both. Two people's typing is replayed behind documents of
// several sizes, and must come to what they wrote; then each key is pressed by itself in the middle
// of documents of about these sizes. QTextDocument is there if Qt was when this was built.
//   forme_peers [--trace FILE.json.gz]... [--keys N] [--all]

#include "EditingTrace.h"
#include "Peers.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr long long kilobytes = 1024;
constexpr long long megabytes = 1024 * kilobytes;
constexpr std::array frontSizes{0LL, megabytes, 10 * megabytes, 100 * megabytes};
constexpr std::array keySizes{10 * kilobytes, megabytes, 10 * megabytes, 100 * megabytes};

constexpr std::size_t keysATurn = 50;
constexpr std::size_t nearPlaces = 16;
constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

struct Options {
    std::vector<std::string> traces;
    std::size_t keys = unlimited;
    bool all = false;

    bool wants(long long size) const { return all || size < 100 * megabytes; }
};

struct Peer {
    const char* name;
    std::shared_ptr<Writer> (*writer)(const PeerDocument& document);
    std::shared_ptr<Keyboard> (*keyboard)(const PeerDocument& document);
};

constexpr std::array peers{
    Peer{"Forme", formeWriter, formeKeyboard},
#ifdef FORME_PEERS_QT
    Peer{"QTextDocument", qtWriter, qtKeyboard},
#endif
};

// The table

void printHeading() {
    if (peers.size() == 1)
        std::printf("Qt was not there when this was built: Forme is measured alone.\n");
    std::printf("%-24s%8s", "mean (median) us a key", "MB");
    for (const Peer& peer : peers)
        std::printf("%24s", peer.name);
    std::printf("\n");
}

void printRow(const std::string& title, long long size, const std::vector<Costs>& costs) {
    std::printf("%-24s%8.2f", title.c_str(),
                static_cast<double>(size) / static_cast<double>(megabytes));
    for (const Costs& cost : costs)
        std::printf("%13.2f (%8.2f)", cost.mean(), cost.median());
    if (costs.size() > 1)
        std::printf("    ratio %.2f", costs.front().mean() / costs.back().mean());
    std::printf("\n");
    std::fflush(stdout);
}

// The traces

struct NamedTrace {
    std::string name;
    EditingTrace trace;
};

std::vector<NamedTrace> readTraces(std::vector<std::string> paths) {
    if (paths.empty())
        for (const char* name : {"sveltecomponent", "seph-blog1"})
            if (std::string path = std::string(FORME_TRACES) + "/" + name + ".json.gz";
                std::filesystem::exists(path))
                paths.push_back(std::move(path));
    if (paths.empty())
        std::printf("../shared/traces is not here: no one's typing is replayed, but each key is "
                    "pressed.\n");
    std::vector<NamedTrace> traces;
    for (const std::string& path : paths) {
        const std::string file = std::filesystem::path(path).filename();
        traces.push_back({file.substr(0, file.find('.')), readTrace(path)});
    }
    return traces;
}

void replayInTurn(const NamedTrace& named, long long size, std::size_t keys) {
    const PeerDocument front(size);
    std::vector<std::shared_ptr<Writer>> writers;
    std::vector<Replay> replays;
    for (const Peer& peer : peers) {
        writers.push_back(peer.writer(front));
        replays.emplace_back(*writers.back(), named.trace);
    }
    for (std::size_t done = 0; done < keys && !replays.back().isAtEnd();) {
        done = std::min(keys, replays.back().costs().times.size() + keysATurn);
        for (Replay& replay : replays)
            replay.advanceTo(done);
    }
    std::vector<Costs> costs;
    for (std::size_t i = 0; i < replays.size(); ++i) {
        if (!replays[i].isTrue())
            throw std::runtime_error(named.name + ": at the end " + peers[i].name +
                                     " does not hold what was typed");
        costs.push_back(replays[i].costs());
    }
    printRow(named.name, size, costs);
}

// Each key by itself

/// The nth key of a row, and the place that it goes to if it does.
struct Stroke {
    Keyboard& keyboard;
    std::size_t n;
    const Place& place;
};

using Press = void (*)(const Stroke& stroke);

constexpr Press nothing = [](const Stroke&) {};
constexpr Press type = [](const Stroke& stroke) {
    constexpr std::string_view text = "statement of account ";
    stroke.keyboard.type(text[stroke.n % text.size()]);
};
constexpr Press backspace = [](const Stroke& stroke) { stroke.keyboard.backspace(); };
constexpr Press enter = [](const Stroke& stroke) { stroke.keyboard.enter(); };
constexpr Press left = [](const Stroke& stroke) { stroke.keyboard.left(); };
constexpr Press right = [](const Stroke& stroke) { stroke.keyboard.right(); };
constexpr Press undo = [](const Stroke& stroke) { stroke.keyboard.undo(); };
constexpr Press goTo = [](const Stroke& stroke) { stroke.keyboard.goTo(stroke.place); };
constexpr Press goToAndType = [](const Stroke& stroke) {
    goTo(stroke);
    type(stroke);
};

/// A key, so many times one after another, and what brings the text and the caret to where it is
/// pressed, as often, and back. Only the key counts.
struct KeyRow {
    const char* title;
    std::size_t times;
    Press before;
    Press key;
    Press after;
    bool goesFar = false; // to paragraphs at random, else near by
};

constexpr std::array keyRows{
    KeyRow{"a character", 50, nothing, type, backspace},
    KeyRow{"Backspace", 50, type, backspace, nothing},
    KeyRow{"Enter", 1, nothing, enter, backspace},
    KeyRow{"join", 1, enter, backspace, nothing},
    KeyRow{"caret left", 10, nothing, left, right},
    KeyRow{"caret right", 10, nothing, right, left},
    KeyRow{"setCaretPos", 1, nothing, goTo, nothing},
    KeyRow{"undo of a character", 1, type, undo, nothing},
    KeyRow{"a new place each key", 1, nothing, goToAndType, backspace, true},
};

/// A peer at its keys, and what each of them took.
struct Station {
    const char* name;
    std::shared_ptr<Keyboard> keyboard;
    std::vector<Place> near{};
    Costs costs{};

    /// Goes on with the row until `keys` of it are pressed.
    void advanceTo(std::size_t keys, const KeyRow& row, const std::vector<Place>& far) {
        const std::vector<Place>& places = row.goesFar ? far : near;
        while (costs.times.size() < keys) {
            const std::size_t first = costs.times.size();
            const std::size_t end = std::min(keys, first + row.times);
            const auto pressAll = [&](auto press) {
                for (std::size_t n = first; n < end; ++n)
                    press({*keyboard, n, places[n % places.size()]});
            };
            pressAll(row.before);
            pressAll([&](const Stroke& stroke) { costs.time([&] { row.key(stroke); }); });
            pressAll(row.after);
        }
    }
};

Station stationOf(const Peer& peer, const PeerDocument& document, const Place& middle) {
    Station station{peer.name, peer.keyboard(document)};
    station.keyboard->goTo(middle);
    for (std::size_t i = 0; i < nearPlaces; ++i) {
        station.near.push_back(station.keyboard->caret());
        station.keyboard->right();
    }
    std::shuffle(station.near.begin(), station.near.end(), std::minstd_rand());
    return station;
}

void pressInTurn(const KeyRow& row, long long size, std::size_t keys, const Place& middle,
                 const std::vector<Place>& places, std::vector<Station>& stations) {
    for (Station& station : stations) {
        station.costs = {};
        station.keyboard->goTo(middle);
    }
    for (std::size_t done = 0; done < keys;) {
        done = std::min(keys, done + keysATurn);
        for (Station& station : stations)
            station.advanceTo(done, row, places);
    }
    std::vector<Costs> costs;
    for (const Station& station : stations) {
        if (!station.keyboard->isUnchanged())
            throw std::runtime_error(std::string(row.title) + ": " + station.name +
                                     " did not get back to the text of before");
        costs.push_back(station.costs);
    }
    printRow(row.title, size, costs);
}

void pressEachKey(long long size, std::size_t keys) {
    PeerDocument document(size);
    const Place middle = document.places.at(document.places.size() / 2);
    std::shuffle(document.places.begin(), document.places.end(), std::minstd_rand());
    std::vector<Station> stations;
    stations.reserve(peers.size());
    for (const Peer& peer : peers)
        stations.push_back(stationOf(peer, document, middle));
    for (const KeyRow& row : keyRows)
        pressInTurn(row, size, keys, middle, document.places, stations);
}

void run(const Options& options) {
    constexpr std::size_t mostOfEachKey = 2000;
    const std::vector<NamedTrace> traces = readTraces(options.traces);
    printHeading();
    for (const NamedTrace& trace : traces)
        for (const long long size : frontSizes)
            if (options.wants(size))
                replayInTurn(trace, size, size == 0 ? unlimited : options.keys);
    for (const long long size : keySizes)
        if (options.wants(size))
            pressEachKey(size, std::min(options.keys, mostOfEachKey));
}

} // namespace

int main(int count, char** arguments) {
    Options options;
    CLI::App program("Forme beside QTextDocument, where Qt is: what a key takes");
    program.add_option("--trace", options.traces, "gzipped JSON, in the place of the two known");
    program
        .add_option("--keys", options.keys, "at most so many keys a row, but with nothing in front")
        ->check(CLI::PositiveNumber);
    program.add_flag("--all", options.all, "100 MB, too");
    CLI11_PARSE(program, count, arguments);
    try {
        run(options);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "forme_peers: " << failure.what() << '\n';
        return 1;
    }
}

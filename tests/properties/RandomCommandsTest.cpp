// Streams of random commands on documents of all kinds. A failure is printed as a short script that
// `forme run` replays. FORME_RANDOM_COMMANDS sets how many commands are tried, FORME_RANDOM_SEED
// where the streams begin.

#include "properties/RandomCommands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

std::size_t setting(const char* name, std::size_t usual) {
    const char* const value = std::getenv(name);
    return value ? std::strtoul(value, nullptr, 10) : usual;
}

std::vector<std::string> filesIn(const std::string& folder) {
    std::vector<std::string> files;
    for (const auto& file : fs::directory_iterator(folder))
        if (file.path().extension() == ".fo" || file.path().extension() == ".xml")
            files.push_back(file.path());
    std::sort(files.begin(), files.end());
    return files;
}

/// Stays on the disk after a failure, for the script to be replayed on it.
std::string writeDocument(const std::string& text, std::uint32_t seed) {
    const std::string path =
        fs::temp_directory_path() / ("forme-random-" + std::to_string(seed) + ".xml");
    std::ofstream(path) << text;
    return path;
}

/// Answers the shrunk script of a stream that failed, or nothing.
std::string failureOn(const std::string& document, Random& random, std::size_t count) {
    const std::size_t parseEvery = 1 + fs::file_size(document) / 10000;
    const CommandStream stream = randomCommands(document, random, count);
    if (brokenPromise(stream, parseEvery).empty())
        return {};
    const CommandStream small =
        shrink(stream, [](const CommandStream& some) { return !brokenPromise(some, 1).empty(); });
    return brokenPromise(small, 1) + "\n" + small.script();
}

} // namespace

TEST(RandomCommands, LeaveSmallDocumentsWhole) {
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 2000);
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    constexpr std::size_t perDocument = 100;
    for (std::uint32_t seed = first; seed < first + total / perDocument; ++seed) {
        Random random(seed);
        const std::string document = writeDocument(randomDocument(random), seed);
        const std::string failure = failureOn(document, random, perDocument);
        if (failure.empty())
            fs::remove(document);
        else
            ADD_FAILURE() << "seed " << seed << ": " << failure;
    }
}

TEST(RandomCommands, LeaveRealDocumentsWhole) {
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 500);
    std::vector<std::string> documents = filesIn(FORME_CORPUS);
    const std::vector<std::string> samples = filesIn(FORME_SAMPLES);
    documents.insert(documents.end(), samples.begin(), samples.end());
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    constexpr std::size_t perDocument = 50;
    for (std::size_t done = 0; done < total; done += perDocument) {
        const std::string failure = failureOn(random.oneOf(documents), random, perDocument);
        EXPECT_TRUE(failure.empty()) << failure;
    }
}

TEST(RandomCommands, AreShrunkToThoseThatItTakesToFail) {
    const auto holds = [](const CommandStream& stream, const char* command) {
        return std::find(stream.commands.begin(), stream.commands.end(), command) !=
               stream.commands.end();
    };
    const CommandStream small =
        shrink({"", {"a", "b", "c", "d", "e", "f", "g"}}, [&](const CommandStream& stream) {
            return holds(stream, "b") && holds(stream, "g");
        });
    EXPECT_EQ(small.commands, (std::vector<std::string>{"b", "g"}));
}

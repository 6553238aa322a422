// Streams of random commands on tables. A failure is printed as a short script that `forme run`
// replays. FORME_RANDOM_COMMANDS sets how many commands are tried, FORME_RANDOM_SEED where the
// streams begin.

#include "properties/TableCommands.h"

#include "support/Documents.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t perDocument = 60;

void expectNoFailure(std::size_t strangeEvery) {
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 300);
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    for (std::uint32_t seed = first; seed < first + total / perDocument; ++seed) {
        Random random(seed);
        const std::string failure = failureOnNew(
            documentWithTables(random, strangeEvery), "tables-" + std::to_string(seed),
            [&](const std::string& path) { return tableFailureOn(path, random, perDocument); });
        EXPECT_TRUE(failure.empty()) << "seed " << seed << ": " << failure;
    }
}

} // namespace

TEST(TableCommands, KeepTheirPromises) {
    expectNoFailure(20);
}

TEST(TableCommands, EndOnSpansThatFitNowhere) {
    expectNoFailure(1);
}

TEST(TableCommands, KeepTheirPromisesOnRealTables) {
    const std::size_t perTable = setting("FORME_RANDOM_COMMANDS", 400) / 40;
    const auto seed = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    for (const auto& path : corpusAndSamples()) {
        if (textOf(path).find(L"<fo:table-cell", 0U) < 0)
            continue;
        Random random(seed);
        const std::string failure = tableFailureOn(path, random, perTable);
        EXPECT_TRUE(failure.empty()) << failure;
    }
}

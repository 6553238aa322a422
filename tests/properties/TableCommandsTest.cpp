// Streams of random commands on tables. A failure is printed as a short script that `forme run`
// replays. FORME_RANDOM_COMMANDS sets how many commands are tried, FORME_RANDOM_SEED where the
// streams begin.

#include "properties/TableCommands.h"

#include "support/Documents.h"

#include <gtest/gtest.h>

namespace {

std::string failureOnTables(std::size_t strangeEvery) {
    constexpr std::size_t perDocument = 60;
    return failureOnNew(
        "tables", 300, perDocument,
        [&](Random& random) { return documentWithTables(random, strangeEvery); },
        [](const std::string& path, Random& random) {
            return tableFailureOn(path, random, perDocument);
        });
}

} // namespace

TEST(TableCommands, KeepTheirPromises) {
    EXPECT_EQ(failureOnTables(20), "");
}

TEST(TableCommands, EndOnSpansThatFitNowhere) {
    EXPECT_EQ(failureOnTables(1), "");
}

TEST(TableCommands, KeepTheirPromisesOnRealTables) {
    const std::size_t perTable = setting("FORME_RANDOM_COMMANDS", 400) / 40;
    const auto seed = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    for (const auto& path : corpusAndSamples()) {
        if (textOf(path).find(L"<fo:table-cell", 0U) < 0)
            continue;
        Random random(seed);
        EXPECT_EQ(tableFailureOn(path, random, perTable), "");
    }
}

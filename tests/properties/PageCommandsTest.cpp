// Streams of random commands on pages. A failure is printed as a short script that `forme run`
// replays. FORME_RANDOM_COMMANDS sets how many commands are tried, FORME_RANDOM_SEED where the
// streams begin.

#include "properties/PageCommands.h"

#include "support/Documents.h"

#include <gtest/gtest.h>

TEST(PageCommands, KeepTheirPromises) {
    constexpr std::size_t perDocument = 40;
    const auto failure = [](const std::string& path, Random& random) {
        return pageFailureOn(path, random, perDocument);
    };
    EXPECT_EQ(failureOnNew("pages", 320, perDocument, documentWithPages, failure), "");
}

TEST(PageCommands, KeepTheirPromisesOnRealDocuments) {
    constexpr std::size_t each = 5;
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 60);
    const auto documents = corpusAndSamples();
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    for (std::size_t done = 0; done < total; done += each)
        EXPECT_EQ(pageFailureOn(random.oneOf(documents), random, each), "");
}

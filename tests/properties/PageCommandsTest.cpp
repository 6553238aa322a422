// Streams of random commands on pages. A failure is printed as a short script that `forme run`
// replays. FORME_RANDOM_COMMANDS sets how many commands are tried, FORME_RANDOM_SEED where the
// streams begin.

#include "properties/PageCommands.h"

#include "support/Documents.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t perDocument = 40;

} // namespace

TEST(PageCommands, KeepTheirPromises) {
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 320);
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    for (std::uint32_t seed = first; seed < first + total / perDocument; ++seed) {
        Random random(seed);
        const std::string failure = failureOnNew(
            documentWithPages(random), "pages-" + std::to_string(seed),
            [&](const std::string& path) { return pageFailureOn(path, random, perDocument); });
        EXPECT_TRUE(failure.empty()) << "seed " << seed << ": " << failure;
    }
}

TEST(PageCommands, KeepTheirPromisesOnRealDocuments) {
    constexpr std::size_t each = 5;
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 60);
    const auto documents = corpusAndSamples();
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    for (std::size_t done = 0; done < total; done += each)
        EXPECT_EQ(pageFailureOn(random.oneOf(documents), random, each), "");
}

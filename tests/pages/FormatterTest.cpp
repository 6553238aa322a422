// What a formatter has to say of documents whose pages were edited: nothing that it did not say
// before. FORME_FORMATTED_DOCUMENTS sets how many are tried, FORME_RANDOM_SEED where the streams of
// commands begin.

#include "support/Formatter.h"
#include "properties/PageCommands.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

TEST(Formatter, TakesDocumentsWhosePagesWereEdited) {
    if (!hasFormatter())
        GTEST_SKIP() << "fop is not installed";
    std::vector<std::filesystem::path> documents = corpusAndSamples();
    std::erase_if(documents, [](const auto& path) {
        return textOf(path).find(L"<fo:root", 0U) < 0 || path.stem() == "advanced_cid-fonts";
    });
    const std::size_t count = std::min(setting("FORME_FORMATTED_DOCUMENTS", 8), documents.size());
    const auto seed = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    // Where neither finds the images that the original is beside of.
    const auto folder = newFolder("forme-formatter");
    for (std::size_t i = 0; i < count; ++i) {
        const auto& path = documents[(seed + i * documents.size() / count) % documents.size()];
        SCOPED_TRACE(path.filename().string() + ", seed " + std::to_string(seed));
        Random random(seed);
        const auto edited = folder / ("edited-" + path.filename().string());
        const auto original = folder / path.filename();
        std::ofstream(edited) << withPagesEdited(path.string(), random, 8);
        const std::set<std::string> errors = formatterErrorsIn(edited);
        if (errors.empty())
            continue;
        std::filesystem::copy_file(path, original,
                                   std::filesystem::copy_options::overwrite_existing);
        const std::set<std::string> before = formatterErrorsIn(original);
        for (const std::string& error : errors)
            EXPECT_TRUE(before.contains(error)) << error;
    }
    if (!HasFailure())
        std::filesystem::remove_all(folder);
}

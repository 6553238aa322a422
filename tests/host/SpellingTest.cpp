#include "Spelling.h"
#include "foundation/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// Knows every word but those that begin with "x".
class XChecker : public Drawing::SpellChecker {
public:
    Core::String getWordChars(const Core::String&) override {
        return L"abcdefghijklmnopqrstuvwxyz";
    }
    SmartPtr<Drawing::SpellingError> checkWord(const Core::String& word,
                                               const Core::String& dictionary, int start,
                                               int end) override {
        if (!word.startsWith(L"x"))
            return nullptr;
        return new Drawing::SpellingError(start, end, {dictionary}, {dictionary, L"y"});
    }
    void syncSpellerMap(const Core::StringArray&) override {}
};

class Lines : public SpellingMonitor {
public:
    void onProgress(double part) override {
        EXPECT_GE(part, progress);
        progress = part;
    }
    void onMisspeltWord(const std::string& lines) override { words.push_back(lines); }

    double progress = 0;
    std::vector<std::string> words;
};

} // namespace

TEST(SpellCommand, ListsPlaceSuggestionsAndContextOfEachWord) {
    const std::string content =
        "<?xml version=\"1.0\"?><!-- it's -->"
        "<qfd:document xmlns:qfd=\"q\" xmlns:fo=\"f\">"
        "<fo:layout-master-set></fo:layout-master-set><fo:page-sequence>"
        "<fo:static-content><fo:block>head xa</fo:block></fo:static-content><fo:flow><fo:block>\n"
        "  one two three four five six seven eight <fo:inline>xb</fo:inline>c\n  nine, ten eleven "
        "twelve thirteen fourteen</fo:block></fo:flow></fo:page-sequence></qfd:document>";
    const TemporaryFolder folder;
    folder.put("a.xml", content);
    const std::string path = (folder.path() / "a.xml").string();
    const auto place = [&](const char* word) {
        return path + ":" + std::to_string(content.find(word));
    };
    XChecker checker;
    Lines lines;
    EXPECT_EQ(listMisspeltWords({path, "de"}, checker, lines), 2);
    EXPECT_EQ(lines.words,
              (std::vector<std::string>{
                  place("xa") + ": xa: de, y\n    head [xa]\n",
                  place("xb") + ": xbc: de, y\n    …ree four five six seven eight [xbc] "
                                "nine, ten eleven twelve thirt…\n"}));
    EXPECT_GT(lines.progress, 0.5);
    EXPECT_LE(lines.progress, 1);
}

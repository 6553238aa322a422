#include "Commands.h"
#include "Session.h"
#include "Spelling.h"
#include "foundation/TemporaryFolder.h"
#include "support/Documents.h"

#include <forme-hunspell/HunspellChecker.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string documentWith(const std::string& words) {
    return "<qfd:document xmlns:qfd=\"q\" xmlns:fo=\"f\"><fo:layout-master-set/><fo:page-sequence>"
           "<fo:flow><fo:block>" +
           words + "</fo:block></fo:flow></fo:page-sequence></qfd:document>";
}

/// What the command does with a document of these words, asking en_US unless told otherwise.
struct SpellRun {
    explicit SpellRun(const std::string& words, const std::string& dictionaries = "") {
        const TemporaryFolder folder;
        folder.put("a.xml", documentWith(words));
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        status = spellDocument({(folder.path() / "a.xml").string(), dictionaries});
        output = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
    }

    int status;
    std::string output;
    std::string errors;
};

/// The misspelt words of a sample, in their order.
class Misspelt : public SpellingMonitor {
public:
    explicit Misspelt(const std::string& sample, const std::string& dictionaries = "") {
        const int count =
            listMisspeltWords({(samplesFolder() / sample).string(), dictionaries}, checker, *this);
        EXPECT_EQ(count, static_cast<int>(words.size()));
    }
    void onProgress(double) override {}
    void onMisspeltWord(const std::string& lines) override {
        const std::size_t start = lines.find(": ") + 2;
        words.push_back(lines.substr(start, lines.find(": ", start) - start));
    }

    HunspellChecker checker;
    std::vector<std::string> words;
};

using Words = std::vector<std::string>;

} // namespace

TEST(SpellCommand, FindsTheErrorsPlantedInAProof) {
    const Misspelt found("proof.xml");
    EXPECT_EQ(found.words, (Words{"saile", "runing", "recieve", "leed", "childrun", "Famlies",
                                  "thier", "wich", "veiw", "kitshen"}));
}

TEST(SpellCommand, FindsInTwoLanguagesWhatBothReject) {
    const Misspelt both("bilingual.xml");
    EXPECT_EQ(both.words, (Words{"tuch", "Gewichde", "geschriben.", "speling"}));
    EXPECT_GT(Misspelt("bilingual.xml", "en_US").words.size(), 20U);
    EXPECT_GT(Misspelt("bilingual.xml", "de_DE").words.size(), 20U);
}

TEST(SpellCommand, TellsByItsStatusWhetherWordsAreMisspelt) {
    const SpellRun clean("It isn’t 1 clock &amp; 2.");
    EXPECT_EQ(clean.status, 0);
    EXPECT_EQ(clean.output, "");

    const std::string words = "one two three four five six seven eight <fo:inline>clok</fo:inline>c"
                              "\n  nine, ten eleven twelve thirteen";
    const SpellRun misspelt(words);
    EXPECT_EQ(misspelt.status, 1);
    const std::size_t place = documentWith(words).find("clok");
    EXPECT_NE(misspelt.output.find("a.xml:" + std::to_string(place) + ": clokc: clock"),
              std::string::npos);
    EXPECT_TRUE(misspelt.output.ends_with("\n    …ree four five six seven eight [clokc] nine, ten "
                                          "eleven twelve thirt…\n"))
        << misspelt.output;
    EXPECT_EQ(misspelt.errors, "");

    const SpellRun failed("a", "no_SUCH");
    EXPECT_EQ(failed.status, 2);
    EXPECT_NE(failed.errors.find("no_SUCH"), std::string::npos) << failed.errors;
    EXPECT_EQ(spellDocument({"/no/such/document", ""}), 2);

    const TemporaryFolder folder;
    folder.put("notes.txt", "a clokc");
    EXPECT_EQ(spellDocument({(folder.path() / "notes.txt").string(), ""}), 2);
}

TEST(SpellCommand, IsThereForRequestsToo) {
    Session session;
    session.serve({"setContent", documentWith("a clokc"), true});
    const Json error = session.serve({"getNextSpellingError", "", true})["result"];
    EXPECT_EQ(error["suggestions"][0], "clock");
    EXPECT_EQ(error["dictionaries"], Json::array({"en_US"}));
    EXPECT_EQ(session.serve({"getSelectionAs", 0})["result"], "clokc\n");
    EXPECT_EQ(session.serve({"getNextSpellingError", "", false})["result"], nullptr);
}

#include "Commands.h"
#include "Session.h"
#include "Spelling.h"
#include "foundation/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

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

} // namespace

TEST(SpellCommand, TellsByItsStatusWhetherWordsAreMisspelt) {
    const SpellRun clean("It isn’t 1 clock &amp; 2.");
    EXPECT_EQ(clean.status, 0);
    EXPECT_EQ(clean.output, "");

    const SpellRun misspelt("a clokc");
    EXPECT_EQ(misspelt.status, 1);
    EXPECT_NE(misspelt.output.find(": clokc: clock"), std::string::npos) << misspelt.output;
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

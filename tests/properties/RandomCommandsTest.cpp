// Streams of random commands on documents of all kinds. A failure is printed as a short script that
// `forme run` replays. FORME_RANDOM_COMMANDS sets how many commands are tried, FORME_RANDOM_SEED
// where the streams begin.

#include "properties/RandomCommands.h"

#include "Session.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

TEST(RandomCommands, LeaveSmallDocumentsWhole) {
    constexpr std::size_t perDocument = 100;
    const auto failure = [](const std::string& path, Random& random) {
        return failureOn(path, random, perDocument);
    };
    EXPECT_EQ(failureOnNew("random", 2000, perDocument, randomDocument, failure), "");
}

TEST(RandomCommands, LeaveRealDocumentsWhole) {
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 500);
    const auto documents = corpusAndSamples();
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    constexpr std::size_t perDocument = 50;
    for (std::size_t done = 0; done < total; done += perDocument)
        EXPECT_EQ(failureOn(random.oneOf(documents), random, perDocument), "");
}

TEST(RandomCommands, EndOnTextsWhoseTagsDoNotMatch) {
    constexpr std::size_t perText = 20;
    const std::size_t texts = setting("FORME_RANDOM_COMMANDS", 2000) / perText;
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    const CommandMix mix = everyCommand();
    for (std::uint32_t seed = first; seed < first + texts; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        Session session;
        session.serve({"setContent", mutilated(randomDocument(random), random), true});
        for (std::size_t i = 0; i < perText; ++i) {
            const std::string command = randomCommand(random, session.document(), mix);
            session.serveLine(command);
            const int caret = session.document().getCaretPos();
            ASSERT_TRUE(-1 <= caret && caret < session.document().getContent().length()) << command;
        }
    }
}

TEST(Commands, EndWhereTagsDoNotMatch) {
    const std::vector<std::vector<const char*>> streams{
        {R"(["setContent","<fo:flow><fo:list-block><fo:block>x</fo:block></fo:flow>",true])",
         R"(["selectCurrentElement"])", R"(["resetSelection"])", R"(["moveCaretHome",true])",
         R"(["insertTab"])"},
        {R"(["setContent","<fo:flow><fo:block><",true])",
         R"(["findReplace","x","y",true,false,1,false])"},
        // The caret is in a static content that was closed before it.
        {R"(["setContent","<fo:static-content><fo:inline></fo:static-content><fo:block>a",true])",
         R"(["moveCaretHome",false])"},
        // Nothing closes the inline by its name, so that it cannot go whole.
        {R"(["setContent","<fo:flow><fo:block>a<fo:inline>  </fo:wrapper>bc</fo:block>",true])",
         R"(["moveCaretRight",false,false,false])", R"(["erase",true,false])",
         R"(["moveCaretToEnd",false])", R"(["erase",false,false])"},
        // Nothing ends the loose line.
        {R"(["setContent","<fo:flow><fo:inline><fo:table-row></fo:list-block></fo:inline>",true])",
         R"(["insertBreak",5,false])"}};
    for (const std::vector<const char*>& requests : streams) {
        SCOPED_TRACE(requests.front());
        Session session;
        for (const char* request : requests)
            EXPECT_FALSE(session.serveLine(request).contains("error")) << request;
    }
}

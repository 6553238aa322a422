#include "Session.h"

#include "foundation/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tuple>

using namespace std::string_literals;

namespace {

const Json document = R"(<qfd:document><fo:page-sequence><fo:flow>
<fo:block>first</fo:block>
</fo:flow></fo:page-sequence></qfd:document>)";

} // namespace

TEST(Session, AnswersWithResultCaretAndNotices) {
    Session session;
    const Json loaded = session.serve({"setContent", document, true});
    const int first = static_cast<int>(document.get<std::string>().find("first"));
    EXPECT_EQ(loaded, Json({{"result", nullptr},
                            {"caret", first},
                            {"pivot", first},
                            {"notices", {"buffer", "caret"}}}));
    EXPECT_EQ(session.serveLine("[\"setCaretPos\",true," + std::to_string(first + 2) + "]"),
              Json({{"result", nullptr},
                    {"caret", first + 2},
                    {"pivot", first},
                    {"notices", {"caret", "selection"}}}));
    EXPECT_EQ(session.serve({"getContent"})["result"], document);
}

TEST(Session, SaysWhatIsWrongWithARequest) {
    const std::string setCaretPos =
        "setCaretPos(extend: bool, position: int): argument 2 (position): int expected, ";
    for (const auto& [line, error] :
         {std::pair(R"(["undo")", "no JSON: column 8"s),
          std::pair("{}", "a request is an array that begins with an operation's name, as in "
                          R"(["undo"])"s),
          std::pair(R"(["undone"])", R"(unknown operation "undone")"s),
          std::pair(R"(["undo",1])", "undo(): arguments expected: 0, given: 1"s),
          std::pair(R"(["setCaretPos",false,"3"])", setCaretPos + "a string given"),
          std::pair(R"(["setCaretPos",false,2147483648])", setCaretPos + "2147483648 given"),
          std::pair(R"(["setCaretPos",false,[]])", setCaretPos + "an array given")})
        EXPECT_EQ(Session().serveLine(line).value("error", ""), error);
}

TEST(Session, StaysUpThroughGarbageAndLosesNothing) {
    Session session;
    session.serve({"setContent", document, true});
    const Json before = session.serve({"getContent"});
    std::mt19937 random(7);
    const std::string alphabet = "[]{}\",:0123456789.eE+-truefalsnil\\ \t\x80\xC3\xFF<>&;/";
    for (int i = 0; i < 1000; ++i) {
        std::string line;
        for (unsigned length = random() % 40; length > 0; --length)
            line += alphabet[random() % alphabet.size()];
        EXPECT_NE(session.serveLine(line).value("error", ""), "") << line;
    }
    EXPECT_EQ(session.serve({"getContent"}), before);
}

TEST(Session, FailedOpenKeepsTheDocument) {
    Session session;
    session.serve({"setContent", document, true});
    const Json reply = session.serve({"open", "nowhere/letter.xml"});
    EXPECT_EQ(reply.value("error", "").find("nowhere/letter.xml"), 0U);
    EXPECT_EQ(session.serve({"getContent"})["result"], document);
}

TEST(Session, SavesUnderADeclarationThatNamesTheEncoding) {
    const TemporaryFolder folder;
    const std::string path = (folder.path() / "saved").string();
    const auto savedAs = [&](const std::string& declared, int encoding) {
        Session session;
        const std::string text =
            R"(<?xml version="1.0" encoding=")" + declared + "\"?><a>\u00e9</a>";
        session.serve({"setContent", text, true});
        session.serve({"save", path, encoding});
        EXPECT_EQ(session.serve({"getContent"})["result"], text);
        session.serve({"open", path});
        return session.serve({"getContent"})["result"].get<std::string>();
    };
    for (const auto& [declared, encoding, name] :
         {std::tuple("ISO-8859-1", 1, "UTF-8"), std::tuple("utf-8", 2, "utf-8"),
          std::tuple("utf-8", 3, "UTF-16")})
        EXPECT_EQ(savedAs(declared, encoding),
                  R"(<?xml version="1.0" encoding=")"s + name + "\"?><a>\u00e9</a>");
}

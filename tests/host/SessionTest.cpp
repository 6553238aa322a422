#include "Session.h"

#include "CallTable.h"
#include "foundation/TemporaryFolder.h"
#include "foundation/XmlTesting.h"
#include "support/Table.h"
#include "text/XmlCharacters.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(
        loaded,
        Json({{"result", nullptr},
              {"caret", first},
              {"pivot", first},
              {"change",
               {{"start", 0}, {"removed", 0}, {"inserted", document.get<std::string>().size()}}},
              {"notices", {"buffer", "caret"}}}));
    EXPECT_EQ(session.serveLine("[\"setCaretPos\",true," + std::to_string(first + 2) + "]"),
              Json({{"result", nullptr},
                    {"caret", first + 2},
                    {"pivot", first},
                    {"notices", {"caret", "selection"}}}));
    EXPECT_EQ(session.serve({"getContent"})["result"], document);
}

TEST(Session, SaysWhatIsWrongWithARequest) {
    for (const auto& [line, error] : rows(LR"(
["undo" -> no JSON: column 8
{} -> a request is an array that begins with an operation's name, as in ["undo"]
["undone"] -> unknown operation "undone"
["undo",1] -> undo(): arguments expected: 0, given: 1
["setCaretPos",false,"3"] -> setCaretPos(extend: bool, position: int): argument 2 (position): int expected, a string given
["setCaretPos",false,2147483648] -> setCaretPos(extend: bool, position: int): argument 2 (position): int expected, 2147483648 given
["setCaretPos",false,[]] -> setCaretPos(extend: bool, position: int): argument 2 (position): int expected, an array given
["setCaretPos",false,1e400] -> a number is too large
["open","a\u0000b"] -> the path of the file holds U+0000
["insertXmlTextAtPosition",0,"\uffff"] -> the text holds a character that XML cannot hold
)"))
        EXPECT_EQ(Session().serveLine(narrow(line.c_str())).value("error", ""),
                  narrow(error.c_str()));
}

namespace {

/// Something of the type that the parameter has, with the text in it.
Json argumentOf(const Parameter& parameter, const std::string& string, int position) {
    if (parameter.type.starts_with("property "))
        return {"id", string};
    if (parameter.type.starts_with("properties "))
        return Json::array({{"id", string}});
    for (const Json& argument : {Json(string), Json(position), Json(true), Json(1)})
        if (parameter.matches(argument))
            return argument;
    return nullptr;
}

} // namespace

TEST(Session, LetsNothingInThatXmlCannotHold) {
    const std::string text = R"(<?xml version="1.0"?>)" + document.get<std::string>();
    const std::size_t first = text.find("first");
    for (const std::string& bad : {"\0"s, "a\uFFFF"s, "xmlns:x=\uFFFE"s, "\x01"s})
        for (const Operation& operation : callTable())
            for (std::size_t bearer = 0; bearer < operation.parameters.size(); ++bearer) {
                if (operation.name == "setContent") // which takes any text
                    continue;
                Session session;
                session.serve({"setContent", text, true});
                session.serve({"setCaretPos", false, first + 1});
                session.serve({"setCaretPos", true, first + 3});
                Json request{operation.name};
                for (const Parameter& parameter : operation.parameters)
                    request.push_back(argumentOf(
                        parameter, request.size() == bearer + 1 ? bad : "fo:block", first + 2));
                session.serve(request);
                const Core::String content = session.document().getContent();
                EXPECT_EQ(XmlCharacters::countForbidden(content.view()), 0U) << request;
            }
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
         {std::tuple("ISO-8859-1"s, 1, "UTF-8"), std::tuple(std::string(50000, 'x'), 1, "UTF-8"),
          std::tuple("utf-8"s, 2, "utf-8"), std::tuple("utf-8"s, 3, "UTF-16")})
        EXPECT_EQ(savedAs(declared, encoding),
                  R"(<?xml version="1.0" encoding=")"s + name + "\"?><a>\u00e9</a>");
}

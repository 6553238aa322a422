// Every allocation that a command makes fails once. The command then raises, has changed nothing,
// and does what it should when it is repeated.

#include "CallTable.h"
#include "Session.h"
#include "support/FailingAllocation.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace std::string_literals;

namespace {

const std::string text =
    Core::Encoder::toDisplayText(Core::String(MarkedDocument::documentWith(LR"(<B>one two</B>
<B>three <I color="red">four</I> five</B>
<B><fo:list-block><fo:list-item><fo:list-item-label><B>1.</B></fo:list-item-label><fo:list-item-body><B>six</B></fo:list-item-body></fo:list-item></fo:list-block></B>
<B>two _</B>)")));

std::string caretAt(const std::string& where, bool extend = false, int behind = 0) {
    const std::size_t at = text.find(where) + static_cast<std::size_t>(behind);
    return Json{"setCaretPos", extend, at}.dump();
}

const std::string type = R"(["insertText","x",false,false])";

/// The requests that lead to a place, and the one that is made there.
struct Case {
    std::vector<std::string> before;
    std::string request;
};

const std::string begin = caretAt("one two"), inWord = caretAt("one two", false, 2),
                  toNext = caretAt("three ", true, 3), inItem = caretAt("six", false, 1),
                  inInline = caretAt("four", false, 2);

const std::vector<Case> cases{
    {{inWord}, type},
    {{inWord, type}, type},
    {{inWord, type, type}, R"(["insertText"," ",false,false])"},
    {{inWord, toNext}, type},
    {{inWord, toNext}, R"(["erase",true,false])"},
    {{caretAt("three ")}, R"(["erase",false,false])"},
    {{caretAt("one two", false, 7)}, R"(["erase",true,false])"},
    {{inWord}, R"(["erase",true,true])"},
    {{inWord, type}, R"(["insertBreak",5,false])"},
    {{inWord}, R"(["insertBreak",2,false])"},
    {{inItem}, R"(["insertBreak",6,false])"},
    {{inWord, toNext}, R"(["makeList",0])"},
    {{inItem}, R"(["removeList"])"},
    {{inWord, toNext}, R"(["setProperties",[["fo:color","blue"],["text-align","end"]],""])"},
    {{inInline}, R"(["removeProperties",""])"},
    {{inWord, type}, R"(["insertText","<fo:inline>i</fo:inline>",true,true])"},
    {{inWord}, R"(["insertText","p",[["fo:color","blue"]],false,false])"},
    {{inItem}, R"(["deleteObject","fo:list-block/fo:list-item","",false])"},
    {{inInline}, R"(["deleteParent","fo:inline"])"},
    {{inWord, type}, R"(["undo"])"},
    {{inWord, toNext, R"(["makeList",0])", R"(["undo"])"}, R"(["redo"])"},
    {{inWord, type}, R"(["setContent","<a/>",true])"},
    {{inWord, type}, R"(["setContent","<a/>",false])"},
    {{begin}, R"(["findReplace","two","2",true,false,0,true])"},
    {{begin, R"(["findReplace","two","2",true,false,0,false])"},
     R"(["findReplace","two","2",true,false,0,true])"},
    {{caretAt("one two", false, 3)}, R"(["insertAutotext","a  b\rc",true])"},
    {{inWord}, R"(["insertStyleSheet","<qf:stylesheet xmlns:qf=\"urn:q\"/>"])"},
    {{inWord}, R"(["setPDFCompliance","PDF/A-1b:2005"])"},
    {{inWord}, R"(["setIdForCurrentPos","i"])"},
    {{inWord}, R"(["changeXmlEncoding","UTF-16"])"},
    {{inWord, type}, Json{"replaceXmlText", text.find("six"), text.find("six"), "S"}.dump()},
    {{inWord, type}, caretAt("six", true, 2)},
    {{inWord, type}, R"(["moveCaretRight",true,true,false])"},
    {{inWord, type}, R"(["selectParent"])"},
};

class Editor {
public:
    explicit Editor(const Case& test) {
        session.serve({"setContent", text, true});
        for (const std::string& request : test.before)
            carryOut(request);
    }

    void carryOut(const std::string& request) {
        EXPECT_FALSE(session.serveLine(request).contains("error")) << request;
    }

    EditorState state() { return stateOf(session.document()); }
    /// All that undoing and redoing to both ends of the history passes.
    std::vector<EditorState> history() {
        EditableDocumentBuffer& document = session.document();
        std::vector<EditorState> states{state()};
        for (; document.canUndo() && states.size() < 20; states.push_back(state()))
            document.undo();
        for (; document.canRedo() && states.size() < 40; states.push_back(state()))
            document.redo();
        return states;
    }

    Session session;
};

/// Whether the command raises when its n-th allocation fails.
bool raises(Session& session, const Json& request, long n) {
    const Operation& operation = operationFor(request);
    const FailingAllocation failure(n);
    try {
        operation.invoke(session, request);
        return false;
    } catch (const std::bad_alloc&) {
        return true;
    }
}

/// What a case gives without failures.
struct Expected {
    explicit Expected(const Case& test) : before(Editor(test).history()) {
        Editor done(test);
        done.carryOut(test.request);
        behind = done.history();
    }

    std::vector<EditorState> before;
    std::vector<EditorState> behind;
};

/// Whether the request came to its n-th allocation, whose failure changed nothing.
bool survives(const Case& test, const Expected& expected, long n) {
    Editor editor(test);
    const bool refused = raises(editor.session, Json::parse(test.request), n);
    if (!FailingAllocation::hasFailed())
        return false;
    if (!refused) { // what failed was only housekeeping
        EXPECT_EQ(editor.history(), expected.behind);
        return true;
    }
    EXPECT_EQ(editor.state(), expected.before.front());
    if (n % 2 == 0) {
        EXPECT_EQ(editor.history(), expected.before);
    } else { // a run of typing goes on, too
        editor.carryOut(test.request);
        EXPECT_EQ(editor.history(), expected.behind);
    }
    return true;
}

} // namespace

TEST(AllocationFailure, TakesTheRequestBackAndLeavesTheNextOneWhole) {
    for (const Case& test : cases) {
        const Expected expected(test);
        long n = 0;
        while (survives(test, expected, n)) {
            ASSERT_FALSE(testing::Test::HasFailure())
                << test.request << ": allocation " << n << " failed";
            ++n;
        }
        EXPECT_GT(n, 0) << test.request;
    }
}

TEST(AllocationFailure, OfARequestIsAnsweredByAnErrorAndNothingElse) {
    for (const std::string& request :
         {type, R"(["getContent"])"s, R"(["deleteXmlText",60,70])"s, R"(["undo"])"s,
          R"(["insertXmlTextAtPosition",60," "])"s, R"(["getProperties",""])"s, R"(["open","x"])"s,
          R"(["insertText","p",[["fo:color","blue"]],false,false])"s,
          R"(["nothing",[[1],{"a":2}]])"s, R"(["setPageMasterEditingMode",true])"s,
          R"(["setCaretPos",false,1e400])"s}) {
        Editor editor({{inWord, type}, request});
        const EditorState before = editor.state();
        for (long n = 0;; ++n) {
            std::string reply = "\"error\"";
            try {
                const FailingAllocation failure(n);
                reply = editor.session.replyTo(request);
            } catch (const std::bad_alloc&) { // which the program answers by an error of its own
            }
            if (!FailingAllocation::hasFailed())
                break;
            ASSERT_NE(reply.find("\"error\""), std::string::npos)
                << request << ", allocation " << n;
            ASSERT_EQ(editor.state(), before) << request << ", allocation " << n;
            ASSERT_FALSE(editor.session.document().getPageMasterEditingMode());
        }
        editor.session.document().setPageMasterEditingMode(false);
        editor.carryOut(type);
    }
}

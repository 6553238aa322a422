#include "Session.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

namespace {

const Json aTable{"setContent",
                  "<fo:root><fo:flow><fo:table><fo:table-body><fo:table-row><fo:table-cell>"
                  "<fo:block>a</fo:block></fo:table-cell></fo:table-row></fo:table-body>"
                  "</fo:table></fo:flow></fo:root>",
                  true};

} // namespace

TEST(OpenedRows, OneIsOpenUntilItIsClosedOrAnotherDocumentIsTakenUp) {
    Session session;
    session.serve(aTable);
    session.serve({"moveCaretHome", false});
    const Json columns{"table.getColumnCount"}, close{"table.close"}, open{"table.open", -1};
    const std::string none = "no \"table\" is open; \"table.open\" opens one";
    EXPECT_EQ(session.serve(columns)["error"], none);
    EXPECT_TRUE(session.serve(close).contains("error"));
    EXPECT_TRUE(session.serve({"table.open", "1"}).contains("error"));
    EXPECT_EQ(session.serve(columns)["error"], none);

    for (int opened = 0; opened < 2; ++opened)
        EXPECT_TRUE(session.serve(open).at("result").is_null());
    EXPECT_EQ(session.serve(columns)["result"], 1);
    session.serve(close);
    EXPECT_EQ(session.serve(columns)["error"], none);

    session.serve(open);
    EXPECT_EQ(session.serve({"open", "no such file"}).value("error", "").find("no such file"), 0U);
    EXPECT_EQ(session.serve(columns)["result"], 1);
    EXPECT_FALSE(
        session.serve({"open", (samplesFolder() / "letter.xml").string()}).contains("error"));
    EXPECT_EQ(session.serve(columns)["error"], none);
}

TEST(OpenedRows, NameTheNodesOfATreeUntilItIsReadAnew) {
    Session session;
    session.serve(aTable);
    const auto result = [&](const Json& request) { return session.serve(request)["result"]; };
    EXPECT_EQ(session.serve({"table.open", 0})["error"], "there is no table");
    session.serve({"moveCaretHome", false});
    session.serve({"table.open", -1});
    const Json cell = result({"table.getCellElementAt", 0, 0, 1});
    EXPECT_EQ(cell["xml"], "<fo:table-cell>\n<fo:block>a</fo:block></fo:table-cell>");
    EXPECT_EQ(result({"table.getCellElementAt", 0, 0, 1})["node"], cell["node"]);
    const Json table = result({"table.getDocumentBufferStart"});
    EXPECT_EQ(result({"getCellPositionInTable", table, 0, 0, 1, 1, 1, "table"}),
              table.get<int>() + 39);
    session.serve({"table.setColSpanToCell", cell, 2});
    EXPECT_EQ(result({"table.getColSpanFromCell", {{"node", cell["node"]}}}), 2);
    EXPECT_TRUE(result({"table.insertCell", cell, true})["node"] != cell["node"]);
    EXPECT_TRUE(result({"table.getRowGroupHeader"}).is_null());
    session.serve({"table.updateTableBuffer"});
    EXPECT_TRUE(session.serve({"table.getColSpanFromCell", cell}).contains("error"));
    EXPECT_NE(result({"table.getCellElementAt", 0, 0, 1})["node"], cell["node"]);
    session.serve({"table.close"});
    EXPECT_TRUE(session.serve({"table.insertRow", true}).contains("error"));
}

/// Records as they travel, of which a request gives what it knows.
TEST(OpenedRows, TakeRecordsInPart) {
    Session session;
    session.serve({"setContent",
                   "<qfd:document xmlns:qfd='q' xmlns:fo='f' xmlns:qf='e'><fo:layout-master-set>"
                   "<fo:simple-page-master master-name='M'><fo:region-body/>"
                   "</fo:simple-page-master></fo:layout-master-set><fo:page-sequence><fo:flow>"
                   "<fo:block>a</fo:block></fo:flow></fo:page-sequence></qfd:document>",
                   true});
    session.serve({"moveCaretHome", false});
    const auto result = [&](const Json& request) {
        const Json reply = session.serve(request);
        EXPECT_FALSE(reply.contains("error")) << reply;
        return reply["result"];
    };
    EXPECT_EQ(result({"values.read",
                      Json::array({Json::array({"fo:id", "i"}), Json::array({"fo:src", "url(a)"})}),
                      {{"name", "fo:src"}}})["static"],
              "a");
    result({"template.open"});
    result({"template.insertOrEditQFDLocale", "de", "", "Deutsch"});
    EXPECT_EQ(result({"template.getDefaultQFDLocale"}),
              Json({{"id", "de"}, {"file", ""}, {"name", "Deutsch"}}));

    result({"promo.open", "M"});
    const Json place = {{"source", {{"name", "fo:src"}, {"type", 1}, {"dynamic", "x"}}}};
    result({"promo.overrideTranspromoList", Json::array({place})});
    result({"promo.commit"});
    result({"promo.open", "M"});
    const Json read = result({"promo.getTranspromoList"})[0];
    EXPECT_EQ(read["source"]["dynamic"], "x");
    EXPECT_EQ(read["ruleKeyword"]["type"], 0);
}

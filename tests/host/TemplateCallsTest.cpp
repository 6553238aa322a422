#include "Session.h"

#include <gtest/gtest.h>

/// A template's data, computed values and promo places as they travel.
TEST(TemplateCalls, GiveAndTakeRecords) {
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
    const Json rows =
        Json::array({{{"static", "s"}, {"dynamic", ""}, {"condition", "c"}, {"isDynamic", false}},
                     {{"static", ""}, {"dynamic", "d"}, {"condition", ""}, {"isDynamic", true}}});
    result({"values.write", {{"name", "fo:src"}, {"id", "i"}, {"type", 2}, {"rows", rows}}});
    EXPECT_EQ(result({"values.read", {{"name", "fo:src"}, {"id", "i"}}})["rows"], rows);
    EXPECT_EQ(result({"values.read",
                      Json::array({Json::array({"fo:id", "i"}), Json::array({"fo:src", "url(a)"})}),
                      {{"name", "fo:src"}}})["static"],
              "a");

    result({"template.open"});
    EXPECT_EQ(result({"template.getQFDAttributes"})[1], Json({{"object", "i"},
                                                              {"attribute", "fo:src"},
                                                              {"condition", ""},
                                                              {"value", ""},
                                                              {"dynamicValue", "d"}}));
    const Json variables = Json::array({{{"name", "n"}, {"value", "v"}}});
    const Json scripts = Json::array({{{"namespacePrefix", "p"},
                                       {"language", "CSharp"},
                                       {"text", "<msxsl:using namespace=\"N\"/>f"}}});
    result({"template.overrideVariables", variables});
    result({"template.overrideScripts", scripts});
    result({"template.insertOrEditQFDLocale", "de", "", "Deutsch"});
    result({"template.commit"});
    result({"template.open"});
    EXPECT_EQ(result({"template.getVariables"}), variables);
    EXPECT_EQ(result({"template.getScripts"}), scripts);
    EXPECT_EQ(result({"template.getDefaultQFDLocale"}),
              Json({{"id", "de"}, {"file", ""}, {"name", "Deutsch"}}));

    result({"promo.open", "M"});
    Json place = {{"source", {{"name", "fo:src"}, {"type", 1}, {"dynamic", "x"}}},
                  {"regionConstraint", 1}};
    result({"promo.overrideTranspromoList", Json::array({place})});
    result({"promo.commit"});
    result({"promo.open", "M"});
    const Json read = result({"promo.getTranspromoList"})[0];
    EXPECT_EQ(read["source"]["dynamic"], "x");
    EXPECT_EQ(read["regionConstraint"], 1);
    EXPECT_EQ(read["ruleKeyword"]["type"], 0);
}

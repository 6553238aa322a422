#include "calls/Rows.h"
#include "support/Documents.h"

#include <forme/document/PageSequenceAlg.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

using BufferAlgorithms::PageSequenceAlg;

namespace {

/// The page sequences counted from one that is named when the view is opened.
class SequencesFrom : public PageSequenceAlg {
public:
    SequencesFrom(const SmartPtr<EditableDocumentBuffer>& document, int first)
        : PageSequenceAlg(document), first_(first) {}

    int indexAt(int position) const { return getPageSequenceIdxFromPos(position) - first_; }

private:
    int first_;
};

std::vector<Operation> table() {
    const OpenedRows<SequencesFrom> sequences("sequences");
    return {sequences.open<int>({"first"}), sequences.close(),
            sequences("indexAt", &SequencesFrom::indexAt, {"position"})};
}

Json ask(Session& session, const Json& request) {
    const std::vector<Operation> rows = table();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const Operation& operation) {
        return operation.name == request[0] && operation.accepts(request);
    });
    return row == rows.end() ? Json("no such row") : row->invoke(session, request);
}

void setTwoSequences(Session& session) {
    const std::string sequence =
        "<fo:page-sequence><fo:flow><fo:block>a</fo:block></fo:flow></fo:page-sequence>";
    session.serve({"setContent", "<qfd:document>" + sequence + sequence + "</qfd:document>", true});
}

} // namespace

TEST(OpenedRows, OneIsOpenUntilItIsClosedOrAnotherDocumentIsTakenUp) {
    Session session;
    setTwoSequences(session);
    const Json second = {"sequences.indexAt", 129};
    EXPECT_THROW(ask(session, second), std::invalid_argument);
    EXPECT_THROW(ask(session, {"sequences.close"}), std::invalid_argument);
    EXPECT_EQ(ask(session, {"sequences.open", "1"}), "no such row");

    EXPECT_TRUE(ask(session, {"sequences.open", 0}).is_null());
    const int index = ask(session, second).get<int>();
    EXPECT_EQ(index, 1);
    ask(session, {"sequences.open", 10});
    EXPECT_EQ(ask(session, second), index - 10);
    ask(session, {"sequences.close"});
    try {
        ask(session, second);
        FAIL() << "none is open";
    } catch (const std::invalid_argument& failure) {
        EXPECT_STREQ(failure.what(), "no \"sequences\" is open; \"sequences.open\" opens one");
    }

    ask(session, {"sequences.open", 0});
    session.serve({"open", "no such file"});
    EXPECT_EQ(ask(session, second), index);
    EXPECT_FALSE(
        session.serve({"open", (samplesFolder() / "letter.xml").string()}).contains("error"));
    EXPECT_THROW(ask(session, second), std::invalid_argument);
}

TEST(OpenedRows, NameTheNodesOfATreeUntilItIsReadAnew) {
    Session session;
    session.serve({"setContent",
                   "<fo:root><fo:flow><fo:table><fo:table-body><fo:table-row><fo:table-cell>"
                   "<fo:block>a</fo:block></fo:table-cell></fo:table-row></fo:table-body>"
                   "</fo:table></fo:flow></fo:root>",
                   true});
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

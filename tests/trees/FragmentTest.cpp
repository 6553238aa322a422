#include "trees/Fragment.h"

#include "foundation/Messages.h"
#include "foundation/xml/ParseException.h"
#include "support/EditorState.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

namespace {

const CommitCaret stays{{-1, -1}, nullptr};

/// A fragment of the first table of a document.
Fragment tableOf(MarkedDocument& buffer) {
    Fragment fragment(&buffer.document());
    fragment.read(buffer.find(L"<T"));
    return fragment;
}

/// A table of one cell with that text in it.
std::wstring table(const std::wstring& attributes, const std::wstring& text) {
    return L"<T" + attributes + L"><D><R><C><B>" + text + L"</B></C></R></D></T>";
}

TEST(Fragment, IsWrittenBackAsOneStepWithOneNoticeOfAKind) {
    for (const auto& [before, after] :
         {std::pair(L"<B>a</B><T/><B>b^c|</B>", L"<B>a</B><T a=\"1\"/><B>b^c|</B>"),
          std::pair(L"<B>a|</B><T  k='>'></T>", L"<B>a|</B><T k=\"&gt;\" a=\"1\"/>"),
          std::pair(L"^<T/>|", L"^<T a=\"1\"/>|"),
          std::pair(L"<T b=\"2\" ><D/>|</T >", L"<T b=\"2\" a=\"1\">\n<D/></T>|")}) {
        MarkedDocument buffer(before);
        Fragment fragment = tableOf(buffer);
        const EditorState old = stateOf(buffer.face());
        fragment.root()->set_attribute("a", "1");
        fragment.commit({{old.caret, old.pivot}, nullptr});
        EXPECT_EQ(buffer.marked(), after);
        EXPECT_EQ(buffer.heard().substr(0, 1), "b");
        fragment.commit(stays);
        EXPECT_EQ(buffer.marked(), after) << "nothing has changed since";
        expectReplays(buffer.face(), old);
        buffer->undo();
        EXPECT_FALSE(buffer->canUndo());
    }
}

TEST(Fragment, IsTakenBackWhereNoParserWouldReadIt) {
    MarkedDocument buffer(table(L" a=\"1\" fo:a=\"2\"", L"a|b"));
    Fragment fragment = tableOf(buffer);
    const EditorState old = stateOf(buffer.face());
    fragment.root()->get_attributes().front()->set_namespace("fo"); // two of one name
    fragment.commit(stays);
    EXPECT_EQ(stateOf(buffer.face()), old);
    EXPECT_FALSE(buffer->canUndo());
    EXPECT_EQ(buffer.heard(), "");
    fragment.root()->get_attributes().front()->set_namespace("qfd");
    fragment.commit(stays);
    EXPECT_NE(buffer.find(L"<T qfd:a=\"1\" fo:a"), -1);
}

TEST(Fragment, ToldOfNoElementStaysAsItWas) {
    MarkedDocument buffer(table(L"", L"a|b") + L"<B>\n\n<I></B>");
    Fragment fragment = tableOf(buffer);
    EXPECT_EQ(messageOf([&] { fragment.read(buffer.find(L"<B>\n")); }), "6:14: mismatched tag");
    MarkedDocument typed;
    typed->setContent(L"<!DOCTYPE r [\n\n]><r xmlns:p=\"u\">\n <a><b></a></r>", true);
    EXPECT_EQ(messageOf([&] { Fragment(&typed.document()).read(typed.find(L"<a")); }),
              "4:10: mismatched tag");
    for (const int position : {-1, 0, buffer.find(L"</T"), buffer->getContent().length()})
        EXPECT_NE(messageOf([&] { fragment.read(position); }), "");
    EXPECT_EQ(fragment.start(), buffer.find(L"<T"));
    EXPECT_EQ(fragment.root()->get_name(), L"table");
    EXPECT_THROW(Fragment(&buffer.document()).root(), Core::NullPointerException);
}

} // namespace

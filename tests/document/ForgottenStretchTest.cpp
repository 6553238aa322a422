#include "document/history/EditActionGroup.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct ForgetfulDocument : MarkedDocument {
    using MarkedDocument::MarkedDocument;

    ForgetfulDocument& insert(const wchar_t* before, const wchar_t* xml) {
        insertRecorded(inFlow(before), xml);
        return *this;
    }
    ForgetfulDocument& remove(const wchar_t* what) {
        deleteRecorded(inFlow(what), last(what));
        return *this;
    }
    void forget(const wchar_t* what) {
        const int start = inFlow(what);
        document().history.forget(start, document().removeUnrecorded(start, last(what)));
    }

    /// The states that the history leads through, from its start to its end and back.
    void expectStates(const std::vector<std::wstring>& states) {
        while (face().canUndo())
            face().undo();
        std::vector<std::wstring> forth{flow()};
        for (; face().canRedo(); forth.push_back(flow()))
            face().redo();
        EXPECT_EQ(forth, states);
        std::vector<std::wstring> back{flow()};
        for (; face().canUndo(); back.insert(back.begin(), flow()))
            face().undo();
        EXPECT_EQ(back, states);
    }

    int last(const wchar_t* what) const { return inFlow(what) + Core::String(what).length() - 1; }
};

} // namespace

TEST(ForgottenStretch, EditsBesideItStayExact) {
    ForgetfulDocument buffer(L"|a<!--x-->b");
    buffer.insert(L"a", L"1").insert(L"<!--", L"2").insert(L"b", L"3").insert(L"</fo:flow>", L"4");
    buffer.remove(L"a2").forget(L"<!--x-->");
    EXPECT_EQ(buffer.flow(), L"13b4");
    buffer.expectStates({L"ab", L"1ab", L"1a2b", L"1a23b", L"1a23b4", L"13b4"});
}

TEST(ForgottenStretch, WhatCanBeRedoneStaysExact) {
    ForgetfulDocument buffer(L"|a<!--x-->b");
    buffer.insert(L"a", L"1").remove(L"b").insert(L"</fo:flow>", L"<i/>");
    while (buffer->canUndo())
        buffer->undo();
    buffer.forget(L"<!--x-->");
    buffer.expectStates({L"ab", L"1ab", L"1a", L"1a<i/>"});
}

TEST(ForgottenStretch, WhatCameOrWentWithItDoesSoWithoutIt) {
    ForgetfulDocument whole(L"|ad");
    whole.insert(L"d", L"b<!--x-->c").insert(L"a", L"1").forget(L"<!--x-->");
    whole.expectStates({L"ad", L"abcd", L"1abcd"});
    ForgetfulDocument inParts(L"|ad");
    inParts.insert(L"d", L"b<!--").insert(L"d", L"x-->c").forget(L"<!--x-->");
    inParts.expectStates({L"ad", L"abd", L"abcd"});
    // What was changed inside it is gone.
    ForgetfulDocument changed(L"|a<!--x--><!--y-->b");
    changed.insert(L"a", L"1").remove(L"--><!--").remove(L"b").forget(L"<!--xy-->");
    changed.expectStates({L"ab", L"1ab", L"1a"});
}

TEST(ForgottenStretch, AReplacedTextIsAnother) {
    ForgetfulDocument buffer(L"|a<!--x-->b");
    buffer.insert(L"b", L"1");
    {
        const EditActionGroup group(buffer);
        buffer->setContent(Core::String(MarkedDocument::documentWith(L"cd<!--x-->e")), false);
    }
    buffer.insert(L"e", L"2").forget(L"<!--x-->");
    buffer.expectStates({L"a<!--x-->b", L"a<!--x-->1b", L"cde", L"cd2e"});
}

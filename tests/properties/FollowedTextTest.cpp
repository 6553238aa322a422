// A text followed by what changed in it: through snapshots that bring it back, and through replies.

#include "Session.h"
#include "document/EditableDocumentBufferState.h"
#include "properties/RandomCommands.h"
#include "properties/TextFollower.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

using Core::String;

void edit(EditableDocumentBuffer& document, Random& random) {
    const auto below = [&](int limit) {
        return static_cast<int>(random.below(static_cast<std::size_t>(limit)));
    };
    const String letters(static_cast<wchar_t>(L'a' + below(26)), below(4));
    const int length = document.getContent().length();
    if (random.oneIn(50))
        document.setContent(L"<a>" + letters + L" and more</a>", random.oneIn(2));
    else if (random.oneIn(12))
        random.oneIn(2) ? document.undo() : document.redo();
    else if (random.oneIn(2) || length == 0)
        document.insertXmlTextAtPosition(below(length + 1), letters);
    else
        document.deleteXmlText(length / 2, length / 2 + below(length - length / 2));
}

/// A client that knows of a document what replies tell.
class Client {
public:
    Json ask(const Json& request) {
        Json reply = Json::parse(session.replyTo(request.dump()));
        if (reply.contains("change"))
            text = changed(text, reply["change"]);
        return reply;
    }
    /// A text of before, after a change that was told.
    std::wstring changed(std::wstring before, const Json& change) {
        const int start = change["start"];
        const int inserted = change["inserted"];
        const Json units = ask({"getContent", start, start + inserted})["result"];
        TextFollower::put(before, {start, change["removed"], inserted}, Wire<String>::read(units));
        return before;
    }

    Session session;
    std::wstring text;
};

} // namespace

TEST(FollowedText, IsKeptWhileSnapshotsBringItBack) {
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    for (int round = 0; round < 20; ++round) {
        const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
        std::vector<TextFollower> followers(4, TextFollower(*document));
        std::optional<EditableDocumentBufferState> before;
        for (int step = 0; step < 400; ++step) {
            if (random.oneIn(8))
                before.emplace(document.get());
            edit(*document, random);
            if (before && random.oneIn(8)) {
                before->restorePreviousState();
                before.reset();
            }
            if (random.oneIn(2)) {
                ASSERT_TRUE(followers[random.below(4)].keepsUpWith(*document)) << round;
            }
        }
    }
}

TEST(FollowedText, IsKnownAsItWas256VersionsAgoAndNotBefore) {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    const TextFollower first(*document);
    for (int i = 0; i < 256; ++i) {
        document->insertXmlTextAtPosition(i, L"x");
        const std::uint64_t version = document->getTextVersion();
        EXPECT_EQ(document->getTextVersion(), version);
        EXPECT_EQ(document->changeSince(version + 1), std::nullopt);
    }
    EXPECT_EQ(document->changeSince(first.version()), (TextChange{0, 0, 256}));
    document->deleteXmlText(9, 9);
    EXPECT_EQ(document->changeSince(first.version()), (TextChange{0, 0, 255}));
    EditableDocumentBufferState before(document.get());
    document->getTextVersion();
    EXPECT_EQ(document->changeSince(first.version()), std::nullopt);
    for (int i = 0; i < 300; ++i) {
        document->insertXmlTextAtPosition(i, L"y");
        document->getTextVersion();
    }
    TextFollower last(*document);
    before.restorePreviousState();
    EXPECT_TRUE(last.keepsUpWith(*document));
}

TEST(FollowedText, IsToldInWholePairsOfSurrogates) {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setContent(L"a\xD83D\xDE00z", true);
    for (const int half : {2, 1}) {
        const std::uint64_t version = document->getTextVersion();
        document->insertXmlTextAtPosition(half + 1, half == 2 ? L"\xDE01" : L"\xD83C");
        document->deleteXmlText(half, half);
        EXPECT_EQ(document->changeSince(version), (TextChange{1, 2, 2}));
    }
}

TEST(FollowedText, IsToldByReplies) {
    const CommandMix mix = everyCommand();
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    for (std::uint32_t seed = first; seed < first + 10; ++seed) {
        Random random(seed);
        Client client;
        client.ask({"setContent", randomDocument(random), true});
        EXPECT_TRUE(client.ask({"moveCaret"}).contains("error"));
        const Json version = client.ask({"getTextVersion"})["result"];
        EXPECT_EQ(version, 1); // for an error leaves no trace
        const std::wstring old = client.text;
        for (int i = 0; i < 40; ++i) {
            const std::string command = randomCommand(random, client.session.document(), mix);
            client.ask(Json::parse(command));
            ASSERT_EQ(client.text, client.session.document().getContent().view()) << command;
        }
        EXPECT_EQ(client.changed(old, client.ask({"changeSince", version})["result"]), client.text);
        EXPECT_FALSE(client.ask({"moveCaretHome", false}).contains("change"));
    }
    EXPECT_EQ(Client().ask({"changeSince", 1})["result"], nullptr);
}

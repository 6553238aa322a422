// A character that is typed into text is carried out without the rules of typing, and one that is
// erased there without those of deletion. Here each stream of keys and commands goes to two
// documents, of which one takes no shortcuts. Nothing may tell them apart.

#include "properties/EveryStop.h"
#include "properties/RandomCommands.h"

#include "Session.h"
#include "editing/deletion/PlainErase.h"
#include "editing/typing/PlainRun.h"
#include "foundation/Encoder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// What the last records of the history say, the newest first.
std::vector<std::string> lastRecords(const Document& document) {
    EditActionStack history = document.history;
    std::vector<std::string> records;
    while (records.size() < 24 && history.hasMoreUndoActions()) {
        const EditAction action = history.getUndoAction();
        records.push_back(Json{action.getType(), action.getActionPosition(),
                               action.getCaretPosition(), action.getSelPivotPosition(),
                               Core::Encoder::toDisplayText(action.getString())}
                              .dump());
    }
    return records;
}

const std::string backspace = R"(["erase",false,false])";
const std::string forwardDelete = R"(["erase",true,false])";
const std::string undo = R"(["undo"])";
const std::string left = R"(["moveCaretLeft",false,false])";
const std::string right = R"(["moveCaretRight",false,false])";

/// Two documents in which the same is done.
class BothWays {
public:
    Session& shortWay() { return short_; }

    void open(const std::string& path) {
        both([&](Session& session) { session.open(Core::String(path.c_str())); });
    }

    void serve(const std::string& request) {
        if (request == R"(["saveInitialPosition",true])")
            return; // each document makes an identifier of its own
        Document& longer = Document::of(long_.document());
        longer.takesShortcuts = false;
        const Document& document = Document::of(short_.document());
        erased_ += (request == backspace && PlainErase::isPossible(document, false)) ||
                   (request == forwardDelete && PlainErase::isPossible(document, true));
        const Json reply = short_.serveLine(request);
        ASSERT_EQ(reply, long_.serveLine(request)) << request;
        ASSERT_EQ(stateOf(short_.document()), stateOf(long_.document())) << request;
        ASSERT_EQ(lastRecords(document), lastRecords(longer)) << request;
        ASSERT_EQ(document.history.hasMoreRedoActions(), longer.history.hasMoreRedoActions());
        for (std::size_t count = 1; count < 12; ++count)
            ASSERT_EQ(document.history.hasRoomFor(count), longer.history.hasRoomFor(count));
        ASSERT_TRUE(longer.text().isKnownWhole() || !document.text().isKnownWhole()) << request;
    }

    void expectSameLength() {
        std::vector<int> counts;
        both([&](Session& session) {
            EditActionStack history = Document::of(session.document()).history;
            for (counts.push_back(0); history.hasMoreUndoActions(); ++counts.back())
                history.getUndoAction();
        });
        EXPECT_EQ(counts[0], counts[1]);
    }

    /// Leaves room in the history for so many records.
    void fillHistory(int room) {
        both([&](Session& session) {
            const EditAction record(EditAction::EditCaret, -1, -1, -1, Core::String());
            EditActionStack& history = Document::of(session.document()).history;
            while (history.hasRoomFor(static_cast<std::size_t>(room) + 1))
                history.addAction(record);
        });
    }

    void type(const Core::String& text) {
        typed_ += PlainRun::isPossible(Document::of(short_.document()), text);
        serve(Json{"insertText", Core::Encoder::toDisplayText(text), false, false}.dump());
    }

    /// How many keys took the short way.
    int typed() const { return typed_; }
    int erased() const { return erased_; }

private:
    template <typename Action>
    void both(Action action) {
        action(short_);
        action(long_);
    }

    Session short_;
    Session long_;
    int typed_ = 0;
    int erased_ = 0;
};

/// Plain characters above all, and whatever a rule may ask about.
Core::String anyKey(Random& random) {
    static const std::vector<Core::String> others{
        L" ",      L" ",  L" ",  L"<",   L"&",  L">", L";",      L"]",    L"'",           L"\"",
        L"\x00A0", L"\t", L"\n", L"]]>", L"xy", L"-", L"\x2028", L"\x7F", L"\xD83D\xDE00"};
    return random.oneIn(3) ? random.oneOf(others) : Core::String(L'a', 1);
}

/// What may stand between two keys of a run, and does not end it.
std::string anyRequest(Random& random, const EditableDocumentBuffer& document) {
    static const Json settings = Json::parse(R"json([
        ["setPageMasterEditingMode", true], ["setPageMasterEditingMode", false],
        ["setEditingDummyPage", true], ["setEditingDummyPage", false],
        ["setRootElement", "fo:block"], ["setRootElement", "qfd:document"],
        ["history.startTrackingPos", 9], ["history.retrieveTrackingPos"], ["undo"], ["redo"],
        ["erase", false, false], ["endKeyTypingSequence"]])json");
    return random.oneIn(2) ? random.oneOf(settings).dump()
                           : randomCommand(random, document, everyCommand());
}

class PlainRun : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(PlainRun, IsTypedAsByTheRulesOfTyping) {
    const StopsDocument document(GetParam());
    BothWays both;
    both.open(GetParam().string());
    int stops = 0;
    const auto typeAndErase = [&](int stop) {
        both.serve(Json{"setCaretPos", false, stop}.dump());
        for (const wchar_t* key : {L"a", L"b", L" ", L"c", L"]", L"d", L"\x00A0", L"e", L"f", L"g"})
            both.type(key);
        for (const std::string& request :
             {left, backspace, right, backspace, backspace, left, left, forwardDelete, right,
              forwardDelete, forwardDelete, undo})
            both.serve(request);
        ++stops;
    };
    document.fromEachStop(typeAndErase, 12);
    EXPECT_GT(both.typed(), stops);
    EXPECT_GT(both.erased(), 0);
}

INSTANTIATE_TEST_SUITE_P(Documents, PlainRun, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

} // namespace

TEST(PlainRuns, AreTypedAsByTheRulesInStreamsOfCommands) {
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 3000);
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    constexpr std::size_t perDocument = 150;
    int typed = 0;
    int erased = 0;
    for (std::uint32_t seed = first; seed < first + total / perDocument; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const std::string text =
            random.oneIn(4) ? mutilated(randomDocument(random), random) : randomDocument(random);
        BothWays both;
        both.serve(Json{"setContent", text, true}.dump());
        if (random.oneIn(3))
            both.fillHistory(static_cast<int>(random.below(60)));
        for (std::size_t i = 0; i < perDocument && !testing::Test::HasFailure(); ++i) {
            if (random.oneIn(8))
                both.serve(anyRequest(random, both.shortWay().document()));
            else if (random.oneIn(4))
                both.serve(random.oneOf(
                    std::vector{backspace, backspace, forwardDelete, left, left, right, undo}));
            else
                both.type(anyKey(random));
        }
        both.expectSameLength();
        typed += both.typed();
        erased += both.erased();
    }
    EXPECT_GT(typed, static_cast<int>(total / 10));
    EXPECT_GT(erased, static_cast<int>(total / 200));
}

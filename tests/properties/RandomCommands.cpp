#include "properties/RandomCommands.h"

#include "Session.h"
#include "support/WellFormed.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <string>

#include <unistd.h>

using Core::String;

// The commands

namespace {

using Document = EditableDocumentBuffer;

bool coin(Random& random) {
    return random.oneIn(2);
}

/// Mostly near the caret or at the edge of a tag, sometimes anywhere, seldom nowhere.
int anyPosition(Random& random, const Document& document) {
    static constexpr std::array strange{-1, -2, 0, 1 << 30};
    const String content = document.getContent();
    const int length = content.length();
    const auto anywhere = [&] { return static_cast<int>(random.below(content.view().size() + 1)); };
    switch (random.below(16)) {
    case 0:
        return random.oneOf(strange);
    case 1:
    case 2:
    case 3:
        return anywhere();
    case 4:
    case 5:
    case 6:
        return content.find(L'>', anywhere()) + 1;
    case 7:
    case 8:
        return content.find(L'<', anywhere());
    default:
        return std::clamp(document.getCaretPos() + static_cast<int>(random.below(25)) - 12, -1,
                          length);
    }
}

const char* anyPlainText(Random& random) {
    static constexpr std::array texts{"a",
                                      "b",
                                      "word",
                                      ". ",
                                      ", and",
                                      "<",
                                      "&",
                                      "a<b>&\"c'",
                                      "\n",
                                      "\r\n",
                                      "\t",
                                      "two  words",
                                      " x",
                                      "x ",
                                      "ü",
                                      "漢",
                                      ";",
                                      "&#x00A0;",
                                      "]]",
                                      ">",
                                      "-->",
                                      "\u00A0",
                                      "\u00A0\u00A0",
                                      "\xF0\x9F\x98\x80",
                                      "",
                                      "  ",
                                      "1)"};
    return random.oneOf(texts);
}

const char* anyMarkup(Random& random) {
    static constexpr std::array texts{
        "<fo:inline>x</fo:inline>", "<fo:inline fo:color=\"red\">a b</fo:inline>", "<fo:block/>",
        "<fo:block>x</fo:block>", "<fo:block>&#x00A0;</fo:block>", "</fo:block><fo:block>",
        "</fo:inline><fo:inline>", "</fo:block></fo:flow><fo:flow><fo:block>", "&#x00A0;", "&amp;",
        " ", "\n", "x", "<!-- note -->", "<![CDATA[a<b]]>", "<?target data?>", "<qf:tab/>",
        "<fo:basic-link>l</fo:basic-link>",
        "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>c</fo:block>"
        "</fo:table-cell></fo:table-row></fo:table-body></fo:table>",
        "<fo:external-graphic src=\"a>b.png\"/>",
        // What must be refused, as a rule
        "<a", "<a></b>", "</fo:block>", "<fo:block>", "&", "&nbsp;", "a & b", "]]>", "]]", ">", "<",
        "<x a=\"1\" a=\"2\"/>", "<x a=1/>", "<!-- a -- b -->", "<!-->", "-->", "<![CDATA[",
        "<?xml?>", "</fo:block><!-- ", "\"", "<1/>", "</part><part>", "<!DOCTYPE a>"};
    return random.oneOf(texts);
}

const char* anyPath(Random& random) {
    static constexpr std::array paths{"/qfd:document",
                                      "/qfd:document/fo:page-sequence/fo:flow",
                                      "/qfd:document/fo:page-sequence/fo:flow/fo:block",
                                      "/fo:root/fo:page-sequence/fo:flow/fo:block",
                                      "/nothing",
                                      ""};
    return random.oneOf(paths);
}

Json anyProperties(Random& random) {
    static const std::array<Json, 7> properties{
        Json::parse(R"([["fo:color","red"]])"),
        Json::parse(R"([["font-weight","bold"]])"),
        Json::parse(R"([["fo:src","a\"<&b"]])"),
        Json::parse(R"([["qf:kind","k"],["fo:id","x"]])"),
        Json::parse(R"([["text-align","end"],["xsl:a","1"]])"),
        Json::parse(R"([["a b","1"]])"),
        Json::array()};
    return random.oneOf(properties);
}

/// The path of an element around the caret, down from the page sequence.
std::string anyPathAround(Random& random, const Document& document) {
    static constexpr std::array names{"fo:block", "fo:block-container", "fo:table", "fo:inline",
                                      "qfd:block-repeat"};
    const std::string path = "/qfd:document/fo:page-sequence/fo:flow";
    if (random.oneIn(8))
        return anyPath(random);
    const std::string outer = path + "/" + random.oneOf(names);
    return document.getCrtObjectContent(String(outer.c_str())).empty() || coin(random)
               ? outer + "/" + random.oneOf(names)
               : outer;
}

const char* anyContainer(Random& random) {
    static constexpr std::array names{"", "", "fo:block", "fo:flow", "fo:table-cell"};
    return random.oneOf(names);
}

const char* anyObjectCommand(Random& random) {
    static constexpr std::array names{
        "deleteFloatingRegion", "deleteRepeatingSection", "deleteCurrentConditionalBlock",
        "deleteCurrentConditionalInline", "inlineRepeat.deleteInlineRepeat"};
    return random.oneOf(names);
}

const char* anyStoredText(Random& random) {
    static constexpr std::array texts{
        "a\rb",           "a\r\r\n", "one  two   three", "\r", "xml:<fo:inline>x</fo:inline>",
        " xml:<fo:block>"};
    return random.oneOf(texts);
}

Json move(const char* name, Random& random) {
    return {name, random.oneIn(3), random.oneIn(8), coin(random)};
}

constexpr std::array commandKinds{
    // Typing
    CommandKind{24,
                [](Random& r, const Document&) -> Json {
                    return {"insertText", anyPlainText(r), false, r.oneIn(12)};
                }},
    CommandKind{14,
                [](Random&, const Document&) -> Json {
                    return {"insertText", " ", false, false};
                }},
    CommandKind{10,
                [](Random& r, const Document&) -> Json {
                    return {"insertText", anyMarkup(r), true, r.oneIn(8)};
                }},
    CommandKind{5,
                [](Random& r, const Document&) -> Json {
                    const bool isXml = r.oneIn(3);
                    return {"insertText", isXml ? anyMarkup(r) : anyPlainText(r), anyProperties(r),
                            isXml, r.oneIn(4)};
                }},
    CommandKind{5,
                [](Random& r, const Document& d) -> Json {
                    const bool isXml = r.oneIn(3);
                    return {"insertTextAtPosition", anyPosition(r, d),
                            isXml ? anyMarkup(r) : anyPlainText(r), isXml, r.oneIn(4)};
                }},
    CommandKind{2, [](Random&, const Document&) -> Json { return {"insertTab"}; }},
    CommandKind{3,
                [](Random& r, const Document& d) -> Json {
                    const int start = anyPosition(r, d);
                    return {"replaceXmlText", start, start % 100000 + static_cast<int>(r.below(20)),
                            anyMarkup(r)};
                }},
    CommandKind{1, [](Random&, const Document&) -> Json { return {"endKeyTypingSequence"}; }},

    // Deleting
    CommandKind{6,
                [](Random& r, const Document& d) -> Json {
                    const int from = anyPosition(r, d);
                    const int to = r.oneIn(3) ? anyPosition(r, d)
                                              : from % 100000 + static_cast<int>(r.below(60));
                    return {"deleteContentAtPosition", coin(r), from, to};
                }},

    CommandKind{20,
                [](Random& r, const Document&) -> Json {
                    return {"erase", coin(r), r.oneIn(6)};
                }},

    // Formatting
    CommandKind{10,
                [](Random& r, const Document&) -> Json {
                    return {"setProperties", anyProperties(r), anyPath(r)};
                }},
    CommandKind{2,
                [](Random& r, const Document&) -> Json {
                    return {"removeProperties", anyPath(r)};
                }},

    // Breaks
    CommandKind{8,
                [](Random& r, const Document&) -> Json {
                    return {"insertBreak", r.oneIn(2) ? 5 : static_cast<int>(r.below(7)), coin(r)};
                }},

    // Moving
    CommandKind{12, [](Random& r, const Document&) { return move("moveCaretLeft", r); }},
    CommandKind{12, [](Random& r, const Document&) { return move("moveCaretRight", r); }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"moveCaretHome", coin(r)};
                }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"moveCaretToEnd", coin(r)};
                }},
    CommandKind{12,
                [](Random& r, const Document& d) -> Json {
                    return {"setCaretPos", r.oneIn(3), anyPosition(r, d)};
                }},
    CommandKind{1, [](Random&, const Document&) -> Json { return {"moveCaretToFirstFoFlow"}; }},
    CommandKind{1,
                [](Random&, const Document&) -> Json { return {"moveCaretToFirstStaticRegion"}; }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"moveCaretToPageSequence", static_cast<int>(r.below(3)) - 1};
                }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"moveCaretToReference", static_cast<int>(r.below(2)),
                            static_cast<int>(r.below(300))};
                }},

    // Searching
    CommandKind{10,
                [](Random& r, const Document&) -> Json {
                    static constexpr std::array texts{"e",   "an", " ", "&amp;", "amp", "&#x00A0;",
                                                      "0A0", "x",  ">", "<fo",   "\n",  ""};
                    return {"findReplace", r.oneOf(texts), anyPlainText(r),
                            coin(r),       r.oneIn(4),     static_cast<int>(r.below(8)) % 3,
                            coin(r)};
                }},
    CommandKind{2, [](Random&, const Document&) -> Json { return {"resetfindReplaceStartPos"}; }},
    CommandKind{1,
                [](Random&, const Document&) -> Json {
                    return {"setSpellingDictionaries", "en_US"};
                }},

    // Selecting
    CommandKind{2, [](Random&, const Document&) -> Json { return {"selectCurrentElement"}; }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"selectElement", anyPath(r)};
                }},
    CommandKind{
        1,
        [](Random&, const Document&) -> Json { return {"selectElementStartingAtCaretPosition"}; }},
    CommandKind{4, [](Random&, const Document&) -> Json { return {"selectParent"}; }},
    CommandKind{1, [](Random&, const Document&) -> Json { return {"resetSelection"}; }},
    CommandKind{1, [](Random&, const Document&) -> Json { return {"resetSelectionOfElement"}; }},

    // The history
    CommandKind{8, [](Random&, const Document&) -> Json { return {"undo"}; }},
    CommandKind{6, [](Random&, const Document&) -> Json { return {"redo"}; }},

    // The document
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"saveInitialPosition", coin(r)};
                }},
    CommandKind{1, [](Random&, const Document&) -> Json { return {"loadInitialPosition"}; }},
    CommandKind{1,
                [](Random&, const Document&) -> Json {
                    return {"updateRootNamespaces", "xmlns:a=\"urn:a\""};
                }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {coin(r) ? "insertStyleSheet" : "insertDocumentInformation",
                            r.oneIn(3) ? anyMarkup(r) : "<qf:stylesheet href=\"a\"/>"};
                }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"setStyleSheetProperties", anyProperties(r)};
                }},
    CommandKind{1, [](Random&, const Document&) -> Json { return {"removeStyleSheet"}; }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"setPDFCompliance", coin(r) ? "PDF508" : "x"};
                }},
    CommandKind{1, [](Random&, const Document&) -> Json { return {"enableDisableVdp"}; }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"setIdForCurrentPos", anyPlainText(r)};
                }},

    // Objects
    CommandKind{5,
                [](Random& r, const Document& d) -> Json {
                    return {"deleteObject", anyPathAround(r, d), anyContainer(r), coin(r)};
                }},
    CommandKind{2, [](Random& r, const Document&) -> Json { return {anyObjectCommand(r)}; }},
    CommandKind{2,
                [](Random& r, const Document& d) -> Json {
                    const String content = d.getContent();
                    return {"removeComponent",
                            content.find(L"<qfd:subdocument-content",
                                         static_cast<unsigned>(anyPosition(r, d)))};
                }},
    CommandKind{5,
                [](Random& r, const Document&) -> Json {
                    const std::string text = coin(r) ? anyPlainText(r) : anyStoredText(r);
                    return {"insertAutotext", text, coin(r)};
                }},
};

constexpr std::array listKinds{
    CommandKind{4,
                [](Random& r, const Document&) -> Json {
                    return {"makeList", static_cast<int>(r.below(3))};
                }},
    CommandKind{2,
                [](Random& r, const Document&) -> Json {
                    return {"createList", static_cast<int>(r.below(3))};
                }},
    CommandKind{1,
                [](Random& r, const Document&) -> Json {
                    return {"changeLabelType", static_cast<int>(r.below(3))};
                }},
    CommandKind{1, [](Random&, const Document&) -> Json { return {"removeList"}; }},
    CommandKind{12, [](Random&, const Document&) -> Json { return {"breakList"}; }},
};

/// What people do in lists besides.
constexpr std::array workInListsKinds{
    CommandKind{24,
                [](Random& r, const Document&) -> Json {
                    return {"erase", coin(r), r.oneIn(6)};
                }},
    CommandKind{3, [](Random&, const Document&) -> Json { return {"eraseListSelection"}; }},
    CommandKind{1,
                [](Random& r, const Document& d) -> Json {
                    return {"recalculateNumbering", anyPosition(r, d)};
                }},
    CommandKind{1, [](Random&, const Document&) -> Json { return {"selectListLabel"}; }},
    CommandKind{8,
                [](Random& r, const Document&) -> Json {
                    return {"insertText", r.oneIn(4) ? " " : "word", false, false};
                }},
    CommandKind{6,
                [](Random& r, const Document& d) -> Json {
                    const int from = anyPosition(r, d);
                    return {"deleteContentAtPosition", coin(r), from,
                            from % 100000 + static_cast<int>(r.below(400))};
                }},
    CommandKind{10, [](Random& r, const Document&) { return move("moveCaretLeft", r); }},
    CommandKind{10, [](Random& r, const Document&) { return move("moveCaretRight", r); }},
    CommandKind{20,
                [](Random& r, const Document& d) -> Json {
                    return {"setCaretPos", r.oneIn(3), anyPosition(r, d)};
                }},
    CommandKind{3, [](Random&, const Document&) -> Json { return {"selectParent"}; }},
    CommandKind{8, [](Random&, const Document&) -> Json { return {"undo"}; }},
    CommandKind{6, [](Random&, const Document&) -> Json { return {"redo"}; }},
};

std::string randomCommand(Random& random, const Document& document, const CommandMix& mix) {
    std::size_t total = 0;
    for (const CommandKind& kind : mix.kinds)
        total += kind.weight;
    std::size_t at = random.below(total);
    const CommandKind* kind = mix.kinds.data();
    for (; at >= kind->weight; ++kind)
        at -= kind->weight;
    return kind->make(random, document).dump();
}

} // namespace

CommandMix everyCommand() {
    CommandMix mix{{commandKinds.begin(), commandKinds.end()}, {}};
    mix.kinds.insert(mix.kinds.end(), listKinds.begin(), listKinds.end());
    return mix;
}

CommandMix listCommands() {
    CommandMix mix{{listKinds.begin(), listKinds.end()}, {}};
    mix.kinds.insert(mix.kinds.end(), workInListsKinds.begin(), workInListsKinds.end());
    return mix;
}

// The promises

namespace {

struct State {
    String text;
    int caret = -1;
    int pivot = -1;

    bool operator==(const State&) const = default;

    /// The neighbourhood of the caret, for a message.
    std::string describe() const {
        std::wstring marked(text.view());
        const std::size_t at = static_cast<std::size_t>(std::max(caret, 0));
        marked.insert(std::min(at, marked.size()), L"|");
        const std::size_t from = at < 60 ? 0 : at - 60;
        return std::to_string(caret) + "," + std::to_string(pivot) + " " +
               Core::Encoder::toDisplayText(String(marked.substr(from, 120)));
    }
};

int sectionsIn(const String& text) {
    int count = 0;
    for (int at = text.find(L'<', 0); at >= 0; at = text.find(L'<', at + 1))
        count += XmlScan::ignoredAt(text.view(), at) ? 1 : 0;
    return count;
}

bool isReplay(const std::string& command) {
    return command == R"(["undo"])" || command == R"(["redo"])";
}

/// Carries out commands one by one and says which promise each has broken.
class Checker {
public:
    Checker(const std::string& path, const CommandMix& mix) : mix_(mix) {
        session_.open(Core::Encoder::convertUTF8ToString(path));
        first_ = state();
    }

    const Document& document() { return session_.document(); }

    std::string carryOut(const std::string& command, bool parse) {
        const State before = state();
        const bool couldUndo = document().canUndo();
        const Json reply = session_.serveLine(command);
        if (reply.contains("error"))
            return reply["error"].get<std::string>();
        if (!couldUndo && document().canUndo() && !isReplay(command)) {
            first_ = before;
            firstChangedText_ = document().getContent() != before.text;
        }
        if (command.starts_with(R"(["erase")") &&
            sectionsIn(document().getContent()) < sectionsIn(before.text))
            lostSection_ = true;
        std::string broken = brokenNotices(reply);
        if (broken.empty())
            broken = brokenCaret();
        if (broken.empty() && parse)
            broken = xmlError(document().getContent());
        if (broken.empty() && mix_.broken)
            broken = mix_.broken(document().getContent());
        return broken.empty() ? brokenReplay(command, before) : broken;
    }

    /// What undoing and redoing everything does not bring back.
    std::string brokenHistory() {
        replayAll(R"(["redo"])");
        const String last = document().getContent();
        const bool anything = document().canUndo();
        replayAll(R"(["undo"])");
        if (anything && !isAsAtFirst())
            return "undoing everything gives " + state().describe() + " and not " +
                   first_.describe();
        if (const std::string error = xmlError(document().getContent()); !error.empty())
            return "undoing everything gives " + error;
        replayAll(R"(["redo"])");
        return document().getContent() == last ? "" : "redoing everything gives another text";
    }

private:
    /// Comments and sections that Backspace met are gone for good. The caret comes back with a
    /// change of the text, if there was one.
    bool isAsAtFirst() {
        const bool comparesCaret = firstChangedText_ && first_.caret >= 0;
        return lostSection_ || (comparesCaret ? state() == first_ : state().text == first_.text);
    }

    State state() {
        return {document().getContent(), document().getCaretPos(),
                document().getSelectionPivotPos()};
    }

    static std::string brokenNotices(const Json& reply) {
        const auto notices = reply["notices"].get<std::vector<std::string>>();
        const std::set<std::string> kinds(notices.begin(), notices.end());
        return kinds.size() == notices.size() ? "" : "a notice twice: " + reply["notices"].dump();
    }

    std::string brokenCaret() {
        const State now = state();
        const XmlScan::Text text = now.text.view();
        for (const int position : {now.caret, now.pivot})
            if (position != -1 && (!XmlScan::isValid(text, position) ||
                                   XmlScan::unitStart(text, position) != position))
                return "caret or pivot inside markup: " + now.describe();
        return {};
    }

    /// A command that is undone and redone at once comes back whole, with caret and selection.
    std::string brokenReplay(const std::string& command, const State& before) {
        if (!isReplay(command)) {
            changed_.reset();
            undone_ = false;
            if (document().getContent() != before.text)
                changed_ = state();
        } else if (command == R"(["undo"])") {
            if (undone_)
                changed_.reset();
            undone_ = true;
        } else if (undone_ && changed_) {
            undone_ = false;
            // A replay that would leave no caret sends it home.
            if (changed_->caret < 0 ? state().text != changed_->text : state() != *changed_)
                return "redone it is " + state().describe() + " and not " + changed_->describe();
        }
        return {};
    }

    void replayAll(const std::string& command) {
        const auto more = [&] {
            return command == R"(["undo"])" ? document().canUndo() : document().canRedo();
        };
        while (more())
            session_.serveLine(command);
    }

    const CommandMix& mix_;
    Session session_;
    bool firstChangedText_ = false;
    State first_;                  // before the first change that can be undone
    std::optional<State> changed_; // what the last command left, if that changed the text
    bool undone_ = false;          // and was undone then
    bool lostSection_ = false;
};

} // namespace

std::string CommandStream::script() const {
    std::string lines = "forme run " + document + " SCRIPT, with these lines:\n";
    for (const std::string& command : commands)
        lines += command + "\n";
    return lines;
}

CommandStream randomCommands(const std::string& document, Random& random, std::size_t count,
                             const CommandMix& mix) {
    CommandStream stream{document, {}};
    Checker checker(document, mix);
    while (stream.commands.size() < count) {
        stream.commands.push_back(randomCommand(random, checker.document(), mix));
        if (!checker.carryOut(stream.commands.back(), false).empty())
            break;
    }
    return stream;
}

std::string brokenPromise(const CommandStream& stream, std::size_t parseEvery,
                          const CommandMix& mix) {
    Checker checker(stream.document, mix);
    std::size_t done = 0;
    for (const std::string& command : stream.commands) {
        const bool parse = ++done % parseEvery == 0 || done == stream.commands.size();
        if (const std::string broken = checker.carryOut(command, parse); !broken.empty())
            return "command " + std::to_string(done) + " " + command + ": " + broken;
    }
    return checker.brokenHistory();
}

CommandStream shrink(CommandStream stream, const std::function<bool(const CommandStream&)>& fails) {
    for (std::size_t piece = (stream.commands.size() + 1) / 2; piece > 0;) {
        bool shrunk = false;
        for (std::size_t at = 0; at < stream.commands.size();) {
            CommandStream smaller = stream;
            const auto from = smaller.commands.begin() + static_cast<std::ptrdiff_t>(at);
            const std::size_t rest = smaller.commands.size() - at;
            smaller.commands.erase(from, from + static_cast<std::ptrdiff_t>(std::min(piece, rest)));
            if (fails(smaller)) {
                stream = smaller;
                shrunk = true;
            } else {
                at += piece;
            }
        }
        if (piece > 1 || !shrunk)
            piece /= 2;
    }
    return stream;
}

std::size_t setting(const char* name, std::size_t usual) {
    const char* const value = std::getenv(name);
    return value ? std::strtoul(value, nullptr, 10) : usual;
}

std::string failureOn(const std::string& document, Random& random, std::size_t count,
                      const CommandMix& mix) {
    const std::size_t parseEvery = 1 + std::filesystem::file_size(document) / 10000;
    const CommandStream stream = randomCommands(document, random, count, mix);
    if (brokenPromise(stream, parseEvery, mix).empty())
        return {};
    const CommandStream small = shrink(
        stream, [&](const CommandStream& some) { return !brokenPromise(some, 1, mix).empty(); });
    return brokenPromise(small, 1, mix) + "\n" + small.script();
}

std::string failureOnNew(const std::string& text, const std::string& name, Random& random,
                         std::size_t count, const CommandMix& mix) {
    // Several runs of the tests may go on at once.
    const std::string path = std::filesystem::temp_directory_path() /
                             ("forme-" + name + "-" + std::to_string(getpid()) + ".xml");
    std::ofstream(path) << text;
    const std::string failure = failureOn(path, random, count, mix);
    if (failure.empty())
        std::filesystem::remove(path);
    return failure;
}

// The documents

namespace {

class Writer {
public:
    Writer(Random& random, std::size_t listEvery) : random_(random), listEvery_(listEvery) {}

    std::string document() {
        std::string text = R"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format" xmlns:qf="urn:forme:qf/1.0">
<fo:layout-master-set><fo:simple-page-master master-name="page"><fo:region-body/><fo:region-before/></fo:simple-page-master></fo:layout-master-set>
)";
        for (std::size_t i = 0; i <= random_.below(2); ++i)
            text += pageSequence();
        return text + "</qfd:document>" + (coin(random_) ? "\n" : "");
    }

private:
    std::string pageSequence() {
        std::string text = "<fo:page-sequence master-reference=\"page\">";
        if (coin(random_))
            text += "<fo:static-content flow-name=\"xsl-region-before\">" + block(1) +
                    "</fo:static-content>";
        return text + "<fo:flow flow-name=\"xsl-region-body\">" + blocks(2) +
               "</fo:flow></fo:page-sequence>\n";
    }

    std::string blocks(int depth) {
        std::string text;
        for (std::size_t i = 0; i <= random_.below(4); ++i)
            text += indentation() + block(depth);
        return text + indentation();
    }

    std::string block(int depth) {
        if (depth > 0 && random_.oneIn(6))
            return table(depth - 1);
        if (depth > 0 && random_.oneIn(listEvery_))
            return list(depth - 1);
        if (depth > 0 && random_.oneIn(8))
            return "<fo:block>" + blocks(depth - 1) + "</fo:block>";
        if (depth > 0 && random_.oneIn(8))
            return object(depth - 1);
        return "<fo:block>" + content(2) + "</fo:block>";
    }

    std::string content(int depth) {
        static constexpr std::array pieces{
            "a",           "word ",  " two  words",       "&#x00A0;",
            "&lt;",        "\n  ",   "<qf:tab/>",         " ",
            "<fo:block/>", "; ",     "<!-- n -->",        "\xC2\xA0",
            "<?pi x?>",    "&amp; ", "<![CDATA[x < y]]>", "\xF0\x9F\x98\x80"};
        if (random_.oneIn(5))
            return "&#x00A0;";
        std::string text;
        for (std::size_t i = 0; i <= random_.below(4); ++i)
            text +=
                depth > 0 && random_.oneIn(3) ? inlineElement(depth - 1) : random_.oneOf(pieces);
        return text;
    }

    std::string inlineElement(int depth) {
        static constexpr std::array names{"fo:inline", "fo:basic-link", "fo:wrapper"};
        const std::string name = random_.oneOf(names);
        return "<" + name + (coin(random_) ? " color=\"red\">" : ">") + content(depth) + "</" +
               name + ">";
    }

    std::string table(int depth) {
        const auto group = [&](const std::string& name) {
            return "<" + name + "><fo:table-row>" + cell(depth) + cell(depth) +
                   "</fo:table-row></" + name + ">";
        };
        return "<fo:table>" + (coin(random_) ? group("fo:table-header") : "") +
               (coin(random_) ? group("fo:table-footer") : "") + group("fo:table-body") +
               "</fo:table>";
    }

    std::string object(int depth) {
        static constexpr std::array names{"fo:block-container", "qfd:block-repeat",
                                          "qfd:conditional-block"};
        if (random_.oneIn(4))
            return "<fo:block><qfd:subdocument-content src=\"url(a)\"/></fo:block>";
        const std::string name = random_.oneOf(names);
        return "<" + name + ">" + blocks(depth) + "</" + name + ">";
    }

    std::string cell(int depth) { return "<fo:table-cell>" + block(depth) + "</fo:table-cell>"; }

    std::string list(int depth) {
        const bool isNumbered = !random_.oneIn(3);
        std::string text = "<fo:list-block>";
        for (std::size_t i = 0; i <= random_.below(4); ++i)
            text += indentation() + "<fo:list-item><fo:list-item-label><fo:block>" +
                    (isNumbered ? std::to_string(i + 1) + ")" : "&#x2022;") +
                    "</fo:block></fo:list-item-label><fo:list-item-body>" + block(depth) +
                    (random_.oneIn(3) ? block(depth) : "") + "</fo:list-item-body></fo:list-item>";
        return text + "</fo:list-block>";
    }

    std::string indentation() { return random_.oneIn(4) ? "\n\t" : ""; }

    Random& random_;
    std::size_t listEvery_;
};

} // namespace

std::string randomDocument(Random& random, std::size_t listEvery) {
    return Writer(random, listEvery).document();
}

#include "properties/RandomCommands.h"

#include "document/Document.h"
#include "support/ShortMarkup.h"
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

/// How often each of some requests comes. What begins with "$" is filled in anew each time.
const char* const commandTable = R"json([
    // Typing
    [24, ["insertText", "$text", false, "$1 in 12"]],
    [14, ["insertText", " ", false, false]],
    [10, ["insertText", "$markup", true, "$1 in 8"]],
    [3, ["insertText", "$text", "$properties", false, "$1 in 4"]],
    [2, ["insertText", "$markup", "$properties", true, "$1 in 4"]],
    [3, ["insertTextAtPosition", "$position", "$text", false, "$1 in 4"]],
    [2, ["insertTextAtPosition", "$position", "$markup", true, "$1 in 4"], ["insertTab"]],
    [3, ["replaceXmlText", "$position", "$behind 20", "$markup"]],
    [1, ["endKeyTypingSequence"]],
    [5, ["pasteMarkup", "$blocks"], ["pasteMarkup", "$markup"], ["pasteText", "$text"]],
    // Deleting
    [2, ["deleteContentAtPosition", "$1 in 2", "$position", "$position"]],
    [4, ["deleteContentAtPosition", "$1 in 2", "$position", "$behind 60"]],
    [20, ["erase", "$1 in 2", "$1 in 6"]],
    [1, ["deleteParent", "$name"]],
    // Formatting
    [10, ["setProperties", "$properties", "$path"]],
    [2, ["removeProperties", "$path"], ["setProperty", "$property", "$path"],
        ["setParentProperty", "$name", "fo:color", "$text"],
        ["applyStyleOnElement", "$style", "$name"]],
    // Breaks
    [4, ["insertBreak", 5, "$1 in 2"], ["insertBreak", "$below 7", "$1 in 2"]],
    // Moving
    [12, ["moveCaretLeft", "$1 in 3", "$1 in 8", "$1 in 2"],
        ["moveCaretRight", "$1 in 3", "$1 in 8", "$1 in 2"]],
    [1, ["moveCaretHome", "$1 in 2"], ["moveCaretToEnd", "$1 in 2"]],
    [12, ["setCaretPos", "$1 in 3", "$position"]],
    [1, ["moveCaretToFirstFoFlow"], ["moveCaretToFirstStaticRegion"],
        ["moveCaretToStaticRegion", "xsl-region-before", "$index"],
        ["resetCaretFromStaticContent"], ["jumpToNextWord", "$1 in 2"],
        ["jumpToPreviousWord", "$1 in 2"], ["moveCaretToPageSequence", "$index"],
        ["moveCaretToReference", "$below 2", "$below 300"]],
    // Searching
    [10, ["findReplace", "$sought", "$text", "$1 in 2", "$1 in 4", "$below 3", "$1 in 2"]],
    [2, ["resetfindReplaceStartPos"]],
    [1, ["setSpellingDictionaries", "en_US"]],
    // Selecting
    [2, ["selectCurrentElement"]],
    [1, ["selectElement", "$path"], ["selectElementStartingAtCaretPosition"]],
    [4, ["selectParent"]],
    [1, ["resetSelection"], ["resetSelectionOfElement"]],
    // The history
    [8, ["undo"]],
    [6, ["redo"]],
    // The document
    [1, ["saveInitialPosition", "$1 in 2"], ["loadInitialPosition"],
        ["updateRootNamespaces", "xmlns:a=\"urn:a\""],
        ["insertStyleSheet", "<qf:stylesheet href=\"a\"/>"],
        ["insertDocumentInformation", "$markup"], ["setStyleSheetProperties", "$properties"],
        ["removeStyleSheet"], ["setDocumentInformationProperties", "$properties"],
        ["removeDocumentInformation"], ["setPDFCompliance", "$compliance"], ["enableDisableVdp"],
        ["setIdForCurrentPos", "$text"]],
    // Objects
    [5, ["deleteObject", "$path around", "$container", "$1 in 2"]],
    [3, ["$object command"]],
    [2, ["removeComponent", "$component"]],
    [3, ["insertAutotext", "$text", "$1 in 2"]],
    [2, ["insertAutotext", "$stored text", "$1 in 2"]],
    // Lists
    [1, ["setItemLabelValue", "$position", "$text"]],
    [4, ["makeList", "$below 3"]],
    [2, ["createList", "$below 3"]],
    [1, ["changeLabelType", "$below 3"], ["removeList"]],
    [11, ["breakList"]],
    [1, ["insertListBreak"]],
    [2, ["eraseTextFromListBuffer", "$1 in 2", "$1 in 6"]]
])json";

/// What is filled in by chance alone, in short markup.
const char* const choiceTable = R"json({
"$text": [
    "a", "b", "word", ". ", ", and", "<", "&", "a<b>&\"c'", "\n", "\r\n", "\t", "two  words", " x",
    "x ", "ü", "漢", ";", "&#x00A0;", "]]", ">", "-->", "\u00A0", "\u00A0\u00A0", "😀", "", "  ", "1)"],
"$markup": [
    "<I>x</I>", "<I fo:color=\"red\">a b</I>", "<B/>", "<B>x</B>", "<B>_</B>", "</B><B>", "</I><I>",
    "</B></fo:flow><fo:flow><B>", "_", "&amp;", " ", "\n", "x", "<!-- note -->", "<![CDATA[a<b]]>",
    "<?target data?>", "<qf:tab/>", "<L>l</L>", "<fo:external-graphic src=\"a>b.png\"/>",
    "<T><D><R><C><B>c</B></C></R></D></T>",
    // What must be refused, as a rule
    "<a", "<a></b>", "</B>", "<B>", "&", "&nbsp;", "a & b", "]]>", "]]", ">", "<",
    "<x a=\"1\" a=\"2\"/>", "<x a=1/>", "<!-- a -- b -->", "<!-->", "-->", "<![CDATA[", "<?xml?>",
    "</B><!-- ", "\"", "<1/>", "</part><part>", "<!DOCTYPE a>"],
"$blocks": [
    "<B>x</B><B fo:color=\"red\">y <I>z</I></B>", "<B>_</B>\n<B></B><B>x<B/>y</B>", "x<B>y</B>z",
    "<T><D><R><C><B>c</B></C></R></D></T>", "<B>x</B><T><D><R><C><B>c</B></C></R></D></T><B>y</B>",
    "<B><fo:list-block><fo:list-item><fo:list-item-label><B>1)</B></fo:list-item-label><fo:list-item-body><B>i</B></fo:list-item-body></fo:list-item></fo:list-block></B>"],
"$stored text": [
    "a\rb", "a\r\r\n", "one  two   three", "\r", "xml:<I>x</I>", " xml:<B>"],
"$sought": ["e", "an", " ", "&amp;", "amp", "&#x00A0;", "0A0", "x", ">", "<fo", "\n", ""],
"$properties": [
    [["fo:color", "red"]], [["font-weight", "bold"]], [["fo:src", "a\"<&b"]], [["a b", "1"]], [],
    [["qf:kind", "k"], ["fo:id", "x"]], [["text-align", "end"], ["xsl:a", "1"]]],
"$property": [["fo:color", "red"], ["font-weight", "bold"], ["fo:src", "a\"<&b"], ["qf:kind", ""]],
"$style": ["", "title", "a\"<&b"],
"$path": [
    "/qfd:document", "/qfd:document/fo:page-sequence/fo:flow", "/nothing", "",
    "/qfd:document/fo:page-sequence/fo:flow/fo:block",
    "/fo:root/fo:page-sequence/fo:flow/fo:block"],
"$name": ["fo:block", "fo:block-container", "fo:table", "fo:inline", "qfd:block-repeat"],
"$container": ["", "", "fo:block", "fo:flow", "fo:table-cell"],
"$object command": [
    "deleteFloatingRegion", "deleteRepeatingSection", "deleteCurrentConditionalBlock",
    "deleteCurrentConditionalInline", "inlineRepeat.deleteInlineRepeat",
    "deleteConditionalBlockSequence", "deleteConditionalInlineSequence"],
"$compliance": ["PDF508", "x"],
"$index": [-1, 0, 1],
"$strange position": [-1, -2, 0, 1073741824]
})json";

Json parseTable(const std::string& table) {
    return Json::parse(table, nullptr, true, true);
}

int numberIn(const std::string& hole) {
    return std::stoi(hole.substr(hole.rfind(' ')));
}

const Json& choices() {
    static const Json all = parseTable(writtenOut<char>(choiceTable));
    return all;
}

/// Fills in what the table of commands leaves open.
class CommandFiller : public Filler {
public:
    CommandFiller(Random& random, const EditableDocumentBuffer& document)
        : Filler(random, choices()), document_(document) {}

private:
    Json valueOf(const std::string& hole) override {
        if (hole.starts_with("$behind "))
            return position_ % 100000 + below(static_cast<std::size_t>(numberIn(hole)));
        if (hole == "$position")
            return position_ = anyPosition();
        if (hole == "$path around")
            return anyPathAround();
        if (hole == "$component")
            return anyComponent();
        return Filler::valueOf(hole);
    }

    /// Mostly near the caret or at the edge of a tag, sometimes anywhere, seldom nowhere.
    int anyPosition() {
        const String content = document_.getContent();
        const int anywhere = below(content.view().size() + 1);
        const std::size_t kind = random_.below(16);
        if (kind == 0)
            return Filler::valueOf("$strange position");
        if (kind < 4)
            return anywhere;
        if (kind < 7)
            return content.find(L'>', anywhere) + 1;
        if (kind < 9)
            return content.find(L'<', anywhere);
        return std::clamp(document_.getCaretPos() + below(25) - 12, -1, content.length());
    }

    /// The path of an element around the caret, down from the page sequence.
    std::string anyPathAround() {
        if (random_.oneIn(8))
            return Filler::valueOf("$path");
        const auto anyStep = [&] { return "/" + Filler::valueOf("$name").get<std::string>(); };
        const std::string outer = "/qfd:document/fo:page-sequence/fo:flow" + anyStep();
        const bool isAround = !document_.getCrtObjectContent(String(outer.c_str())).empty();
        return isAround && random_.oneIn(2) ? outer : outer + anyStep();
    }

    int anyComponent() {
        return document_.getContent().find(L"<qfd:subdocument-content",
                                           static_cast<unsigned>(anyPosition()));
    }

    const EditableDocumentBuffer& document_;
    int position_ = 0; // the last that was filled in
};

} // namespace

Json Filler::fill(const Json& request) {
    if (request.is_string() && request.get_ref<const std::string&>().starts_with('$'))
        return valueOf(request.get<std::string>());
    Json filled = request;
    if (request.is_array())
        for (Json& part : filled)
            part = fill(part);
    return filled;
}

Json Filler::valueOf(const std::string& hole) {
    if (hole.starts_with("$1 in "))
        return random_.oneIn(static_cast<std::size_t>(numberIn(hole)));
    if (hole.starts_with("$below "))
        return below(static_cast<std::size_t>(numberIn(hole)));
    return random_.oneOf(choices_.at(hole));
}

std::string randomCommand(Random& random, const EditableDocumentBuffer& document,
                          const CommandMix& mix) {
    return CommandFiller(random, document).fill(random.oneByWeight(mix.kinds).request).dump();
}

CommandMix everyCommand() {
    CommandMix mix;
    for (const Json& kind : parseTable(commandTable))
        for (std::size_t request = 1; request < kind.size(); ++request)
            mix.kinds.push_back({kind[0], kind[request]});
    return mix;
}

// The promises

namespace {

/// The neighbourhood of the caret, for a message.
std::string describe(const EditorState& state) {
    std::wstring marked(state.text.view());
    const std::size_t at = static_cast<std::size_t>(std::max(state.caret, 0));
    marked.insert(std::min(at, marked.size()), L"|");
    const std::size_t from = at < 60 ? 0 : at - 60;
    return std::to_string(state.caret) + "," + std::to_string(state.pivot) + " " +
           Core::Encoder::toDisplayText(String(marked.substr(from, 120)));
}

int sectionsIn(const String& text) {
    int count = 0;
    for (int at = text.find(L'<', 0); at >= 0; at = text.find(L'<', at + 1))
        count += XmlScan::ignoredAt(text.view(), at) ? 1 : 0;
    return count;
}

/// All of a text but its markup, white space and placeholders.
std::wstring lettersOf(const XmlText& text) {
    std::wstring letters;
    for (int at = 0, next = 0; (next = text.next(at)) >= 0; at = next)
        if (!text.onTagStart(at) && !String::isSpace(text.unitAt(at)) &&
            text.placeholderLength(at) <= 0)
            letters += text.view(at, next);
    return letters;
}

/// Neither formatting nor a break of a line or a paragraph changes what is written. One of a list
/// numbers its items anew.
bool keepsLetters(const std::string& command, const EditorState& before) {
    static const std::set<std::string> formatting{"setProperties", "removeProperties",
                                                  "setProperty", "setParentProperty",
                                                  "applyStyleOnElement"};
    const Json request = Json::parse(command);
    const std::string name = request[0];
    return formatting.contains(name) ||
           (name == "insertBreak" && before.caret == before.pivot &&
            (request[1] == BreakType::Soft || request[1] == BreakType::Hard));
}

bool isReplay(const std::string& command) {
    return command == R"(["undo"])" || command == R"(["redo"])";
}

bool isErasure(const std::string& command) {
    return command.starts_with(R"(["erase")") ||
           command.starts_with(R"(["eraseTextFromListBuffer")");
}

} // namespace

WatchedSession::WatchedSession(const std::string& path) {
    session_.open(Core::Encoder::convertUTF8ToString(path));
    first_ = state();
    followers_.assign(3, TextFollower(document()));
}

std::string WatchedSession::carryOut(const std::string& command) {
    const EditorState before = state();
    const bool couldUndo = document().canUndo();
    const Json reply = session_.serveLine(command);
    if (reply.contains("error"))
        return reply["error"].get<std::string>();
    const EditorState now = state();
    if (!couldUndo && document().canUndo() && !isReplay(command)) {
        first_ = before;
        firstChangedText_ = now.text != before.text;
    }
    if (isErasure(command) && sectionsIn(now.text) < sectionsIn(before.text))
        lostSection_ = true;
    const auto notices = reply["notices"].get<std::vector<std::string>>();
    const std::set<std::string> kinds(notices.begin(), notices.end());
    if (kinds.size() != notices.size())
        return "a notice twice: " + reply["notices"].dump();
    if (((now.text != before.text || reply.contains("change")) && !kinds.contains("buffer")) ||
        (now.caret != before.caret && !kinds.contains("caret")))
        return "a change without its notice: " + reply["notices"].dump();
    ++carriedOut_;
    return brokenFollowing();
}

/// Of those who follow the text one looks after each command, the others after some.
std::string WatchedSession::brokenFollowing() {
    std::size_t pause = 1;
    for (TextFollower& follower : followers_) {
        if (carriedOut_ % pause == 0 && !follower.keepsUpWith(document()))
            return "who follows the text has another, looking after commands: " +
                   std::to_string(pause);
        pause *= 5;
    }
    return {};
}

std::string WatchedSession::brokenHistory() {
    replayAll(R"(["redo"])");
    const String last = document().getContent();
    const bool anything = document().canUndo();
    replayAll(R"(["undo"])");
    if (anything && !isAsAtFirst())
        return "undoing everything gives " + describe(state()) + " and not " + describe(first_);
    if (const std::string error = xmlError(document().getContent()); !error.empty())
        return "undoing everything gives " + error;
    replayAll(R"(["redo"])");
    carriedOut_ = 0; // all look
    return document().getContent() == last ? brokenFollowing()
                                           : "redoing everything gives another text";
}

/// Comments and sections that Backspace met are gone for good. The caret comes back with a change
/// of the text, if there was one.
bool WatchedSession::isAsAtFirst() {
    const EditorState now = state();
    const bool comparesCaret = firstChangedText_ && first_.caret >= 0;
    return lostSection_ ||
           (now.text == first_.text &&
            (!comparesCaret ||
             (now.caret == first_.caret && (now.pivot == first_.pivot || !undoKeepsSelection()))));
}

void WatchedSession::replayAll(const std::string& command) {
    const auto more = [&] {
        return command == R"(["undo"])" ? document().canUndo() : document().canRedo();
    };
    while (more())
        session_.serveLine(command);
}

namespace {

struct Step {
    std::vector<std::string> requests; // one
};

/// Says which promise each command has broken.
class Checker : public WatchedSession {
public:
    using WatchedSession::WatchedSession;

    std::string carryOut(const Step& step) {
        const std::string& command = step.requests.front();
        const EditorState before = state();
        const bool keeps = keepsLetters(command, before);
        const std::wstring letters = keeps ? lettersOf(text()) : L"";
        std::string broken = WatchedSession::carryOut(command);
        if (broken.empty())
            broken = brokenCaret();
        if (broken.empty() && keeps && lettersOf(text()) != letters)
            broken = "what is written has changed";
        if (broken.empty() && document().getContent() != before.text)
            broken = xmlError(document().getContent());
        return broken.empty() ? brokenReplay(command, before) : broken;
    }

private:
    const XmlText& text() { return Document::of(document()).text(); }

    std::string brokenCaret() {
        const EditorState now = state();
        const XmlScan::Text text = now.text.view();
        for (const int position : {now.caret, now.pivot})
            if (position != -1 && (!XmlScan::isValid(text, position) ||
                                   XmlScan::unitStart(text, position) != position))
                return "caret or pivot inside markup: " + describe(now);
        return {};
    }

    /// A command that is undone and redone at once comes back whole, with caret and selection.
    std::string brokenReplay(const std::string& command, const EditorState& before) {
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
                return "redone it is " + describe(state()) + " and not " + describe(*changed_);
        }
        return {};
    }

    std::optional<EditorState> changed_; // what the last command left, if that changed the text
    bool undone_ = false;                // and was undone then
};

} // namespace

std::size_t setting(const char* name, std::size_t usual) {
    const char* const value = std::getenv(name);
    return value ? std::strtoul(value, nullptr, 10) : usual;
}

std::string failureOn(const std::string& document, Random& random, std::size_t count) {
    static const CommandMix mix = everyCommand();
    return failureOfSteps(
        document, count, [](const std::string& path) { return Checker(path); },
        [&](Checker& checker) { return Step{{randomCommand(random, checker.document(), mix)}}; });
}

std::string failureOnNew(const std::string& name, std::size_t usual, std::size_t perDocument,
                         const std::function<std::string(Random&)>& make,
                         const std::function<std::string(const std::string&, Random&)>& failure) {
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", usual);
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    for (std::uint32_t seed = first; seed < first + total / perDocument; ++seed) {
        Random random(seed);
        // Several runs of the tests may go on at once.
        const std::string path =
            std::filesystem::temp_directory_path() /
            ("forme-" + name + std::to_string(seed) + "-" + std::to_string(getpid()) + ".xml");
        std::ofstream(path) << make(random);
        if (const std::string found = failure(path, random); !found.empty())
            return "seed " + std::to_string(seed) + ": " + found;
        std::filesystem::remove(path);
    }
    return {};
}

// The documents

namespace {

class Writer {
public:
    explicit Writer(Random& random) : random_(random) {}

    std::string document() {
        std::string text = R"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format" xmlns:qf="urn:forme:qf/1.0">
<fo:layout-master-set><fo:simple-page-master master-name="page"><fo:region-body/><fo:region-before/></fo:simple-page-master></fo:layout-master-set>
)";
        for (std::size_t i = 0; i <= random_.below(2); ++i)
            text += pageSequence();
        return text + "</qfd:document>" + (random_.oneIn(2) ? "\n" : "");
    }

private:
    std::string pageSequence() {
        std::string text = "<fo:page-sequence master-reference=\"page\">";
        if (random_.oneIn(2))
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
        if (depth > 0 && random_.oneIn(6))
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
        return "<" + name + (random_.oneIn(2) ? " color=\"red\">" : ">") + content(depth) + "</" +
               name + ">";
    }

    std::string table(int depth) {
        const auto group = [&](const std::string& name) {
            return "<" + name + "><fo:table-row>" + cell(depth) + cell(depth) +
                   "</fo:table-row></" + name + ">";
        };
        return "<fo:table>" + (random_.oneIn(2) ? group("fo:table-header") : "") +
               (random_.oneIn(2) ? group("fo:table-footer") : "") + group("fo:table-body") +
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
};

} // namespace

std::string randomDocument(Random& random) {
    return Writer(random).document();
}

std::string mutilated(std::string text, Random& random) {
    static const Json pieces = parseTable(R"json([
    "<", ">", "&", "<fo:block>", "</fo:block>", "\"", "]]>", "<!--", "</", "/>", "<?", "<![CDATA[", "'",
    "-->", "<fo:list-block>", "</fo:flow>", "<fo:table-row>"])json");
    const std::size_t flow = std::min(text.find("<fo:flow"), text.size());
    for (std::size_t tears = 1 + random.below(4); tears > 0; --tears) {
        const std::size_t from = random.oneIn(4) ? 0 : flow;
        const std::size_t at = std::min(from + random.below(text.size() + 1 - from), text.size());
        // From tag to tag as a rule, so that more than text is torn.
        const std::size_t tag = std::min(text.find('<', at), text.size());
        const std::size_t end =
            random.oneIn(2) ? std::min(text.find('>', tag), text.size() - 1) : tag;
        text.replace(tag, end - tag + (end > tag ? 1 : 0),
                     random.oneIn(2) ? "" : random.oneOf(pieces).get<std::string>());
    }
    return random.oneIn(4) ? text.substr(0, random.below(text.size() + 1)) : text;
}

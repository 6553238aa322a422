#include "properties/PageCommands.h"

#include "document/Document.h"
#include "foundation/XmlTesting.h"
#include "pages/LayoutMasterSetBuffer.h"
#include "pages/PGMasterBufferUtilities.h"
#include "pages/PageSequenceBuffer.h"
#include "properties/PageFacts.h"
#include "support/WellFormed.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <optional>

using Core::String;

namespace {

// What a command may do that no other does

constexpr unsigned dangles = 1;      // leaves a reference to a master that does not exist
constexpr unsigned losesStatics = 2; // static contents go
constexpr unsigned losesRegions = 4;
constexpr unsigned losesOptions = 8;
constexpr unsigned doublesRegions = 16;
constexpr unsigned losesFlows = 32;
constexpr unsigned isThereAndBack = 64; // the tree is as before
constexpr unsigned keepsBytes = 128;
constexpr unsigned formats = 256; // what a formatter took before it takes afterwards

struct PageCommand {
    std::size_t weight;
    const char* qualifier; ///< what is opened for it and committed; empty for none
    const char* requests;  ///< an array of them; what begins with "$" is filled in
    unsigned may = 0;
    const char* question = ""; ///< of the set value, where the region is there
};

const std::vector<PageCommand> commands{
    {4, "masters", R"([["addSimplePageMaster","$new","$1 in 2"]])", formats},
    {1, "masters", R"([["addComplexPageMaster","$complex name"]])"},
    {1, "masters", R"([["deleteSimplePageMaster","$master"]])",
     dangles | losesRegions | losesOptions},
    {1, "masters", R"([["deleteComplexPageMaster","$master"]])", dangles},
    {2, "masters", R"([["renameSimplePageMaster","$master","$new"]])",
     dangles | losesRegions | doublesRegions},
    {2, "masters",
     R"([["renameSimplePageMaster","$here","a name that nobody has"],
        ["renameSimplePageMaster","a name that nobody has","$here"]])",
     isThereAndBack | formats},
    {2, "masters", R"([["setPageDimensions","$master","$length","$length"]])"},
    {2, "masters", R"([["setPageMargins","$master","$length","$length","$length","$length"]])",
     formats},
    {1, "masters", R"([["setContentOrientationForMaster","$master","90"]])"},
    {4, "masters", R"([["setVisibleRegion","$master","$region","$below 5","$1 in 2"]])",
     losesRegions},
    {1, "masters", R"([["setVisibleRegion","$master","","$below 5",false]])", keepsBytes},
    {4, "masters", R"([["setExtentForRegion","$master","$region","$length"]])", formats,
     "getExtentForRegion"},
    {2, "masters",
     R"([["setPaddingForRegion","$master","$region","$length","$length","$length","$length"]])"},
    {1, "masters", R"([["setBackgroundColorForRegion","$master","$region","$text"]])", formats,
     "getBackgroundColorForRegion"},
    {1, "masters", R"([["setBackgroundImageForRegion","$master","$region","$url"]])", 0,
     "getBackgroundImageForRegion"},
    {1, "masters", R"([["setBackgroundGradientForRegion","$master","$region","$text"]])"},
    {1, "masters", R"([["setBoxShadowDataForRegion","$master","$region","1pt","2pt","red"]])"},
    {1, "masters", R"([["setContentOrientationForRegion","$master","$region","2"]])", 0,
     "getContentOrientationForRegion"},
    {1, "masters", R"([["setColumnCountForBodyRegion","$master","2"]])", formats},
    {1, "masters", R"([["editRegionLayout","$master","$data","$below 5","$region"]])",
     losesRegions},
    {3, "masters", R"([["editSimplePageMasterLayout","$here","$layout"]])", keepsBytes | formats},
    {2, "masters", R"([["editComplexPageMaster","$complex"]])", dangles},
    {1, "masters", R"([["addSingleReferenceToComplexMaster","$master","$master"],
        ["addConditionalReferenceToComplexMaster","$master","$master","odd-or-even","odd"],
        ["changeReferenceInComplexPageMaster","$master","$master","$master"]])",
     dangles},
    {2, "masters", R"([["setSimplePageMasterPrintingOptions","$options"]])", losesOptions},
    {2, "masters", "[]", keepsBytes},
    {4, "sequences", R"([["addNewPageSequence","$data master"]])", dangles | formats},
    {2, "sequences", R"([["addNewPageSequenceRepeat","$data master","$xpath","$text","","$text"]])",
     dangles},
    {2, "sequences", R"([["addExternalDocument","$text"]])"},
    {1, "sequences", R"([["deletePageSequence","$index"]])",
     losesStatics | losesOptions | losesFlows},
    {1, "sequences", R"([["removeExternalDocument","$index"]])"},
    {2, "sequences", R"([["movePageSequenceUp","$index"]])", formats},
    {2, "sequences", R"([["movePageSequenceDown","$index"],["movePageSequenceDown","$index"]])",
     formats},
    {2, "sequences", R"([["movePageSequenceUp",1],["movePageSequenceDown",0]])",
     isThereAndBack | formats},
    {1, "sequences", R"([["addNewPageSequence","$data master"],["movePageSequenceUp","$index"],
        ["addExternalDocument","$text"],["convertPageSequence","$index","$data master","/a","","",""]])",
     dangles},
    {2, "sequences",
     R"([["convertPageSequence","$index","$data master","$xpath","","$text","$text"]])", dangles},
    {1, "sequences", R"([["setReferenceForSequence","$index","$master"]])", dangles},
    {1, "sequences", R"([["changeReferenceName","$master","$master"]])", dangles},
    {1, "sequences", R"([["changeXPathReferenceForPageIndx","$index","$xpath"]])"},
    {1, "sequences", R"([["setParentSetIdForSequence","$index","$text"]])"},
    {1, "sequences", R"([["setIdForSequence","$index","$new"]])"},
    {1, "sequences", R"([["changeFlowNameForStaticContent","$index","$region","$new"]])",
     losesStatics},
    {2, "sequences", R"([["setDuplexPrinting"]])"},
    {1, "sequences", R"([["removePrintingOptions"]])", losesOptions},
    {2, "sequences", "[]", keepsBytes},
    {2, "", R"([["deleteStaticContentsFromPageSequence","$index"]])", losesStatics | formats},
    {2, "", R"([["replaceStaticContentsFromPageSeq","$index",
        "<fo:static-content flow-name=\"new\"><fo:block>x</fo:block></fo:static-content>"]])",
     losesStatics},
    {1, "", R"([["replaceSimplePageMaster","$master",
        "<fo:simple-page-master master-name=\"A\"><fo:region-body/></fo:simple-page-master>"]])",
     losesRegions | losesOptions},
    {4, "", R"([["pages.applyChanges","$practice","$here",["$sequence"]]])",
     losesStatics | formats},
    {3, "", R"([["pages.applyChanges","$same","$here",["$sequence"]]])"},
};

// Filling in

/// Whom what is filled in has to make sense to.
enum class Reader { Parser, Formatter };

/// What is filled in by chance alone.
const Json choices = Json::parse(R"json({
"$name": ["A", "B & C", "<x>", "{0}", "it's", "\"said\"", "new", "left", ""],
"$length": ["1in", "50%", "auto", "", "7.5mm"],
"$text": ["a & b", "<", "\"", "it's {0}", "#abc", "\u00E9"],
"$xpath": ["/a[b>3]/c", "d", ".", "/x[@y=\"]\"]"]
})json");

class PageFiller : public Filler {
public:
    PageFiller(Random& random, EditableDocumentBuffer& document, Reader reader)
        : Filler(random, choices), document_(document), reader_(reader) {
        const PageFacts facts(document.getContent());
        masters_ = facts.masters;
        sequences_ = static_cast<int>(facts.sequences.size());
        if (document.getLayoutMasterSetPosition() >= 0)
            buffer_.emplace(&document);
        master_ = anyMaster();
    }

private:
    static String wideOf(const std::string& text) {
        return Core::Encoder::convertUTF8ToString(text);
    }

    bool isStrange(std::size_t oneIn) { return reader_ == Reader::Parser && random_.oneIn(oneIn); }

    std::string anyMaster() {
        return masters_.empty() || isStrange(12) ? anyName() : random_.oneOf(masters_);
    }

    std::string anyName() { return Filler::valueOf("$name"); }

    std::string anyRegion() {
        const std::vector<String> regions =
            buffer_ ? buffer_->getRegionsForPageMaster(wideOf(master_)) : std::vector<String>();
        return regions.empty() || isStrange(8) ? "xsl-region-before"
                                               : narrow(random_.oneOf(regions));
    }

    Json valueOf(const std::string& text) override {
        if (reader_ == Reader::Formatter && (text == "$length" || text == "$text"))
            return text == "$length" ? "7.5mm" : "#abc";
        if (text == "$new")
            return isStrange(3) ? anyName() : "n" + std::to_string(random_.below(1000));
        if (text == "$complex name")
            return "c" + std::to_string(random_.below(1000));
        if (text == "$here")
            return master_;
        if (text == "$master")
            return random_.oneIn(3) ? anyMaster() : master_;
        if (text == "$region")
            return region_ = anyRegion();
        if (text == "$sequence")
            return sequence_;
        if (text == "$index")
            return static_cast<int>(random_.below(static_cast<std::size_t>(sequences_) + 2)) - 1;
        if (text == "$url")
            return "url(" + Filler::valueOf("$text").get<std::string>() + ")";
        if (text == "$data master")
            return random_.oneIn(3)
                       ? Json{{"name", master_}, {"references", Json::array({reference(1)})}}
                       : Json{{"name", master_}};
        if (text == "$complex")
            return {{"name", random_.oneIn(2) ? anyMaster() : anyName()},
                    {"references", Json::array({reference(3), reference(1), reference(2)})}};
        if (text == "$data")
            return {{"visible", !random_.oneIn(4)},
                    {"extent", Filler::valueOf("$length")},
                    {"columnCount", 2},
                    {"shadowX", "1pt"},
                    {"borderStyleTop", 4}};
        if (text == "$options")
            return {{master_,
                     {{"duplex", {{"static", random_.oneIn(2) ? "true" : ""}}},
                      {"psPrinterCode", random_.oneIn(3) ? "a < b" : ""}}}};
        if (text == "$layout")
            return layout();
        if (text == "$same" || text == "$practice")
            return practice(text == "$practice");
        return Filler::valueOf(text);
    }

    Json reference(int kind) {
        return {{"kind", kind},
                {"master", anyMaster()},
                {"maximumRepeat", "3"},
                {"condition", "page-position"},
                {"conditionValue", "first"}};
    }

    /// The page as a dialog shows it.
    Json layout() {
        Session session;
        session.serve({"setContent", narrow(document_.getContent()), true});
        session.serve({"masters.open"});
        const auto ask = [&](const char* question) {
            return session.serve({question, master_}).value("result", Json::object());
        };
        Json layout = ask("masters.getPageRegionsData");
        layout["width"] = ask("masters.getPageWidth");
        layout["height"] = ask("masters.getPageHeight");
        const Json margins = ask("masters.getPageMargins");
        for (const auto& [side, margin] :
             {std::pair{"left", "marginLeft"}, std::pair{"right", "marginRight"},
              std::pair{"top", "marginTop"}, std::pair{"bottom", "marginBottom"}})
            layout[margin] = margins[side];
        return layout;
    }

    /// A page to edit headers on, something typed into its static contents.
    std::string practice(bool isEdited) {
        sequence_ = static_cast<int>(random_.below(static_cast<std::size_t>(sequences_) + 1));
        const String content = document_.getContent();
        const String page =
            document_.getPageSequenceForEditing(sequence_, wideOf(master_), L"locked");
        if (page.empty())
            return narrow(content);
        const Document& document = Document::of(document_);
        std::string text = narrow(
            content.subString(0, static_cast<unsigned>(document_.getFirstPageGeneratorPos() - 1)) +
            page + L"</" + document.text().nameAt(document.text().root()) + L">");
        const std::size_t place = text.find("</fo:static-content>");
        if (isEdited && place != std::string::npos)
            text.insert(place, "<fo:block>typed</fo:block>");
        return text;
    }

    EditableDocumentBuffer& document_;
    Reader reader_;
    std::optional<LayoutMasterSetBuffer> buffer_;
    std::vector<std::string> masters_;
    int sequences_ = 0;
    int sequence_ = 0;
    std::string master_;
    std::string region_;
};

// The promises

bool holdsAll(std::vector<std::string> some, std::vector<std::string> all) {
    std::sort(some.begin(), some.end());
    std::sort(all.begin(), all.end());
    return std::includes(all.begin(), all.end(), some.begin(), some.end());
}

/// Requests that are carried out as one, and what they may do.
struct Step {
    std::vector<std::string> requests;
    unsigned may = 0;
    Json question = {}; ///< about a region of the open page masters, and what must be answered
    std::string answer = {};
};

class Checker : public WatchedSession {
public:
    using WatchedSession::WatchedSession;

    std::string carryOut(const Step& step) {
        const EditorState before = state();
        const bool wasKeptOut = isKeptOut();
        std::string broken;
        for (const std::string& request : step.requests)
            if (broken.empty())
                broken = WatchedSession::carryOut(request);
        if (broken.empty() && wasKeptOut && document().getPageMasterEditingMode() && !isKeptOut())
            broken = "the caret came into a flow";
        if (!broken.empty() || step.requests.size() == 1)
            return broken;
        if (step.requests.back().ends_with(".close\"]"))
            return state() == before ? "" : "what was dropped left a trace";
        if (!step.question.empty() && answerTo("masters.isRegionVisible", step.question) == true &&
            answerTo(step.question[0], step.question) != step.answer)
            return step.question.dump() + " is not answered by what was set";
        return brokenPages(before, step.may);
    }

private:
    Json answerTo(const std::string& name, Json question) {
        question[0] = name;
        return session().serve(question).value("result", Json());
    }

    /// Whether the caret is where it may be while page masters are edited.
    bool isKeptOut() {
        const int caret = document().getCaretPos();
        return document().getPageMasterEditingMode() &&
               (caret < 0 || document().isInFoStaticContent(caret, L""));
    }

    std::string brokenPages(const EditorState& before, unsigned may) {
        if (std::string error = xmlError(document().getContent()); !error.empty())
            return error;
        const PageFacts was(before.text);
        const PageFacts is(document().getContent());
        std::string broken = brokenNames(was, is, may);
        for (const std::string& other : {brokenContents(was, is, may), brokenRegions(was, is, may),
                                         brokenPlaces(is), brokenTexts(is), brokenUndo(before)})
            broken = broken.empty() ? other : broken;
        if (broken.empty() && (may & keepsBytes) && document().getContent() != before.text)
            broken = "a byte changed";
        if (broken.empty() && (may & isThereAndBack) && is.tree != was.tree)
            broken = "there and back is another tree:\n" + was.tree + "\n" + is.tree;
        return broken;
    }

    static std::string brokenNames(const PageFacts& was, const PageFacts& is, unsigned may) {
        if (is.hasStrayText && !was.hasStrayText)
            return "text where only elements belong";
        if (!(may & dangles))
            for (const std::string& name : is.dangling)
                if (!was.dangling.contains(name))
                    return "no master has the name " + name;
        return {};
    }

    static std::string brokenContents(const PageFacts& was, const PageFacts& is, unsigned may) {
        if (!(may & losesStatics) && !holdsAll(was.statics, is.statics))
            return "a static content went";
        if (!(may & losesFlows) && !holdsAll(was.flows, is.flows))
            return "a flow changed";
        const auto doubled = [](const PageFacts& of) {
            int count = 0;
            for (const PageFacts::Counts& names : of.flowNames)
                for (const auto& [name, times] : names)
                    count += times - 1;
            return count;
        };
        if (doubled(is) > doubled(was))
            return "a static content stands twice";
        if (!(may & losesOptions) && is.options < was.options)
            return "printing options went";
        return was.optionsAreFirst && !is.optionsAreFirst ? "printing options are not first" : "";
    }

    static std::string brokenRegions(const PageFacts& was, const PageFacts& is, unsigned may) {
        for (const auto& [master, types] : is.regions)
            for (const auto& [type, count] : types) {
                const auto old = was.regions.find(master);
                const int before = old != was.regions.end() && old->second.contains(type)
                                       ? old->second.at(type)
                                       : 0;
                if (!(may & doublesRegions) && count > std::max(before, 1))
                    return "a region twice in " + master;
            }
        if (may & losesRegions)
            return {};
        for (const auto& [master, types] : was.regions)
            if (!is.regions.contains(master) || is.regions.at(master).size() < types.size())
                return "a region went from " + master;
        return {};
    }

    /// Text and tree count the same.
    std::string brokenPlaces(const PageFacts& is) {
        const int count = static_cast<int>(is.sequences.size());
        for (int i = 0; i <= count; ++i) {
            const int place = document().getPageSequencePosition(i);
            if ((place < 0) != (i == count) ||
                (place >= 0 && document().getPageSequenceIdxFromPos(place) != i))
                return "page sequence " + std::to_string(i) + " is at " + std::to_string(place);
        }
        return {};
    }

    /// The static contents as they are scanned are those of the tree.
    std::string brokenTexts(const PageFacts& is) {
        PGMasterBufferUtilities utilities(document().getContent());
        std::map<String, String> texts;
        utilities.getStaticContentTextMap(texts, L"", false, false);
        std::set<std::string> names;
        for (const PageFacts::Counts& of : is.flowNames)
            for (const auto& [name, times] : of)
                names.insert(name);
        if (names.size() != texts.size())
            return std::to_string(texts.size()) + " static contents are scanned of " +
                   std::to_string(names.size());
        const String type(Document::of(document()).text().prolog().documentType);
        for (const auto& [name, text] : texts) {
            const String declared = L"<fo:page-sequence>" + text + L"</fo:page-sequence>";
            const PageFacts alone(type + L"<fo:root>" + declared + L"</fo:root>");
            if (alone.statics.size() != 1 || !holdsAll(alone.statics, is.statics))
                return "a static content is scanned as " + narrow(text);
        }
        return {};
    }

    /// A second commit changes nothing, one undo takes back, redo brings again.
    std::string brokenUndo(const EditorState& before) {
        const EditorState now = state();
        if (now.text == before.text)
            return {};
        document().undo();
        if (state() != before)
            return "undo gives something else";
        document().redo();
        if (state() != now)
            return "redo gives something else";
        return {};
    }
};

// The steps

class Steps {
public:
    Steps(Random& random, Checker& checker) : random_(random), checker_(checker) {}

    /// Has page masters edited from here on, if there is anything to edit.
    Step modeOfEditing() {
        checker_.document().moveCaretToFirstStaticRegion();
        const int caret = checker_.document().getCaretPos();
        if (!checker_.document().isInFoStaticContent(caret, L""))
            return {{R"(["moveCaretToFirstFoFlow"])"}};
        return {{R"(["moveCaretToFirstStaticRegion"])", R"(["setPageMasterEditingMode",true])"}};
    }

    /// One that a formatter has nothing against.
    Step nextForFormatter() {
        const PageCommand* command = nullptr;
        do
            command = &random_.oneByWeight(commands);
        while (!(command->may & formats));
        return stepOf(*command, Reader::Formatter);
    }

    Step next() {
        static constexpr const char* others[] = {R"(["insertText","x",false,false])",
                                                 R"(["erase",false,false])",
                                                 R"(["insertBreak",5,false])",
                                                 R"(["undo"])",
                                                 R"(["undo"])",
                                                 R"(["redo"])",
                                                 R"(["moveCaretToPageSequence",1])",
                                                 R"(["moveCaretToFirstStaticRegion"])",
                                                 R"(["moveCaretLeft",true,false,false])",
                                                 R"(["moveCaretToFirstFoFlow"])"};
        return random_.oneIn(3) ? Step{{random_.oneOf(others)}}
                                : stepOf(random_.oneByWeight(commands), Reader::Parser);
    }

private:
    Step stepOf(const PageCommand& command, Reader reader) {
        const std::string qualifier = command.qualifier;
        PageFiller filler(random_, checker_.document(), reader);
        const Json requests = filler.fill(Json::parse(command.requests));
        const bool isDropped = !qualifier.empty() && random_.oneIn(10);
        std::vector<std::string> step;
        if (!qualifier.empty())
            step.push_back("[\"" + qualifier + ".open\"]");
        for (Json request : requests) {
            const std::string name = request[0];
            if (!qualifier.empty())
                request[0] = qualifier + "." + name;
            step.push_back(request.dump());
        }
        step.push_back(qualifier.empty()
                           ? R"(["getCaretPos"])"
                           : "[\"" + qualifier + (isDropped ? ".close\"]" : ".commit\"]"));
        const Json last = requests.empty() ? Json() : requests.back();
        if (*command.question && !isDropped)
            return {step,
                    command.may,
                    {std::string("masters.") + command.question, last[1], last[2]},
                    last.back()};
        return {step, command.may, {}, {}};
    }

    Random& random_;
    Checker& checker_;
};

} // namespace

std::string pageFailureOn(const std::string& document, Random& random, std::size_t count) {
    bool entersMode = random.oneIn(4);
    return failureOfSteps(
        document, count, [](const std::string& path) { return Checker(path); },
        [&](Checker& checker) {
            Steps steps(random, checker);
            return std::exchange(entersMode, false) ? steps.modeOfEditing() : steps.next();
        });
}

std::string withPagesEdited(const std::string& document, Random& random, std::size_t count) {
    Checker checker(document);
    Steps source(random, checker);
    for (std::size_t i = 0; i < count; ++i) {
        const Step step = source.nextForFormatter();
        checker.carryOut(step);
    }
    return narrow(checker.document().getContent());
}

std::string documentWithPages(Random& random) {
    static constexpr std::array masterNames{"A", "left", "B &amp; C", "it's", "{0}"};
    const auto master = [&](std::size_t i) { return std::string(masterNames[i]); };
    const auto quoted = [&](const std::string& value) {
        return random.oneIn(4) && value.find('\'') == std::string::npos ? "'" + value + "'"
                                                                        : "\"" + value + "\"";
    };
    const std::size_t count = 1 + random.below(masterNames.size());
    std::string text = R"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format" font-size="9pt">
<!-- <fo:page-sequence> --><fo:layout-master-set>)";
    for (std::size_t i = 0; i < count; ++i) {
        text += "\n<fo:simple-page-master\n  master-name=" + quoted(master(i)) +
                (random.oneIn(2) ? " margin='1in 2in'" : " page-width=\"210mm\"") + ">" +
                (random.oneIn(5) ? "<!-- n -->" : "") +
                (random.oneIn(2) ? "<fo:region-body/>" : "<fo:region-body margin-left='0pt'/>");
        for (const char* region : {"before", "after", "start", "end"})
            if (random.oneIn(2))
                text += std::string("<fo:region-") + region +
                        (random.oneIn(3)   ? "></fo:region-" + std::string(region) + ">"
                         : random.oneIn(2) ? " extent='50%'/>"
                                           : " region-name=\"" + master(i) + "-" + region + "\"/>");
        text += "</fo:simple-page-master>";
    }
    if (random.oneIn(2))
        text += "<fo:page-sequence-master master-name=\"all\"><fo:single-page-master-reference "
                "master-reference=" +
                quoted(master(0)) + "/></fo:page-sequence-master>";
    text += "</fo:layout-master-set>\n";
    for (std::size_t i = random.below(4) + 1; i > 0; --i) {
        const std::string name = random.oneIn(6) ? "all" : master(random.below(count));
        if (random.oneIn(6)) {
            text += "<qf:insert-document xmlns:qf=\"urn:forme:qf/1.0\" src=\"url(a.xml)\"/>";
            continue;
        }
        const bool isRepeat = random.oneIn(3);
        const std::string element = isRepeat ? "qfd:page-sequence-repeat" : "fo:page-sequence";
        text += "<" + element + (random.oneIn(3) ? "\n" : " ") + (isRepeat ? "fo:" : "") +
                "master-reference=" + quoted(name) + (isRepeat ? " xpath=\"/a\">" : ">");
        if (random.oneIn(2))
            text += "\n\t<fo:static-content flow-name=\"xsl-region-before\"><fo:block>h&#233;" +
                    std::to_string(random.below(9)) + "</fo:block></fo:static-content>";
        if (random.oneIn(3))
            text += "<fo:static-content flow-name=" + quoted(master(0) + "-after") +
                    "><!-- </fo:static-content> --><fo:block/></fo:static-content>";
        text += "<fo:flow flow-name=\"xsl-region-body\"><fo:block>one &amp; two</fo:block>"
                "<fo:block>three</fo:block></fo:flow></" +
                element + ">\n";
    }
    return text + "</qfd:document>";
}

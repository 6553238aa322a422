// Records what random requests do to documents, so that two builds can be compared:
//
//     build/old/tests/recording/forme_record --commands 100000 > before.txt
//     build/new/tests/recording/forme_record --commands 100000 > after.txt
//     cmp before.txt after.txt
//
// Run from the project's root, or name the folders of the documents. Both builds need the requests
// of tests/properties/RandomCommands.cpp to be the same. A line holds the document, the round in
// which it was loaded anew, the number of the command, a digest of all that the round has done so
// far, and the command. In a round the first line that differs names the command that does; the
// next round starts afresh. Faults stand behind a "!".

#include "Session.h"
#include "properties/RandomCommands.h"
#include "support/WellFormed.h"

#include <forme/foundation/ObjectId.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

// Rounds are short, so that documents do not grow large. Every so many of them is rough.
constexpr std::size_t roundLength = 200;
constexpr std::size_t checkEvery = 50;
constexpr std::size_t roughEvery = 6;
const char* const fault = " ! ";

// What the random commands leave out, by the arguments: questions, above all.
const char* const questions = R"json([
    [[], ["isQFDDocument", "isFODocument", "getNamespaces", "getLayoutMasterSetPosition",
          "getQFDTemplateDefsPosition", "getFirstPageGeneratorPos", "getListType",
          "getAllPageSequencesWrappedInRoot", "history.retrieveTrackingPos", "getPreviousWord",
          "getSpellingDictionaries", "hasSelectedText", "selectionCrossTable", "vdpIsSet",
          "entireSelectionisInTheSameFloatingRegion", "getCurrentListSize", "isEditingDummyPage",
          "getCurrentItemNumber", "getPageMasterEditingMode", "hasStyleSheet", "getStylesheetPath",
          "getStyleSheetString", "getStyleSheetAttributes", "hasDocumentInformation",
          "getDocumentInformationAttributes", "getPDFCompliance", "getCurrentFlowName",
          "getCurrentFlowContent", "getFlowReferenceToCurrentPos", "getIdForCurrentPos",
          "getUsedComponents", "getMediaObjectParams", "getComponentParams", "notifyCaretChanged",
          "getElementsWithIdInfo", "getCurrentPageSequenceIdx", "tableBufferCacheNull",
          "pageSequence.getCurrentPageSequenceIdx", "updateTableBufferCache",
          "updateCacheOnBufferChange", "updateCacheOnCaretChange", "updateCacheOnSelectionChange",
          "notifyBufferChanged", "notifySelectionChanged", "selectListLabel",
          "eraseListSelection"]],
    [["$position"], ["getQFDTemplateDefsString", "getPreviousWordPos", "offsetIsInSelection",
          "getListPos", "getItemPos", "getNextItemPos", "getPreviousItemPos", "getItemLabelPos",
          "getItemBodyPos", "getFirstBlockInElement", "getLastBlockInElement", "getListItemNumber",
          "isFirstPositionInItemBody", "getItemLabelValue", "createNewItemBody", "getNextPageSeq",
          "getPageSequenceIdxFromPos", "getPageSeqPosFrom", "history.startTrackingPos",
          "pageSequence.getPageSequenceIdxFromPos", "recalculateNumbering"]],
    [["$name"], ["isInlineEditableElementName", "isBlockEditableElementName", "getPropertiesList",
          "isRepeatingElement", "getCrtElementClassName"]],
    [["/fo:inline"], ["isInlineEditableElementClosingTagName"]],
    [["$name", "$position"], ["isInElementContext", "getProperties"]],
    [["$name", "$1 in 2"], ["getCrtObjectContent"]],
    [["$name", "fo:color"], ["getParentProperty"]],
    [["font-weight", "$position"], ["getInheritablePropertyValueAtPosition"]],
    [["$markup", "$position"], ["indentXmlText"]],
    [["$markup", "$below 8"], ["isInsideStartTag"]],
    [["$text"], ["isWordSeparator", "getNextLabel"]],
    [["a)"], ["getNextLabel"]],
    [["$text", "$position"], ["createNewItem"]],
    [["$below 3"], ["getFirstListLabel"]],
    [["$index"], ["getPageSequencePosition"]],
    [["$path around"], ["getProperties", "getComponentContentFromPath", "canDeleteListItem",
          "getCrtObjectContent"]],
    [["$position", "xsl-region-before"], ["isInFoStaticContent"]],
    [[0], ["getSelectionAs"]], [[2], ["getSelectionAs"]],
    [[0, "$path around"], ["getSelectionAs"]], [[2, "$path around"], ["getSelectionAs"]],
    [["en_US"], ["syncSpellerMap"]], [["en_US", "$1 in 2"], ["getNextSpellingError"]]
])json";

// The same: requests that may break the text or the history, or change the rules.
const char* const roughCommands = R"json([
    [["$position", "$markup"], ["insertXmlTextAtPosition"]],
    [["$position", "$text"], ["insertXmlTextAtPosition"]],
    [["$position", "$behind 20"], ["deleteXmlText", "deleteContentAndAdjustCaret"]],
    [["$position"], ["deleteSpacesBetweenTags"]],
    [["$properties", "$name", "$position"], ["setProperties"]],
    [[], ["history.startActionGroup", "history.endActionGroup"]],
    [["$name"], ["addEditableElement", "addInlineEditableElement"]],
    [["fo:root"], ["setRootElement"]], [["qfd:document"], ["setRootElement"]],
    [["UTF-16"], ["changeXmlEncoding"]],
    [["$1 in 2"], ["setPageMasterEditingMode", "setEditingDummyPage"]],
    [["$position", "$position"], ["eraseListSelection"]],
    [["<fo:root><fo:flow><fo:block>a</fo:block></fo:flow></fo:root>", "$1 in 2"], ["setContent"]]
])json";

CommandMix withRequests(CommandMix mix, const char* requests) {
    for (const Json& row : Json::parse(requests))
        for (Json request : row[1]) {
            request = Json::array({request});
            request.insert(request.end(), row[0].begin(), row[0].end());
            mix.kinds.push_back({1, request});
        }
    return mix;
}

/// 64-bit FNV-1a.
class Digest {
public:
    Digest& add(std::string_view bytes) {
        for (const char byte : bytes)
            value_ = (value_ ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
        return *this;
    }
    std::uint32_t value() const { return static_cast<std::uint32_t>(value_ >> 32U); }
    std::string text() const {
        std::string digits(16, '0');
        for (unsigned i = 0; i < 16; ++i)
            digits[i] = "0123456789abcdef"[value_ >> (60 - 4 * i) & 0xfU];
        return digits;
    }

private:
    std::uint64_t value_ = 0xcbf29ce484222325U;
};

/// One document from its loading on, with all that it answers.
class Round {
public:
    Round(const std::filesystem::path& path, std::uint32_t seed) : random_(seed) {
        ObjectId::seed(seed);
        carryOut(Json{"open", path.string()}.dump());
    }

    /// Carries out a command, and answers it with its faults. From time to time, undoes everything
    /// and redoes everything.
    std::string next(const CommandMix& mix) {
        const std::string command = randomCommand(random_, session_.document(), mix);
        std::string line = command + carryOut(command) + malformed();
        if (++done_ % checkEvery == 0 && !isBroken_) {
            replayAll("canUndo", R"(["undo"])");
            line += " all undone" + malformed();
        }
        if (done_ % checkEvery == 0 && !isBroken_)
            replayAll("canRedo", R"(["redo"])");
        return line;
    }

    /// A text that is not well formed ends the round, as it may keep a command from ending.
    bool isOver() const { return isBroken_ || done_ == roundLength; }
    std::size_t done() const { return done_; }
    const Digest& digest() const { return digest_; }

private:
    /// The answer, or why there is none.
    Json ask(const char* question) {
        const Json reply = session_.serve({question});
        return reply.value("result", reply.value("error", Json()));
    }

    /// Answers the fault, if there was one.
    std::string carryOut(const std::string& command) try {
        Json reply = session_.serveLine(command);
        if (reply.contains("result") && reply["result"].is_object())
            reply["result"].erase("suggestions"); // which a time limit cuts off
        digest_.add(reply.dump(-1, ' ', false, Json::error_handler_t::replace));
        digest_.add(ask("getContent").get_ref<const std::string&>());
        digest_.add(ask("canUndo").dump() + ask("canRedo").dump());
        return reply.contains("error") ? fault + reply["error"].get<std::string>() : "";
    } catch (const std::exception& exception) {
        return fault + std::string("exception: ") + exception.what();
    }

    void replayAll(const char* hasMore, const char* command) {
        while (ask(hasMore) == true)
            digest_.add(session_.serveLine(command).dump());
        digest_.add(ask("getContent").get_ref<const std::string&>());
    }

    std::string malformed() {
        const std::string error = xmlError(session_.document().getContent());
        isBroken_ = !error.empty();
        return error.empty() ? "" : fault + ("malformed: " + error);
    }

    Random random_;
    Session session_;
    Digest digest_;
    std::size_t done_ = 0;
    bool isBroken_ = false;
};

/// Prints a line for every so many commands, and one for each fault.
void record(const std::filesystem::path& path, const std::string& seed, std::size_t count,
            std::size_t lineEvery) {
    static const CommandMix mix = withRequests(everyCommand(), questions);
    static const CommandMix roughMix = withRequests(mix, roughCommands);
    for (std::size_t done = 0, number = 0; done < count; ++number) {
        const std::string label = path.filename().string() + " " + std::to_string(number) + ".";
        const bool isRough = number % roughEvery == roughEvery - 1;
        Round round(path, Digest().add(label + seed).value());
        while (done < count && !round.isOver()) {
            ++done;
            const std::string line = round.next(isRough ? roughMix : mix);
            if (done % lineEvery == 0 || done == count || round.isOver() ||
                line.find(fault) != line.npos)
                std::cout << label << round.done() << " " << round.digest().text() << " " << line
                          << std::endl;
        }
    }
}

/// The documents of the folders that are there, in the order of their names.
std::vector<std::filesystem::path> documentsIn(const std::vector<std::string>& folders) {
    std::vector<std::filesystem::path> found;
    for (const std::string& folder : folders)
        if (std::filesystem::is_directory(folder))
            for (const auto& entry : std::filesystem::directory_iterator(folder))
                if (entry.path().extension() == ".fo" || entry.path().extension() == ".xml")
                    found.push_back(entry.path());
    std::sort(found.begin(), found.end(), [](const auto& left, const auto& right) {
        return std::pair(left.filename(), left) < std::pair(right.filename(), right);
    });
    return found;
}

} // namespace

int main(int argc, char** argv) {
    std::size_t count = 10000, lineEvery = 1;
    std::string seed = "1";
    std::vector<std::string> folders{"samples", "../shared/corpus/fo"};
    CLI::App app{"Records what random requests do to documents."};
    app.add_option("--commands", count, "How many, over all documents");
    app.add_option("--line-every", lineEvery, "How many commands go on a line")
        ->check(CLI::PositiveNumber);
    app.add_option("--seed", seed, "Where the random numbers begin");
    app.add_option("--documents", folders, "The folders of the documents");
    CLI11_PARSE(app, argc, argv);

    const auto documents = documentsIn(folders);
    for (std::size_t i = 0; i < documents.size(); ++i)
        record(documents[i], seed,
               count * (i + 1) / documents.size() - count * i / documents.size(), lineEvery);
    return documents.empty() || !std::cout ? 1 : 0;
}

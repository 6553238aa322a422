#include "CallTable.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <utility>

namespace {

/// The names of the operations that the public sections of a class declare.
std::set<std::string> publicOperations(const std::string& header) {
    std::ifstream source(sourcesFolder() / header);
    EXPECT_TRUE(source) << header;
    static const std::regex declaration(R"(^ {4}[\w:<>&*, ]+[ &*](\w+)\()");
    std::set<std::string> names;
    bool isPublic = false;
    for (std::string line; std::getline(source, line);) {
        if (line == "public:" || line == "protected:" || line == "private:")
            isPublic = line == "public:";
        std::smatch match;
        if (isPublic && std::regex_search(line, match, declaration))
            names.insert(match[1]);
    }
    names.erase(std::filesystem::path(header).stem().string()); // which takes a document
    return names;
}

/// What deals in pointers and references of the host's own and has no meaning in a request.
const std::set<std::string> notForRequests{"setMonitor",
                                           "getMonitor",
                                           "getEditActionStack",
                                           "setSpellChecker",
                                           "setHtmlParser",
                                           "setTextSegmenter",
                                           "getListBuffer",
                                           "getFormBuffer",
                                           "getEditableTableBuffer",
                                           "table"};

} // namespace

TEST(CallTable, ReachesEveryPublicOperation) {
    std::set<std::string> reached;
    for (const Operation& operation : callTable())
        reached.insert(operation.name);
    const std::pair<const char*, std::string> prefixes[] = {
        {"text/EditableXmlBuffer.h", ""},
        {"document/EditableDocumentBuffer.h", ""},
        {"editing/lists/ListBuffer.h", ""},
        {"forms/FormBuffer.h", ""},
        {"editing/objects/InlineRepeatAlg.h", "inlineRepeat."},
        {"document/PageSequenceAlg.h", "pageSequence."},
        {"trees/DOMBasedBuffer.h", "table."},
        {"pages/LayoutMasterSetBuffer.h", "masters."},
        {"pages/PGMasterBuffer.h", "detached."},
        {"pages/PGMasterBufferUtilities.h", "detachedText."},
        {"pages/PGMasterUtilities.h", "pages."},
        {"tables/EditableTableBuffer.h", "table."},
        {"channels/SecurityBuffer.h", "security."},
        {"channels/TranspromoBuffer.h", "promo."},
        {"templates/PropertyValueHandler.h", "values."},
        {"templates/QFDTemplateFunctionalBuffer.h", "template."},
        {"pages/PageSequenceBuffer.h", "sequences."},
        {"channels/BookmarkBuffer.h", "bookmarks."},
        {"channels/AnnotationBuffer.h", "annotations."},
        {"channels/ConditionalSectionBuffer.h", "sections."},
        {"export/XslFoExport.h", "export."}};
    for (const auto& [header, prefix] : prefixes) {
        const std::set<std::string> declared = publicOperations(header);
        EXPECT_FALSE(declared.empty()) << header;
        for (const std::string& name : declared)
            EXPECT_TRUE(reached.count(prefix + name) || notForRequests.count(name))
                << header << ": " << name << " cannot be requested";
    }
}

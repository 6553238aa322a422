// The rooms of the source tree, and what a file in each may do.

#include "support/Documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using std::filesystem::path;

std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// From the ground up: a file includes from its own room and from those before it.
const std::vector<std::string> rooms = wordsOf(
    "foundation foundation/xml foundation/values text/store text/torn text document "
    "editing/formatting editing/deletion editing/lists editing/typing editing/breaks "
    "editing/objects editing/search editing/settings editing/clipboard html trees templates "
    "tables pages forms channels view export checks");

/// What a room includes of one behind it: the store and the scans of what it cannot tell are read
/// as any text is.
const std::map<std::string, std::set<std::string>> reachUp{
    {"text/store", {"text/TextView.h", "text/TextWindow.h"}},
    {"text/torn", {"text/TagQuotes.h", "text/UnitMemo.h", "text/XmlScan.h"}}};

/// What may take the whole text at once, and why it must.
const std::map<std::string, std::string> wholeTextReaders{
    {"document/Document.cpp",
     "the record of a text that is exchanged is a string, which hosts read"},
    {"document/EditableDocumentBuffer.cpp", "getContent() gives the host a string"},
    {"document/EditableDocumentBufferState.cpp", "the same record, made afterwards"},
    {"pages/PageSequenceCommit.cpp", "the tree of page sequences is that of the whole document"}};

/// A file of more lines than this has too many subjects.
constexpr std::size_t mostLines = 700;
const std::string face = "document/EditableDocumentBuffer.h";

std::vector<std::string> linesOf(const path& file) {
    std::ifstream source(file);
    EXPECT_TRUE(source) << file;
    std::vector<std::string> lines;
    for (std::string line; std::getline(source, line);)
        lines.push_back(line);
    return lines;
}

/// The sources and headers in a folder, named from there.
std::vector<std::string> sourcesIn(const path& folder) {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
            found.push_back(entry.path().lexically_relative(folder).generic_string());
    std::sort(found.begin(), found.end());
    EXPECT_FALSE(found.empty()) << folder;
    return found;
}

bool isHeader(const std::string& file) {
    return path(file).extension() == ".h";
}

/// Which room a file is in, counted from the ground; the number of rooms if in none.
std::size_t roomOf(const std::string& file) {
    const std::string folder = path(file).parent_path().generic_string() + "/";
    std::size_t found = rooms.size();
    for (std::size_t i = 0; i < rooms.size(); ++i)
        if (folder.starts_with(rooms[i] + "/") &&
            (found == rooms.size() || rooms[found].size() < rooms[i].size()))
            found = i;
    return found;
}

/// What the file includes by that pattern, whose first group is what is asked for.
std::vector<std::string> includesOf(const path& file, const std::regex& pattern) {
    std::vector<std::string> found;
    for (const std::string& line : linesOf(file))
        if (std::smatch match; std::regex_search(line, match, pattern))
            found.push_back(match[1]);
    return found;
}

std::vector<std::string> ownIncludesOf(const std::string& file) {
    static const std::regex own("^#include \"(.*)\"");
    return includesOf(sourcesFolder() / file, own);
}

std::set<std::string> publicHeaders() {
    std::set<std::string> listed;
    for (const std::string& line : linesOf(sourcesFolder() / "PublicHeaders.cmake"))
        for (const std::string& word : wordsOf(line))
            if (word.find(".h") != std::string::npos)
                listed.insert(word.substr(0, word.find(')')));
    EXPECT_FALSE(listed.empty());
    return listed;
}

/// A file without its comments.
std::string codeOf(const std::string& file) {
    std::string code;
    for (const std::string& line : linesOf(sourcesFolder() / file))
        code += line.substr(0, line.find("//")) + "\n";
    return code;
}

} // namespace

TEST(Layout, IncludesPointDown) {
    for (const std::string& file : sourcesIn(sourcesFolder())) {
        EXPECT_LT(roomOf(file), rooms.size()) << file << " is in no room";
        std::set<std::string> above;
        if (const auto known = reachUp.find(path(file).parent_path()); known != reachUp.end())
            above = known->second;
        for (const std::string& included : ownIncludesOf(file))
            EXPECT_TRUE(roomOf(included) <= roomOf(file) || above.count(included))
                << file << " includes " << included;
    }
}

/// A view is a stretch that somebody has looked for: it begins and ends at what was found, not
/// where the text does. Nor is there another way to see it as one piece of memory.
TEST(Layout, NobodyAboveTheTextTakesAllOfIt) {
    static const std::regex whole(R"(\b(content\(\)|contentAt\(|XmlText::all\b)|)"
                                  R"(\b(view|slice)\(\s*(0\s*,|([^;()]|\([^;()]*\))*,)"
                                  R"([^;,()+-]*(\(\)[^;,()+-]*)?\blength\(\)\s*\)))");
    std::set<std::string> readers;
    for (const std::string& file : sourcesIn(sourcesFolder()))
        if (roomOf(file) > roomOf("text/XmlText.h") && std::regex_search(codeOf(file), whole))
            readers.insert(file);
    for (const std::string& reader : readers)
        EXPECT_TRUE(wholeTextReaders.count(reader)) << reader << " takes the whole text";
    for (const auto& [reader, purpose] : wholeTextReaders)
        EXPECT_TRUE(readers.count(reader)) << reader << " is listed, but takes no whole text";
}

TEST(Layout, ClassesKeepTheirSecrets) {
    static const std::regex friendship("\\bfriend (class|struct) ");
    for (const std::string& file : sourcesIn(sourcesFolder())) {
        std::string code = codeOf(file);
        if (file == face)
            code.erase(code.find("friend class Document;"), 6);
        EXPECT_FALSE(std::regex_search(code, friendship)) << file;
    }
}

TEST(Layout, FilesAreShort) {
    for (const std::string& file : sourcesIn(sourcesFolder()))
        if (file != face) {
            EXPECT_LE(linesOf(sourcesFolder() / file).size(), mostLines) << file;
        }
}

TEST(Layout, HostsSeeWhatIsPublic) {
    const std::set<std::string> listed = publicHeaders();
    for (const std::string& header : listed)
        for (const std::string& included : ownIncludesOf(header))
            EXPECT_TRUE(listed.count(included)) << header << " includes " << included;
    for (const std::string& file : sourcesIn(sourcesFolder()))
        if (isHeader(file) && codeOf(file).find("FORME_API ") != std::string::npos) {
            EXPECT_TRUE(listed.count(file)) << file << " exports something and is not public";
        }

    static const std::regex ours("^#include <forme/(.*)>");
    static const std::regex own("^#include \"(.*)\"");
    const path host = sourcesFolder().parent_path() / "host";
    for (const std::string& file : sourcesIn(host)) {
        for (const std::string& included : includesOf(host / file, ours))
            EXPECT_TRUE(listed.count(included)) << "host/" << file << " includes " << included;
        for (const std::string& included : includesOf(host / file, own))
            EXPECT_FALSE(std::filesystem::exists(sourcesFolder() / included))
                << "host/" << file << " includes " << included;
    }
}

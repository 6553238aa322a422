#include "support/Documents.h"

#include "foundation/FileStream.h"
#include "foundation/SmartPtr.h"
#include "foundation/XmlReader.h"

#include <fstream>
#include <iterator>

namespace {

void appendDocuments(const std::filesystem::path& folder,
                     std::vector<std::filesystem::path>& found) {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".fo" || entry.path().extension() == ".xml")
            found.push_back(entry.path());
}

} // namespace

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::filesystem::path> corpusAndSamples() {
    std::vector<std::filesystem::path> found;
    appendDocuments(FORME_SAMPLES, found);
    EXPECT_FALSE(found.empty());
    if (std::filesystem::is_directory(FORME_CORPUS))
        appendDocuments(FORME_CORPUS, found);
    std::sort(found.begin(), found.end());
    return found;
}

Core::String textOf(const std::filesystem::path& path) {
    const SmartPtr<Core::IO::Stream> file(
        new Core::IO::FileStream(path.wstring().c_str(), false, false, false));
    return Core::IO::XmlReader(file).readToEnd();
}

std::filesystem::path samplesFolder() {
    return FORME_SAMPLES;
}

std::filesystem::path sourcesFolder() {
    return FORME_SOURCES;
}

std::filesystem::path scenariosFolder() {
    return FORME_SCENARIOS;
}

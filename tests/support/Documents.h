#pragma once

#include "foundation/FileStream.h"
#include "foundation/SmartPtr.h"
#include "foundation/XmlReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

inline std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The documents that people wrote: the corpus and the samples.
inline std::vector<std::filesystem::path> corpusAndSamples() {
    std::vector<std::filesystem::path> found;
    for (const char* folder : {FORME_CORPUS, FORME_SAMPLES})
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.path().extension() == ".fo" || entry.path().extension() == ".xml")
                found.push_back(entry.path());
    EXPECT_FALSE(found.empty());
    std::sort(found.begin(), found.end());
    return found;
}

inline Core::String textOf(const std::filesystem::path& path) {
    const SmartPtr<Core::IO::Stream> file(
        new Core::IO::FileStream(path.wstring().c_str(), false, false, false));
    return Core::IO::XmlReader(file).readToEnd();
}

inline std::string nameOfDocument(const testing::TestParamInfo<std::filesystem::path>& info) {
    std::string name = info.param.stem().string();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char ch) { return !std::isalnum(ch); }, '_');
    return name;
}

#pragma once

#include "foundation/String.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>
#include <vector>

std::string bytesOf(const std::filesystem::path& path);

/// The documents that people wrote: the samples and, where it lies beside the project, the corpus.
std::vector<std::filesystem::path> corpusAndSamples();

/// A document's text, decoded as a host would have it.
Core::String textOf(const std::filesystem::path& path);

/// Folders of the project.
std::filesystem::path samplesFolder();
std::filesystem::path sourcesFolder();
std::filesystem::path scenariosFolder();

inline std::string nameOfDocument(const testing::TestParamInfo<std::filesystem::path>& info) {
    std::string name = info.param.stem().string();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char ch) { return !std::isalnum(ch); }, '_');
    return name;
}

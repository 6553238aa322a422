#pragma once

#include "foundation/Encoder.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

/// A folder for the files of one test, gone with it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "forme-test-XXXXXX").string();
        if (!mkdtemp(name.data()))
            ADD_FAILURE() << "no temporary folder";
        path_ = name;
        std::filesystem::permissions(path_, std::filesystem::perms(0755));
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path path() const { return path_; }

    std::wstring put(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return wide(name);
    }
    std::wstring wide(const std::string& name) const {
        return std::wstring(Core::Encoder::convertUTF8ToString((path_ / name).string()).view());
    }

    std::string bytesOf(const std::string& name) const { return ::bytesOf(path_ / name); }
    long fileCount() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }

private:
    std::filesystem::path path_;
};

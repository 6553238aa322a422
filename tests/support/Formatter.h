#pragma once

#include <filesystem>
#include <set>
#include <string>

/// Whether the formatter fop is installed.
bool hasFormatter();

/// What the formatter calls an error in a document, without the names of files and places; what it
/// makes of the document stands beside it.
std::set<std::string> formatterErrorsIn(const std::filesystem::path& document);

/// A new folder for the files of a test.
std::filesystem::path newFolder(const std::string& name);

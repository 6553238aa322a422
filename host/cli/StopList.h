#pragma once

#include <string>

/// The document as a reader sees it, block by block, with a `|` at every stop of the caret, in
/// UTF-8. Throws Core::Exception when it cannot be loaded.
std::string listStops(const std::string& document);

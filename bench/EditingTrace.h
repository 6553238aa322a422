#pragma once

#include <string>
#include <vector>

/// One keystroke of a person writing: at a place in the text, characters deleted and characters
/// inserted.
struct Patch {
    int position;
    int deleted;
    std::string inserted;
};

/// What a person wrote, keystroke by keystroke, and what it came to.
struct EditingTrace {
    std::vector<Patch> patches;
    std::string endContent;
};

/// Reads a recorded trace, gzipped JSON with txns[].patches[] of [position, deleted, inserted].
/// Throws std::runtime_error with the path when it cannot be read, begins with a text, holds
/// anything but ASCII, or has a patch outside the text.
EditingTrace readTrace(const std::string& path);

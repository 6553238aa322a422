#pragma once

#include <optional>

/// Counts the instructions that this thread carries out, those of the kernel excepted.
class Instructions {
public:
    Instructions();
    ~Instructions();
    Instructions(const Instructions&) = delete;
    Instructions& operator=(const Instructions&) = delete;

    /// Since this was made; none where the machine or the system does not let them be counted.
    std::optional<long long> count() const;

private:
    int file_;
};

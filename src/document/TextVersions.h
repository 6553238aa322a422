#pragma once

#include "text/TextChange.h"

#include <array>
#include <cstdint>
#include <optional>

/// The versions of a text that a host has asked for, and what changed from each to the next, so
/// that the host can follow the text without reading it again. Versions have numbers that rise. A
/// text that nobody follows costs one range, which takes up each change.
class TextVersions {
public:
    using Number = std::uint64_t;
    /// How many versions before the last one are kept.
    static constexpr Number kept = 256;

    /// The number of the text as it is now: another one if it has changed since the last was given.
    Number current() noexcept;
    /// What has changed since a version, as one range that holds all changes; nothing for a version
    /// that is not kept or never was.
    std::optional<TextChange> changeSince(Number version) const noexcept;

    /// Takes up a change that was made.
    void add(const TextChange& change) noexcept;

    /// A text that may be gone back to.
    struct Mark {
        Number last;
        TextChange sinceLast;
    };
    Mark mark() const noexcept { return {last_, sinceLast_}; }
    /// The text is again what it was at the mark. `length` is what it had, `lengthThen` what it
    /// has.
    void goBackTo(const Mark& mark, int length, int lengthThen) noexcept;

private:
    std::array<TextChange, kept> changes_; // from version n to n + 1, at n modulo their number
    Number last_ = 0;
    TextChange sinceLast_;
};

#pragma once

#include "foundation/Api.h"

/// Where two versions of a text differ: `removed` units from `start` on gave way to `inserted`.
struct FORME_API TextChange {
    int start = 0;
    int removed = 0;
    int inserted = 0;

    /// Whether the two are the same text.
    bool empty() const { return removed == 0 && inserted == 0; }
    /// The change back.
    TextChange undone() const { return {start, inserted, removed}; }
    /// Takes up a change that was made after this one: the range then holds both.
    void add(const TextChange& later);

    bool operator==(const TextChange&) const = default;
};

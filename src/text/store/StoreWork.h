#pragma once

/// What the stores of this thread have done so far: by this a test tells that a key costs the same
/// in a letter and in a book. Counting costs nothing beside what is counted.
struct StoreWork {
    long long units = 0;  ///< that were copied, or read for markup
    long long chunks = 0; ///< from one to another of which a reader went
    long long nodes = 0;  ///< of trees that were passed on the way to a place

    static StoreWork& ofThisThread() noexcept;
};

#pragma once

/// What was done to an element that a deletion had emptied, and where offsets of the text before
/// are now: empty inlines were removed, and then the element that remained got its placeholder.
struct PlaceholderRepair {
    int removedStart = 0;  ///< the stretch that went, its end excluded
    int removedEnd = 0;    ///< equal to its start if none did
    int insertedStart = 0; ///< the stretch that was put in behind that, its end excluded
    int insertedEnd = 0;   ///< equal to its start if none was
    int placeholder = -1;  ///< the placeholder in that stretch

    bool removedInline() const { return removedStart < removedEnd; }
    bool insertedPlaceholder() const { return placeholder >= 0; }
    bool done() const { return removedInline() || insertedPlaceholder(); }

    /// Takes up that an inline around what went before was removed, from `start` to `end`.
    void addRemoval(int start, int end);

    /// Where an offset is now. One at the insertion is behind what was put in.
    int map(int offset) const;
};

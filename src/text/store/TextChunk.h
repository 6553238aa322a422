#pragma once

#include "text/store/LexicalState.h"
#include "text/store/MarkupReader.h"
#include "text/store/Measure.h"
#include "text/store/TextUnits.h"

#include <string_view>
#include <vector>

/// A piece of a text with where markup begins and ends in it. It may begin and end anywhere, in a
/// tag or between the halves of a pair, and so knows how its first unit is to be read.
class TextChunk {
public:
    /// More units mean that more is read anew when a key changes markup, fewer more memory.
    static constexpr int most = 512;
    /// Smaller ones are joined to their neighbours.
    static constexpr int least = 128;

    TextChunk() = default;
    TextChunk(std::wstring_view units, const LexicalState& entry);

    int size() const { return units_.size(); }
    const TextUnits& units() const { return units_; }

    const LexicalState& entry() const { return entry_; }
    const LexicalState& exit() const { return exit_; }
    const std::vector<MarkupMark>& marks() const { return marks_; }
    /// The first mark of one of the kinds at or behind an offset, and the last one before it; null
    /// if none.
    const MarkupMark* markFrom(int at, MarkKinds kinds) const;
    const MarkupMark* markBefore(int at, MarkKinds kinds) const;
    /// The "<" of the markup before whose name ends the chunk does; -1 if none.
    int tornName() const;
    /// How many marks stand before an offset.
    std::size_t marksBefore(int at) const;
    Measure measure() const;

    /// Whether so many units from `at` on can give way to others where they stand, as all else is
    /// read as before.
    bool canReplacePlain(int at, int count, std::wstring_view with) const {
        return keepsMarkup(at, count, with) && units_.canReplace(at, count, with);
    }
    void replacePlain(int at, int count, std::wstring_view with);
    /// What becomes of it when so many units from `at` on give way to others.
    TextChunk replaced(int at, int count, std::wstring_view with) const;
    /// The part from `start` up to but excluding `end`.
    TextChunk part(int start, int end) const;
    /// Adds units, which may make it larger than a chunk of a text is. They are read anew unless
    /// they begin as this chunk ends.
    void append(const TextChunk& next);
    /// The same units read from another state on.
    TextChunk readFrom(const LexicalState& entry) const;

private:
    TextChunk(TextUnits units, const LexicalState& entry);

    void name(MarkupMark& mark);
    void shiftMarks(std::size_t first, int distance);
    LexicalState stateAt(int at) const;
    bool isPlainText(int at) const;
    bool isBehindProlog(std::size_t marks) const;
    bool isInReference(int at) const;
    bool isPlainIn(int at, int end) const;
    bool keepsMarkup(int at, int count, std::wstring_view with) const;

    TextUnits units_;
    std::vector<MarkupMark> marks_;
    MarkupFaults faults_;
    LexicalState entry_;
    LexicalState exit_;
};

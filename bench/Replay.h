#pragma once

#include "Costs.h"
#include "EditingTrace.h"

#include <cstddef>
#include <string>

/// Someone at an editor who types into a paragraph of their own at the end of a document. Places
/// are counted in what is typed there.
class Writer {
public:
    virtual ~Writer() = default;

    /// Where the caret is.
    virtual int index() const = 0;
    /// Goes to a place in the text, which is `written` so far.
    virtual void goTo(int index, const std::string& written) = 0;
    /// Takes note that the caret is there after some keys, and how far into its line.
    virtual void noteIndex(int index, int column) = 0;

    virtual void type(char character, Costs& costs) = 0;
    /// Backspace, or else Delete, of that character.
    virtual void eraseCharacter(bool backward, char character, Costs& costs) = 0;

    /// Whether this is what was typed, as far as the editor can tell apart.
    virtual bool holds(const std::string& text) const = 0;
};

/// A trace, replayed keystroke by keystroke. Moves of the caret do not count.
class Replay {
public:
    /// Both stay the caller's.
    Replay(Writer& writer, const EditingTrace& trace) : writer_(writer), trace_(trace) {}

    /// Goes on until `keys` are replayed, or more to the end of a patch.
    void advanceTo(std::size_t keys);
    bool isAtEnd() const { return next_ == trace_.patches.size(); }
    /// Whether it is not at the end, or the writer holds what the person wrote.
    bool isTrue() const { return !isAtEnd() || writer_.holds(trace_.endContent); }
    const Costs& costs() const { return costs_; }

private:
    void replay(const Patch& patch);
    void erase(const Patch& patch);
    void noteIndex(int index);

    Writer& writer_;
    const EditingTrace& trace_;
    std::size_t next_ = 0;
    std::string written_;
    Costs costs_;
};

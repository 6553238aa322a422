#pragma once

#include "text/TextChange.h"
#include "text/store/TextStore.h"

#include <forward_list>
#include <memory>

/// The changes of a text since the oldest mark that is out. Its versions form a tree, for whoever
/// goes back and then does something else leaves a branch behind. Each version knows what led to it
/// from the one before, so that the range between any two can be told, and going from one to
/// another needs no memory.
class TextLog {
public:
    struct Version {
        Version* before = nullptr; ///< null for the oldest
        int depth = 0;
        TextChange change;
        Version* next = nullptr; ///< on the way that is walked just now
    };

    Version& current() { return *current_; }

    /// A version that follows the current one, which it is not yet. It is forgotten if nobody goes
    /// there.
    Version& prepare(const TextChange& change);
    /// The text is that version now.
    void goTo(Version& version) noexcept { current_ = &version; }
    /// Forgets everything; the current version is the oldest.
    void clear() noexcept;

    /// Calls `step` with each change between the current version and `target`, in the order in
    /// which they are passed, as it is made then: one that is undone removes what it inserted.
    template <typename Step>
    void walk(Version& target, Step step) const {
        Version* from = current_;
        Version* to = &target;
        while (from != to) {
            if (from->depth > to->depth) {
                step(from->change.undone());
                from = from->before;
            } else {
                to->before->next = to;
                to = to->before;
            }
        }
        while (to != &target) {
            to = to->next;
            step(to->change);
        }
    }

private:
    Version oldest_;
    std::forward_list<Version> versions_;
    Version* current_ = &oldest_;
};

/// A version of a text, kept as long as the mark is there. Marks cost the same for every text and
/// may be used in any order.
class TextMark {
public:
    /// Marks the current version of the log, which is that of the text.
    TextMark(std::shared_ptr<TextLog> log, const TextStore& text, bool isKnownWhole);
    ~TextMark();

    TextMark(const TextMark&) = delete;
    TextMark& operator=(const TextMark&) = delete;

    /// Whether that version is known to be well formed.
    bool isKnownWhole() const { return isKnownWhole_; }
    void noteWhole() const { isKnownWhole_ = true; }
    /// What the text was.
    const TextStore& text() const { return text_; }
    /// The version, for the text that owns the log.
    TextLog::Version& version() const { return *version_; }

private:
    std::shared_ptr<TextLog> log_;
    TextLog::Version* version_;
    TextStore text_;
    mutable bool isKnownWhole_;
};

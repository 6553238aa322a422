#pragma once

#include "foundation/String.h"

#include <forward_list>
#include <memory>

/// Where two versions of a text differ: `removed` units from `start` on gave way to `inserted`.
struct TextChange {
    int start = 0;
    int removed = 0;
    int inserted = 0;

    bool empty() const { return removed == 0 && inserted == 0; }
    /// Takes up a change that was made after this one.
    void add(const TextChange& later);
};

/// The changes of a text since the oldest mark that is out. Its versions form a tree, for whoever
/// goes back and then does something else leaves a branch behind. Each version knows what led to it
/// from the one before, in both directions, so that going from any to any other needs no memory.
class TextLog {
public:
    struct Version {
        Version* before = nullptr; ///< null for the oldest
        int depth = 0;
        TextChange change;
        Core::String removed;  ///< unless `isWhole`
        Core::String inserted; ///< likewise
        bool isWhole = false;  ///< whether the text was exchanged, as one that is shared must be
        Core::String other;    ///< then the text on that side of the change where we are not
        bool hasBranched = false;
        Version* next = nullptr; ///< on the way that is walked just now
    };

    Version& current() { return *current_; }
    const Version& current() const { return *current_; }

    /// A version that follows the current one, which it is not yet. It is forgotten if nobody goes
    /// there.
    Version& prepare(const TextChange& change);
    /// The change that leads to the prepared version has been made.
    void follow(Version& version) noexcept;
    /// All changes on the way to the version have been undone or made again.
    void goTo(Version& version) noexcept { current_ = &version; }
    /// Forgets everything; the current version is the oldest.
    void clear() noexcept;

    /// Calls `step` with each version whose change lies between the current one and `target`, in
    /// the order in which they are passed, and whether the change is undone or made again.
    template <typename Step>
    void walk(Version& target, Step step) const {
        Version* from = current_;
        Version* to = &target;
        while (from != to) {
            if (from->depth > to->depth) {
                step(*from, true);
                from = from->before;
            } else {
                to->before->next = to;
                to = to->before;
            }
        }
        while (to != &target) {
            to = to->next;
            step(*to, false);
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
    /// Marks the current version of the log, which only the text has.
    TextMark(std::shared_ptr<TextLog> log, bool isRegular);
    ~TextMark();

    TextMark(const TextMark&) = delete;
    TextMark& operator=(const TextMark&) = delete;

    /// Whether that version was known to be regular.
    bool isRegular() const { return isRegular_; }
    /// The version, for the text that owns the log.
    TextLog::Version& version() const { return *version_; }

private:
    std::shared_ptr<TextLog> log_;
    TextLog::Version* version_;
    bool isRegular_;
};

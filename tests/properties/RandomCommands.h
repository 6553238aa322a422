#pragma once

#include "Session.h"
#include "properties/TextFollower.h"
#include "support/EditorState.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

/// Numbers that are the same for a seed on every platform.
class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    /// A number from 0 up to but excluding `limit`, which is not 0.
    std::size_t below(std::size_t limit) { return engine_() % limit; }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    template <typename List>
    const auto& oneOf(const List& list) {
        return list[below(std::size(list))];
    }

    /// Each as often as its weight says.
    template <typename List>
    const auto& oneByWeight(const List& list) {
        std::size_t total = 0;
        for (const auto& each : list)
            total += each.weight;
        std::size_t at = below(total);
        auto found = std::begin(list);
        for (; at >= found->weight; ++found)
            at -= found->weight;
        return *found;
    }

private:
    std::mt19937 engine_;
};

/// A document that people could have written: blocks, inlines, tables, lists, side regions.
std::string randomDocument(Random& random);

/// Fills in what requests leave open: a text that begins with "$" stands for another each time.
class Filler {
public:
    /// Of each hole, a list of what is put in by chance.
    Filler(Random& random, const Json& choices) : random_(random), choices_(choices) {}
    virtual ~Filler() = default;

    Json fill(const Json& request);

protected:
    /// "$1 in 8" is true as often as that, "$below 8" a number from 0, any other one of the
    /// choices.
    virtual Json valueOf(const std::string& hole);
    int below(std::size_t limit) { return static_cast<int>(random_.below(limit)); }

    Random& random_;

private:
    const Json& choices_;
};

/// A kind of command and how often it comes.
struct CommandKind {
    std::size_t weight;
    Json request; ///< what is to be filled in begins with "$"
};

/// What streams are made of.
struct CommandMix {
    std::vector<CommandKind> kinds;
};

CommandMix everyCommand();

/// One request, filled in for the document as it is.
std::string randomCommand(Random& random, const EditableDocumentBuffer& document,
                          const CommandMix& mix);

/// A text whose tags need not match, cut and torn from one that is well formed.
std::string mutilated(std::string text, Random& random);

/// A document on which requests are carried out, and the promises that each of them makes.
class WatchedSession {
public:
    explicit WatchedSession(const std::string& path);
    virtual ~WatchedSession() = default;

    EditableDocumentBuffer& document() { return session_.document(); }

    /// What a request breaks: it fails, or its notices do not fit. Nothing if all is well.
    std::string carryOut(const std::string& command);
    /// What undoing and redoing everything does not bring back.
    std::string brokenHistory();

protected:
    EditorState state() { return stateOf(document()); }
    Session& session() { return session_; }
    virtual bool undoKeepsSelection() const { return true; }

private:
    bool isAsAtFirst();
    std::string brokenFollowing();
    void replayAll(const std::string& command);

    Session session_;
    std::vector<TextFollower> followers_;
    std::size_t carriedOut_ = 0;
    EditorState first_; // before the first change that can be undone
    bool firstChangedText_ = false;
    bool lostSection_ = false; // which Backspace removed for good
};

/// Steps without all that it does not take to fail.
template <typename Step, typename Fails>
std::vector<Step> shrunk(std::vector<Step> steps, Fails fails) {
    for (std::size_t piece = (steps.size() + 1) / 2; piece > 0;) {
        bool isShrunk = false;
        for (std::size_t at = 0; at < steps.size();) {
            std::vector<Step> fewer = steps;
            const auto from = std::next(fewer.begin(), static_cast<std::ptrdiff_t>(at));
            const std::size_t count = std::min(piece, steps.size() - at);
            fewer.erase(from, std::next(from, static_cast<std::ptrdiff_t>(count)));
            if (fails(fewer)) {
                steps = fewer;
                isShrunk = true;
            } else {
                at += piece;
            }
        }
        if (piece > 1 || !isShrunk)
            piece /= 2;
    }
    return steps;
}

/// Has steps, each of some requests, carried out on a document until one breaks a promise that the
/// checker knows. Answers which it was and the shrunk script that `forme run` replays, or nothing.
template <typename NewChecker, typename NextStep>
std::string failureOfSteps(const std::string& document, std::size_t count, NewChecker newChecker,
                           NextStep nextStep) {
    auto checker = newChecker(document);
    std::vector<decltype(nextStep(checker))> steps;
    std::string broken;
    while (broken.empty() && steps.size() < count)
        broken = checker.carryOut(steps.emplace_back(nextStep(checker)));
    if (broken.empty())
        broken = checker.brokenHistory();
    if (broken.empty())
        return {};
    const auto brokenBy = [&](const auto& some) {
        auto another = newChecker(document);
        std::string found;
        for (auto step = some.begin(); found.empty() && step != some.end(); ++step)
            found = another.carryOut(*step);
        return found.empty() ? another.brokenHistory() : found;
    };
    if (brokenBy(steps).empty())
        return broken + ", but not when it is repeated";
    steps = shrunk(steps, [&](const auto& some) { return !brokenBy(some).empty(); });
    std::string script = "forme run " + document + " SCRIPT, with these lines:\n";
    for (const auto& step : steps)
        for (const std::string& request : step.requests)
            script += request + "\n";
    return brokenBy(steps) + "\n" + script;
}

/// A number that the environment may set.
std::size_t setting(const char* name, std::size_t usual);

/// Tries random commands on a document; answers the shrunk script of a stream that failed, or
/// nothing.
std::string failureOn(const std::string& document, Random& random, std::size_t count);

/// Has failures looked for on documents that are made for it, each from a seed of its own, until so
/// many commands were tried. One that fails stays on the disk, for its script to be replayed on it.
std::string failureOnNew(const std::string& name, std::size_t usual, std::size_t perDocument,
                         const std::function<std::string(Random&)>& make,
                         const std::function<std::string(const std::string&, Random&)>& failure);

#pragma once

#include "Session.h"
#include "support/EditorState.h"

#include <cstddef>
#include <cstdint>
#include <functional>
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

/// A document that people could have written: blocks, inlines, tables, lists, side regions. One in
/// `listEvery` of the places where blocks stand holds a list.
std::string randomDocument(Random& random, std::size_t listEvery = 6);

/// A kind of command and how often it comes.
struct CommandKind {
    std::size_t weight;
    Json request; ///< what is to be filled in begins with "$"
};

/// What streams are made of.
struct CommandMix {
    std::vector<CommandKind> kinds;
    /// What a document breaks of the promises that only these commands make, or nothing.
    std::function<std::string(const Core::String& text)> broken;
};

CommandMix everyCommand();
/// What people do in lists.
CommandMix listCommands();

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
    bool hasLostSection() const { return lostSection_; }
    virtual bool undoKeepsSelection() const { return true; }

private:
    bool isAsAtFirst();
    void replayAll(const std::string& command);

    Session session_;
    EditorState first_; // before the first change that can be undone
    bool firstChangedText_ = false;
    bool lostSection_ = false; // which Backspace removed for good
};

/// Requests on a document, each a line of the script that `forme run` replays.
struct CommandStream {
    std::string document; ///< the path of its file
    std::vector<std::string> commands;

    std::string script() const;
};

/// Carries out random commands and keeps them; stops at the first that breaks a promise.
CommandStream randomCommands(const std::string& document, Random& random, std::size_t count,
                             const CommandMix& mix);

/// Carries out a stream; answers which promise was broken, by which command, or nothing. The text
/// is parsed after every n-th command and at the end.
std::string brokenPromise(const CommandStream& stream, std::size_t parseEvery,
                          const CommandMix& mix);

/// The stream with all commands taken out that it does not take to fail.
CommandStream shrink(CommandStream stream, const std::function<bool(const CommandStream&)>& fails);

/// The same for steps that are more than lines of requests.
template <typename Step, typename Fails>
std::vector<Step> shrunk(const std::vector<Step>& steps, Fails fails) {
    CommandStream numbers;
    for (std::size_t i = 0; i < steps.size(); ++i)
        numbers.commands.push_back(std::to_string(i));
    const auto chosen = [&](const CommandStream& stream) {
        std::vector<Step> some;
        for (const std::string& number : stream.commands)
            some.push_back(steps[std::stoul(number)]);
        return some;
    };
    return chosen(
        shrink(numbers, [&](const CommandStream& stream) { return fails(chosen(stream)); }));
}

/// A number that the environment may set.
std::size_t setting(const char* name, std::size_t usual);

/// Tries random commands on a document; answers the shrunk script of a stream that failed, or
/// nothing.
std::string failureOn(const std::string& document, Random& random, std::size_t count,
                      const CommandMix& mix);

/// Has a failure looked for on a document that is made for it, which stays on the disk under that
/// name after one, for its script to be replayed on it.
std::string failureOnNew(const std::string& text, const std::string& name,
                         const std::function<std::string(const std::string& path)>& failure);

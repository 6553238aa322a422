#pragma once

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

private:
    std::mt19937 engine_;
};

/// A document that people could have written: blocks, inlines, tables, lists, side regions.
std::string randomDocument(Random& random);

/// Requests on a document, each a line of the script that `forme run` replays.
struct CommandStream {
    std::string document; ///< the path of its file
    std::vector<std::string> commands;

    std::string script() const;
};

/// Carries out random commands and keeps them; stops at the first that breaks a promise.
CommandStream randomCommands(const std::string& document, Random& random, std::size_t count);

/// Carries out a stream; answers which promise was broken, by which command, or nothing. The text
/// is parsed after every n-th command and at the end.
std::string brokenPromise(const CommandStream& stream, std::size_t parseEvery);

/// The stream with all commands taken out that it does not take to fail.
CommandStream shrink(CommandStream stream, const std::function<bool(const CommandStream&)>& fails);

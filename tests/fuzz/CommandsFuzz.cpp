// Random commands on any text, whose tags need not match: each comes to an end, in time and memory
// bounded by the text, and leaves the caret in the text or nowhere.

#include "Session.h"
#include "properties/RandomCommands.h"

#include <cstdint>
#include <cstdlib>
#include <numeric>

/// All bytes together choose the commands too, so that a change of the text is another run.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CommandMix mix = everyCommand();
    Random random(std::accumulate(
        data, data + size, std::uint32_t{1},
        [](std::uint32_t hash, std::uint8_t byte) { return hash * 16777619U ^ byte; }));
    Session session;
    session.document().setContent(Core::String(std::wstring_view(std::wstring(data, data + size))),
                                  true);
    constexpr int commands = 12;
    for (int i = 0; i < commands; ++i) {
        session.serveLine(randomCommand(random, session.document(), mix));
        const int caret = session.document().getCaretPos();
        if (caret < -1 || caret >= session.document().getContent().length())
            std::abort();
    }
    return 0;
}

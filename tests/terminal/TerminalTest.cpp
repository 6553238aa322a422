// The terminal editor in a terminal: what it shows, and what keys make of a document.

#include "Session.h"
#include "foundation/TemporaryFolder.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <regex>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The editor on a document of its own.
class RunningEditor {
public:
    explicit RunningEditor(const std::string& path) {
        const winsize size{40, 100, 0, 0};
        process_ = forkpty(&terminal_, nullptr, nullptr, &size);
        if (process_ == 0) {
            setenv("TERM", "xterm", 1);
            setenv("LC_ALL", "C.UTF-8", 1);
            execl(FORME_TERMINAL, "forme_terminal", path.c_str(), nullptr);
            _exit(127);
        }
    }
    ~RunningEditor() { close(terminal_); }
    RunningEditor(const RunningEditor&) = delete;
    RunningEditor& operator=(const RunningEditor&) = delete;

    void send(const std::string& keys) {
        EXPECT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    }

    /// What was written until it holds the text, without what moves and colours.
    std::string readUntil(const std::string& text) {
        static const std::regex sequences("\033(\\[[0-9;?]*[a-zA-Z]|\\([A-Z0-9]|[=>])");
        std::string plain;
        for (pollfd ready{terminal_, POLLIN, 0};
             plain.find(text) == std::string::npos && poll(&ready, 1, 20000) > 0;) {
            char piece[4096];
            const ssize_t count = read(terminal_, piece, sizeof piece);
            if (count <= 0)
                break;
            written_.append(piece, static_cast<std::size_t>(count));
            plain = std::regex_replace(written_, sequences, "");
        }
        EXPECT_NE(plain.find(text), std::string::npos) << plain;
        written_.clear();
        return plain;
    }

    /// Waits for it to end; answers its exit code.
    int end() {
        int status = -1;
        char rest[4096];
        while (read(terminal_, rest, sizeof rest) > 0)
            ;
        return waitpid(process_, &status, 0) == process_ && WIFEXITED(status) ? WEXITSTATUS(status)
                                                                              : -1;
    }

private:
    int terminal_ = -1;
    pid_t process_ = -1;
    std::string written_;
};

} // namespace

TEST(Terminal, EditsAsRequestsDo) {
    const TemporaryFolder folder;
    const std::string path = folder / "letter.xml";
    const std::string expected = folder / "expected.xml";
    std::filesystem::copy_file(samplesFolder() / "letter.xml", path);

    RunningEditor editor(path);
    const std::string shown = editor.readUntil("fo:flow/fo:block");
    for (const char* line : {"Harrowgate Museum of Clocks", "Ms Elinor Thackwray", "there will be tea & cake"})
        EXPECT_NE(shown.find(line), std::string::npos) << line;
    // Types, undoes a word, selects and cuts, makes a list of two, pastes and saves.
    editor.send("\033[1;5HDraft \x1A\x19<1\r\033\rto\033[1;2D\033[1;2D\x18\033[1;5C\x0E\r\x16\x10\x7F\033[3~\x13");
    editor.readUntil("saved");
    editor.send("\x11");
    EXPECT_EQ(editor.end(), 0);

    Session session;
    session.open(Core::String((samplesFolder() / "letter.xml").c_str()));
    ...
}

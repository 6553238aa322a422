// The terminal editor in a terminal: what it shows, and what keys make of a document.

#include "Session.h"
#include "foundation/TemporaryFolder.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <regex>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

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

/// Keys as a terminal sends them, and what they ask for.
const struct {
    const char* keys;
    std::vector<const char*> requests;
} work[] = {
    {"\033[1;5H", {R"(["moveCaretHome",false])"}},
    {"Dr<", {R"(["insertText","Dr<",false,false])"}},
    {"\x1A\x19", {R"(["undo"])", R"(["redo"])"}},
    {"\033[1;2D", {R"(["moveCaretLeft",true,false,true])"}},
    {"\x18", {R"(["erase",false,false])"}},
    {"\033[1;5C", {R"(["moveCaretRight",false,true,true])"}},
    {"\t\r", {R"(["insertTab"])", R"(["insertBreak",5,false])"}},
    {"\x16", {R"(["pasteMarkup","&lt;"])"}},
    {"\033\r", {R"(["insertBreak",2,false])"}},
    {"\x0E", {R"(["makeList",0])"}},
    {"\r", {R"(["insertBreak",6,false])"}},
    {"\xC3\xA9", {R"(["insertText","\u00e9",false,false])"}},
    {"\x10", {R"(["insertBreak",0,false])"}},
    {"\x7F\033[3~", {R"(["erase",false,false])", R"(["erase",true,false])"}},
    {"\033[3;5~", {R"(["erase",true,true])"}},
};

} // namespace

TEST(Terminal, EditsAsRequestsDo) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.path() / "letter.xml";
    std::filesystem::copy_file(samplesFolder() / "letter.xml", path);
    Session session;
    session.open(folder.wide("letter.xml").c_str());

    RunningEditor editor(path);
    const std::string shown = editor.readUntil("Ctrl+Q quits");
    for (const char* line : {"Harrowgate Museum", "Ms Elinor Thackwray", "will be tea & cake"})
        EXPECT_NE(shown.find(line), std::string::npos) << line;
    for (const auto& [keys, requests] : work) {
        editor.send(keys);
        for (const char* request : requests)
            EXPECT_EQ(session.serveLine(request).count("error"), 0U) << request;
    }
    editor.send("\x13\x11\x11"); // the last in case that nothing was saved
    EXPECT_EQ(editor.end(), 0);
    session.document().saveToFile(folder.wide("expected.xml").c_str(), DocumentEncoding::Utf8);
    EXPECT_EQ(folder.bytesOf("letter.xml"), folder.bytesOf("expected.xml"));
}

TEST(Terminal, TellsWhereAFileIsNotWellFormed) {
    const TemporaryFolder folder;
    folder.put("torn.xml", "<a>\n<b></a>");
    RunningEditor editor(folder.path() / "torn.xml");
    editor.readUntil("torn.xml:2:");
    EXPECT_EQ(editor.end(), 1);
}

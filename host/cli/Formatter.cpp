#include "Formatter.h"

#include <forme/foundation/ByteArray.h>
#include <forme/foundation/Encoder.h>
#include <forme/foundation/FileStream.h>
#include <forme/foundation/SmartPtr.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int notFound = 127; // as shells have it

[[noreturn]] void fail(int error, const std::string& what) {
    throw std::system_error(error, std::generic_category(), what);
}

/// A file without a name, which goes when it is closed.
class UnnamedFile {
public:
    UnnamedFile() : file_(std::tmpfile()) {
        if (!file_)
            fail(errno, "a temporary file cannot be made");
    }

    int descriptor() const { return fileno(file_.get()); }

    void write(std::string_view bytes) {
        if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size() ||
            std::fflush(file_.get()) != 0)
            fail(errno, "a temporary file cannot be written");
        std::rewind(file_.get());
    }

    std::string read() {
        std::string bytes;
        std::array<char, 1 << 16> piece{};
        std::rewind(file_.get());
        while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), file_.get()))
            bytes.append(piece.data(), count);
        if (std::ferror(file_.get()))
            fail(errno, "a temporary file cannot be read");
        return bytes;
    }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, Close> file_;
};

/// Runs the formatter in a folder, and answers its exit status. No shell reads any of it.
int runFormatter(const std::filesystem::path& folder, const UnnamedFile& input,
                 const UnnamedFile& output, const UnnamedFile& messages) {
    const pid_t child = fork();
    if (child < 0)
        fail(errno, "fop cannot be started");
    if (child == 0) {
        // Only what may be called between fork and exec.
        if (chdir(folder.c_str()) == 0 && dup2(input.descriptor(), STDIN_FILENO) >= 0 &&
            dup2(output.descriptor(), STDOUT_FILENO) >= 0 &&
            dup2(messages.descriptor(), STDERR_FILENO) >= 0)
            execlp("fop", "fop", "-q", "-fo", "-", "-pdf", "-", nullptr);
        _exit(notFound);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            fail(errno, "fop cannot be waited for");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// What the formatter says that a user can use: no traces of its stack, nothing twice, and nothing
/// of how it was started.
std::string readable(const std::string& messages) {
    std::istringstream lines(messages);
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        const bool isTrace = line.starts_with("\tat ") || line.starts_with("Caused by: ") ||
                             line.starts_with("\t...");
        if (isTrace && !text.empty())
            break;
        if (!line.empty() && !line.starts_with("[warning] ") && !line.starts_with("[INFO] "))
            text += line + '\n';
    }
    return text;
}

} // namespace

void saveAsPdf(const Core::String& formattingObjects, const std::string& document,
               const std::string& output) {
    // Asked first, so that nothing is formatted in vain.
    const SmartPtr<Core::IO::FileStream> file(
        new Core::IO::FileStream(Core::Encoder::convertUTF8ToString(output), true, true, false));
    UnnamedFile input;
    UnnamedFile pdf;
    UnnamedFile messages;
    input.write(Core::Encoder::convertStringToUTF8(formattingObjects).view());
    const int status =
        runFormatter(std::filesystem::absolute(document).parent_path(), input, pdf, messages);
    if (status == notFound)
        throw std::runtime_error("PDF is made by the formatter fop, which is not installed");
    Core::ByteArray bytes(pdf.read());
    const std::string told = readable(messages.read());
    if (status != 0 || !bytes.view().starts_with("%PDF"))
        throw std::runtime_error("fop refuses the document:\n" + told);
    std::cerr << told;
    file->write(&bytes, 0, static_cast<long long>(bytes.size()));
    file->commit();
}

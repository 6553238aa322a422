#include "foundation/FileStream.h"

#include "foundation/Encoder.h"
#include "foundation/Exception.h"

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Core::IO {

namespace {

namespace fs = std::filesystem;

/// The system's words for an error, the same in every locale.
String reasonOf(int error) {
    static const locale_t untranslated = newlocale(LC_ALL_MASK, "C", nullptr);
    return strerror_l(error, untranslated);
}

/// Repeats a system call for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0)
        return status;
    return std::nullopt;
}

/// The path of the file itself, also where the last of the links leads to nothing yet; empty when
/// the links go round in a circle.
std::string behindLinks(const std::string& path) {
    constexpr int mostLinks = 40; // as many as the system follows
    fs::path file = path;
    std::error_code none;
    for (int links = 0; fs::is_symlink(fs::symlink_status(file, none)); ++links) {
        const fs::path next = fs::read_symlink(file, none);
        if (links == mostLinks || next.empty())
            return {};
        file = file.parent_path() / next;
    }
    return file.string();
}

std::string folderOf(const std::string& path) {
    const fs::path folder = fs::path(path).parent_path();
    return folder.empty() ? "." : folder.string();
}

} // namespace

FileStream::FileStream(const String& path, bool write, bool create, bool /*flag*/) : path_(path) {
    if (path_.empty())
        throw Exception(L"the path of the file is empty");
    if (path_.find(L'\0', 0) >= 0) // behind which the system would not read on
        throw Exception(L"the path of the file holds U+0000");
    const ByteArray name = Encoder::convertStringToUTF8(path_);
    if (write)
        openForWriting(std::string(name.view()), create);
    else
        openForReading(std::string(name.view()));
}

FileStream::~FileStream() {
    discard();
}

void FileStream::openForReading(const std::string& path) {
    // A pipe that nobody writes to would keep the caller waiting.
    descriptor_ =
        uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); });
    if (descriptor_ < 0)
        failWith(errno);
    struct stat status {};
    if (fstat(descriptor_, &status) != 0)
        discardAndFail(errno);
    if (!S_ISREG(status.st_mode)) {
        close();
        failAsOtherKind(status.st_mode);
    }
}

void FileStream::openForWriting(const std::string& path, bool create) {
    target_ = behindLinks(path);
    if (target_.empty())
        failWith(ELOOP);
    const auto old = statusOf(target_);
    if (!old) {
        if (errno != ENOENT || !create)
            failWith(errno);
        createTemporary(0666);
        return;
    }
    if (!S_ISREG(old->st_mode))
        failAsOtherKind(old->st_mode);
    // A rename asks only for the right to the folder, but a file that was made read-only is meant
    // to stay as it is.
    if (faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0)
        failWith(errno);

    createTemporary(0600);
    if (fchown(descriptor_, old->st_uid, old->st_gid) != 0)
        (void)!fchown(descriptor_, static_cast<uid_t>(-1), old->st_gid);
    if (fchmod(descriptor_, old->st_mode & 07777U) != 0)
        discardAndFail(errno);
}

/// A name that nobody else has, so that two who save into one folder never share a file.
void FileStream::createTemporary(unsigned mode) {
    const std::string stem = folderOf(target_) + "/.forme-" + std::to_string(getpid()) + '-';
    for (unsigned attempt = 0;; ++attempt) {
        const std::string candidate = stem + std::to_string(attempt);
        descriptor_ = uninterrupted(
            [&] { return open(candidate.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode); });
        if (descriptor_ >= 0) {
            temporary_ = candidate;
            return;
        }
        if (errno != EEXIST)
            fail(L"no file can be made in its folder: " + reasonOf(errno));
    }
}

void FileStream::commit() {
    requireWriting();
    if (uninterrupted([&] { return fsync(descriptor_); }) != 0)
        discardAndFail(errno);
    if (std::rename(temporary_.c_str(), target_.c_str()) != 0)
        discardAndFail(errno);
    temporary_.clear();
    close();
    syncFolder();
}

/// Without this the name could lead to the old file again after a power failure. A folder that may
/// not be read cannot be flushed, nor can one on a file system that knows no such request.
void FileStream::syncFolder() const {
    const std::string path = folderOf(target_);
    const int folder =
        uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (folder < 0)
        return;
    const int result = uninterrupted([&] { return fsync(folder); });
    const int error = errno;
    ::close(folder);
    if (result != 0 && error != EINVAL)
        fail(L"written, but its folder could not be flushed to disk: " + reasonOf(error));
}

long long FileStream::read(ByteArray* buffer, long long offset, long long count) {
    unsigned char* to = placeFor(buffer, offset, count);
    const auto taken =
        uninterrupted([&] { return ::read(descriptor_, to, static_cast<std::size_t>(count)); });
    if (taken < 0)
        failWith(errno);
    return taken;
}

void FileStream::write(ByteArray* buffer, long long offset, long long count) {
    requireWriting();
    const unsigned char* from = pieceOf(buffer, offset, count);
    while (count > 0) {
        const auto written = uninterrupted(
            [&] { return ::write(descriptor_, from, static_cast<std::size_t>(count)); });
        if (written <= 0)
            discardAndFail(written < 0 ? errno : ENOSPC);
        from += written;
        count -= written;
    }
}

long long FileStream::length() {
    struct stat status {};
    if (fstat(descriptor_, &status) != 0)
        failWith(errno);
    return status.st_size;
}

long long FileStream::seek(long long offset, SeekOrigin origin) {
    const int whence = origin == SeekOrigin::Begin     ? SEEK_SET
                       : origin == SeekOrigin::Current ? SEEK_CUR
                                                       : SEEK_END;
    const off_t position = lseek(descriptor_, offset, whence);
    if (position < 0)
        failWith(errno);
    return position;
}

void FileStream::requireWriting() const {
    if (temporary_.empty())
        fail(L"not open for writing");
}

void FileStream::close() noexcept {
    if (descriptor_ >= 0)
        ::close(descriptor_);
    descriptor_ = -1;
}

void FileStream::discard() noexcept {
    close();
    if (!temporary_.empty())
        unlink(temporary_.c_str());
    temporary_.clear();
}

void FileStream::failWith(int error) const {
    fail(reasonOf(error));
}

/// The file is there, but nothing that can be read or replaced whole.
void FileStream::failAsOtherKind(unsigned mode) const {
    if (S_ISDIR(mode))
        failWith(EISDIR);
    fail(L"not a regular file");
}

void FileStream::discardAndFail(int error) {
    discard();
    failWith(error);
}

} // namespace Core::IO

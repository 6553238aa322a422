#pragma once

#include "foundation/Api.h"
#include "foundation/Stream.h"
#include "foundation/String.h"

#include <string>

namespace Core::IO {

/// A file that is read, or one that is written anew.
///
/// What is written goes into a temporary file in the same folder and takes the place of the old
/// file in commit(), so that there is at every moment either the whole old file or the whole new
/// one under the name. Without commit(), or after a write that failed, the old file stays as it was
/// and the temporary one is removed.
///
/// A symbolic link stays, and the file that it leads to is replaced. The new file has the mode of
/// the old one, and its owner and group as far as the system allows it.
class FORME_API FileStream : public Stream {
public:
    /// Opens `path` for reading, or with `write` for writing. A file that is not there is written
    /// only with `create`. `flag` has no meaning. Throws Core::Exception with the path and the
    /// reason when that cannot be done: nothing there, a folder, a pipe or a device, no right to.
    FileStream(const String& path, bool write, bool create, bool flag);
    ~FileStream() override;

    FileStream(const FileStream&) = delete;
    FileStream& operator=(const FileStream&) = delete;

    /// The path as it was given.
    String path() const { return path_; }
    String name() const override { return path_; }

    /// Makes what was written appear under the path, after it has reached the disk. It ends the
    /// writing: the stream takes nothing more. Throws Core::Exception with the path and the reason.
    void commit();

    long long read(ByteArray* buffer, long long offset, long long count) override;
    void write(ByteArray* buffer, long long offset, long long count) override;
    long long length() override;
    long long seek(long long offset, SeekOrigin origin) override;

private:
    void openForReading(const std::string& path);
    void openForWriting(const std::string& path, bool create);
    void createTemporary(unsigned mode);
    void requireWriting() const;
    void syncFolder() const;
    void close() noexcept;
    void discard() noexcept;
    [[noreturn]] void failWith(int error) const;
    [[noreturn]] void failAsOtherKind(unsigned mode) const;
    [[noreturn]] void discardAndFail(int error);

    String path_;
    std::string target_;    // the file to replace, behind all links
    std::string temporary_; // empty when nothing is being written
    int descriptor_ = -1;
};

} // namespace Core::IO

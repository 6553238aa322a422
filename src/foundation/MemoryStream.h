#pragma once

#include "foundation/Api.h"
#include "foundation/ByteArray.h"
#include "foundation/Stream.h"

namespace Core::IO {

/// A stream over bytes in memory, with a position as in a file: reading begins at the first byte,
/// and writing goes over what stands there and beyond the end.
class FORME_API MemoryStream : public Stream {
public:
    MemoryStream() = default;
    explicit MemoryStream(ByteArray bytes);
    ~MemoryStream() override;

    /// All the bytes, wherever the position is; valid until the next write.
    const ByteArray& getBuffer() const { return bytes_; }

    long long read(ByteArray* buffer, long long offset, long long count) override;
    void write(ByteArray* buffer, long long offset, long long count) override;
    long long length() override;
    long long seek(long long offset, SeekOrigin origin) override;

private:
    ByteArray bytes_;
    long long position_ = 0;
};

} // namespace Core::IO

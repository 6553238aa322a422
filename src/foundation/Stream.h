#pragma once

#include "foundation/Api.h"
#include "foundation/ByteArray.h"
#include "foundation/Object.h"
#include "foundation/String.h"

namespace Core::IO {

/// What the offset of a seek counts from.
enum class SeekOrigin { Begin, Current, End };

/// A source and sink of bytes with a position. Failures raise Core::Exception.
class FORME_API Stream : public Object {
public:
    ~Stream() override;

    /// What messages call the stream: the path of a file, empty for memory.
    virtual String name() const;
    /// Throws Core::Exception for `reason`, with the name of the stream before it.
    [[noreturn]] void fail(const String& reason) const;

    /// Reads up to `count` bytes into `buffer` from its byte `offset` on, growing it where needed.
    /// Answers how many were read; 0 at the end of the stream.
    virtual long long read(ByteArray* buffer, long long offset, long long count) = 0;

    /// Writes `count` bytes of `buffer` from its byte `offset` on, all of them. A piece that does
    /// not lie in the buffer is refused.
    virtual void write(ByteArray* buffer, long long offset, long long count) = 0;

    /// How many bytes the stream holds.
    virtual long long length() = 0;

    /// Moves the position; answers the new one, counted from the beginning. It may lie behind the
    /// end, and a write there fills the gap with zeros. One before the beginning is refused.
    virtual long long seek(long long offset, SeekOrigin origin) = 0;

protected:
    /// The place in `buffer` for `count` bytes from its byte `offset` on, made long enough.
    unsigned char* placeFor(ByteArray* buffer, long long offset, long long count) const;
    /// The `count` bytes of `buffer` from its byte `offset` on.
    const unsigned char* pieceOf(const ByteArray* buffer, long long offset, long long count) const;
};

} // namespace Core::IO

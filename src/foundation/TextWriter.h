#pragma once

#include "foundation/Api.h"
#include "foundation/ByteArray.h"
#include "foundation/Encoding.h"
#include "foundation/SmartPtr.h"
#include "foundation/Stream.h"
#include "foundation/String.h"

namespace Core::IO {

/// Writes text into a stream, at its position. It holds nothing back: what was written is in the
/// stream when write() returns.
class FORME_API TextWriter {
public:
    /// With `mark`, a byte order mark is written at once.
    TextWriter(SmartPtr<Stream> stream, Encoding encoding, bool mark);
    virtual ~TextWriter();

    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    /// Writes `text` as it stands, line ends included. Surrogate pairs come out as one character; a
    /// pair must not be divided between two calls. A lone surrogate raises Core::Exception with the
    /// name of the stream and the offset in all that was given to be written, and nothing of `text`
    /// is written.
    void write(const String& text);

private:
    void writeUnits(std::wstring_view units);

    SmartPtr<Stream> stream_;
    Encoding encoding_;
    ByteArray bytes_;
    std::size_t written_ = 0; // units, without the mark
};

} // namespace Core::IO

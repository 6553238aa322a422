#pragma once

#include "foundation/Api.h"
#include "foundation/ByteArray.h"
#include "foundation/SmartPtr.h"
#include "foundation/Stream.h"
#include "foundation/String.h"

#include <memory>
#include <string>
#include <string_view>

namespace Core::IO {

class Decoder;

/// Reads a text out of a stream: UTF-8, or UTF-16 in either byte order if it begins with a byte
/// order mark. The mark is no part of the text.
class FORME_API TextReader {
public:
    explicit TextReader(SmartPtr<Stream> stream);
    virtual ~TextReader();

    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;

    /// Everything from the position of the stream to its end, characters above U+FFFF as surrogate
    /// pairs. Nothing is ever replaced: bytes that are not text in their encoding, a NUL, and a
    /// text of more than 2^31 - 1 bytes or units raise Core::Exception with the name of the stream,
    /// the byte offset from where the reading began, and the reason.
    String readToEnd();

protected:
    /// Chooses the encoding. `head` is how the text begins, behind the mark; `marked` is the
    /// decoder that the mark tells, null without one. `head` is empty only if the text is.
    virtual std::unique_ptr<Decoder> chooseDecoder(std::string_view head,
                                                   std::unique_ptr<Decoder> marked);

    [[noreturn]] void fail(const String& reason) const;
    [[noreturn]] void failAt(std::size_t byte, const String& reason) const;

private:
    std::string_view pending() const;
    void skip(std::size_t count);
    bool fill();
    std::unique_ptr<Decoder> takeMark();
    void decodePending(Decoder& decoder, std::wstring& units);
    void finish(Decoder& decoder, std::wstring& units);

    SmartPtr<Stream> stream_;
    ByteArray chunk_;
    std::size_t size_ = 0;   // how much of the chunk holds bytes that wait to be decoded
    std::size_t offset_ = 0; // where in the stream the chunk begins
};

} // namespace Core::IO

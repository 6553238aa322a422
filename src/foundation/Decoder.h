#pragma once

#include "foundation/Transcoding.h"

#include <memory>
#include <string>
#include <string_view>

namespace Core::IO {

/// Turns the bytes of one encoding into code units, piece by piece.
class Decoder {
public:
    virtual ~Decoder();

    static std::unique_ptr<Decoder> utf8();
    static std::unique_ptr<Decoder> utf16(Transcoding::ByteOrder order);
    /// The decoder for a name, in any case, that follows XML's grammar of encoding names; null for
    /// an encoding that is not known. `order` is for names that tell none.
    static std::unique_ptr<Decoder> named(const std::string& name, Transcoding::ByteOrder order);

    /// Appends what `bytes` hold to `units`, up to the first fault. The next piece begins with the
    /// bytes that were not used. The reason of a fault stays valid as long as the decoder.
    virtual Transcoding::Progress decode(std::string_view bytes, std::wstring& units) = 0;

    /// Ends the text, of which `rest` was not used: appends what was held back, or tells why the
    /// text must not end here.
    virtual Transcoding::Progress finish(std::string_view rest, std::wstring& units) = 0;

    /// The byte offset of the first NUL character; npos without one.
    virtual std::size_t findNul(std::string_view bytes) const;
};

} // namespace Core::IO

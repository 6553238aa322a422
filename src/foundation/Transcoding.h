#pragma once

#include "foundation/ByteArray.h"

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 and UTF-16 to code units and back, on plain views. Decoding works piece by piece.
namespace Core::Transcoding {

enum class ByteOrder { LittleEndian, BigEndian };

/// How far a decoder came. Without a fault, the bytes from `used` on are the beginning of a
/// character that goes on behind the piece; with one, it lies at `used`.
struct Progress {
    std::size_t used = 0;
    const char* fault = nullptr;
};

/// The faults of a text that ends too early, which only the caller can see.
inline constexpr const char* truncatedSequence = "truncated UTF-8 sequence";
inline constexpr const char* loneSurrogate = "lone surrogate in UTF-16";

/// Append what `bytes` hold to `units`, up to the first fault.
Progress decodeUtf8(std::string_view bytes, std::wstring& units);
Progress decodeUtf16(std::string_view bytes, ByteOrder order, std::wstring& units);

/// The offset of the first unit at or after `start` that no encoding can express: half a surrogate
/// pair, or a value above U+FFFF. std::wstring_view::npos if there is none.
std::size_t findUnpaired(std::wstring_view units, std::size_t start = 0) noexcept;

/// Replace the content of `bytes` with the encoded `units`, in which findUnpaired() finds nothing.
void encodeUtf8(std::wstring_view units, ByteArray& bytes);
void encodeUtf16LE(std::wstring_view units, ByteArray& bytes);

inline bool isHighSurrogate(wchar_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

inline bool isLowSurrogate(wchar_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace Core::Transcoding

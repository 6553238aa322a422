#include "foundation/Transcoding.h"

#include <cstdint>
#include <cstring>

namespace Core::Transcoding {

namespace {

unsigned byteAt(std::string_view bytes, std::size_t offset) {
    return static_cast<unsigned char>(bytes[offset]);
}

/// Widens the ASCII run at the beginning of `bytes`, in steps of a machine word; answers where the
/// steps ended, at most one word before the end of the run.
std::size_t widenAscii(std::string_view bytes, wchar_t* to) {
    constexpr std::uint64_t highBits = 0x8080808080808080ULL;
    std::size_t done = 0;
    for (std::uint64_t word = 0; bytes.size() - done >= sizeof word; done += sizeof word) {
        std::memcpy(&word, bytes.data() + done, sizeof word);
        if (word & highBits)
            break;
        for (std::size_t i = 0; i < sizeof word; ++i)
            to[done + i] = static_cast<wchar_t>(bytes[done + i]);
    }
    return done;
}

/// One character in UTF-8. Length 0 without a fault means that it is not complete.
struct Sequence {
    unsigned point = 0;
    unsigned length = 0;
    const char* fault = nullptr;
};

Sequence faulty(const char* reason) {
    return {0, 0, reason};
}

unsigned sequenceLength(unsigned lead) {
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

const char* faultOfLead(unsigned lead) {
    if (lead < 0xC0)
        return "stray UTF-8 continuation byte";
    if (lead >= 0xFE)
        return "byte that UTF-8 never uses";
    if (lead >= 0xF8)
        return "UTF-8 sequence beyond U+10FFFF";
    return nullptr;
}

const char* faultOfPoint(unsigned point, unsigned length) {
    constexpr unsigned smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (point < smallest[length])
        return "overlong UTF-8 sequence";
    if (point >= 0xD800 && point <= 0xDFFF)
        return "UTF-8 encoded surrogate";
    if (point > 0x10FFFF)
        return "UTF-8 sequence beyond U+10FFFF";
    return nullptr;
}

/// The character of more than one byte at the beginning of `bytes`.
Sequence readSequence(std::string_view bytes) {
    const unsigned lead = byteAt(bytes, 0);
    if (const char* fault = faultOfLead(lead))
        return faulty(fault);
    const unsigned length = sequenceLength(lead);
    unsigned point = lead & (0x7FU >> length);
    for (unsigned i = 1; i < length; ++i) {
        if (i == bytes.size())
            return {};
        const unsigned next = byteAt(bytes, i);
        if ((next & 0xC0U) != 0x80)
            return faulty(truncatedSequence);
        point = (point << 6U) | (next & 0x3FU);
    }
    return {point, length, faultOfPoint(point, length)};
}

wchar_t* putPoint(unsigned point, wchar_t* to) {
    if (point <= 0xFFFF) {
        *to++ = static_cast<wchar_t>(point);
        return to;
    }
    const unsigned rest = point - 0x10000U;
    *to++ = static_cast<wchar_t>(0xD800U + (rest >> 10U));
    *to++ = static_cast<wchar_t>(0xDC00U + (rest & 0x3FFU));
    return to;
}

unsigned joined(wchar_t high, wchar_t low) {
    return 0x10000U + ((static_cast<unsigned>(high) - 0xD800U) << 10U) +
           (static_cast<unsigned>(low) - 0xDC00U);
}

wchar_t unitAt(std::string_view bytes, std::size_t offset, ByteOrder order) {
    const unsigned first = byteAt(bytes, offset);
    const unsigned second = byteAt(bytes, offset + 1);
    return static_cast<wchar_t>(order == ByteOrder::LittleEndian ? first | second << 8U
                                                                 : first << 8U | second);
}

bool isSurrogateOrTooLarge(wchar_t unit) {
    const char32_t value = unit;
    return value - 0xD800U < 0x800U || value > 0xFFFFU;
}

std::size_t sizeInUtf8(std::wstring_view units) {
    std::size_t size = 0;
    for (wchar_t unit : units) {
        const char32_t value = unit;
        const bool halfPair =
            value - 0xD800U < 0x800U; // a pair takes four bytes, two for each half
        size += 1U + (value >= 0x80) + (value >= 0x800) - halfPair;
    }
    return size;
}

/// Narrows the ASCII run at the beginning of `units` block by block; answers where the blocks
/// ended.
std::size_t narrowAscii(std::wstring_view units, unsigned char* to) {
    constexpr std::size_t blockSize = 16;
    std::size_t done = 0;
    for (; units.size() - done >= blockSize; done += blockSize) {
        unsigned together = 0;
        for (std::size_t i = 0; i < blockSize; ++i)
            together |= static_cast<unsigned>(units[done + i]);
        if (together >= 0x80)
            break;
        for (std::size_t i = 0; i < blockSize; ++i)
            to[done + i] = static_cast<unsigned char>(units[done + i]);
    }
    return done;
}

unsigned char* putUtf8(unsigned point, unsigned char* to) {
    const auto continuation = [point](unsigned shift) {
        return static_cast<unsigned char>(0x80U | (point >> shift & 0x3FU));
    };
    if (point < 0x80) {
        *to++ = static_cast<unsigned char>(point);
        return to;
    }
    if (point < 0x800) {
        *to++ = static_cast<unsigned char>(0xC0U | point >> 6U);
    } else if (point < 0x10000) {
        *to++ = static_cast<unsigned char>(0xE0U | point >> 12U);
        *to++ = continuation(6);
    } else {
        *to++ = static_cast<unsigned char>(0xF0U | point >> 18U);
        *to++ = continuation(12);
        *to++ = continuation(6);
    }
    *to++ = continuation(0);
    return to;
}

} // namespace

Progress decodeUtf8(std::string_view bytes, std::wstring& units) {
    const std::size_t before = units.size();
    units.resize(before + bytes.size()); // no character has more units than bytes
    wchar_t* to = units.data() + before;

    Progress progress;
    while (progress.used < bytes.size() && !progress.fault) {
        const std::string_view rest = bytes.substr(progress.used);
        const std::size_t ascii = widenAscii(rest, to);
        progress.used += ascii;
        to += ascii;
        if (ascii == rest.size())
            break;
        if (byteAt(rest, ascii) < 0x80) {
            *to++ = static_cast<wchar_t>(rest[ascii]);
            ++progress.used;
            continue;
        }
        const Sequence sequence = readSequence(rest.substr(ascii));
        progress.fault = sequence.fault;
        if (sequence.fault || sequence.length == 0)
            break;
        to = putPoint(sequence.point, to);
        progress.used += sequence.length;
    }
    units.resize(static_cast<std::size_t>(to - units.data()));
    return progress;
}

Progress decodeUtf16(std::string_view bytes, ByteOrder order, std::wstring& units) {
    Progress progress;
    while (bytes.size() - progress.used >= 2) {
        const wchar_t unit = unitAt(bytes, progress.used, order);
        if (isLowSurrogate(unit))
            return {progress.used, loneSurrogate};
        if (isHighSurrogate(unit)) {
            if (bytes.size() - progress.used < 4)
                break;
            const wchar_t low = unitAt(bytes, progress.used + 2, order);
            if (!isLowSurrogate(low))
                return {progress.used, loneSurrogate};
            units += unit;
            units += low;
            progress.used += 4;
            continue;
        }
        units += unit;
        progress.used += 2;
    }
    return progress;
}

std::size_t findUnpaired(std::wstring_view units, std::size_t start) noexcept {
    for (std::size_t i = start; i < units.size(); ++i) {
        if (!isSurrogateOrTooLarge(units[i]))
            continue;
        if (!isHighSurrogate(units[i]) || i + 1 == units.size() || !isLowSurrogate(units[i + 1]))
            return i;
        ++i;
    }
    return std::wstring_view::npos;
}

void encodeUtf8(std::wstring_view units, ByteArray& bytes) {
    bytes.resize(sizeInUtf8(units));
    unsigned char* to = bytes.ptr();
    while (!units.empty()) {
        const std::size_t ascii = narrowAscii(units, to);
        units.remove_prefix(ascii);
        to += ascii;
        if (units.empty())
            break;
        const bool pair = isHighSurrogate(units[0]);
        to = putUtf8(pair ? joined(units[0], units[1]) : static_cast<unsigned>(units[0]), to);
        units.remove_prefix(pair ? 2 : 1);
    }
}

void encodeUtf16LE(std::wstring_view units, ByteArray& bytes) {
    bytes.resize(units.size() * 2);
    unsigned char* to = bytes.ptr();
    for (wchar_t unit : units) {
        const char32_t value = unit;
        *to++ = static_cast<unsigned char>(value & 0xFFU);
        *to++ = static_cast<unsigned char>(value >> 8U);
    }
}

} // namespace Core::Transcoding

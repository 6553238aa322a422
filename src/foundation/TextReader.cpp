#include "foundation/TextReader.h"

#include "foundation/Decoder.h"

#include <cstring>
#include <utility>

namespace Core::IO {

namespace {

using Transcoding::ByteOrder;
using Transcoding::Progress;

constexpr std::size_t bytesAtOnce = std::size_t{64} * 1024;
constexpr std::size_t longestText = 0x7FFFFFFF; // offsets in a text are 31 bits wide

} // namespace

TextReader::TextReader(SmartPtr<Stream> stream) : stream_(std::move(stream)) {}

TextReader::~TextReader() = default;

String TextReader::readToEnd() {
    const auto length = static_cast<std::size_t>(stream_->length());
    if (length > longestText)
        fail(L"too long: " + String(std::to_wstring(length)) + L" bytes, of at most 2147483647");

    fill();
    std::unique_ptr<Decoder> marked = takeMark();
    const std::unique_ptr<Decoder> decoder = chooseDecoder(pending(), std::move(marked));

    std::wstring units;
    decodePending(*decoder, units); // a file that is no text fails before it takes memory
    units.reserve(length);
    while (fill())
        decodePending(*decoder, units);
    finish(*decoder, units);
    return String(std::move(units));
}

std::unique_ptr<Decoder> TextReader::chooseDecoder(std::string_view,
                                                   std::unique_ptr<Decoder> marked) {
    return marked ? std::move(marked) : Decoder::utf8();
}

/// The decoder for the byte order mark, which is skipped; null without one.
std::unique_ptr<Decoder> TextReader::takeMark() {
    if (pending().starts_with("\xEF\xBB\xBF")) {
        skip(3);
        return Decoder::utf8();
    }
    const bool little = pending().starts_with("\xFF\xFE");
    if (!little && !pending().starts_with("\xFE\xFF"))
        return nullptr;
    skip(2);
    return Decoder::utf16(little ? ByteOrder::LittleEndian : ByteOrder::BigEndian);
}

void TextReader::decodePending(Decoder& decoder, std::wstring& units) {
    const std::size_t nul = decoder.findNul(pending());
    const Progress progress = decoder.decode(pending().substr(0, nul), units);
    if (progress.fault)
        failAt(progress.used, progress.fault);
    if (nul != std::string_view::npos)
        failAt(nul, L"a NUL, which is no character of a text");
    skip(progress.used);
    if (units.size() > longestText)
        failAt(0, L"too long: more than 2147483647 code units");
}

void TextReader::finish(Decoder& decoder, std::wstring& units) {
    const Progress progress = decoder.finish(pending(), units);
    if (progress.fault)
        failAt(progress.used, progress.fault);
}

std::string_view TextReader::pending() const {
    return chunk_.view().substr(0, size_);
}

void TextReader::skip(std::size_t count) {
    size_ -= count;
    offset_ += count;
    std::memmove(chunk_.ptr(), chunk_.ptr() + count, size_);
}

/// Reads on until the chunk is full or the stream at its end; false when nothing came.
bool TextReader::fill() {
    const std::size_t before = size_;
    chunk_.resize(bytesAtOnce);
    while (size_ < bytesAtOnce) {
        const long long count = stream_->read(&chunk_, static_cast<long long>(size_),
                                              static_cast<long long>(bytesAtOnce - size_));
        if (count <= 0)
            break;
        size_ += static_cast<std::size_t>(count);
    }
    return size_ > before;
}

void TextReader::fail(const String& reason) const {
    stream_->fail(reason);
}

/// `byte` counts from the beginning of what is pending.
void TextReader::failAt(std::size_t byte, const String& reason) const {
    fail(L"byte " + String(std::to_wstring(offset_ + byte)) + L": " + reason);
}

} // namespace Core::IO

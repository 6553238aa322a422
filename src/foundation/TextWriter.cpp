#include "foundation/TextWriter.h"

#include "foundation/Transcoding.h"

#include <utility>

namespace Core::IO {

namespace {

constexpr std::size_t unitsAtOnce = std::size_t{32} * 1024;

/// How many units of `text` make up the next chunk, which ends with no half of a pair.
std::size_t nextChunk(std::wstring_view text) {
    if (text.size() <= unitsAtOnce)
        return text.size();
    return Transcoding::isHighSurrogate(text[unitsAtOnce - 1]) ? unitsAtOnce - 1 : unitsAtOnce;
}

} // namespace

TextWriter::TextWriter(SmartPtr<Stream> stream, Encoding encoding, bool mark)
    : stream_(std::move(stream)), encoding_(encoding) {
    if (mark)
        writeUnits(L"\xFEFF");
}

TextWriter::~TextWriter() = default;

void TextWriter::write(const String& text) {
    std::wstring_view rest = text.view();
    const std::size_t unpaired = Transcoding::findUnpaired(rest);
    if (unpaired != std::wstring_view::npos)
        stream_->fail(L"code unit " + String(std::to_wstring(written_ + unpaired)) +
                      L": lone surrogate");
    written_ += rest.size();
    while (!rest.empty()) {
        const std::size_t count = nextChunk(rest);
        writeUnits(rest.substr(0, count));
        rest.remove_prefix(count);
    }
}

void TextWriter::writeUnits(std::wstring_view units) {
    if (encoding_ == Encoding::UTF16LE)
        Transcoding::encodeUtf16LE(units, bytes_);
    else
        Transcoding::encodeUtf8(units, bytes_);
    stream_->write(&bytes_, 0, static_cast<long long>(bytes_.size()));
}

} // namespace Core::IO

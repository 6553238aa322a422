#include "foundation/Encoder.h"

#include "foundation/Exception.h"
#include "foundation/Transcoding.h"

namespace Core {

ByteArray Encoder::convertStringToUTF8(const String& text) {
    const std::size_t unpaired = Transcoding::findUnpaired(text.view());
    if (unpaired != std::wstring_view::npos)
        throw Exception(L"code unit " + String(std::to_wstring(unpaired)) + L": lone surrogate");
    ByteArray bytes;
    Transcoding::encodeUtf8(text.view(), bytes);
    return bytes;
}

String Encoder::convertUTF8ToString(std::string_view bytes) {
    std::wstring units;
    Transcoding::Progress progress = Transcoding::decodeUtf8(bytes, units);
    if (!progress.fault && progress.used < bytes.size())
        progress.fault = Transcoding::truncatedSequence;
    if (progress.fault)
        throw Exception(L"byte " + String(std::to_wstring(progress.used)) + L": " +
                        String(progress.fault));
    return String(std::move(units));
}

std::string Encoder::toDisplayText(const String& text) {
    std::wstring units(text.view());
    for (std::size_t at = 0; (at = Transcoding::findUnpaired(units, at)) != std::wstring::npos;)
        units[at] = 0xFFFD;
    ByteArray bytes;
    Transcoding::encodeUtf8(units, bytes);
    return std::string(bytes.view());
}

} // namespace Core

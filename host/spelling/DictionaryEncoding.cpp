#include "DictionaryEncoding.h"

#include <forme/foundation/Encoder.h>
#include <forme/foundation/Exception.h>

#include <array>
#include <cerrno>

using Core::Encoder;
using Core::String;

namespace {

/// What iconv calls an encoding that dictionaries have other names for.
std::string iconvName(const std::string& name) {
    if (name == "TIS620-2533")
        return "TIS-620";
    if (const std::string vendor = "microsoft-"; name.starts_with(vendor))
        return name.substr(vendor.size());
    return name;
}

/// Converts as much as it can; answers whether that was all. `bytes` becomes the rest. Some C
/// libraries put another character in the place of one that the encoding does not have.
bool convertSome(iconv_t conversion, std::string_view& bytes, std::string& converted) {
    std::array<char, 4096> piece;
    char* in = const_cast<char*>(bytes.data()); // iconv does not write there
    std::size_t left = bytes.size();
    bool isWhole = true;
    while (isWhole && left > 0) {
        char* out = piece.data();
        std::size_t room = piece.size();
        const std::size_t replaced = iconv(conversion, &in, &left, &out, &room);
        const bool stopped = replaced == static_cast<std::size_t>(-1);
        isWhole = stopped ? errno == E2BIG : replaced == 0;
        converted.append(piece.data(), piece.size() - room);
    }
    bytes = bytes.substr(bytes.size() - left);
    return isWhole;
}

} // namespace

/// Null if one of the encodings is not known.
DictionaryEncoding::Conversion DictionaryEncoding::open(const std::string& to,
                                                        const std::string& from) {
    const iconv_t conversion = iconv_open(to.c_str(), from.c_str());
    if (conversion == reinterpret_cast<iconv_t>(-1)) // NOLINT: iconv's way to say no
        return nullptr;
    return Conversion(conversion);
}

DictionaryEncoding::DictionaryEncoding(const std::string& name,
                                       const std::filesystem::path& affixes)
    : toDictionary_(open(iconvName(name), "UTF-8")),
      fromDictionary_(open("UTF-8", iconvName(name))) {
    if (!toDictionary_ || !fromDictionary_)
        throw Core::Exception(Encoder::convertUTF8ToString(affixes.string() + ": the encoding \"" +
                                                           name + "\" is not known"));
}

std::optional<std::string> DictionaryEncoding::encode(const String& text) const {
    std::string utf8;
    try {
        utf8 = Encoder::convertStringToUTF8(text).view();
    } catch (const Core::Exception&) {
        return std::nullopt; // half a surrogate pair
    }
    iconv(toDictionary_.get(), nullptr, nullptr, nullptr, nullptr);
    std::string encoded;
    std::string_view rest = utf8;
    return convertSome(toDictionary_.get(), rest, encoded) ? std::optional(encoded) : std::nullopt;
}

String DictionaryEncoding::decode(std::string_view bytes) const {
    iconv(fromDictionary_.get(), nullptr, nullptr, nullptr, nullptr);
    std::string utf8;
    while (!convertSome(fromDictionary_.get(), bytes, utf8))
        bytes.remove_prefix(1);
    return Encoder::convertUTF8ToString(utf8);
}

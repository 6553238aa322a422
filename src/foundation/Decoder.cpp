#include "foundation/Decoder.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <iconv.h>
#include <strings.h>

namespace Core::IO {

namespace {

using Transcoding::ByteOrder;
using Transcoding::Progress;

class Utf8Decoder : public Decoder {
public:
    Progress decode(std::string_view bytes, std::wstring& units) override {
        return Transcoding::decodeUtf8(bytes, units);
    }

    Progress finish(std::string_view rest, std::wstring&) override {
        return {0, rest.empty() ? nullptr : Transcoding::truncatedSequence};
    }
};

class Utf16Decoder : public Decoder {
public:
    explicit Utf16Decoder(ByteOrder order) : order_(order) {}

    Progress decode(std::string_view bytes, std::wstring& units) override {
        return Transcoding::decodeUtf16(bytes, order_, units);
    }

    Progress finish(std::string_view rest, std::wstring&) override {
        if (rest.size() % 2 != 0)
            return {rest.size() - 1, "UTF-16 with an odd number of bytes"};
        return {0, rest.empty() ? nullptr : Transcoding::loneSurrogate};
    }

    std::size_t findNul(std::string_view bytes) const override {
        for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
            if (bytes[i] == 0 && bytes[i + 1] == 0)
                return i;
        }
        return std::string_view::npos;
    }

private:
    ByteOrder order_;
};

class Latin1Decoder : public Decoder {
public:
    Progress decode(std::string_view bytes, std::wstring& units) override {
        for (const char byte : bytes)
            units += static_cast<wchar_t>(static_cast<unsigned char>(byte));
        return {bytes.size()};
    }

    Progress finish(std::string_view, std::wstring&) override { return {}; }
};

/// Everything else that the C library knows.
class IconvDecoder : public Decoder {
public:
    explicit IconvDecoder(const std::string& name)
        : conversion_(iconv_open("UTF-16LE", name.c_str())), fault_("no character of " + name) {}
    ~IconvDecoder() override {
        if (isKnown())
            iconv_close(conversion_);
    }
    IconvDecoder(const IconvDecoder&) = delete;
    IconvDecoder& operator=(const IconvDecoder&) = delete;

    bool isKnown() const {
        return conversion_ != reinterpret_cast<iconv_t>(-1); // NOLINT: iconv's way to say no
    }

    Progress decode(std::string_view bytes, std::wstring& units) override {
        char* from = const_cast<char*>(bytes.data()); // iconv only reads it
        std::size_t left = bytes.size();
        int error = E2BIG;
        while (error == E2BIG)
            error = convert(&from, &left, units);
        return {bytes.size() - left, error == EILSEQ ? fault_.c_str() : nullptr};
    }

    Progress finish(std::string_view rest, std::wstring& units) override {
        if (!rest.empty())
            return {0, fault_.c_str()};
        convert(nullptr, nullptr, units); // a letter that waited for a combining mark
        return {};
    }

private:
    /// Converts as much as fits into the block; answers why it stopped, 0 at the end of the input.
    int convert(char** from, std::size_t* left, std::wstring& units) {
        std::array<char, 4096> block{};
        char* to = block.data();
        std::size_t room = block.size();
        const bool done =
            iconv(conversion_, from, left, &to, &room) != static_cast<std::size_t>(-1);
        const int error = done ? 0 : errno;
        const std::string_view converted(block.data(), block.size() - room);
        Transcoding::decodeUtf16(converted, ByteOrder::LittleEndian, units);
        return error;
    }

    iconv_t conversion_;
    std::string fault_;
};

bool isNamed(const std::string& name, std::initializer_list<const char*> names) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char* known) { return strcasecmp(name.c_str(), known) == 0; });
}

} // namespace

Decoder::~Decoder() = default;

std::unique_ptr<Decoder> Decoder::utf8() {
    return std::make_unique<Utf8Decoder>();
}

std::unique_ptr<Decoder> Decoder::utf16(ByteOrder order) {
    return std::make_unique<Utf16Decoder>(order);
}

std::unique_ptr<Decoder> Decoder::named(const std::string& name, ByteOrder order) {
    if (isNamed(name, {"UTF-8", "UTF8"}))
        return utf8();
    if (isNamed(name, {"UTF-16", "ISO-10646-UCS-2"}))
        return utf16(order);
    if (isNamed(name, {"UTF-16LE", "UTF-16BE"}))
        return utf16(isNamed(name, {"UTF-16LE"}) ? ByteOrder::LittleEndian : ByteOrder::BigEndian);
    if (isNamed(name, {"ISO-8859-1", "LATIN1"}))
        return std::make_unique<Latin1Decoder>();
    auto decoder = std::make_unique<IconvDecoder>(name);
    return decoder->isKnown() ? std::move(decoder) : nullptr;
}

std::size_t Decoder::findNul(std::string_view bytes) const {
    return bytes.find('\0');
}

} // namespace Core::IO

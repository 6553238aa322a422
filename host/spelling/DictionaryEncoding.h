#pragma once

#include <forme/foundation/String.h>

#include <iconv.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// The encoding of a dictionary's words.
class DictionaryEncoding {
public:
    /// Takes the name as the affix file writes it. Throws Core::Exception for one that is not
    /// known.
    DictionaryEncoding(const std::string& name, const std::filesystem::path& affixes);

    /// Nothing if the text holds a character that the encoding lacks.
    std::optional<std::string> encode(const Core::String& text) const;
    /// Bytes that are no character are left out.
    Core::String decode(std::string_view bytes) const;

private:
    struct Close {
        void operator()(iconv_t conversion) const { iconv_close(conversion); }
    };
    using Conversion = std::unique_ptr<void, Close>;

    static Conversion open(const std::string& to, const std::string& from);

    Conversion toDictionary_;
    Conversion fromDictionary_;
};

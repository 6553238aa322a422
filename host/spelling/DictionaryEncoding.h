#pragma once

#include <forme/foundation/String.h>

#include <iconv.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// The encoding of a dictionary's words.
class DictionaryEncoding {
public:
    /// Takes the name as the affix file writes it. Throws Core::Exception for one that is not
    /// known.
    DictionaryEncoding(const std::string& name, const std::filesystem::path& affixes);
    ~DictionaryEncoding();

    DictionaryEncoding(const DictionaryEncoding&) = delete;
    DictionaryEncoding& operator=(const DictionaryEncoding&) = delete;

    /// Nothing if the text holds a character that the encoding lacks.
    std::optional<std::string> encode(const Core::String& text) const;
    /// Bytes that are no character are left out.
    Core::String decode(std::string_view bytes) const;

private:
    iconv_t toDictionary_;
    iconv_t fromDictionary_;
};

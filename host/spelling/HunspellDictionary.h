#pragma once

#include "DictionaryEncoding.h"

#include <forme/foundation/String.h>
#include <forme/foundation/Vector.h>

#include <hunspell.hxx>

#include <filesystem>
#include <map>
#include <string>

/// One Hunspell dictionary, asked in the library's own text.
class HunspellDictionary {
public:
    /// Throws Core::Exception with the file and the reason.
    HunspellDictionary(const std::filesystem::path& affixes, const std::filesystem::path& words);

    const Core::String& wordChars() const { return wordChars_; }
    bool knows(const Core::String& word);
    /// What could be meant by a word, the likeliest first.
    const Core::StringArray& suggestionsFor(const Core::String& word);

private:
    Hunspell hunspell_;
    DictionaryEncoding encoding_;
    Core::String wordChars_;
    std::map<Core::String, Core::StringArray> suggested_; // they take far longer than a check
};

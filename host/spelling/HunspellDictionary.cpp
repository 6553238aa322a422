#include "HunspellDictionary.h"

#include <forme/foundation/Encoder.h>
#include <forme/foundation/Exception.h>

#include <bitset>
#include <cctype>
#include <fstream>
#include <sstream>
#include <string_view>

using Core::String;
using Core::StringArray;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t unitCount = 0x10000;
using Units = std::bitset<unitCount>;

constexpr wchar_t apostrophe = L'\'';
constexpr wchar_t typographicApostrophe = L'\x2019';

[[noreturn]] void fail(const fs::path& file, const std::string& reason) {
    throw Core::Exception(Core::Encoder::convertUTF8ToString(file.string() + reason));
}

/// Hunspell itself takes a file that it cannot read for an empty one.
const fs::path& checkedAffixes(const fs::path& file) {
    if (!std::ifstream(file))
        fail(file, ": cannot be read");
    return file;
}

const fs::path& checkedWords(const fs::path& file) {
    std::ifstream words(file);
    if (!words)
        fail(file, ": cannot be read");
    std::string line;
    std::getline(words, line);
    const std::string_view mark = "\xEF\xBB\xBF";
    const std::size_t count = line.starts_with(mark) ? mark.size() : 0;
    if (count >= line.size() || !std::isdigit(static_cast<unsigned char>(line[count])))
        fail(file, ":1: the number of words is missing");
    return file;
}

/// The letters that have a capital or are one.
const Units& lettersWithCase() {
    static const Units letters = [] {
        std::wstring all;
        for (std::size_t unit = 0; unit < unitCount; ++unit)
            all += static_cast<wchar_t>(unit);
        const String lower = String(std::wstring_view(all)).toLower();
        const String upper = String(std::wstring_view(all)).toUpper();
        Units cased;
        for (std::size_t unit = 0; unit < unitCount; ++unit)
            cased[unit] = lower.view()[unit] != upper.view()[unit];
        return cased;
    }();
    return letters;
}

/// Whether a character that occurs in a dictionary's words may join others to a word: a letter of a
/// script without capitals, an accent or a joiner, but no sign such as the "&" of "AT&T".
bool joinsWords(wchar_t unit) {
    if (unit == apostrophe || unit == typographicApostrophe)
        return true;
    if (unit < 0xC0 || unit == 0xD7 || unit == 0xF7)
        return false;
    const bool isJoiner = unit == 0x200C || unit == 0x200D;
    const bool isSymbol = (unit >= 0x2000 && unit < 0x2C00) || (unit >= 0x3000 && unit < 0x3040);
    return isJoiner || !isSymbol;
}

void addJoining(std::wstring_view text, Units& chars) {
    for (const wchar_t unit : text)
        if (joinsWords(unit))
            chars.set(static_cast<std::size_t>(unit));
}

/// The word in a line of a word file, or the affix in a field of an affix file: up to the flags.
std::string_view withoutFlags(std::string_view entry) {
    return entry.substr(0, entry.find_first_of("/\t "));
}

/// Adds the characters of the stems.
void addWords(const fs::path& file, const DictionaryEncoding& encoding, Units& chars) {
    std::ifstream words(file);
    std::string stems;
    std::string line;
    std::getline(words, line); // the number of words
    while (std::getline(words, line))
        stems.append(withoutFlags(line)).push_back('\n');
    addJoining(encoding.decode(stems).view(), chars);
}

/// Adds the characters of the prefixes and suffixes.
void addAffixes(const fs::path& file, const DictionaryEncoding& encoding, Units& chars) {
    std::ifstream affixes(file);
    for (std::string line; std::getline(affixes, line);) {
        std::istringstream fields(line);
        std::string kind;
        std::string flag;
        std::string stripped;
        std::string affix;
        fields >> kind >> flag >> stripped >> affix;
        if (kind == "PFX" || kind == "SFX")
            addJoining(encoding.decode(withoutFlags(affix)).view(), chars);
    }
}

String textOf(const Units& chars) {
    std::wstring text;
    for (std::size_t unit = 0; unit < unitCount; ++unit)
        if (chars[unit])
            text += static_cast<wchar_t>(unit);
    return String(std::wstring_view(text));
}

/// With the plain apostrophe, which is the one that dictionaries know.
String withPlainApostrophes(const String& word) {
    String plain = word;
    plain.replaceAll(L"\x2019", L"'");
    return plain;
}

} // namespace

HunspellDictionary::HunspellDictionary(const fs::path& affixes, const fs::path& words)
    : hunspell_(checkedAffixes(affixes).c_str(), checkedWords(words).c_str()),
      encoding_(hunspell_.get_dict_encoding(), affixes) {
    Units chars = lettersWithCase();
    addWords(words, encoding_, chars);
    addAffixes(affixes, encoding_, chars);
    const String declared = encoding_.decode(hunspell_.get_wordchars_cpp());
    for (const wchar_t unit : declared.view())
        chars.set(static_cast<std::size_t>(unit));
    if (chars[apostrophe] || chars[typographicApostrophe])
        chars.set(apostrophe).set(typographicApostrophe);
    // In a document these begin markup, whatever the dictionary says.
    chars.reset(L'&').reset(L'<');
    wordChars_ = textOf(chars);
}

bool HunspellDictionary::knows(const String& word) {
    for (const String& form : {word, withPlainApostrophes(word)}) {
        const auto encoded = encoding_.encode(form);
        if (encoded && hunspell_.spell(*encoded))
            return true;
    }
    return false;
}

const StringArray& HunspellDictionary::suggestionsFor(const String& word) {
    const auto [entry, isNew] = suggested_.try_emplace(word);
    StringArray& suggestions = entry->second;
    if (const auto encoded = encoding_.encode(withPlainApostrophes(word)); isNew && encoded)
        for (const std::string& suggestion : hunspell_.suggest(*encoded))
            suggestions.push_back(encoding_.decode(suggestion));
    return suggestions;
}

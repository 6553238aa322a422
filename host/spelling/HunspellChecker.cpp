#include "HunspellChecker.h"

#include "HunspellDictionary.h"

#include <forme/foundation/Encoder.h>
#include <forme/foundation/Exception.h>

#include <cstdlib>
#include <set>
#include <sstream>
#include <string>
#include <utility>

using Core::Encoder;
using Core::String;
using Core::StringArray;
using Drawing::SpellingError;
namespace fs = std::filesystem;

namespace {

bool isFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

/// The affix file of that name and the word file beside it.
std::pair<fs::path, fs::path> filesOf(const fs::path& folder, const std::string& name) {
    return {folder / (name + ".aff"), folder / (name + ".dic")};
}

/// A name may come from a document, and must not lead out of the folders.
bool isPlainName(const std::string& name) {
    return !name.empty() && fs::path(name).filename() == name && !name.starts_with('.');
}

bool isApostrophe(wchar_t unit) {
    return unit == L'\'' || unit == L'\x2019';
}

/// A full stop is a part of words in dictionaries with abbreviations.
bool canEndSentence(wchar_t unit) {
    return isApostrophe(unit) || unit == L'.';
}

/// A word with the apostrophes around it, which may be quotes, and the full stop of its sentence.
struct QuotedWord {
    explicit QuotedWord(const String& quoted) {
        std::wstring_view rest = quoted.view();
        while (!rest.empty() && isApostrophe(rest.front()))
            rest.remove_prefix(1);
        before = String(quoted.view().substr(0, quoted.view().size() - rest.size()));
        const std::size_t length = rest.size();
        while (!rest.empty() && canEndSentence(rest.back()))
            rest.remove_suffix(1);
        word = String(rest);
        after = String(quoted.view().substr(quoted.view().size() - (length - rest.size())));
    }

    String before;
    String word;
    String after;
};

} // namespace

HunspellChecker::HunspellChecker() : HunspellChecker(systemFolders()) {}

HunspellChecker::HunspellChecker(Folders folders) : folders_(std::move(folders)) {}

HunspellChecker::~HunspellChecker() = default;

HunspellChecker::Folders HunspellChecker::systemFolders() {
    Folders folders;
    if (const char* const listed = std::getenv("DICPATH")) {
        std::istringstream list(listed);
        for (std::string folder; std::getline(list, folder, ':');)
            if (!folder.empty())
                folders.emplace_back(folder);
    }
    folders.emplace_back("/usr/share/hunspell");
    folders.emplace_back("/usr/share/myspell/dicts");
    return folders;
}

StringArray HunspellChecker::getAvailableDictionaries() const {
    std::set<String> names;
    for (const fs::path& folder : folders_) {
        std::error_code unreadable;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, unreadable)) {
            const fs::path& file = entry.path();
            if (file.extension() == ".aff" && isFile(fs::path(file).replace_extension(".dic")))
                names.insert(Encoder::convertUTF8ToString(file.stem().string()));
        }
    }
    return {names.begin(), names.end()};
}

String HunspellChecker::getWordChars(const String& dictionary) {
    return dictionaryNamed(dictionary).wordChars();
}

SmartPtr<SpellingError> HunspellChecker::checkWord(const String& word, const String& dictionary,
                                                   int start, int end) {
    HunspellDictionary& words = dictionaryNamed(dictionary);
    const QuotedWord quoted(word);
    if (quoted.word.empty() || words.knows(word) || words.knows(quoted.word))
        return nullptr;
    StringArray suggestions = words.suggestionsFor(quoted.word);
    for (String& suggestion : suggestions)
        suggestion = quoted.before + suggestion + quoted.after;
    return new SpellingError(start, end, {dictionary}, suggestions);
}

void HunspellChecker::syncSpellerMap(const StringArray& dictionaries) {
    Dictionaries wanted;
    for (const String& name : dictionaries) {
        const auto loaded = dictionaries_.find(name);
        wanted[name] = loaded == dictionaries_.end() ? load(name) : loaded->second;
    }
    dictionaries_ = std::move(wanted);
}

HunspellDictionary& HunspellChecker::dictionaryNamed(const String& name) {
    auto loaded = dictionaries_.find(name);
    if (loaded == dictionaries_.end())
        loaded = dictionaries_.emplace(name, load(name)).first;
    return *loaded->second;
}

std::shared_ptr<HunspellDictionary> HunspellChecker::load(const String& name) const {
    const std::string narrow = Encoder::toDisplayText(name);
    std::string searched;
    for (const fs::path& folder : folders_) {
        const auto [affixes, words] = filesOf(folder, narrow);
        if (isPlainName(narrow) && isFile(affixes) && isFile(words))
            return std::make_shared<HunspellDictionary>(affixes, words);
        searched += (searched.empty() ? "" : ", ") + folder.string();
    }
    throw Core::Exception(Encoder::convertUTF8ToString(
        "there is no spelling dictionary \"" + narrow + "\": " + narrow + ".aff and " + narrow +
        ".dic are not in " + (searched.empty() ? "any folder, none was given" : searched)));
}

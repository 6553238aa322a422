#pragma once

#include <forme/foundation/SpellChecker.h>

#include <filesystem>
#include <map>
#include <memory>
#include <vector>

#if defined(FORME_HUNSPELL_BUILDING)
#define FORME_HUNSPELL_API FORME_EXPORT
#else
#define FORME_HUNSPELL_API FORME_IMPORT
#endif

class HunspellDictionary;

/// A spell checker on Hunspell dictionaries: pairs of files NAME.aff and NAME.dic, in any encoding
/// that they name. A dictionary is loaded when it is first asked for and stays loaded.
///
/// An operation that is given the name of a dictionary throws Core::Exception, and changes nothing,
/// when it cannot be loaded. The message names the dictionary and the folders, or the file, the
/// line and the reason.
class FORME_HUNSPELL_API HunspellChecker : public Drawing::SpellChecker {
public:
    using Folders = std::vector<std::filesystem::path>;

    /// Uses the dictionaries that are installed on the system.
    HunspellChecker();
    /// Uses those in the folders; of a name that is in several, the first.
    explicit HunspellChecker(Folders folders);
    ~HunspellChecker() override;

    HunspellChecker(const HunspellChecker&) = delete;
    HunspellChecker& operator=(const HunspellChecker&) = delete;

    /// The folders that the environment variable DICPATH lists, with ":" in between, and then
    /// /usr/share/hunspell and /usr/share/myspell/dicts.
    static Folders systemFolders();

    /// The names of all dictionaries in the folders, sorted.
    Core::StringArray getAvailableDictionaries() const;

    /// The letters of all scripts that have capitals, those of the dictionary's own words, and what
    /// it declares as part of words. An apostrophe counts in both its forms, if any.
    Core::String getWordChars(const Core::String& dictionary) override;

    /// A word is known also with apostrophes around it that serve as quotes; a suggestion then has
    /// them too.
    SmartPtr<Drawing::SpellingError> checkWord(const Core::String& word,
                                               const Core::String& dictionary, int start,
                                               int end) override;

    /// Loads these dictionaries and lets go of all others.
    void syncSpellerMap(const Core::StringArray& dictionaries) override;

private:
    using Dictionaries = std::map<Core::String, std::shared_ptr<HunspellDictionary>>;

    HunspellDictionary& dictionaryNamed(const Core::String& name);
    std::shared_ptr<HunspellDictionary> load(const Core::String& name) const;

    Folders folders_;
    Dictionaries dictionaries_;
};

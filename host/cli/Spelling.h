#pragma once

#include <forme/foundation/SmartPtr.h>
#include <forme/foundation/SpellChecker.h>

#include <string>

/// A checker that uses the dictionaries installed on the system; null if this program was built
/// without one.
SmartPtr<Drawing::SpellChecker> systemSpellChecker();

struct SpellOptions {
    std::string document;
    std::string dictionaries; ///< in the place of those that the document names, if not empty
};

/// Hears of a check while it runs.
class SpellingMonitor {
public:
    virtual ~SpellingMonitor() = default;
    /// How much of the document has been checked, from 0 to 1.
    virtual void onProgress(double part) = 0;
    /// A line with the word's place and what is suggested, and one with its context, in UTF-8.
    virtual void onMisspeltWord(const std::string& lines) = 0;
};

/// Checks all text of a document, headers and footers too; answers how many words no dictionary
/// knows. Throws Core::Exception when the document or a dictionary cannot be loaded.
int listMisspeltWords(const SpellOptions& options, Drawing::SpellChecker& checker,
                      SpellingMonitor& monitor);

#pragma once

#include "foundation/Api.h"
#include "foundation/Object.h"
#include "foundation/SmartPtr.h"
#include "foundation/SpellingError.h"
#include "foundation/String.h"
#include "foundation/Vector.h"

namespace Drawing {

/// What knows the words of languages. A host gives one to a document; the component
/// `forme-hunspell` has one that uses the dictionaries installed on the system.
///
/// A dictionary is named as in "en_US". What an operation raises, as for a dictionary that is not
/// there, passes through the document to the host.
class FORME_API SpellChecker : public Core::Object {
public:
    ~SpellChecker() override;

    /// All characters that can be part of a word in the dictionary, in any order.
    virtual Core::String getWordChars(const Core::String& dictionary) = 0;

    /// Null when the dictionary knows the word; otherwise an error with the given place and what
    /// the dictionary suggests.
    virtual SmartPtr<SpellingError>
    checkWord(const Core::String& word, const Core::String& dictionary, int start, int end) = 0;

    /// Loads these dictionaries.
    virtual void syncSpellerMap(const Core::StringArray& dictionaries) = 0;
};

} // namespace Drawing

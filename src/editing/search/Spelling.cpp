// The words of the document as a spell checker sees them.

#include "editing/search/Spelling.h"

#include "document/Attributes.h"
#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Lines.h"
#include "document/caret/Moves.h"
#include "document/caret/Selection.h"
#include "editing/formatting/Formatting.h"

#include <bitset>
#include <vector>

using Core::String;
using Core::StringArray;
using Drawing::SpellChecker;
using Drawing::SpellingError;
using XmlScan::Text;

namespace {

constexpr const wchar_t* dictionariesProperty = L"qf:spelling-dictionaries";
constexpr const wchar_t* lastResort = L"en_US";

/// The names in a list, without the empty ones.
StringArray dictionaryNames(const String& list) {
    StringArray names;
    for (String& name : list.split(L':'))
        if (!name.trim().empty())
            names.push_back(name);
    return names;
}

String wordCharsOf(SpellChecker& checker, const StringArray& dictionaries) {
    String wordChars;
    for (const String& dictionary : dictionaries)
        wordChars += checker.getWordChars(dictionary);
    return wordChars;
}

/// Asks each dictionary in turn; null as soon as one knows the word.
SmartPtr<SpellingError> check(SpellChecker& checker, const StringArray& dictionaries,
                              const String& word, int start, int end) {
    StringArray suggestions;
    for (const String& dictionary : dictionaries) {
        const SmartPtr<SpellingError> error = checker.checkWord(word, dictionary, start, end);
        if (!error)
            return nullptr;
        suggestions.insert(suggestions.end(), error->suggestions.begin(), error->suggestions.end());
        suggestions.emplace_back();
    }
    return new SpellingError(start, end, dictionaries, suggestions);
}

/// A walk from word to word. A word is a run of word characters that goes on across the edges of
/// inlines within its block.
class SpellingWalk {
public:
    SpellingWalk(const Document& document, int position, const String& wordChars)
        : document_(document), walk_(document, position),
          valid_(document.text().isValid(position)) {
        for (const wchar_t unit : wordChars.view())
            isWordUnit_.set(indexOf(unit));
    }

    /// Back to the start of the word around the position, from a tag the next stop first. -1 if
    /// there is no such stop.
    int toWordStart();
    /// On to the next unit that is in a word; -1 if there is none.
    int toNextWord();
    /// On to the end of the word that the position is in; -1 where the stops end before.
    int toWordEnd();

private:
    using Step = bool (CaretWalk::*)();

    void passUnit(Step step);
    bool isInWord() const;
    bool isOnInlineEdgeNear(int unit) const;
    int position() const { return valid_ ? walk_.position() : -1; }

    const XmlText& text() const { return document_.text(); }
    std::size_t indexOf(wchar_t unit) const {
        return static_cast<std::size_t>(unit) % isWordUnit_.size();
    }

    const Document& document_;
    CaretWalk walk_;
    bool valid_;         // false once there was no further stop
    int blockEdge_ = -1; // the edge of an inline that the word ended at, with no stop behind
    std::bitset<0x10000> isWordUnit_;
};

int SpellingWalk::toWordStart() {
    while (valid_ && text().onTagStart(walk_.position()))
        valid_ = walk_.toNextStop();
    if (!isInWord())
        return position();
    int start = walk_.position();
    for (blockEdge_ = -1; blockEdge_ < 0 && isInWord(); passUnit(&CaretWalk::toPreviousStop))
        start = walk_.position();
    walk_.restartAt(start);
    valid_ = true;
    return start;
}

int SpellingWalk::toNextWord() {
    while (valid_ && !isInWord())
        valid_ = walk_.toNextStop();
    return position();
}

int SpellingWalk::toWordEnd() {
    for (blockEdge_ = -1; blockEdge_ < 0 && isInWord();)
        passUnit(&CaretWalk::toNextStop);
    return blockEdge_ < 0 ? position() : blockEdge_;
}

/// One stop on or back, passing the edges of inlines. Where the block ends behind such an edge
/// without a stop of its own, the walk is in the next block already.
void SpellingWalk::passUnit(Step step) {
    const int unit = walk_.position();
    valid_ = (walk_.*step)();
    while (isOnInlineEdgeNear(unit)) {
        const int edge = walk_.position();
        valid_ = (walk_.*step)();
        if (!valid_ || !Lines::areInOneBlock(document_, edge, walk_.position())) {
            blockEdge_ = edge;
            return;
        }
    }
}

bool SpellingWalk::isInWord() const {
    return valid_ && isWordUnit_.test(indexOf(text().unitAt(walk_.position())));
}

/// Whether it is on the edge of an inline in the same block. A footnote's text, for one, begins
/// directly behind an inline that is not in its block.
bool SpellingWalk::isOnInlineEdgeNear(int unit) const {
    return valid_ && Lines::isInlineEdge(document_, walk_.position()) &&
           Lines::areInOneBlock(document_, unit, walk_.position());
}

/// The word without markup.
String wordBetween(const Document& document, int start, int end) {
    const Text markup = document.text().view(start, end);
    String word = markup.find(L'<') == Text::npos
                      ? String(markup)
                      : Selection::plainTextBetween(document, start, end);
    return word.trim();
}

SmartPtr<SpellingError> selectMisspeltWord(Document& document, SpellChecker& checker,
                                           const StringArray& dictionaries) {
    SpellingWalk walk(document, document.caret(), wordCharsOf(checker, dictionaries));
    walk.toWordStart();
    for (int start = walk.toNextWord(); start >= 0; start = walk.toNextWord()) {
        const int end = walk.toWordEnd();
        if (end < 0)
            return nullptr;
        if (auto error =
                check(checker, dictionaries, wordBetween(document, start, end), start, end)) {
            document.select(start, end);
            return error;
        }
    }
    return nullptr;
}

/// Where the word ends without the tags behind its last letter.
int endOfLetters(const Document& document, int word, int end) {
    const XmlText& text = document.text();
    while (text.unitAt(end - 1) == L'>') {
        const int tag = text.previousTag(end - 1);
        if (tag <= word)
            break;
        end = tag;
    }
    return end;
}

std::vector<SmartPtr<SpellingError>> misspeltWords(const Document& document, int start, int end,
                                                   const StringArray& dictionaries) {
    SpellChecker& checker = *document.spellChecker;
    SpellingWalk walk(document, start, wordCharsOf(checker, dictionaries));
    std::vector<SmartPtr<SpellingError>> errors;
    walk.toWordStart();
    for (int word = walk.toNextWord(); word >= 0 && word < end; word = walk.toNextWord()) {
        const int wordEnd = walk.toWordEnd();
        if (wordEnd < 0)
            break;
        const int lettersEnd = endOfLetters(document, word, wordEnd);
        if (lettersEnd <= start)
            continue; // which ends where the range begins
        if (auto error = check(checker, dictionaries, wordBetween(document, word, wordEnd), word,
                               lettersEnd))
            errors.push_back(error);
    }
    return errors;
}

StringArray dictionariesAt(const Document& document, int position,
                           const String& defaultDictionaries) {
    for (const String& list :
         {Formatting::inherited(document, dictionariesProperty, position), defaultDictionaries})
        if (StringArray names = dictionaryNames(list); !names.empty())
            return names;
    return {lastResort};
}

} // namespace

String Spelling::dictionaries(const Document& document) {
    return Attributes::of(document, document.text().root()).getPropertyValue(dictionariesProperty);
}

int EditableDocumentBuffer::getWordStartPosition(int position, const String& wordChars) const {
    const Document& document = *document_;
    return SpellingWalk(document, position, wordChars).toWordStart();
}

int EditableDocumentBuffer::getWordEndPosition(int position, const String& wordChars) const {
    const Document& document = *document_;
    return SpellingWalk(document, position, wordChars).toWordEnd();
}

int EditableDocumentBuffer::getNextWordStartPosition(int position, const String& wordChars) const {
    const Document& document = *document_;
    return SpellingWalk(document, position, wordChars).toNextWord();
}

SmartPtr<SpellingError>
EditableDocumentBuffer::getNextSpellingError(const String& defaultDictionaries, bool restart) {
    Document& document = *document_;
    SpellChecker& checker = *document.spellChecker; // raises before anything has changed
    CommandScope scope(document);
    document.endTyping();
    if (restart)
        Moves::toFirstFlow(document);
    return selectMisspeltWord(document, checker,
                              dictionariesAt(document, document.caret(), defaultDictionaries));
}

std::vector<SmartPtr<SpellingError>>
EditableDocumentBuffer::getSpellingErrors(int start, int end,
                                          const String& defaultDictionaries) const {
    const Document& document = *document_;
    return misspeltWords(document, start, end,
                         dictionariesAt(document, start, defaultDictionaries));
}

String EditableDocumentBuffer::getSpellingDictionaries() const {
    return Spelling::dictionaries(*document_);
}

void EditableDocumentBuffer::setSpellingDictionaries(const String& dictionaries) {
    Document& document = *document_;
    PropertyCollection properties;
    properties.addProperty({dictionariesProperty, dictionaries}, true);
    Formatting::setProperties(document, properties, document.text().rootName(),
                              document.text().root());
}

void EditableDocumentBuffer::syncSpellerMap(const String& dictionaries) {
    Document& document = *document_;
    String list = Spelling::dictionaries(document);
    if (list.empty())
        list = dictionaries;
    else if (dictionaries.empty())
        list = lastResort; // Deliberate: in the place of what the document names; hosts rely on it.
    document.spellChecker->syncSpellerMap(dictionaryNames(list));
}

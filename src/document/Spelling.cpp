// The words of the document as a spell checker sees them.

#include "document/CaretWalk.h"
#include "document/CommandScope.h"
#include "document/EditableDocumentBuffer.h"
#include "text/XmlScan.h"

#include <bitset>

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

} // namespace

/// A walk from word to word. A word is a run of word characters that goes on across the edges of
/// inlines within its block.
class SpellingWalk {
public:
    SpellingWalk(const EditableDocumentBuffer& buffer, int position, const String& wordChars)
        : buffer_(buffer), walk_(buffer, position),
          valid_(XmlScan::isValid(buffer.text_.view(), position)) {
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

    Text text() const { return buffer_.text_.view(); }
    std::size_t indexOf(wchar_t unit) const {
        return static_cast<std::size_t>(unit) % isWordUnit_.size();
    }

    const EditableDocumentBuffer& buffer_;
    CaretWalk walk_;
    bool valid_;         // false once there was no further stop
    int blockEdge_ = -1; // the edge of an inline that the word ended at, with no stop behind
    std::bitset<0x10000> isWordUnit_;
};

int SpellingWalk::toWordStart() {
    while (valid_ && XmlScan::onTagStart(text(), walk_.position()))
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
        if (!valid_ || !buffer_.isInBlockOf(edge, walk_.position())) {
            blockEdge_ = edge;
            return;
        }
    }
}

bool SpellingWalk::isInWord() const {
    return valid_ && isWordUnit_.test(indexOf(XmlScan::unitAt(text(), walk_.position())));
}

/// Whether it is on the edge of an inline in the same block. A footnote's text, for one, begins
/// directly behind an inline that is not in its block.
bool SpellingWalk::isOnInlineEdgeNear(int unit) const {
    return valid_ && buffer_.isInlineEdgeAt(walk_.position()) &&
           buffer_.isInBlockOf(unit, walk_.position());
}

int EditableDocumentBuffer::getWordStartPosition(int position, const String& wordChars) const {
    return SpellingWalk(*this, position, wordChars).toWordStart();
}

int EditableDocumentBuffer::getWordEndPosition(int position, const String& wordChars) const {
    return SpellingWalk(*this, position, wordChars).toWordEnd();
}

int EditableDocumentBuffer::getNextWordStartPosition(int position, const String& wordChars) const {
    return SpellingWalk(*this, position, wordChars).toNextWord();
}

// The check

SmartPtr<SpellingError>
EditableDocumentBuffer::getNextSpellingError(const String& defaultDictionaries, bool restart) {
    SpellChecker& checker = *spellChecker_; // raises before anything has changed
    CommandScope scope(this);
    endKeyTypingSequence();
    if (restart)
        moveCaretToFirstFoFlow();
    return selectMisspeltWord(checker, dictionariesAtCaret(defaultDictionaries));
}

SmartPtr<SpellingError>
EditableDocumentBuffer::selectMisspeltWord(SpellChecker& checker, const StringArray& dictionaries) {
    SpellingWalk walk(*this, caretPos_, wordCharsOf(checker, dictionaries));
    walk.toWordStart();
    for (int start = walk.toNextWord(); start >= 0; start = walk.toNextWord()) {
        const int end = walk.toWordEnd();
        if (end < 0)
            return nullptr;
        if (auto error = check(checker, dictionaries, wordBetween(start, end), start, end)) {
            selectRange(start, end);
            return error;
        }
    }
    return nullptr;
}

/// The word without markup.
String EditableDocumentBuffer::wordBetween(int start, int end) const {
    const Text markup = XmlScan::slice(text_.view(), start, end);
    String word = markup.find(L'<') == Text::npos ? String(markup) : getPlainText(start, end);
    return word.trim();
}

StringArray EditableDocumentBuffer::dictionariesAtCaret(const String& defaultDictionaries) const {
    for (const String& list :
         {getInheritablePropertyValueAtPosition(dictionariesProperty, caretPos_),
          defaultDictionaries})
        if (StringArray names = dictionaryNames(list); !names.empty())
            return names;
    return {lastResort};
}

// The document's dictionaries

String EditableDocumentBuffer::getSpellingDictionaries() const {
    return getPropertiesFromElementAt(getRootElementPos()).getPropertyValue(dictionariesProperty);
}

void EditableDocumentBuffer::setSpellingDictionaries(const String& dictionaries) {
    PropertyCollection properties;
    properties.addProperty({dictionariesProperty, dictionaries}, true);
    setProperties(properties, getRootElementName(), getRootElementPos());
}

void EditableDocumentBuffer::syncSpellerMap(const String& dictionaries) {
    String list = getSpellingDictionaries();
    if (list.empty())
        list = dictionaries;
    else if (dictionaries.empty())
        list = lastResort; // Deliberate: in the place of what the document names; hosts rely on it.
    spellChecker_->syncSpellerMap(dictionaryNames(list));
}

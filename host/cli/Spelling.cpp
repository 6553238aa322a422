#include "Spelling.h"

#include "Session.h"

#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>
#include <forme/foundation/Exception.h>

#ifdef FORME_WITH_HUNSPELL
#include <forme-hunspell/HunspellChecker.h>
#endif

#include <algorithm>

using Core::Encoder;
using Core::String;

namespace {

using Units = std::wstring_view;

constexpr std::size_t contextLength = 30;

/// Hands everything on to another checker and tells how far in the document it is asked.
class WatchedChecker : public Drawing::SpellChecker {
public:
    WatchedChecker(Drawing::SpellChecker& checker, int length, SpellingMonitor& monitor)
        : checker_(checker), length_(length), monitor_(monitor) {}

    String getWordChars(const String& dictionary) override {
        return checker_.getWordChars(dictionary);
    }
    SmartPtr<Drawing::SpellingError> checkWord(const String& word, const String& dictionary,
                                               int start, int end) override {
        monitor_.onProgress(static_cast<double>(start) / length_);
        return checker_.checkWord(word, dictionary, start, end);
    }
    void syncSpellerMap(const Core::StringArray& dictionaries) override {
        checker_.syncSpellerMap(dictionaries);
    }

private:
    Drawing::SpellChecker& checker_;
    int length_;
    SpellingMonitor& monitor_;
};

/// Markup as a line: without tags, and white space as single blanks.
std::wstring asLine(Units markup) {
    std::wstring line;
    bool inTag = false;
    for (const wchar_t unit : markup) {
        inTag = inTag ? unit != L'>' : unit == L'<';
        if (inTag || unit == L'>')
            continue;
        if (!String::isSpace(unit))
            line += unit;
        else if (line.empty() || line.back() != L' ')
            line += L' ';
    }
    return line;
}

/// The text around the range from `start` up to but excluding `end`, which is put in brackets.
std::wstring contextOf(Units content, std::size_t start, std::size_t end) {
    const Units block = L"<fo:block";
    const std::size_t opened = content.rfind(block, start);
    const std::size_t from = opened == Units::npos ? start : content.find(L'>', opened) + 1;
    const std::size_t closed = content.find(L"</fo:block>", end);
    std::wstring before = asLine(content.substr(from, start - from));
    std::wstring after = asLine(content.substr(end, closed == Units::npos ? 0 : closed - end));
    if (before.size() > contextLength)
        before = L"…" + before.substr(before.size() - contextLength);
    if (after.size() > contextLength)
        after = after.substr(0, contextLength) + L"…";
    return before + L"[" + asLine(content.substr(start, end - start)) + L"]" + after;
}

std::string describe(const Drawing::SpellingError& error, const String& content, int shift,
                     const std::string& document) {
    const auto start = static_cast<std::size_t>(error.start);
    const auto end = static_cast<std::size_t>(error.end);
    std::string text =
        document + ":" + std::to_string(error.start - shift) + ": " +
        Encoder::toDisplayText(String(Units(asLine(content.view().substr(start, end - start)))));
    const char* separator = ": ";
    for (const String& suggestion : error.suggestions) {
        if (suggestion.empty())
            continue;
        text += separator + Encoder::toDisplayText(suggestion);
        separator = ", ";
    }
    return text + "\n    " +
           Encoder::toDisplayText(String(Units(contextOf(content.view(), start, end)))) + "\n";
}

/// A file of another kind has no words to list, which must not pass for a document without errors.
void requireDocument(const String& content, const String& path) {
    if (content.find(L"<qfd:document", 0) < 0 && content.find(L"<fo:root", 0) < 0)
        throw Core::Exception(path + L": there is no qfd:document and no fo:root in it");
}

/// Lets the document name the dictionaries; answers by how much its text moved.
int useDictionaries(EditableDocumentBuffer& document, const String& dictionaries) {
    const int length = document.getContent().length();
    if (!dictionaries.empty())
        document.setSpellingDictionaries(dictionaries);
    return document.getContent().length() - length;
}

} // namespace

SmartPtr<Drawing::SpellChecker> systemSpellChecker() {
#ifdef FORME_WITH_HUNSPELL
    return new HunspellChecker;
#else
    return nullptr;
#endif
}

int listMisspeltWords(const SpellOptions& options, Drawing::SpellChecker& checker,
                      SpellingMonitor& monitor) {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUpAsHost(*document);
    const String path = Encoder::convertUTF8ToString(options.document);
    loadDocument(*document, path);
    requireDocument(document->getContent(), path);
    String dictionaries = Encoder::convertUTF8ToString(options.dictionaries);
    const int shift = useDictionaries(*document, dictionaries);
    if (dictionaries.empty())
        dictionaries = document->getSpellingDictionaries();
    const String content = document->getContent();
    document->setSpellChecker(new WatchedChecker(checker, content.length(), monitor));
    // From here on all text follows, that of headers and footers too.
    document->setCaretPos(false, std::max(document->getFirstPageGeneratorPos(), 0));
    int words = 0;
    for (; const auto error = document->getNextSpellingError(dictionaries, false); ++words)
        monitor.onMisspeltWord(describe(*error, content, shift, options.document));
    return words;
}

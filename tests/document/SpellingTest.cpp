#include "foundation/Exception.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace {

/// Two dictionaries of a few words each.
class SmallChecker : public Drawing::SpellChecker {
public:
    Core::String getWordChars(const Core::String& dictionary) override {
        asked.push_back(dictionary);
        if (!words.count(dictionary))
            throw Core::Exception(L"there is no " + dictionary);
        return dictionary == L"en_US" ? L"abcdefghijklmnopqrstuvwxyz" : L"\xE4\xF6\xFC";
    }

    SmartPtr<Drawing::SpellingError> checkWord(const Core::String& word,
                                               const Core::String& dictionary, int start,
                                               int end) override {
        if (words.at(dictionary).count(word))
            return nullptr;
        return new Drawing::SpellingError(start, end, {dictionary}, {dictionary + L" " + word});
    }

    void syncSpellerMap(const Core::StringArray& dictionaries) override { loaded = dictionaries; }

    std::map<Core::String, std::set<Core::String>> words{{L"en_US", {L"one", L"two", L"bolder"}},
                                                         {L"de", {L"eins", L"zw\xF6lf"}}};
    std::vector<Core::String> asked;
    Core::StringArray loaded;
};

struct SpelledDocument : MarkedDocument {
    explicit SpelledDocument(const std::wstring& marked)
        : MarkedDocument(marked), checker(new SmallChecker) {
        face().setSpellChecker(checker);
    }

    const SmartPtr<SmallChecker> checker;
};

/// What the walk selects from the caret on, error by error, as long as it goes on.
std::vector<std::wstring> errorsIn(SpelledDocument& buffer, const wchar_t* dictionaries) {
    std::vector<std::wstring> selected;
    int last = 0;
    while (const auto error = buffer->getNextSpellingError(dictionaries, false)) {
        EXPECT_EQ(error->start, buffer.document().pivot());
        EXPECT_EQ(error->end, buffer.caret());
        selected.push_back(buffer.marked());
        if (error->start < std::exchange(last, error->end))
            break;
    }
    return selected;
}

using Errors = std::vector<std::wstring>;

} // namespace

TEST(Spelling, SelectsEachWordThatIsNotKnown) {
    SpelledDocument buffer(L"<B>on|e, tow &amp; three</B><B>oen</B>");
    EXPECT_EQ(errorsIn(buffer, L""), (Errors{L"<B>one, ^tow| &amp; three</B><B>oen</B>",
                                             L"<B>one, tow &amp; ^three|</B><B>oen</B>",
                                             L"<B>one, tow &amp; three</B><B>^oen|</B>"}));
    EXPECT_EQ(buffer.checker->asked.front(), L"en_US");
    EXPECT_EQ(buffer.marked(), L"<B>one, tow &amp; three</B><B>^oen|</B>");
}

TEST(Spelling, ListsTheMisspeltWordsOfARangeAndMovesNothing) {
    SpelledDocument buffer(L"<B>on|e, tow &amp; thr<I>ee</I> one</B><B>oen</B><B>tew</B>");
    const auto wordsBetween = [&](int start, int end) {
        std::wstring words;
        for (const auto& error : buffer->getSpellingErrors(start, end, L""))
            words += inShort(std::wstring(buffer.text().view(error->start, error->end))) + L" ";
        return words;
    };
    const EditorState before = stateOf(buffer.face());
    EXPECT_EQ(wordsBetween(0, buffer.find(L"tew")), L"tow thr<I>ee oen ");
    EXPECT_EQ(wordsBetween(buffer.find(L"e</I>"), buffer.find(L"one<")), L"thr<I>ee ");
    EXPECT_EQ(wordsBetween(buffer.find(L" &"), buffer.find(L"thr")), L"");
    EXPECT_EQ(stateOf(buffer.face()), before);
    EXPECT_EQ(buffer.heard(), "");
    buffer->setSpellChecker(nullptr);
    EXPECT_THROW(buffer->getSpellingErrors(0, 1, L""), Core::NullPointerException);
}

TEST(Spelling, TakesAWordAcrossInlinesButNotOutOfItsBlock) {
    SpelledDocument known(L"<B>|b<I>o<fo:wrapper>ld</fo:wrapper></I>er</B>");
    EXPECT_EQ(errorsIn(known, L""), Errors{});
    // The blocks have no stop between the edges of the inlines.
    SpelledDocument apart(L"<B>o<I>ne</I></B><B><I>t|w</I>o</B><B>one<I>r</I></B>");
    EXPECT_EQ(errorsIn(apart, L""),
              (Errors{L"<B>o<I>ne</I></B><B><I>tw</I>o</B><B>^one<I>r|</I></B>"}));
    // The footnote's text begins directly behind the mark.
    SpelledDocument footnote(L"<B>|one<fo:footnote><I>b</I><fo:footnote-body>"
                             L"<B>two</B></fo:footnote-body></fo:footnote></B>");
    EXPECT_EQ(errorsIn(footnote, L""), Errors{L"<B>one<fo:footnote><I>^b|</I><fo:footnote-body>"
                                              L"<B>two</B></fo:footnote-body></fo:footnote></B>"});
}

TEST(Spelling, FlagsOnlyWhatEveryDictionaryRejects) {
    SpelledDocument buffer(L"<B>|one eins zw\xF6lf zw\xF6 one</B>");
    const auto error = buffer->getNextSpellingError(L"de:en_US:", false);
    ASSERT_TRUE(error);
    EXPECT_EQ(buffer.marked(), L"<B>one eins zw\xF6lf ^zw\xF6| one</B>");
    EXPECT_EQ(error->dictionaries, (Core::StringArray{L"de", L"en_US"}));
    EXPECT_EQ(error->suggestions, (Core::StringArray{L"de zw\xF6", L"", L"en_US zw\xF6", L""}));
    EXPECT_FALSE(buffer->getNextSpellingError(L"de:en_US:", false));
}

TEST(Spelling, AsksTheDictionariesThatTheDocumentNames) {
    SpelledDocument buffer(L"<B qf:spelling-dictionaries=\"de\">|\xE4</B>");
    EXPECT_TRUE(buffer->getNextSpellingError(L"en_US", false));
    EXPECT_EQ(buffer.checker->asked, std::vector<Core::String>{L"de"});
    EXPECT_EQ(buffer->getSpellingDictionaries(), L"");

    // A list without a name is none.
    SpelledDocument nameless(L"<B qf:spelling-dictionaries=\":\">|one twp</B>");
    EXPECT_EQ(errorsIn(nameless, L" : ").size(), 1U);
    EXPECT_EQ(nameless.checker->asked.front(), L"en_US");

    buffer->syncSpellerMap(L"en_US::de");
    EXPECT_EQ(buffer.checker->loaded, (Core::StringArray{L"en_US", L"de"}));
    buffer->setSpellingDictionaries(L"de");
    EXPECT_EQ(buffer->getSpellingDictionaries(), L"de");
    buffer->syncSpellerMap(L"en_US");
    EXPECT_EQ(buffer.checker->loaded, Core::StringArray{L"de"});
    buffer->syncSpellerMap(L"");
    EXPECT_EQ(buffer.checker->loaded, Core::StringArray{L"en_US"});
}

TEST(Spelling, ChangesNothingWhenTheCheckerIsMissingOrRaises) {
    SpelledDocument buffer(L"<B>one</B><B>^tw|o</B>");
    const std::wstring before = buffer.marked();
    EXPECT_THROW(buffer->getNextSpellingError(L"fr_FR", true), Core::Exception);
    buffer->setSpellChecker(nullptr);
    EXPECT_THROW(buffer->getNextSpellingError(L"", true), Core::NullPointerException);
    EXPECT_THROW(buffer->syncSpellerMap(L""), Core::NullPointerException);
    EXPECT_EQ(buffer.marked(), before);
    EXPECT_EQ(buffer.heard(), "");
}

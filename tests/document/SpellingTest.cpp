#include "document/DocumentTesting.h"
#include "foundation/Exception.h"

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
                                                         {L"de_DE", {L"eins", L"zw\xF6lf"}}};
    std::vector<Core::String> asked;
    Core::StringArray loaded;
};

class SpelledBuffer : public TestBuffer {
public:
    using EditableDocumentBuffer::getNextWordStartPosition;
    using EditableDocumentBuffer::getWordEndPosition;
    using EditableDocumentBuffer::getWordStartPosition;

    explicit SpelledBuffer(const std::wstring& marked)
        : TestBuffer(marked), checker(new SmallChecker) {
        setSpellChecker(checker);
    }

    const SmartPtr<SmallChecker> checker;
};

/// What the walk selects from the caret on, error by error, as long as it goes on.
std::vector<std::wstring> errorsIn(SpelledBuffer& buffer, const wchar_t* dictionaries) {
    std::vector<std::wstring> selected;
    int last = 0;
    while (const auto error = buffer.getNextSpellingError(dictionaries, false)) {
        EXPECT_EQ(error->start, buffer.getSelectionPivotPos());
        EXPECT_EQ(error->end, buffer.getCaretPos());
        selected.push_back(buffer.marked());
        if (error->start < std::exchange(last, error->end))
            break;
    }
    return selected;
}

using Errors = std::vector<std::wstring>;

} // namespace

TEST(Spelling, SelectsEachWordThatIsNotKnown) {
    SpelledBuffer buffer(L"<fo:block>on|e, tow &amp; three</fo:block><fo:block>oen</fo:block>");
    EXPECT_EQ(errorsIn(buffer, L""),
              (Errors{L"<fo:block>one, ^tow| &amp; three</fo:block><fo:block>oen</fo:block>",
                      L"<fo:block>one, tow &amp; ^three|</fo:block><fo:block>oen</fo:block>",
                      L"<fo:block>one, tow &amp; three</fo:block><fo:block>^oen|</fo:block>"}));
    EXPECT_EQ(buffer.checker->asked.front(), L"en_US");
    EXPECT_EQ(buffer.marked(),
              L"<fo:block>one, tow &amp; three</fo:block><fo:block>^oen|</fo:block>");
}

TEST(Spelling, BeginsWithTheWordAroundTheCaret) {
    SpelledBuffer buffer(L"<fo:block>tow</fo:block><fo:block>t<fo:inline>o|w</fo:inline> "
                         L"two</fo:block>");
    EXPECT_EQ(errorsIn(buffer, L""),
              Errors{L"<fo:block>tow</fo:block>"
                     L"<fo:block>^t<fo:inline>ow</fo:inline>| two</fo:block>"});
    const auto error = buffer.getNextSpellingError(L"", true);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->start, buffer.find(L"tow"));
}

TEST(Spelling, TakesAWordAcrossInlinesButNotOutOfItsBlock) {
    SpelledBuffer known(L"<fo:block>|b<fo:inline>o<fo:wrapper>ld</fo:wrapper></fo:inline>er</"
                        L"fo:block>");
    EXPECT_EQ(errorsIn(known, L""), Errors{});
    // The blocks have no stop between the edges of the inlines.
    SpelledBuffer apart(L"<fo:block>o<fo:inline>ne</fo:inline></fo:block>"
                        L"<fo:block><fo:inline>t|w</fo:inline>o</fo:block>"
                        L"<fo:block>one<fo:inline>r</fo:inline></fo:block>");
    EXPECT_EQ(errorsIn(apart, L""),
              (Errors{L"<fo:block>o<fo:inline>ne</fo:inline></fo:block>"
                      L"<fo:block><fo:inline>tw</fo:inline>o</fo:block>"
                      L"<fo:block>^one<fo:inline>r|</fo:inline></fo:block>"}));
    // The footnote's text begins directly behind the mark.
    SpelledBuffer footnote(L"<fo:block>|one<fo:footnote><fo:inline>b</fo:inline><fo:footnote-body>"
                           L"<fo:block>two</fo:block></fo:footnote-body></fo:footnote></fo:block>");
    EXPECT_EQ(errorsIn(footnote, L""),
              Errors{L"<fo:block>one<fo:footnote><fo:inline>^b|</fo:inline><fo:footnote-body>"
                     L"<fo:block>two</fo:block></fo:footnote-body></fo:footnote></fo:block>"});
}

TEST(Spelling, FlagsOnlyWhatEveryDictionaryRejects) {
    SpelledBuffer buffer(L"<fo:block>|one eins zw\xF6lf zw\xF6 one</fo:block>");
    const auto error = buffer.getNextSpellingError(L"de_DE:en_US:", false);
    ASSERT_TRUE(error);
    EXPECT_EQ(buffer.marked(), L"<fo:block>one eins zw\xF6lf ^zw\xF6| one</fo:block>");
    EXPECT_EQ(error->dictionaries, (Core::StringArray{L"de_DE", L"en_US"}));
    EXPECT_EQ(error->suggestions, (Core::StringArray{L"de_DE zw\xF6", L"", L"en_US zw\xF6", L""}));
    EXPECT_FALSE(buffer.getNextSpellingError(L"de_DE:en_US:", false));
}

TEST(Spelling, AsksTheDictionariesThatTheDocumentNames) {
    SpelledBuffer buffer(L"<fo:block qf:spelling-dictionaries=\"de_DE\">|\xE4</fo:block>");
    EXPECT_TRUE(buffer.getNextSpellingError(L"en_US", false));
    EXPECT_EQ(buffer.checker->asked, std::vector<Core::String>{L"de_DE"});
    EXPECT_EQ(buffer.getSpellingDictionaries(), L"");

    // A list without a name is none.
    SpelledBuffer nameless(L"<fo:block qf:spelling-dictionaries=\":\">|one twp</fo:block>");
    EXPECT_EQ(errorsIn(nameless, L" : ").size(), 1U);
    EXPECT_EQ(nameless.checker->asked.front(), L"en_US");

    buffer.syncSpellerMap(L"en_US::de_DE");
    EXPECT_EQ(buffer.checker->loaded, (Core::StringArray{L"en_US", L"de_DE"}));
    buffer.setSpellingDictionaries(L"de_DE");
    EXPECT_EQ(buffer.getSpellingDictionaries(), L"de_DE");
    buffer.syncSpellerMap(L"en_US");
    EXPECT_EQ(buffer.checker->loaded, Core::StringArray{L"de_DE"});
    buffer.syncSpellerMap(L"");
    EXPECT_EQ(buffer.checker->loaded, Core::StringArray{L"en_US"});
}

TEST(Spelling, ChangesNothingWhenTheCheckerIsMissingOrRaises) {
    RecordingMonitor monitor;
    SpelledBuffer buffer(L"<fo:block>one</fo:block><fo:block>^tw|o</fo:block>");
    buffer.setMonitor(&monitor);
    const std::wstring before = buffer.marked();
    EXPECT_THROW(buffer.getNextSpellingError(L"fr_FR", true), Core::Exception);
    buffer.setSpellChecker(nullptr);
    EXPECT_THROW(buffer.getNextSpellingError(L"", true), Core::NullPointerException);
    EXPECT_THROW(buffer.syncSpellerMap(L""), Core::NullPointerException);
    EXPECT_EQ(buffer.marked(), before);
    EXPECT_EQ(monitor.take(), "");
    buffer.setMonitor(nullptr);
}

TEST(Spelling, LeavesTheCaretWhereThereIsNoErrorOrNoCaret) {
    SpelledBuffer buffer(L"<fo:block>one</fo:block><fo:block>^tw|o</fo:block>");
    EXPECT_FALSE(buffer.getNextSpellingError(L"", false));
    EXPECT_EQ(buffer.marked(), L"<fo:block>one</fo:block><fo:block>^tw|o</fo:block>");
    EXPECT_FALSE(buffer.getNextSpellingError(L"", true));
    EXPECT_EQ(buffer.marked(), L"<fo:block>|one</fo:block><fo:block>two</fo:block>");
    buffer.setCaretPos(false, -1);
    EXPECT_FALSE(buffer.getNextSpellingError(L"", false));
}

TEST(Spelling, FindsTheEndsOfWords) {
    const wchar_t* const letters = L"abc";
    SpelledBuffer buffer(L"<fo:block>|a<fo:inline>bc</fo:inline>a x</fo:block><fo:block>b</"
                         L"fo:block>");
    const int word = buffer.find(L"a<fo:inline>");
    const int blank = buffer.find(L" x<");
    for (const int position : {word, buffer.find(L"c<"), buffer.find(L"a x")}) {
        EXPECT_EQ(buffer.getWordStartPosition(position, letters), word) << position;
        EXPECT_EQ(buffer.getWordEndPosition(position, letters), blank) << position;
    }
    EXPECT_EQ(buffer.getWordStartPosition(blank, letters), blank);
    EXPECT_EQ(buffer.getWordEndPosition(blank, letters), blank);
    EXPECT_EQ(buffer.getNextWordStartPosition(blank, letters), buffer.find(L"b</"));
    EXPECT_EQ(buffer.getNextWordStartPosition(buffer.find(L"b</") + 1, letters), -1);
    for (const int outside : {-1, buffer.getContent().length()}) {
        EXPECT_EQ(buffer.getWordStartPosition(outside, letters), -1);
        EXPECT_EQ(buffer.getWordEndPosition(outside, letters), -1);
        EXPECT_EQ(buffer.getNextWordStartPosition(outside, letters), -1);
    }
}

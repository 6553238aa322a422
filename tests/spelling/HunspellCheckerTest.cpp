#include "foundation/Messages.h"
#include "foundation/TemporaryFolder.h"

#include <forme-hunspell/HunspellChecker.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// Two small dictionaries: "en" in UTF-8, with an affix and an apostrophe, and "de" in ISO 8859-1.
class HunspellCheckerTest : public testing::Test {
protected:
    HunspellCheckerTest() {
        folder.put("en.aff", "SET UTF-8\nTRY esianrtolcdugmphbyfvkwz'\nSFX M Y 1\nSFX M 0 's .\n"
                             "WORDCHARS 0123\n");
        folder.put("en.dic", "5\nclock/M\nna\xC3\xAFve\nAT&T\ndon't\n1st\n");
        folder.put("de.aff", "SET ISO8859-1\nTRY abcdefghijklmnopqrstuvwxyz\374\n");
        folder.put("de.dic", "2\n\374ber\nUhr\n");
    }

    bool knows(const wchar_t* word, const wchar_t* dictionary) {
        return !checker->checkWord(word, dictionary, 0, 1);
    }
    Core::StringArray suggestions(const wchar_t* word, const wchar_t* dictionary) {
        const auto error = checker->checkWord(word, dictionary, 3, 7);
        if (!error)
            return {};
        EXPECT_EQ(error->start, 3);
        EXPECT_EQ(error->end, 7);
        EXPECT_EQ(error->dictionaries, Core::StringArray{dictionary});
        return error->suggestions;
    }
    bool isWordChar(wchar_t unit, const wchar_t* dictionary) {
        return checker->getWordChars(dictionary).find(unit, 0) >= 0;
    }
    /// What the checker says to a dictionary that it cannot load.
    std::string complaint(const wchar_t* dictionary) {
        return messageOf([&] { checker->getWordChars(dictionary); });
    }

    const TemporaryFolder folder;
    const SmartPtr<HunspellChecker> checker{
        new HunspellChecker(HunspellChecker::Folders{folder.path()})};
};

} // namespace

TEST_F(HunspellCheckerTest, KnowsTheWordsOfADictionary) {
    EXPECT_TRUE(knows(L"clock", L"en"));
    EXPECT_TRUE(knows(L"Clock's", L"en"));
    EXPECT_TRUE(knows(L"na\xEFve", L"en"));
    EXPECT_FALSE(knows(L"\u00FCber", L"en"));
    EXPECT_EQ(suggestions(L"clokc", L"en"), Core::StringArray{L"clock"});
}

TEST_F(HunspellCheckerTest, ReadsOtherEncodings) {
    EXPECT_TRUE(knows(L"\u00FCber", L"de"));
    EXPECT_EQ(suggestions(L"uber", L"de"), (Core::StringArray{L"\u00FCber"}));
    EXPECT_FALSE(knows(L"\x3B1\x3B2", L"de")); // letters that the encoding lacks
    EXPECT_FALSE(knows(L"\xD800", L"de"));     // half a surrogate pair
}

TEST_F(HunspellCheckerTest, TakesApostrophesInBothFormsAndAsQuotesAndAFullStopAsTheEndOfASentence) {
    EXPECT_TRUE(knows(L"don\x2019t", L"en"));
    EXPECT_TRUE(knows(L"'clock'", L"en"));
    EXPECT_TRUE(knows(L"''", L"en"));
    EXPECT_EQ(suggestions(L"'clokc\x2019", L"en"), Core::StringArray{L"'clock\x2019"});
    EXPECT_TRUE(knows(L"clock.", L"en"));
    EXPECT_EQ(suggestions(L"clokc.", L"en"), Core::StringArray{L"clock."});
}

TEST_F(HunspellCheckerTest, TellsWhatCanBePartOfAWord) {
    for (const wchar_t unit : {L'a', L'Z', L'\xEF', L'\x3B1', L'1', L'\'', L'\x2019'})
        EXPECT_TRUE(isWordChar(unit, L"en")) << static_cast<int>(unit);
    for (const wchar_t unit : {L' ', L'&', L'<', L'9', L'.', L'\xD7', L'\x201C', L'\x5D0'})
        EXPECT_FALSE(isWordChar(unit, L"en")) << static_cast<int>(unit);
    EXPECT_FALSE(isWordChar(L'\'', L"de"));

    // Letters without capitals count where the dictionary has words with them.
    folder.put("he.aff", "SET UTF-8\n");
    folder.put("he.dic", "1\n\xD7\x90\xD7\x91\n");
    EXPECT_TRUE(isWordChar(L'\x5D0', L"he"));
}

TEST_F(HunspellCheckerTest, NamesADictionaryThatIsMissingAndWhereItLooked) {
    EXPECT_EQ(complaint(L"fr"), "there is no spelling dictionary \"fr\": fr.aff and fr.dic are not "
                                "in " +
                                    folder.path().string());
    folder.put("x.aff", "SET UTF-8\n"); // without its words
    EXPECT_NE(complaint(L"x"), "");
    EXPECT_NE(complaint(L"../en"), "");
    EXPECT_NE(complaint(L""), "");
}

TEST_F(HunspellCheckerTest, NamesTheFileThatIsBroken) {
    folder.put("bad.aff", "SET NO-SUCH-SET\n");
    folder.put("bad.dic", "1\na\n");
    EXPECT_EQ(complaint(L"bad"),
              (folder.path() / "bad.aff").string() + ": the encoding \"NO-SUCH-SET\" is not known");
    folder.put("empty.aff", "SET UTF-8\n");
    folder.put("empty.dic", "");
    EXPECT_EQ(complaint(L"empty"),
              (folder.path() / "empty.dic").string() + ":1: the number of words is missing");
}

TEST_F(HunspellCheckerTest, LoadsTheDictionariesOfAListOrNone) {
    checker->syncSpellerMap({L"en", L"de"});
    std::filesystem::remove(folder.path() / "de.dic");
    EXPECT_TRUE(knows(L"Uhr", L"de"));
    EXPECT_THROW(checker->syncSpellerMap({L"en", L"fr"}), Core::Exception);
    EXPECT_TRUE(knows(L"Uhr", L"de"));
    checker->syncSpellerMap({L"en"});
    EXPECT_NE(complaint(L"de"), "");
}

TEST_F(HunspellCheckerTest, ListsWhatIsInstalled) {
    EXPECT_EQ(checker->getAvailableDictionaries(), (Core::StringArray{L"de", L"en"}));
    const std::string first = folder.path().string();
    setenv("DICPATH", (first + "::/no/such/folder").c_str(), 1);
    const HunspellChecker::Folders folders = HunspellChecker::systemFolders();
    unsetenv("DICPATH");
    EXPECT_EQ(folders, (HunspellChecker::Folders{first, "/no/such/folder", "/usr/share/hunspell",
                                                 "/usr/share/myspell/dicts"}));
}

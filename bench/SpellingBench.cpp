// Documents in English, checked with the dictionary that is installed.

#include "cli/Spelling.h"

#include <forme-hunspell/HunspellChecker.h>

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

/// Counts the words that it is asked about.
class CountingChecker : public HunspellChecker {
public:
    SmartPtr<Drawing::SpellingError> checkWord(const Core::String& word,
                                               const Core::String& dictionary, int start,
                                               int end) override {
        ++words;
        return HunspellChecker::checkWord(word, dictionary, start, end);
    }

    double words = 0;
};

class NoMonitor : public SpellingMonitor {
public:
    void onProgress(double) override {}
    void onMisspeltWord(const std::string&) override {}
};

/// Most of the time goes into the suggestions for the misspelt words.
void spellDocument(benchmark::State& state, const std::string& path) {
    if (!std::filesystem::exists(path))
        return state.SkipWithError("the document is not here");
    CountingChecker checker;
    checker.syncSpellerMap({L"en_US"});
    NoMonitor monitor;
    int misspelt = 0;
    for (auto _ : state)
        misspelt = listMisspeltWords({path, "en_US"}, checker, monitor);
    state.counters["words"] = benchmark::Counter(checker.words, benchmark::Counter::kAvgIterations);
    state.counters["words/s"] = benchmark::Counter(checker.words, benchmark::Counter::kIsRate);
    state.counters["misspelt"] = misspelt;
}

BENCHMARK_CAPTURE(spellDocument, manual, FORME_SAMPLES "/manual.xml")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(spellDocument, readme, FORME_CORPUS "/basic_readme.fo")
    ->Unit(benchmark::kMillisecond);

} // namespace

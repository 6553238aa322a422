// A search without a match and a check without an error, each over a whole document. What is
// searched for stands in markup only, so that the search has to look at every text.

#include "GeneratedDocument.h"

#include "document/EditableDocumentBuffer.h"
#include "foundation/SmartPtr.h"

#include <benchmark/benchmark.h>

namespace {

/// Knows every word.
class KnowingChecker : public Drawing::SpellChecker {
public:
    Core::String getWordChars(const Core::String&) override {
        return L"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    }
    SmartPtr<Drawing::SpellingError> checkWord(const Core::String&, const Core::String&, int,
                                               int) override {
        return nullptr;
    }
    void syncSpellerMap(const Core::StringArray&) override {}
};

SmartPtr<EditableDocumentBuffer> documentOf(long long bytes) {
    SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline"})
        document->addEditableElement(name);
    document->addInlineEditableElement(L"fo:inline");
    document->setContent(generatedDocument(bytes), true);
    return document;
}

void searchAll(benchmark::State& state) {
    const SmartPtr<EditableDocumentBuffer> document = documentOf(state.range(0));
    for (auto _ : state) {
        if (document->findReplace(L"fo:block", L"", true, false, Direction::Forward, false) != -1)
            state.SkipWithError("the text was found");
        document->resetfindReplaceStartPos();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void checkAll(benchmark::State& state) {
    const SmartPtr<EditableDocumentBuffer> document = documentOf(state.range(0));
    document->setSpellChecker(new KnowingChecker);
    for (auto _ : state)
        if (document->getNextSpellingError(L"", true))
            state.SkipWithError("a word was rejected");
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

BENCHMARK(searchAll)
    ->Name("Search/WholeDocument")
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(checkAll)
    ->Name("Spelling/WholeDocument")
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);

} // namespace

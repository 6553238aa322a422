// Steps of the caret over what a reader sees as one character, all over documents of three sizes,
// in clusters and, with the second argument 0, in code points.

#include "GeneratedDocument.h"
#include "Typist.h"

#include "foundation/SmartPtr.h"
#include "view/StopSide.h"

#include <forme-unicode/IcuSegmenter.h>

#include <benchmark/benchmark.h>

namespace {

constexpr int lettersTyped = 20;

/// In the middle of the document stand letters of which each has an accent of its own.
void stepOverLetters(benchmark::State& state) {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    open(*document, generatedDocument(state.range(0)));
    document->setTextSegmenter(new IcuSegmenter);
    document->setClusterSteps(state.range(1) != 0);
    document->setCaretPos(
        false, document->getNearestStop(document->getContent().length() / 2, StopSide::Either));
    for (int i = 0; i < lettersTyped; ++i)
        document->insertText(L"e\u0301", false, false);
    for (int i = 0; i < lettersTyped / 2; ++i)
        document->moveCaretLeft(false, false, true);
    for (auto _ : state) {
        document->moveCaretLeft(false, false, true);
        document->moveCaretRight(false, false, true);
        document->moveCaretLeft(false, false, true);
        document->moveCaretRight(false, false, true);
    }
    state.SetItemsProcessed(4 * state.iterations());
}

constexpr long long kilobytes = 1024;
constexpr long long megabytes = 1024 * kilobytes;

void sizes(benchmark::internal::Benchmark* bench) {
    for (const int inClusters : {0, 1})
        for (const long long bytes : {10 * kilobytes, megabytes, 100 * megabytes})
            bench->Args({bytes, inClusters});
    bench->Unit(benchmark::kMicrosecond);
}

BENCHMARK(stepOverLetters)->Name("Clusters/FourSteps")->Apply(sizes);

} // namespace

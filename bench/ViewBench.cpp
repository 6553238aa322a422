// What a host asks between two keys: at places all over documents of three sizes, it costs the same
// in each. With the second argument a letter is typed before each question, as it is in use.

#include "GeneratedDocument.h"
#include "Typist.h"

#include "foundation/SmartPtr.h"
#include "view/Drawn.h"
#include "view/EditingState.h"
#include "view/StopSide.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace {

constexpr int placesAsked = 64;
constexpr int unitsOnScreen = 3000;

class Asked {
public:
    explicit Asked(const benchmark::State& state)
        : types_(state.range(1) != 0), document_(new EditableDocumentBuffer) {
        open(*document_, generatedDocument(state.range(0)));
        const int length = document_->getContent().length();
        for (int place = 1; place <= placesAsked; ++place)
            places_.push_back(document_->getNearestStop(
                static_cast<int>(length * static_cast<long long>(place) / (placesAsked + 1)),
                StopSide::Either));
    }

    EditableDocumentBuffer& document() const { return *document_; }

    /// Goes to the next of the places; what lies behind has moved by what was typed.
    int goOn() {
        const int place = places_[next_++ % places_.size()];
        document_->setCaretPos(false, place);
        if (types_)
            document_->insertText(L"x", false, false);
        return document_->getCaretPos();
    }

private:
    bool types_;
    SmartPtr<EditableDocumentBuffer> document_;
    std::vector<int> places_;
    std::size_t next_ = 0;
};

void goAlone(benchmark::State& state) {
    Asked asked(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(asked.goOn());
}

void editingState(benchmark::State& state) {
    Asked asked(state);
    for (auto _ : state) {
        asked.goOn();
        benchmark::DoNotOptimize(asked.document().getEditingState());
    }
}

void nearestStop(benchmark::State& state) {
    Asked asked(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            asked.document().getNearestStop(asked.goOn() + 40, StopSide::Either));
}

/// What a host does that keeps a copy of the text.
void followTheText(benchmark::State& state) {
    Asked asked(state);
    std::uint64_t version = asked.document().getTextVersion();
    for (auto _ : state) {
        asked.goOn();
        const std::optional<TextChange> change = asked.document().changeSince(version);
        benchmark::DoNotOptimize(
            asked.document().getContent(change->start, change->start + change->inserted));
        version = asked.document().getTextVersion();
    }
}

void walkOfScreen(benchmark::State& state) {
    Asked asked(state);
    long long pieces = 0;
    for (auto _ : state) {
        const int start = asked.goOn();
        for (int from = start; from < start + unitsOnScreen;) {
            const std::vector<Drawn> drawn = asked.document().getDrawn(from, 50);
            if (drawn.empty())
                break;
            pieces += static_cast<long long>(drawn.size());
            from = drawn.back().end;
        }
    }
    state.counters["pieces"] =
        static_cast<double>(pieces) / static_cast<double>(state.iterations());
}

/// All is selected, and no format is the same in all of it until its end.
void stateOfAll(benchmark::State& state) {
    Asked asked(state);
    asked.document().moveCaretHome(false);
    asked.document().moveCaretToEnd(true);
    for (auto _ : state)
        benchmark::DoNotOptimize(asked.document().getEditingState());
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

constexpr long long kilobytes = 1024;
constexpr long long megabytes = 1024 * kilobytes;

void sizes(benchmark::internal::Benchmark* bench) {
    for (const int types : {0, 1})
        for (const long long bytes : {10 * kilobytes, megabytes, 100 * megabytes})
            bench->Args({bytes, types});
    bench->Unit(benchmark::kMicrosecond);
}

BENCHMARK(goAlone)->Name("View/GoThere")->Apply(sizes);
BENCHMARK(editingState)->Name("View/GoThereAndAskState")->Apply(sizes);
BENCHMARK(nearestStop)->Name("View/GoThereAndFindStop")->Apply(sizes);
BENCHMARK(followTheText)->Name("View/GoThereAndFollowTheText")->Apply(sizes);
BENCHMARK(walkOfScreen)->Name("View/GoThereAndWalkScreen")->Apply(sizes);
BENCHMARK(stateOfAll)
    ->Name("View/StateOfAll")
    ->Args({100 * kilobytes, 0})
    ->Args({megabytes, 0})
    ->Args({10 * megabytes, 0})
    ->Unit(benchmark::kMillisecond);

} // namespace

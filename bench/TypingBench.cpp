// A person's typing, replayed keystroke by keystroke into one block of a document.

#include "Allocations.h"
#include "EditingTrace.h"
#include "GeneratedDocument.h"
#include "Instructions.h"
#include "Replay.h"
#include "Typist.h"

#include "foundation/SmartPtr.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <numeric>
#include <optional>
#include <string>

namespace {

constexpr long long megabytes = 1024LL * 1024;

/// `most` bounds the operations replayed; a replay to the end is checked against what the person
/// wrote.
void typing(benchmark::State& state, const char* name, std::size_t most) {
    const std::string path = std::string(FORME_TRACES) + "/" + name + ".json.gz";
    if (!std::filesystem::exists(path))
        return state.SkipWithError("the trace is not here");
    const EditingTrace trace = readTrace(path);
    for (auto _ : state) {
        const SmartPtr<Typist> typist(new Typist(generatedDocument(state.range(0))));
        Replay replay(*typist, trace);
        replay.advanceTo(most);
        const Costs& costs = replay.costs();
        const auto operations = static_cast<double>(costs.times.size());
        const auto total =
            std::accumulate(costs.times.begin(), costs.times.end(), Costs::Clock::duration());
        state.SetIterationTime(std::chrono::duration<double>(total).count());
        state.counters["operations"] = operations;
        state.counters["median_us"] = costs.median();
        state.counters["allocations"] = static_cast<double>(costs.allocated) / operations;
        if (!replay.isTrue())
            state.SkipWithError("the text at the end is not what was typed");
    }
}

/// A run of typing without a move of the caret, and its undo: twice as long, twice the time.
void longRun(benchmark::State& state) {
    for (auto _ : state) {
        const SmartPtr<Typist> typist(new Typist(generatedDocument(0)));
        const Core::String before = typist->getContent();
        for (long key = 0; key < state.range(0); ++key)
            typist->typeCharacter(key % 6 == 5 ? ' ' : 'x');
        typist->undo();
        if (typist->getContent() != before)
            state.SkipWithError("the run was not undone as one");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// What a letter costs in a run of typing, of which the first is typed ahead.
void plainCharacter(benchmark::State& state) {
    const SmartPtr<Typist> typist(new Typist(generatedDocument(state.range(0))));
    typist->typeCharacter('x');
    const Instructions instructions;
    const long long allocatedBefore = allocations();
    for (auto _ : state)
        typist->typeCharacter('x');
    const std::optional<long long> carriedOut = instructions.count();
    const auto keys = static_cast<double>(state.iterations());
    state.counters["allocations"] = static_cast<double>(allocations() - allocatedBefore) / keys;
    if (carriedOut)
        state.counters["instructions"] = static_cast<double>(*carriedOut) / keys;
    else
        state.SetLabel("instructions unknown: they cannot be counted here");
}

} // namespace

BENCHMARK(plainCharacter)->Arg(0)->Arg(megabytes)->Arg(10 * megabytes)->Iterations(10000);
BENCHMARK(longRun)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typing, sveltecomponent, "sveltecomponent", 1000000)
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typing, seph_blog1, "seph-blog1", 1000000)
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typing, sveltecomponent_first_1000, "sveltecomponent", 1000)
    ->Arg(megabytes)
    ->Arg(10 * megabytes)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

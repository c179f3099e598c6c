// Measures cards per second over TCP for different numbers of layouts in the database and objects
// on the page.

#include "BenchStation.h"
#include <benchmark/benchmark.h>

namespace vantrel::bench {

namespace {

/// Objects of the measured card: ten texts, a number, a photo.
constexpr int OwnObjects = 12;
/// The same number for each measurement, because a growing folder slows down the file system.
constexpr int Cards = 2000;

void PrintCards(benchmark::State& state, StationSize size)
{
    BenchStation station(size);
    station.PrintRecord(0);
    int card = 0;
    for (auto _ : state)
        station.PrintRecord(++card);
    state.counters["cards_per_s"] =
        benchmark::Counter(static_cast<double>(card), benchmark::Counter::kIsRate);
}

void ByLayouts(benchmark::State& state)
{
    PrintCards(state, {.Layouts = static_cast<int>(state.range(0))});
}

void ByObjects(benchmark::State& state)
{
    PrintCards(state, {.FurtherLabels = static_cast<int>(state.range(0)) - OwnObjects});
}

BENCHMARK(ByLayouts)->Arg(1)->Arg(100)->Arg(10000)->UseRealTime()->Iterations(Cards);
BENCHMARK(ByObjects)->Arg(OwnObjects)->Arg(200)->UseRealTime()->Iterations(Cards);

} // namespace

} // namespace vantrel::bench

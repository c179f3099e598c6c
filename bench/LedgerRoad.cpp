// Measures cards per second of a station that keeps a ledger, takes every record and gives each
// number once, against one with none of this: for a host that waits for each card, and for a burst
// of records in one connection. Both stations are measured alternately, so that other load affects
// them equally. The station without waits for each card in both, since it takes one record at a
// time.

#include "BenchStation.h"
#include <benchmark/benchmark.h>
#include <chrono>

namespace vantrel::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int CardsOfBurst = 100;

template <typename Work>
double SecondsOf(Work&& work)
{
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

void LedgerRoad(benchmark::State& state)
{
    BenchStation plain;
    BenchStation keeping({.KeepsAccount = true});
    int card = 0;
    int cards = 0;
    double plainly = 0;
    double waiting = 0;
    double inBurst = 0;
    for (auto _ : state) {
        for (int i = 0; i < CardsOfBurst; ++i) {
            ++card;
            plainly += SecondsOf([&] { plain.PrintRecord(card); });
            waiting += SecondsOf([&] { keeping.PrintRecord(card); });
        }
        const double burst = SecondsOf([&] { keeping.PrintBurst(card, CardsOfBurst); });
        inBurst += burst;
        cards += CardsOfBurst;
        state.SetIterationTime(burst);
    }
    state.counters["off_per_s"] = cards / plainly;
    state.counters["waiting_per_s"] = cards / waiting;
    state.counters["burst_per_s"] = cards / inBurst;
    state.counters["waiting_ratio"] = plainly / waiting;
    state.counters["burst_ratio"] = plainly / inBurst;
}

BENCHMARK(LedgerRoad)->UseManualTime()->MinTime(2);

} // namespace

} // namespace vantrel::bench

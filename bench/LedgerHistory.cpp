// Measures how fast a ledger of a million entries is read: its newest page, a search through all of
// it, and its counts. The limit of a search is SQLite reading the same rows without looking at
// them.

#include "ledger/LedgerCounts.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerSearch.h"
#include "ledger/LedgerTables.h"
#include "samples/FreshInstall.h"
#include "store/Connection.h"
#include "store/StoreDatabase.h"
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace vantrel::bench {

namespace {

constexpr qlonglong Entries = 1000000;
constexpr qlonglong PageLength = 100;
/// One entry each ten seconds, so that the million takes 115 days.
constexpr qint64 MillisecondsApart = 10000;
constexpr qint64 FirstArrival = 1785000000000;
constexpr qint64 Day = 24LL * 3600 * 1000;

constexpr const char* Statements[] = {
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
    "INSERT INTO LedgerEntries (ID, State, Received, SessionNumber, Length, ValueCount, Source, "
    "Layout, Reason, Hash, SearchText) "
    "SELECT i, CASE WHEN i % 1000 = 0 THEN 'failed' ELSE 'printed' END, "
    "1785000000000 + i * 10000, 1, 42, 3, '192.168.7.10:51234', 'Member Card', '', '', "
    "'192.168.7.10:51234' || char(10) || 'member card' || char(10) || 'ada lovelace' || i || "
    "char(10) || '4' || (i * 7919 % 10000000) || char(10) || 'gold' || char(10) || (1000 + i) "
    "FROM n",
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
    "INSERT INTO LedgerRecords (EntryID, Framing, RecordValues, Raw) "
    "SELECT i, '{\"start\":\"<\",\"separator\":\"+\",\"end\":\">\",\"filters\":[\"cr\",\"lf\"]}', "
    "'[\"Ada Lovelace' || i || '\",\"4' || (i * 7919 % 10000000) || '\",\"Gold\"]', "
    "CAST('<Ada Lovelace' || i || '+4' || (i * 7919 % 10000000) || '+Gold>' AS BLOB) FROM n",
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
    "INSERT INTO LedgerCards (EntryID, State, Page, Copy, Changed, Layout, Printer, Numbers, "
    "PageHash, File, Reason) "
    "SELECT i, CASE WHEN i % 1000 = 0 THEN 'failed' ELSE 'printed' END, 1, 1, "
    "1785000000050 + i * 10000, 'Member Card', 'Vantrel PDF', '[\"' || (1000 + i) || '\"]', "
    "'9f86d081884c7d659a2feaa0c55ad015a3bf4f1b2b0b822cd15d6c15b0f00a08', "
    "'card-' || i || '.pdf', '' FROM n",
};

/// The ledger of a million entries, made once.
StoreDatabase& Ledger()
{
    struct Filled
    {
        Filled()
        {
            MakeProgramFolder(Folder.path());
            Store.Open(LayoutDatabasePath(Folder.path()));
            MakeLedgerTables(Store.Database());
            Store.BeginTrans();
            for (const char* statement : Statements)
                Store.Database().Change(QLatin1StringView(statement), {Entries});
            Store.CommitTrans();
            Store.Database().Execute(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        }
        QTemporaryDir Folder;
        Connection Store;
    };
    static Filled filled;
    return filled.Store.Database();
}

void ReadPage(benchmark::State& state, const LedgerFilter& filter)
{
    StoreDatabase& ledger = Ledger();
    qlonglong read = 0;
    for (auto _ : state) {
        read = 0;
        ReadEntries(ledger, filter, [&](const LedgerEntry& entry) {
            benchmark::DoNotOptimize(entry.Cards.data());
            ++read;
        });
    }
    state.counters["entries"] = static_cast<double>(read);
}

LedgerFilter FirstPage()
{
    LedgerFilter filter;
    filter.Limit = PageLength;
    return filter;
}

void NewestPage(benchmark::State& state)
{
    ReadPage(state, FirstPage());
}

void SearchOfWhatIsNowhere(benchmark::State& state)
{
    LedgerFilter filter = FirstPage();
    filter.Text = QStringLiteral("Ada Byron");
    ReadPage(state, filter);
}

void SearchOfOneAmongAll(benchmark::State& state)
{
    LedgerFilter filter = FirstPage();
    filter.Text = QStringLiteral("Lovelace500000");
    ReadPage(state, filter);
}

void SearchWithinTheUsualState(benchmark::State& state)
{
    LedgerFilter filter = FirstPage();
    filter.State = LedgerState::Printed;
    filter.Text = QStringLiteral("Ada Byron");
    ReadPage(state, filter);
}

void BareReadOfTheRows(benchmark::State& state)
{
    StoreDatabase& ledger = Ledger();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            ledger.Execute(QStringLiteral("SELECT ID FROM LedgerEntries WHERE SearchText IS 1")));
}

/// What the history's window waits for before it shows something.
void FirstStepOfASearch(benchmark::State& state)
{
    for (auto _ : state) {
        LedgerSearch search({});
        benchmark::DoNotOptimize(search.Step(Ledger()));
    }
}

void SearchInSteps(benchmark::State& state)
{
    LedgerFilter filter;
    filter.Text = QStringLiteral("Ada Byron");
    for (auto _ : state) {
        LedgerSearch search(filter);
        while (!search.IsDone())
            benchmark::DoNotOptimize(search.Step(Ledger()));
    }
}

void AllNumbersInSteps(benchmark::State& state)
{
    for (auto _ : state) {
        LedgerSearch search({});
        while (!search.IsDone())
            benchmark::DoNotOptimize(search.Step(Ledger()));
    }
}

void PageOfAState(benchmark::State& state)
{
    LedgerFilter filter = FirstPage();
    filter.State = LedgerState::Failed;
    ReadPage(state, filter);
}

void PageOfADayLongAgo(benchmark::State& state)
{
    LedgerFilter filter = FirstPage();
    filter.Since = FirstArrival + Day;
    filter.Until = *filter.Since + Day;
    ReadPage(state, filter);
}

void CountOfAll(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(CountEntries(Ledger(), {}));
}

void CountsOfNinetyDays(benchmark::State& state)
{
    StoreDatabase& ledger = Ledger();
    const qint64 end = FirstArrival + Entries * MillisecondsApart;
    for (auto _ : state) {
        qlonglong issued = 0;
        CountCards(ledger, end - 90 * Day, {},
                   [&](const LedgerCount& count) { issued += count.Issued; });
        benchmark::DoNotOptimize(issued);
    }
}

BENCHMARK(NewestPage)->Unit(benchmark::kMillisecond);
BENCHMARK(SearchOfWhatIsNowhere)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(SearchOfOneAmongAll)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(SearchWithinTheUsualState)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(BareReadOfTheRows)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(FirstStepOfASearch)->Unit(benchmark::kMillisecond);
BENCHMARK(SearchInSteps)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(AllNumbersInSteps)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(PageOfAState)->Unit(benchmark::kMillisecond);
BENCHMARK(PageOfADayLongAgo)->Unit(benchmark::kMillisecond);
BENCHMARK(CountOfAll)->Unit(benchmark::kMillisecond);
BENCHMARK(CountsOfNinetyDays)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace vantrel::bench

BENCHMARK_MAIN();

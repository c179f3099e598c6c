// Measures durable commits of cards a second: a number is taken from the page and the record, its
// card and the outcome of the card before it are written into the ledger, in one transaction, as a
// station does in a burst. One station on a SQLite file is measured against one and four on a
// PostgreSQL server of the program's own, which print the same layout or each its own, alternately,
// both with their files in TMPDIR.

#include "ledger/LedgerTables.h"
#include "ledger/RecordLedger.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/Schema.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePostgres.h"
#include <QCoreApplication>
#include <benchmark/benchmark.h>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace vantrel::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int Stations = 4;
constexpr int TextsOnPage = 10;
constexpr int CardsAtATime = 100;

QString PageStatement(const QString& layout)
{
    return QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = '%1' AND [Page] = 1")
        .arg(layout);
}

/// What a station does with its store for a card, without the card.
class Till
{
public:
    Till(const QString& location, const QString& layout) : m_layout(layout)
    {
        m_store.Open(location);
        m_ledger.Open(m_store, {.On = true, .KeepValues = true, .HashKey = {}});
    }

    void MakePage()
    {
        Recordset rows(m_store);
        rows.Open(PageStatement(m_layout), CursorLock::Optimistic);
        for (int i = 0; i <= TextsOnPage; ++i) {
            rows.AddNew();
            rows.SetValue(QStringLiteral("LayoutName"), m_layout);
            rows.SetValue(QStringLiteral("Page"), 1);
            rows.SetValue(QStringLiteral("C_Value"), QStringLiteral("1000"));
            rows.SetValue(QStringLiteral("C_FontName"), QStringLiteral("Liberation Sans"));
            rows.Update();
        }
    }

    void Card()
    {
        LedgerEntry entry;
        entry.Received = 1;
        entry.Source = QStringLiteral("192.0.2.7:5000");
        entry.Layout = m_layout;
        entry.Raw = "<Ada Lovelace+Analytical Engines+1843>";
        entry.Length = entry.Raw.size();
        const RecordRunPtr run = m_ledger.Begin(entry);
        m_ledger.SetValues(
            *run, 3, [](int) { return QStringLiteral("Ada Lovelace"); }, QStringLiteral("{}"));
        LedgerCard card;
        card.Layout = entry.Layout;
        const std::size_t index = m_ledger.BeginCard(*run, card, {});
        m_store.BeginTrans(StoreLock::OfName(m_layout));
        m_ledger.SetNumbers(*run, index, {TakeNumber()});
        m_ledger.Write();
        m_store.CommitTrans();
        m_ledger.Committed();
        m_ledger.EndCard(*run, index, {.State = LedgerState::Printed});
        m_ledger.EndRoad(*run);
    }

private:
    QString TakeNumber()
    {
        Recordset rows(m_store);
        rows.Open(PageStatement(m_layout), CursorLock::Optimistic);
        if (rows.IsEof())
            return {};
        QString number = QString::number(rows.Value(QStringLiteral("C_Value")).toLongLong() + 1);
        rows.SetValue(QStringLiteral("C_Value"), number);
        rows.Update();
        return number;
    }

    QString m_layout;
    Connection m_store;
    RecordLedger m_ledger;
};

/// The seconds that so many stations take for a hundred cards each, at once.
double SecondsOf(std::vector<std::unique_ptr<Till>>& tills)
{
    const auto begin = Clock::now();
    std::vector<std::thread> threads;
    threads.reserve(tills.size());
    for (const auto& till : tills)
        threads.emplace_back([&till] {
            for (int card = 0; card < CardsAtATime; ++card)
                till->Card();
        });
    for (std::thread& thread : threads)
        thread.join();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Stations that print one layout.
std::vector<std::unique_ptr<Till>> TillsOf(const QString& location, int count)
{
    std::vector<std::unique_ptr<Till>> tills;
    tills.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        tills.push_back(std::make_unique<Till>(location, QStringLiteral("Badge")));
    tills.front()->MakePage();
    return tills;
}

/// Stations that print a layout of their own each.
std::vector<std::unique_ptr<Till>> TillsOfOwnLayouts(const QString& location)
{
    std::vector<std::unique_ptr<Till>> tills;
    for (int i = 0; i < Stations; ++i) {
        tills.push_back(std::make_unique<Till>(location, QStringLiteral("Badge %1").arg(i)));
        tills.back()->MakePage();
    }
    return tills;
}

void StoreCommits(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("Vantrel.dat"));
    CreateLayoutDatabase(file);
    test::PrivatePostgres server(test::PrivatePostgres::Commits::Durable);
    const auto freshDatabase = [&] {
        QString address = server.NewDatabase();
        BringUpToDate(*OpenStoreDatabase(address), LedgerTables());
        return address;
    };
    auto onFile = TillsOf(file, 1);
    auto alone = TillsOf(freshDatabase(), 1);
    auto together = TillsOf(freshDatabase(), Stations);
    auto apart = TillsOfOwnLayouts(freshDatabase());
    double fileSeconds = 0;
    double aloneSeconds = 0;
    double togetherSeconds = 0;
    double apartSeconds = 0;
    int cards = 0;
    for (auto _ : state) {
        fileSeconds += SecondsOf(onFile);
        const double one = SecondsOf(alone);
        aloneSeconds += one;
        togetherSeconds += SecondsOf(together);
        apartSeconds += SecondsOf(apart);
        cards += CardsAtATime;
        state.SetIterationTime(one);
    }
    state.counters["sqlite_per_s"] = cards / fileSeconds;
    state.counters["server_per_s"] = cards / aloneSeconds;
    state.counters["four_per_s"] = Stations * cards / togetherSeconds;
    state.counters["four_layouts_per_s"] = Stations * cards / apartSeconds;
    state.counters["server_ratio"] = fileSeconds / aloneSeconds;
    state.counters["four_ratio"] = Stations * aloneSeconds / togetherSeconds;
    state.counters["four_layouts_ratio"] = Stations * aloneSeconds / apartSeconds;
}

BENCHMARK(StoreCommits)->UseManualTime()->MinTime(3);

} // namespace

} // namespace vantrel::bench

#include "console/Metrics.h"
#include "console/MetricsText.h"
#include "console/Stations.h"
#include "ledger/LedgerTables.h"
#include <algorithm>

namespace vantrel::console {

namespace {

/// Entries that are read at a time.
constexpr int AtOnce = 2000;
/// Entries whose end is waited for; of more, the oldest are not followed any longer.
constexpr std::size_t MostFollowed = 5000;
/// An entry may be committed after others with a higher number, but not after so many.
constexpr qlonglong MostLate = 1000;
constexpr qsizetype LongestName = 100;
constexpr double MillisecondsOfSecond = 1000;

QString Known(std::vector<QString>& known, const QString& name, std::size_t most)
{
    QString cut = name.left(LongestName);
    if (std::find(known.begin(), known.end(), cut) != known.end())
        return cut;
    if (known.size() >= most)
        return QStringLiteral("other");
    known.push_back(cut);
    return cut;
}

bool IsHandedOver(LedgerState state)
{
    return state == LedgerState::Printed || state == LedgerState::Done;
}

bool IsLost(LedgerState state)
{
    return state == LedgerState::Failed || state == LedgerState::Doubtful;
}

LedgerState StateOf(const QVariant& name)
{
    return LedgerStateOf(name.toString()).value_or(LedgerState::Doubtful);
}

} // namespace

void Metrics::Look(StoreDatabase& database)
{
    const StoreDatabase::State now = database.Now();
    if (!m_begun)
        Begin(database);
    else if (now == m_state)
        return;
    m_begun = true;
    LookForPools(database);
    TakeNew(database);
    for (auto entry = m_followed.begin(); entry != m_followed.end();)
        entry = FollowEntry(database, entry->first, entry->second) ? m_followed.erase(entry)
                                                                   : std::next(entry);
    while (m_followed.size() > MostFollowed)
        m_followed.erase(m_followed.begin());
    // What failed before this is looked at again.
    m_state = now;
}

void Metrics::Begin(StoreDatabase& database)
{
    database.Select(QStringLiteral("SELECT MAX(ID) FROM LedgerEntries"), {},
                    [&](const StoreRow& row) { m_last = row.Value(0).toLongLong(); });
    // What is under way now ends under the eyes of the console.
    database.Select(QStringLiteral("SELECT ID, SessionNumber, Received FROM LedgerEntries "
                                   "WHERE State IN ('received', 'printing') ORDER BY ID DESC "
                                   "LIMIT ?"),
                    {static_cast<int>(MostFollowed)}, [&](const StoreRow& row) {
                        m_followed[row.Value(0).toLongLong()] = {row.Value(1).toInt(),
                                                                 row.Value(2).toLongLong()};
                    });
}

void Metrics::LookForPools(StoreDatabase& database)
{
    // A station makes the table when it starts, which may be later.
    m_hasPools = m_hasPools || HasPools(database);
}

void Metrics::TakeNew(StoreDatabase& database)
{
    TakeLate(database);
    int taken = AtOnce;
    while (taken == AtOnce) {
        taken = TakeEntries(database, QStringLiteral("ID > %1").arg(m_last), [&](qlonglong id) {
            for (qlonglong number = std::max(m_last + 1, id - MostLate); number < id; ++number)
                m_passedOver.insert(number);
            m_last = id;
        });
    }
}

void Metrics::TakeLate(StoreDatabase& database)
{
    m_passedOver.erase(m_passedOver.begin(), m_passedOver.lower_bound(m_last - MostLate));
    if (m_passedOver.empty())
        return;
    QStringList numbers;
    for (const qlonglong number : m_passedOver)
        numbers.append(QString::number(number));
    TakeEntries(database, QStringLiteral("ID IN (%1)").arg(numbers.join(u',')),
                [&](qlonglong id) { m_passedOver.erase(id); });
}

int Metrics::TakeEntries(StoreDatabase& database, const QString& which,
                         const std::function<void(qlonglong id)>& taken)
{
    const QString columns = QStringLiteral("SELECT ID, SessionNumber, Received, ");
    const QString sql =
        columns +
        (m_hasPools
             ? QStringLiteral("(SELECT Pool FROM LedgerPools p WHERE p.EntryID = LedgerEntries.ID)")
             : QStringLiteral("NULL")) +
        QStringLiteral(" FROM LedgerEntries WHERE ") + which +
        QStringLiteral(" ORDER BY ID LIMIT ?");
    int count = 0;
    database.Select(sql, {AtOnce}, [&](const StoreRow& row) {
        const qlonglong id = row.Value(0).toLongLong();
        const int session = row.Value(1).toInt();
        CountRecord(session, row.Value(3));
        m_followed[id] = {session, row.Value(2).toLongLong()};
        taken(id);
        ++count;
    });
    return count;
}

void Metrics::CountRecord(int session, const QVariant& pool)
{
    // Whether a station had claimed the record when it was first seen here is chance, so one that
    // was left to a pool counts for the pool.
    if (pool.isNull())
        ++m_records[session];
    else
        ++m_poolRecords[KnownPool(pool.toString())];
}

bool Metrics::FollowEntry(StoreDatabase& database, qlonglong id, Followed& entry)
{
    LedgerState state = LedgerState::Void;
    QString layout;
    QString reason;
    // One that was removed does not change any more either.
    database.Select(QStringLiteral("SELECT State, Layout, Reason, SessionNumber FROM LedgerEntries "
                                   "WHERE ID = ?"),
                    {id}, [&](const StoreRow& row) {
                        state = StateOf(row.Value(0));
                        layout = row.Value(1).toString();
                        reason = row.Value(2).toString();
                        // A station may have claimed it from its pool meanwhile.
                        entry.Session = row.Value(3).toInt();
                    });
    bool mayChange = state == LedgerState::Received || state == LedgerState::Printing;
    bool hasCards = false;
    database.Select(QStringLiteral("SELECT ID, State, Layout, Reason, Changed, Job FROM "
                                   "LedgerCards WHERE EntryID = ? ORDER BY ID"),
                    {id}, [&](const StoreRow& row) {
                        const LedgerState now = StateOf(row.Value(1));
                        hasCards = true;
                        mayChange |= now == LedgerState::Printing;
                        // The print server tells how a job has ended.
                        mayChange |= now == LedgerState::Printed && !row.Value(5).isNull();
                        const qlonglong card = row.Value(0).toLongLong();
                        const auto before = entry.Cards.find(card);
                        if (before != entry.Cards.end() && before->second == now)
                            return;
                        const bool wasHandedOver =
                            before != entry.Cards.end() && IsHandedOver(before->second);
                        entry.Cards[card] = now;
                        if (!wasHandedOver || !IsHandedOver(now))
                            CountCard(entry, row.Value(2).toString(), row.Value(3).toString(), now,
                                      row.Value(4).toLongLong());
                    });
    if (!hasCards && IsLost(state))
        CountFailure(entry.Session, layout, reason.isEmpty() ? NameOf(state) : reason);
    return !mayChange;
}

void Metrics::CountCard(const Followed& entry, const QString& layout, const QString& reason,
                        LedgerState state, qint64 changed)
{
    if (IsLost(state)) {
        CountFailure(entry.Session, layout, reason.isEmpty() ? NameOf(state) : reason);
    } else if (IsHandedOver(state)) {
        ++m_cards[{entry.Session, KnownLayout(layout)}];
        const double seconds =
            std::max(0.0, static_cast<double>(changed - entry.Received) / MillisecondsOfSecond);
        const auto step = std::lower_bound(Steps.begin(), Steps.end(), seconds);
        ++m_times[static_cast<std::size_t>(step - Steps.begin())];
        m_seconds += seconds;
    }
}

void Metrics::CountFailure(int session, const QString& layout, const QString& reason)
{
    ++m_failures[{session, KnownLayout(layout), KnownReason(reason)}];
}

QString Metrics::KnownLayout(const QString& layout)
{
    return Known(m_layouts, layout, MostLayouts);
}

QString Metrics::KnownReason(const QString& reason)
{
    return Known(m_reasons, reason, MostReasons);
}

QString Metrics::KnownPool(const QString& pool)
{
    return Known(m_pools, pool, MostPools);
}

std::map<QString, qlonglong> Metrics::WaitingInPools(StoreDatabase& database)
{
    std::map<QString, qlonglong> waiting;
    LookForPools(database);
    if (m_hasPools)
        database.Select(QStringLiteral("SELECT p.Pool, COUNT(*) FROM LedgerEntries e JOIN "
                                       "LedgerPools p ON p.EntryID = e.ID WHERE e.State = ? AND "
                                       "e.SessionNumber = ? GROUP BY p.Pool ORDER BY p.Pool"),
                        {NameOf(LedgerState::Received), NoSession}, [&](const StoreRow& row) {
                            waiting[KnownPool(row.Value(0).toString())] +=
                                row.Value(1).toLongLong();
                        });
    // A pool that was told is told further on, with 0 where nothing waits.
    for (const auto& [pool, count] : m_poolRecords)
        waiting.try_emplace(pool, 0);
    return waiting;
}

void Metrics::TellPools(StoreDatabase& database, MetricsText& text)
{
    const auto waiting = WaitingInPools(database);
    if (waiting.empty())
        return;
    text.Begin("vantrel_pool_records", "counter", "Records left to a pool.");
    for (const auto& [pool, count] : waiting)
        text.Add("_total", {{"pool", pool}}, m_poolRecords[pool]);
    text.Begin("vantrel_pool_queue_records", "gauge",
               "Records that wait in a pool for a station to take them.");
    for (const auto& [pool, count] : waiting)
        text.Add("", {{"pool", pool}}, count);
}

QByteArray Metrics::Text(StoreDatabase& database, const std::vector<StationSeen>& stations)
{
    MetricsText text;
    text.Begin("vantrel_records", "counter", "Records taken.");
    for (const auto& [session, count] : m_records)
        text.Add("_total", {{"station", QString::number(session)}}, count);

    text.Begin("vantrel_cards", "counter", "Cards handed over.");
    for (const auto& [key, count] : m_cards)
        text.Add("_total",
                 {{"station", QString::number(std::get<0>(key))}, {"layout", std::get<1>(key)}},
                 count);

    text.Begin("vantrel_card_failures", "counter", "Cards that failed or are doubtful.");
    for (const auto& [key, count] : m_failures)
        text.Add("_total",
                 {{"station", QString::number(std::get<0>(key))},
                  {"layout", std::get<1>(key)},
                  {"reason", std::get<2>(key)}},
                 count);

    text.Begin("vantrel_card_seconds", "histogram",
               "Time from the last byte of a record to its card.", "seconds");
    qlonglong upTo = 0;
    for (std::size_t step = 0; step < Steps.size(); ++step)
        text.Add("_bucket", {{"le", MetricsText::Number(Steps[step])}}, upTo += m_times[step]);
    upTo += m_times.back();
    text.Add("_bucket", {{"le", QStringLiteral("+Inf")}}, upTo);
    text.Add("_count", {}, upTo);
    text.Add("_sum", {}, m_seconds);

    text.Begin("vantrel_queue_records", "gauge", "Records that wait to be printed.");
    qlonglong waiting = 0;
    database.Select(QStringLiteral("SELECT COUNT(*) FROM LedgerEntries WHERE State = ?"),
                    {NameOf(LedgerState::Received)},
                    [&](const StoreRow& row) { waiting = row.Value(0).toLongLong(); });
    text.Add("", {}, waiting);
    TellPools(database, text);

    const auto tellStations = [&](const char* name, const char* help, auto holds) {
        text.Begin(name, "gauge", help);
        for (const StationSeen& seen : stations)
            text.Add("",
                     {{"station", QString::number(seen.Station.Session)},
                      {"machine", seen.Station.Machine}},
                     qlonglong{holds(seen) ? 1 : 0});
    };
    tellStations("vantrel_station_up", "Whether a station runs.",
                 [](const StationSeen& seen) { return seen.State == StationState::Alive; });
    tellStations("vantrel_station_wanted", "Whether a station should run.",
                 [](const StationSeen& seen) { return seen.IsWanted; });
    return text.Ended();
}

} // namespace vantrel::console

#pragma once

#include "ledger/LedgerRows.h"
#include "store/StoreDatabase.h"
#include <QByteArray>
#include <QMap>
#include <array>
#include <functional>
#include <map>
#include <set>
#include <tuple>
#include <vector>

namespace vantrel::console {

class MetricsText;
struct StationSeen;

/// Counts what happens in the ledger, for programs that watch it. Counts begin with the console;
/// what was in the ledger and finished before is not in them. Used in the thread of the store.
class Metrics
{
public:
    /// Follows the ledger up to now. Fails like `StoreDatabase`.
    void Look(StoreDatabase& database);
    /// What was counted, in the format OpenMetrics 1.0. Fails like `StoreDatabase`.
    QByteArray Text(StoreDatabase& database, const std::vector<StationSeen>& stations);

    /// Names of layouts and reasons that are told apart; further ones are counted as "other", since
    /// a watching program keeps every name for ever.
    static constexpr std::size_t MostLayouts = 200;
    static constexpr std::size_t MostReasons = 50;
    static constexpr std::size_t MostPools = 50;
    /// Upper ends of the steps of time from a record's last byte to its card, in seconds.
    static constexpr std::array<double, 12> Steps{0.01, 0.025, 0.05, 0.1, 0.25, 0.5,
                                                  1,    2.5,   5,    10,  30,   60};

private:
    /// An entry whose end was not seen yet.
    struct Followed
    {
        /// Who carries it out, as seen last; `NoSession` while it waits in a pool.
        int Session = 1;
        qint64 Received = 0;
        /// The states of its cards, as they were counted.
        std::map<qlonglong, LedgerState> Cards = {};
    };

    void Begin(StoreDatabase& database);
    void TakeNew(StoreDatabase& database);
    /// Takes entries that were committed after some with a higher number.
    void TakeLate(StoreDatabase& database);
    /// Takes the entries of a condition and calls `taken` with the number of each. @return how many
    int TakeEntries(StoreDatabase& database, const QString& which,
                    const std::function<void(qlonglong id)>& taken);
    /// @param pool  null for a record that was left to none
    void CountRecord(int session, const QVariant& pool);
    void LookForPools(StoreDatabase& database);
    /// How many records wait in each pool that was seen.
    std::map<QString, qlonglong> WaitingInPools(StoreDatabase& database);
    void TellPools(StoreDatabase& database, MetricsText& text);
    /// @return whether it will not change any more
    bool FollowEntry(StoreDatabase& database, qlonglong id, Followed& entry);
    void CountCard(const Followed& entry, const QString& layout, const QString& reason,
                   LedgerState state, qint64 changed);
    void CountFailure(int session, const QString& layout, const QString& reason);
    QString KnownLayout(const QString& layout);
    QString KnownReason(const QString& reason);
    QString KnownPool(const QString& pool);

    bool m_begun = false;
    /// Whether the store has a table of pools.
    bool m_hasPools = false;
    StoreDatabase::State m_state;
    qlonglong m_last = 0;
    /// Numbers below that of which no entry was there yet.
    std::set<qlonglong> m_passedOver;
    std::map<qlonglong, Followed> m_followed;

    std::map<int, qlonglong> m_records;
    std::map<QString, qlonglong> m_poolRecords;
    std::map<std::tuple<int, QString>, qlonglong> m_cards;
    std::map<std::tuple<int, QString, QString>, qlonglong> m_failures;
    /// One more than the steps, for what took longer.
    std::array<qlonglong, Steps.size() + 1> m_times{};
    double m_seconds = 0;
    std::vector<QString> m_layouts;
    std::vector<QString> m_reasons;
    std::vector<QString> m_pools;
};

} // namespace vantrel::console

#include "ledger/LedgerRecent.h"
#include "store/StoreDatabase.h"
#include <algorithm>
#include <functional>

namespace vantrel {

std::vector<LedgerProgress> RecentProgress(StoreDatabase& database, qlonglong from,
                                           qlonglong atMost)
{
    enum { Id, State, Cards, Changed };
    std::vector<LedgerProgress> recent;
    database.Select(
        // The entries are chosen before their cards are counted. Otherwise those of the whole
        // ledger would be.
        QStringLiteral("SELECT e.ID, e.State, COUNT(c.ID), COALESCE(MAX(c.Changed), 0) "
                       "FROM (SELECT ID, State FROM LedgerEntries WHERE ID >= ? "
                       "ORDER BY ID DESC LIMIT ?) e LEFT JOIN LedgerCards c "
                       "ON c.EntryID = e.ID GROUP BY e.ID, e.State ORDER BY e.ID DESC"),
        {from, atMost}, [&](const StoreRow& row) {
            recent.push_back(
                {row.Value(Id).toLongLong(),
                 LedgerStateOf(row.Value(State).toString()).value_or(LedgerState::Doubtful),
                 row.Value(Cards).toLongLong(), row.Value(Changed).toLongLong()});
        });
    return recent;
}

std::vector<qlonglong> UnsettledEntries(StoreDatabase& database, qint64 since, qlonglong atMost)
{
    // Numbers rise with the time, and a search by state and number is one by its index.
    std::optional<qlonglong> from;
    database.Select(QStringLiteral("SELECT ID FROM LedgerEntries WHERE Received >= ? "
                                   "ORDER BY Received LIMIT 1"),
                    {since}, [&](const StoreRow& row) { from = row.Value(0).toLongLong(); });
    std::vector<qlonglong> unsettled;
    if (!from)
        return unsettled;
    for (const LedgerState state : {LedgerState::Failed, LedgerState::Doubtful}) {
        // Whatever is printed again, the reprint names the entry that was printed first.
        database.Select(
            QStringLiteral("SELECT e.ID FROM LedgerEntries e WHERE e.State = ? AND e.ID >= ? "
                           "AND NOT EXISTS (SELECT 1 FROM LedgerEntries r WHERE "
                           "r.ReprintOf = COALESCE(e.ReprintOf, e.ID) AND r.ID > e.ID) "
                           "ORDER BY e.ID DESC LIMIT ?"),
            {NameOf(state), *from, atMost},
            [&](const StoreRow& row) { unsettled.push_back(row.Value(0).toLongLong()); });
    }
    std::sort(unsettled.begin(), unsettled.end(), std::greater<>());
    if (std::ssize(unsettled) > atMost)
        unsettled.resize(static_cast<std::size_t>(atMost));
    return unsettled;
}

} // namespace vantrel

#include "ledger/LedgerRecent.h"
#include "store/StoreDatabase.h"

namespace vantrel {

std::vector<LedgerProgress> RecentProgress(StoreDatabase& database, qlonglong from,
                                           qlonglong atMost)
{
    enum { Id, State, Cards, Changed };
    std::vector<LedgerProgress> recent;
    database.Select(
        QStringLiteral("SELECT e.ID, e.State, COUNT(c.ID), COALESCE(MAX(c.Changed), 0) "
                       "FROM LedgerEntries e LEFT JOIN LedgerCards c "
                       "ON c.EntryID = e.ID WHERE e.ID >= ? GROUP BY e.ID, e.State "
                       "ORDER BY e.ID DESC LIMIT ?"),
        {from, atMost}, [&](const StoreStatement& row) {
            recent.push_back(
                {row.Value(Id).toLongLong(),
                 LedgerStateOf(row.Value(State).toString()).value_or(LedgerState::Doubtful),
                 row.Value(Cards).toLongLong(), row.Value(Changed).toLongLong()});
        });
    return recent;
}

} // namespace vantrel

#include "ledger/LedgerBatches.h"
#include "ledger/LedgerReading.h"
#include "store/StoreDatabase.h"
#include "store/StoreTransaction.h"
#include <QDateTime>

namespace vantrel {

namespace {

/// Entries are ended so many at a time.
constexpr int EntriesAtATime = 200;

/// The state of an entry from those of its cards, the first that one of them has.
const QString StateFromCards = QStringLiteral(
    "UPDATE LedgerEntries SET State = CASE "
    "WHEN EXISTS (SELECT 1 FROM LedgerCards WHERE EntryID = LedgerEntries.ID AND State = 'failed') "
    "THEN 'failed' "
    "WHEN EXISTS (SELECT 1 FROM LedgerCards WHERE EntryID = LedgerEntries.ID AND State = "
    "'doubtful') THEN 'doubtful' "
    "WHEN EXISTS (SELECT 1 FROM LedgerCards WHERE EntryID = LedgerEntries.ID AND State = 'void') "
    "THEN 'void' ELSE 'printed' END WHERE ");

std::vector<qlonglong> PrintingEntries(StoreDatabase& database, int session)
{
    std::vector<qlonglong> ids;
    database.Select(QStringLiteral("SELECT ID FROM LedgerEntries WHERE SessionNumber = ? AND "
                                   "State = ? ORDER BY ID LIMIT ?"),
                    {session, NameOf(LedgerState::Printing), EntriesAtATime},
                    [&](const StoreRow& row) { ids.push_back(row.Value(0).toLongLong()); });
    return ids;
}

void EndCards(StoreDatabase& database, const LedgerEntry& entry,
              const std::function<LedgerState(const LedgerCard&)>& judge)
{
    for (const LedgerCard& card : entry.Cards) {
        if (card.State != LedgerState::Printing)
            continue;
        const LedgerState state = judge(card);
        // The name of a file that was never made may be another card's by now.
        const QString file = state == LedgerState::Printed ? card.File : QStringLiteral("");
        database.Change(QStringLiteral("UPDATE LedgerCards SET State = ?, File = ?, Changed = ? "
                                       "WHERE ID = ?"),
                        {NameOf(state), file, QDateTime::currentMSecsSinceEpoch(), card.Id});
    }
    database.Change(StateFromCards + QStringLiteral("ID = ?"), {entry.Id});
}

} // namespace

void EndCardsOf(StoreDatabase& database, int session,
                const std::function<LedgerState(const LedgerCard&)>& judge)
{
    for (;;) {
        const std::vector<qlonglong> ids = PrintingEntries(database, session);
        if (ids.empty())
            return;
        StoreTransaction transaction(database);
        for (const qlonglong id : ids) {
            if (const auto entry = FindEntry(database, id, LedgerBytes::Without))
                EndCards(database, *entry, judge);
        }
        transaction.Commit();
    }
}

} // namespace vantrel

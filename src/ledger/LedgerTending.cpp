#include "ledger/LedgerTending.h"
#include "base/Failure.h"
#include "ledger/LedgerBatches.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerTables.h"
#include "store/StoreDatabase.h"
#include "store/StoreTransaction.h"
#include <QDateTime>

namespace vantrel {

namespace {

[[noreturn]] void Refuse(const QString& reason)
{
    throw Failure(FailureNumber::InvalidCall, reason);
}

void RefuseUnfinished(const LedgerEntry& entry)
{
    if (entry.State == LedgerState::Received)
        Refuse(QStringLiteral("Entry %1 still waits to be printed.").arg(entry.Id));
    if (entry.State == LedgerState::Printing)
        Refuse(QStringLiteral("Entry %1 is being printed.").arg(entry.Id));
}

/// The entry that a reprint names: the first one, or this one where the first was removed.
LedgerEntry FirstOf(StoreDatabase& database, LedgerEntry entry)
{
    while (entry.ReprintOf && *entry.ReprintOf < entry.Id) {
        auto first = FindEntry(database, *entry.ReprintOf, LedgerBytes::Without);
        if (!first)
            break;
        entry = std::move(*first);
    }
    return entry;
}

/// The first reprint of a first entry that did not fail.
std::optional<qlonglong> ReprintOfFirst(StoreDatabase& database, qlonglong first)
{
    std::optional<qlonglong> reprint;
    database.Select(QStringLiteral("SELECT MIN(ID) FROM LedgerEntries "
                                   "WHERE ReprintOf = ? AND State <> ?"),
                    {first, NameOf(LedgerState::Failed)}, [&](const StoreRow& row) {
                        if (!row.Value(0).isNull())
                            reprint = row.Value(0).toLongLong();
                    });
    return reprint;
}

bool IsInPool(StoreDatabase& database, qlonglong id)
{
    bool found = false;
    if (HasPools(database))
        database.Select(QStringLiteral("SELECT 1 FROM LedgerPools WHERE EntryID = ?"), {id},
                        [&](const StoreRow& /*row*/) { found = true; });
    return found;
}

qlonglong AddReprintOf(StoreDatabase& database, qlonglong id)
{
    const bool isInPool = IsInPool(database, id);
    const qlonglong added =
        database.Add(QStringLiteral("INSERT INTO LedgerEntries (State, Received, SessionNumber, "
                                    "ReprintOf, Length, ValueCount, Source, Layout, Reason, Hash, "
                                    "SearchText) SELECT ?, ?, CASE WHEN SessionNumber >= ? THEN "
                                    "? WHEN ? = 1 THEN ? ELSE SessionNumber END, ID, Length, "
                                    "ValueCount, Source, Layout, '', Hash, SearchText "
                                    "FROM LedgerEntries WHERE ID = ?"),
                     {NameOf(LedgerState::Received), QDateTime::currentMSecsSinceEpoch(),
                      FirstRunSession, SessionOfReprints, isInPool ? 1 : 0, NoSession, id});
    database.Change(QStringLiteral("INSERT INTO LedgerRecords (EntryID, Framing, RecordValues, "
                                   "Raw) SELECT ?, Framing, RecordValues, Raw "
                                   "FROM LedgerRecords WHERE EntryID = ?"),
                    {added, id});
    if (isInPool)
        database.Change(QStringLiteral("INSERT INTO LedgerPools (EntryID, Pool) SELECT ?, Pool "
                                       "FROM LedgerPools WHERE EntryID = ?"),
                        {added, id});
    return added;
}

/// Marks what a session is printing, or what it is printing of one pool. @return how many entries
int MarkDoubtful(StoreDatabase& database, int session, const std::optional<QString>& pool)
{
    const QString printing = NameOf(LedgerState::Printing);
    const QString doubtful = NameOf(LedgerState::Doubtful);
    QString which = QStringLiteral("SessionNumber = ? AND State = ?");
    QVariantList values{session, printing};
    if (pool) {
        which += QStringLiteral(" AND ID IN (SELECT EntryID FROM LedgerPools WHERE Pool = ?)");
        values += *pool;
    }
    database.Change(QStringLiteral("UPDATE LedgerCards SET State = ?, Changed = ? WHERE State = ? "
                                   "AND EntryID IN (SELECT ID FROM LedgerEntries WHERE ") +
                        which + u')',
                    QVariantList{doubtful, QDateTime::currentMSecsSinceEpoch(), printing} + values);
    return database.Change(QStringLiteral("UPDATE LedgerEntries SET State = ? WHERE ") + which,
                           QVariantList{doubtful} + values);
}

} // namespace

LedgerEntry EntryToReprint(StoreDatabase& database, qlonglong id)
{
    // The bytes are not looked at, and may be many.
    const LedgerEntry asked = EntryNumbered(database, id, LedgerBytes::Without);
    RefuseUnfinished(asked);
    LedgerEntry first = FirstOf(database, asked);
    RefuseUnfinished(first);
    if (!first.HasValues)
        Refuse(QStringLiteral("Entry %1 cannot be printed again: its values were not kept.")
                   .arg(first.Id));
    return first;
}

std::optional<qlonglong> FindReprint(StoreDatabase& database, qlonglong id)
{
    const auto entry = FindEntry(database, id, LedgerBytes::Without);
    return entry ? ReprintOfFirst(database, FirstOf(database, *entry).Id) : std::nullopt;
}

QString PrintedAgainAlready(StoreDatabase& database, qlonglong id, qlonglong reprint)
{
    return QStringLiteral("Entry %1 was printed again already, as entry %2.")
        .arg(FirstOf(database, EntryNumbered(database, id, LedgerBytes::Without)).Id)
        .arg(reprint);
}

qlonglong AskReprint(StoreDatabase& database, qlonglong id, ReprintMode mode)
{
    StoreTransaction transaction(database);
    const LedgerEntry first = EntryToReprint(database, id);
    if (const auto reprint = ReprintOfFirst(database, first.Id);
        reprint && mode == ReprintMode::Once)
        Refuse(PrintedAgainAlready(database, id, *reprint));
    const qlonglong added = AddReprintOf(database, first.Id);
    transaction.Commit();
    return added;
}

void VoidEntry(StoreDatabase& database, qlonglong id)
{
    StoreTransaction transaction(database);
    if (EntryNumbered(database, id, LedgerBytes::Without).State == LedgerState::Printing)
        Refuse(QStringLiteral("Entry %1 is being printed.").arg(id));
    const QString state = NameOf(LedgerState::Void);
    database.Change(QStringLiteral("UPDATE LedgerEntries SET State = ? WHERE ID = ?"), {state, id});
    database.Change(QStringLiteral("UPDATE LedgerCards SET State = ?, Changed = ? "
                                   "WHERE EntryID = ? AND State <> ?"),
                    {state, QDateTime::currentMSecsSinceEpoch(), id, state});
    transaction.Commit();
}

void MakeDoubtful(StoreDatabase& database, int session)
{
    StoreTransaction transaction(database);
    MarkDoubtful(database, session, {});
    transaction.Commit();
}

int MakeDoubtfulInPool(StoreDatabase& database, int session, const QString& pool)
{
    return MarkDoubtful(database, session, pool);
}

} // namespace vantrel

#include "ledger/LedgerTending.h"
#include "base/Failure.h"
#include "ledger/LedgerBatches.h"
#include "ledger/LedgerReading.h"
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

qlonglong AddReprintOf(StoreDatabase& database, qlonglong id)
{
    const qlonglong added =
        database.Add(QStringLiteral("INSERT INTO LedgerEntries (State, Received, SessionNumber, "
                                    "ReprintOf, Length, ValueCount, Source, Layout, Reason, Hash, "
                                    "SearchText) SELECT ?, ?, CASE WHEN SessionNumber < ? THEN "
                                    "SessionNumber ELSE ? END, ID, Length, "
                                    "ValueCount, Source, Layout, '', Hash, SearchText "
                                    "FROM LedgerEntries WHERE ID = ?"),
                     {NameOf(LedgerState::Received), QDateTime::currentMSecsSinceEpoch(),
                      FirstRunSession, SessionOfReprints, id});
    database.Change(QStringLiteral("INSERT INTO LedgerRecords (EntryID, Framing, RecordValues, "
                                   "Raw) SELECT ?, Framing, RecordValues, Raw "
                                   "FROM LedgerRecords WHERE EntryID = ?"),
                    {added, id});
    return added;
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

qlonglong AskReprint(StoreDatabase& database, qlonglong id, ReprintMode mode)
{
    StoreTransaction transaction(database);
    const LedgerEntry first = EntryToReprint(database, id);
    if (const auto reprint = ReprintOfFirst(database, first.Id);
        reprint && mode == ReprintMode::Once)
        Refuse(QStringLiteral("Entry %1 was printed again already, as entry %2.")
                   .arg(first.Id)
                   .arg(*reprint));
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
    const QString printing = NameOf(LedgerState::Printing);
    const QString doubtful = NameOf(LedgerState::Doubtful);
    StoreTransaction transaction(database);
    database.Change(QStringLiteral("UPDATE LedgerCards SET State = ?, Changed = ? WHERE State = ? "
                                   "AND EntryID IN (SELECT ID FROM LedgerEntries WHERE "
                                   "SessionNumber = ? AND State = ?)"),
                    {doubtful, QDateTime::currentMSecsSinceEpoch(), printing, session, printing});
    database.Change(
        QStringLiteral("UPDATE LedgerEntries SET State = ? WHERE State = ? AND SessionNumber = ?"),
        {doubtful, printing, session});
    transaction.Commit();
}

} // namespace vantrel

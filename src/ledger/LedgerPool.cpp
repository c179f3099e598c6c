#include "ledger/LedgerPool.h"
#include "ledger/LedgerRows.h"
#include "ledger/LedgerStations.h"
#include "ledger/LedgerTending.h"
#include "store/StoreDatabase.h"
#include "store/StoreTransaction.h"

namespace vantrel {

namespace {

QString Placeholders(qsizetype count)
{
    return QStringList(count, QStringLiteral("?")).join(u',');
}

QString NumberList(const std::vector<qlonglong>& numbers)
{
    QStringList list{QStringLiteral("0")};
    for (const qlonglong number : numbers)
        list.append(QString::number(number));
    return list.join(u',');
}

/// The sessions that hold unfinished entries of a pool and do not run.
std::vector<int> AbsentSessions(StoreDatabase& database, const QString& pool, qint64 now)
{
    std::vector<int> sessions;
    database.Select(
        QStringLiteral("SELECT DISTINCT e.SessionNumber FROM LedgerEntries e JOIN "
                       "LedgerPools p ON p.EntryID = e.ID WHERE e.State IN ('received', "
                       "'printing') AND e.SessionNumber <> ? AND p.Pool = ? AND NOT "
                       "EXISTS (SELECT 1 FROM LedgerStations s WHERE s.SessionNumber = "
                       "e.SessionNumber AND s.Ended = 0 AND s.Seen > ?)"),
        {NoSession, pool, now - SilentMilliseconds},
        [&](const StoreRow& row) { sessions.push_back(row.Value(0).toInt()); });
    return sessions;
}

} // namespace

std::optional<qlonglong> ClaimEntry(StoreDatabase& database, const PoolMember& member,
                                    const std::vector<qlonglong>& underWay)
{
    // A page without a printer of its own prints on the station's.
    const QStringList printers = QStringList(QStringLiteral("")) + member.Printers;
    QVariantList names;
    for (const QString& printer : printers)
        names.append(printer);
    const QString others = QStringLiteral(" NOT IN (") + Placeholders(names.size()) + u')';
    const QString sql =
        QStringLiteral(
            "UPDATE LedgerEntries SET SessionNumber = ? WHERE ID = (SELECT e.ID FROM "
            "LedgerEntries e LEFT JOIN LedgerPools p ON p.EntryID = e.ID WHERE e.State = "
            "'received' AND e.ID NOT IN (") +
        NumberList(underWay) +
        QStringLiteral(") AND (e.SessionNumber = ? OR (e.SessionNumber = ? AND p.Pool = ? AND NOT "
                       "EXISTS (SELECT 1 FROM LayoutParams l WHERE l.LayoutName = e.Layout AND "
                       "l.PrinterDevice") +
        others +
        QStringLiteral(") AND NOT EXISTS (SELECT 1 FROM LedgerCards c WHERE c.EntryID = "
                       "e.ReprintOf AND c.Printer") +
        others + QStringLiteral("))) ORDER BY e.ID LIMIT 1") +
        database.PassingOverLocked(QStringLiteral("e")) + QStringLiteral(") RETURNING ID");
    QVariantList values{member.Session, member.Session, NoSession, member.Pool};
    values += names;
    values += names;
    std::optional<qlonglong> claimed;
    database.Select(sql, values, [&](const StoreRow& row) { claimed = row.Value(0).toLongLong(); });
    return claimed;
}

int ReleaseAbandoned(StoreDatabase& database, const QString& pool, qint64 now)
{
    // Mostly there is nothing to release, which is asked without the lock of the store.
    if (AbsentSessions(database, pool, now).empty())
        return 0;
    StoreTransaction transaction(database);
    int released = 0;
    for (const int session : AbsentSessions(database, pool, now)) {
        released += MakeDoubtfulInPool(database, session, pool);
        released += database.Change(
            QStringLiteral(
                "UPDATE LedgerEntries SET SessionNumber = ? WHERE State = 'received' AND "
                "SessionNumber = ? AND ID IN (SELECT EntryID FROM LedgerPools WHERE "
                "Pool = ?)"),
            {NoSession, session, pool});
    }
    transaction.Commit();
    return released;
}

} // namespace vantrel

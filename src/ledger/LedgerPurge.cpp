#include "base/Failure.h"
#include "ledger/LedgerRows.h"
#include "ledger/LedgerTables.h"
#include "ledger/LedgerTending.h"
#include "store/StoreDatabase.h"
#include "store/StoreTransaction.h"
#include <QDateTime>
#include <QSet>
#include <algorithm>
#include <limits>
#include <vector>

namespace vantrel {

namespace {

/// What is removed in one transaction, so that a station never waits long for the lock.
constexpr qlonglong EntriesAtOnce = 1000;
constexpr qlonglong BytesAtOnce = 16 << 20;
constexpr qint64 MillisecondsOfDay = 24LL * 60 * 60 * 1000;
constexpr auto EveryTime = std::numeric_limits<qint64>::max();
constexpr auto EveryEntry = std::numeric_limits<qlonglong>::max();

qint64 DaysAgo(int days)
{
    return QDateTime::currentMSecsSinceEpoch() - days * MillisecondsOfDay;
}

/// The oldest finished entries before a time. An entry stays as long as a reprint waits, which
/// shows its numbers.
std::vector<qlonglong> FinishedBefore(StoreDatabase& database, qint64 time, qlonglong atMost)
{
    const QString received = NameOf(LedgerState::Received);
    const QString printing = NameOf(LedgerState::Printing);
    std::vector<qlonglong> numbers;
    qlonglong bytes = 0;
    database.Select(QStringLiteral("SELECT ID, Length FROM LedgerEntries e "
                                   "WHERE Received < ? AND State NOT IN (?, ?) AND NOT EXISTS "
                                   "(SELECT 1 FROM LedgerEntries r WHERE r.ReprintOf = e.ID "
                                   "AND r.State IN (?, ?)) ORDER BY Received, ID LIMIT ?"),
                    {time, received, printing, received, printing, std::min(atMost, EntriesAtOnce)},
                    [&](const StoreRow& row) {
                        bytes += row.Value(1).toLongLong();
                        if (numbers.empty() || bytes <= BytesAtOnce)
                            numbers.push_back(row.Value(0).toLongLong());
                    });
    return numbers;
}

/// The pages that the cards of these entries show.
QSet<QString> PagesOf(StoreDatabase& database, const std::vector<qlonglong>& ids)
{
    QSet<QString> pages;
    for (const qlonglong id : ids)
        database.Select(QStringLiteral("SELECT PageHash FROM LedgerCards WHERE EntryID = ?"), {id},
                        [&](const StoreRow& row) { pages.insert(row.Value(0).toString()); });
    return pages;
}

/// Removes some entries in a transaction of its own. @return their number
qlonglong RemoveSome(StoreDatabase& database, qint64 before, qlonglong atMost)
{
    StoreTransaction transaction(database);
    const std::vector<qlonglong> numbers = FinishedBefore(database, before, atMost);
    const QSet<QString> pages = PagesOf(database, numbers);
    RemoveEntries(database, numbers);
    // The next card of a page is mostly among the oldest, so it is soon found.
    for (const QString& page : pages)
        database.Change(QStringLiteral("DELETE FROM LedgerPages WHERE Hash = ? AND NOT EXISTS "
                                       "(SELECT 1 FROM LedgerCards WHERE PageHash = ?)"),
                        {page, page});
    transaction.Commit();
    return std::ssize(numbers);
}

qlonglong RemoveAll(StoreDatabase& database, qint64 before, qlonglong atMost)
{
    qlonglong removed = 0;
    while (removed < atMost) {
        const qlonglong some = RemoveSome(database, before, atMost - removed);
        if (some == 0)
            break;
        removed += some;
    }
    return removed;
}

void EmptyFiles(StoreDatabase& database)
{
    if (database.EmptyFiles(LedgerTables()))
        return;
    throw Failure(FailureNumber::StoreBusy,
                  QStringLiteral("What was old enough is removed, but copies may be left in the "
                                 "files of the layout database: another program is reading it, or "
                                 "it is on a server and its tables belong to another user. Purge "
                                 "once more when that program has ended, or as that user."));
}

} // namespace

void RemoveEntries(StoreDatabase& database, const std::vector<qlonglong>& ids)
{
    for (const qlonglong id : ids) {
        for (const char* statement : {"DELETE FROM LedgerCards WHERE EntryID = ?",
                                      "DELETE FROM LedgerRecords WHERE EntryID = ?",
                                      "DELETE FROM LedgerEntries WHERE ID = ?"})
            database.Change(QLatin1StringView(statement), {id});
        if (HasPools(database))
            database.Change(QStringLiteral("DELETE FROM LedgerPools WHERE EntryID = ?"), {id});
    }
}

qlonglong PurgeEntries(StoreDatabase& database, std::optional<int> days)
{
    database.OverwriteDeleted();
    const qlonglong removed = RemoveAll(database, days ? DaysAgo(*days) : EveryTime, EveryEntry);
    EmptyFiles(database);
    return removed;
}

qlonglong RemoveOldEntries(StoreDatabase& database, int days, qlonglong atMost)
{
    if (days <= 0)
        return 0;
    database.OverwriteDeleted();
    return RemoveAll(database, DaysAgo(days), atMost);
}

} // namespace vantrel

#include "ledger/LedgerJobs.h"
#include "store/StoreTransaction.h"
#include <QDateTime>

namespace vantrel {

namespace {

// The state of a card that was handed over stands in the statements themselves, as it does in the
// index that they use.
constexpr qint64 SevenDaysMs = qint64{7} * 24 * 60 * 60 * 1000;

struct CardOfJob
{
    qlonglong Card = 0;
    qlonglong Entry = 0;
};

std::optional<CardOfJob> FindCard(StoreDatabase& database, int session, int job)
{
    std::optional<CardOfJob> found;
    database.Select(
        QStringLiteral("SELECT c.ID, c.EntryID FROM LedgerCards c JOIN LedgerEntries e ON "
                       "e.ID = c.EntryID WHERE c.State = 'printed' AND c.Job IS NOT NULL AND "
                       "c.Job = ? AND e.SessionNumber = ? ORDER BY c.ID DESC LIMIT 1"),
        {job, session}, [&](const StoreRow& row) {
            found = {row.Value(0).toLongLong(), row.Value(1).toLongLong()};
        });
    return found;
}

bool HasCardNotDone(StoreDatabase& database, qlonglong entry)
{
    bool found = false;
    database.Select(
        QStringLiteral("SELECT 1 FROM LedgerCards WHERE EntryID = ? AND State <> ? LIMIT 1"),
        {entry, NameOf(LedgerState::Done)}, [&](const StoreRow& /*row*/) { found = true; });
    return found;
}

} // namespace

std::vector<int> OpenJobs(StoreDatabase& database, int session)
{
    std::vector<int> jobs;
    database.Select(
        QStringLiteral("SELECT c.Job FROM LedgerCards c JOIN LedgerEntries e ON e.ID = c.EntryID "
                       "WHERE c.State = 'printed' AND c.Job IS NOT NULL AND c.Changed > ? AND "
                       "e.SessionNumber = ? ORDER BY c.ID"),
        {QDateTime::currentMSecsSinceEpoch() - SevenDaysMs, session},
        [&](const StoreRow& row) { jobs.push_back(row.Value(0).toInt()); });
    return jobs;
}

void NoteJobState(StoreDatabase& database, int session, int job, LedgerState state,
                  const QString& reason)
{
    StoreTransaction transaction(database);
    const auto found = FindCard(database, session, job);
    if (!found)
        return;
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (state == LedgerState::Failed) {
        // A text column must not be null.
        const QString why = reason.isNull() ? QStringLiteral("") : reason;
        database.Change(QStringLiteral("UPDATE LedgerCards SET State = ?, Reason = ?, Changed = ? "
                                       "WHERE ID = ?"),
                        {NameOf(state), why, now, found->Card});
        database.Change(
            QStringLiteral("UPDATE LedgerEntries SET State = ?, Reason = ? WHERE ID = ?"),
            {NameOf(state), why, found->Entry});
    } else {
        // What is missing on the card stays noted.
        database.Change(
            QStringLiteral("UPDATE LedgerCards SET State = ?, Changed = ? WHERE ID = ?"),
            {NameOf(state), now, found->Card});
        if (!HasCardNotDone(database, found->Entry))
            database.Change(QStringLiteral("UPDATE LedgerEntries SET State = ? WHERE ID = ?"),
                            {NameOf(LedgerState::Done), found->Entry});
    }
    transaction.Commit();
}

} // namespace vantrel

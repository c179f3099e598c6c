#include "station/session/PoolStatus.h"
#include "base/Skip.h"
#include "ledger/LedgerRows.h"
#include "station/session/Session.h"
#include "store/StoreDatabase.h"
#include <optional>

namespace vantrel {

namespace {

/// More records are not counted, so that a long queue does not hold up the windows that show it.
constexpr int MostCounted = 10'000;

/// The records that wait in the pool, `MostCounted` + 1 if there are more.
std::optional<int> WaitingRecords(Session& session)
{
    std::optional<int> waiting;
    // A card that is being written is not disturbed, and a store that is away is not waited for.
    if (!session.LayoutDb.IsOpen() || session.LayoutDb.InTransaction() ||
        !session.LayoutDb.Database().Trouble().isEmpty())
        return waiting;
    Skip("records in the pool", [&] {
        session.LayoutDb.Database().Select(
            QStringLiteral("SELECT COUNT(*) FROM (SELECT 1 FROM LedgerEntries e JOIN LedgerPools p "
                           "ON p.EntryID = e.ID WHERE e.State = ? AND e.SessionNumber = ? AND "
                           "p.Pool = ? LIMIT ?) AS Waiting"),
            {NameOf(LedgerState::Received), NoSession, session.Options.Pool.Name, MostCounted + 1},
            [&](const StoreRow& row) { waiting = row.Value(0).toInt(); });
    });
    return waiting;
}

QString WaitingText(int waiting)
{
    return waiting > MostCounted ? QStringLiteral("over %1 waiting").arg(MostCounted)
                                 : QStringLiteral("%1 waiting").arg(waiting);
}

QString WorkText(const StationPool& pool)
{
    switch (pool.Work) {
    case PoolWork::Take:
        return QStringLiteral("This station takes records for the pool and prints none.");
    case PoolWork::Print:
        return QStringLiteral("This station prints records of the pool and opens no port.");
    case PoolWork::Both:
        break;
    }
    return QStringLiteral("This station takes records for the pool and prints those of all.");
}

} // namespace

Panel PoolPanel(Session& session)
{
    const StationPool& pool = session.Options.Pool;
    if (pool.Name.isEmpty())
        return {};
    // What changes comes first, since a narrow panel cuts off the end.
    const auto waiting = WaitingRecords(session);
    const QString count = waiting ? QStringLiteral(": ") + WaitingText(*waiting) : QString();
    const QString text = QStringLiteral("Pool") + count + QStringLiteral(" (") + pool.Name + u')';
    return {text, text + QStringLiteral(". ") + WorkText(pool)};
}

} // namespace vantrel

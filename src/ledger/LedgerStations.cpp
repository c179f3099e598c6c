#include "ledger/LedgerStations.h"
#include "store/StoreDatabase.h"
#include "store/StoreTransaction.h"

namespace vantrel {

namespace {

/// A text column must not be null, and a null `QString` would be.
QString NotNull(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

} // namespace

void NoteStation(StoreDatabase& database, const LedgerStation& station)
{
    const QVariantList said{station.Started,          station.Seen,
                            station.Ended ? 1 : 0,    NotNull(station.Layout),
                            NotNull(station.Printer), NotNull(station.Machine),
                            station.Session};
    const int changed = database.Change(
        QStringLiteral("UPDATE LedgerStations SET Started = ?, Seen = ?, Ended = ?, Layout = ?, "
                       "Printer = ? WHERE Machine = ? AND SessionNumber = ?"),
        said);
    if (changed == 0)
        database.Change(QStringLiteral("INSERT INTO LedgerStations (Started, Seen, Ended, Layout, "
                                       "Printer, Machine, SessionNumber) "
                                       "VALUES (?, ?, ?, ?, ?, ?, ?)"),
                        said);
}

QString ClaimSession(StoreDatabase& database, const LedgerStation& station)
{
    StoreTransaction transaction(database);
    for (const LedgerStation& other : ReadStations(database)) {
        const bool isRunning = !other.Ended && station.Seen - other.Seen < SilentMilliseconds;
        if (other.Session == station.Session && other.Machine != station.Machine && isRunning)
            return other.Machine;
    }
    NoteStation(database, station);
    transaction.Commit();
    return {};
}

std::vector<LedgerStation> ReadStations(StoreDatabase& database)
{
    enum { Machine, Session, Started, Seen, Ended, Layout, Printer };
    std::vector<LedgerStation> stations;
    if (database.ColumnsOf(QStringLiteral("LedgerStations")).empty())
        return stations;
    database.Select(QStringLiteral("SELECT Machine, SessionNumber, Started, Seen, Ended, Layout, "
                                   "Printer FROM LedgerStations ORDER BY Machine, SessionNumber"),
                    {}, [&](const StoreRow& row) {
                        stations.push_back(
                            {row.Value(Machine).toString(), row.Value(Session).toInt(),
                             row.Value(Started).toLongLong(), row.Value(Seen).toLongLong(),
                             row.Value(Ended).toInt() != 0, row.Value(Layout).toString(),
                             row.Value(Printer).toString()});
                    });
    return stations;
}

} // namespace vantrel

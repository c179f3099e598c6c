#include "store/StoreUpgrade.h"
#include "base/Failure.h"
#include "store/LayoutTables.h"
#include "store/StoreDatabase.h"
#include "store/StoreTransaction.h"

namespace vantrel {

namespace {

constexpr StoreColumnRow VersionColumns[] = {{"Version", StoreType::Whole, StoreNull::Refused}};
constexpr StoreTable VersionTable[] = {{"VantrelStore", VersionColumns}};

/// 0 where there is no store.
qlonglong VersionOf(StoreDatabase& database)
{
    if (database.ColumnsOf(QString(QLatin1StringView(VersionTable[0].Name))).empty())
        return 0;
    return database.Execute(QStringLiteral("SELECT Version FROM VantrelStore")).toLongLong();
}

/// Brings a store from the version before to this one.
void MakeVersion(StoreDatabase& database, qlonglong version,
                 std::span<const StoreTable> furtherTables)
{
    switch (version) {
    case 1: // Layouts alone.
        database.MakeTables(VersionTable);
        database.Change(QStringLiteral("INSERT INTO VantrelStore (Version) VALUES (0)"));
        database.MakeTables(LayoutTables());
        FillPrinterTypes(database);
        break;
    default: // What stands beside them.
        database.MakeTables(furtherTables);
        break;
    }
    database.Change(QStringLiteral("UPDATE VantrelStore SET Version = ?"), {version});
}

} // namespace

StoreFound BringUpToDate(StoreDatabase& database, std::span<const StoreTable> furtherTables)
{
    return BringUpToDate(database, furtherTables, StoreVersion);
}

StoreFound BringUpToDate(StoreDatabase& database, std::span<const StoreTable> furtherTables,
                         qlonglong version)
{
    StoreTransaction transaction(database);
    const qlonglong found = VersionOf(database);
    if (found > version)
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("The store is of a later version than this program."));
    for (qlonglong next = found + 1; next <= version; ++next)
        MakeVersion(database, next, furtherTables);
    transaction.Commit();
    if (found == 0)
        return StoreFound::Nothing;
    return found < version ? StoreFound::OlderVersion : StoreFound::PresentVersion;
}

} // namespace vantrel

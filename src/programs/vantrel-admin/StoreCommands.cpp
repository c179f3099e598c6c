#include "StoreCommands.h"
#include "Output.h"
#include "base/Failure.h"
#include "ledger/LedgerTables.h"
#include "samples/FreshInstall.h"
#include "station/session/StoreLocation.h"
#include "store/LayoutTables.h"
#include "store/Schema.h"
#include "store/StoreCopy.h"
#include "store/StoreDatabase.h"
#include "store/StoreTransaction.h"
#include "store/StoreUpgrade.h"
#include <QElapsedTimer>
#include <QFileInfo>

namespace vantrel::admin {

namespace {

void Tell(const QString& line)
{
    WriteOutput(line.toLocal8Bit() + '\n');
}

/// What is opened for a folder or an address.
QString LocationOf(const QString& given)
{
    return IsStoreAddress(given) ? given : LayoutDatabasePath(given);
}

/// The tables beside those of the layouts. A station need not be allowed to make them.
std::vector<StoreTable> FurtherTables()
{
    std::vector<StoreTable> tables;
    for (const StoreTable& table : LedgerTables())
        tables.push_back(table);
    tables.push_back(ExtrasTable());
    return tables;
}

/// Opens a store with all tables, which are made where they are missing.
std::unique_ptr<StoreDatabase> OpenWhole(const QString& given)
{
    const QString location = LocationOf(given);
    if (!IsStoreAddress(given) && !QFileInfo::exists(location))
        MakeProgramFolder(given);
    auto store = OpenStoreDatabase(location);
    if (IsStoreAddress(given)) {
        BringUpToDate(*store, FurtherTables());
    } else {
        store->RequireTables();
        store->MakeTables(FurtherTables());
    }
    return store;
}

qlonglong CountOf(StoreDatabase& store, const char* sql)
{
    return store.Execute(QLatin1StringView(sql)).toLongLong();
}

} // namespace

void RunStoreInit(const Words& words)
{
    const QString& address = words.Arguments.at(0);
    if (!IsStoreAddress(address))
        throw NotUnderstood{QStringLiteral("store init wants the address of a database, such as "
                                           "postgresql://HOST/NAME")};
    const auto store = OpenStoreDatabase(address);
    switch (BringUpToDate(*store, FurtherTables())) {
    case StoreFound::Nothing:
        Tell(QStringLiteral("The store is made."));
        break;
    case StoreFound::OlderVersion:
        Tell(QStringLiteral("The store is brought up to date."));
        break;
    case StoreFound::PresentVersion:
        Tell(QStringLiteral("The store is there already, and up to date."));
        break;
    }
    FlushOutput();
}

void RunStoreCopy(const Words& words)
{
    const auto from = OpenStoreDatabase(LocationOf(words.Arguments.at(0)));
    from->RequireTables();
    const auto to = OpenWhole(words.Arguments.at(1));
    std::vector<StoreTable> tables;
    for (const StoreTable& table : LayoutTables())
        tables.push_back(table);
    for (const StoreTable& table : FurtherTables())
        tables.push_back(table);
    CopyStore(*from, *to, tables);
    Tell(QStringLiteral("Copied: %1 layouts, %2 entries of the ledger.")
             .arg(CountOf(*to, "SELECT COUNT(DISTINCT LayoutName) FROM Controls"))
             .arg(CountOf(*to, "SELECT COUNT(*) FROM LedgerEntries")));
    FlushOutput();
}

void RunStoreCheck(const Words& words)
{
    const QString location = StoreLocation(words.Arguments.at(0));
    const auto store = OpenStoreDatabase(location);
    store->RequireTables();
    Tell(QStringLiteral("Store: %1").arg(ShownLocation(location)));
    Tell(QStringLiteral("Layouts: %1")
             .arg(CountOf(*store, "SELECT COUNT(DISTINCT LayoutName) FROM Controls")));
    Tell(QStringLiteral("Ledger: %1")
             .arg(HasLedger(*store)
                      ? QStringLiteral("%1 entries")
                            .arg(CountOf(*store, "SELECT COUNT(*) FROM LedgerEntries"))
                      : QStringLiteral("none yet")));
    constexpr int trips = 20;
    QElapsedTimer timer;
    timer.start();
    for (int trip = 0; trip < trips; ++trip)
        store->Execute(QStringLiteral("SELECT 1"));
    const double tripMs = static_cast<double>(timer.nsecsElapsed()) / 1e6 / trips;
    Tell(QStringLiteral("A question takes: %1 ms").arg(tripMs, 0, 'f', 2));
    const QString doubt = store->DoubtsAboutCommits();
    {
        // Nothing is left of it, since it is not committed.
        const StoreTransaction transaction(*store);
        store->InsertRow(QStringLiteral("Controls"), {}, {}, nullptr);
    }
    Tell(QStringLiteral("May be written: yes"));
    FlushOutput();
    if (!doubt.isEmpty())
        throw Failure(FailureNumber::InvalidCall, doubt);
}

} // namespace vantrel::admin

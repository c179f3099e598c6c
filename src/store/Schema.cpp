#include "store/Schema.h"
#include "base/Failure.h"
#include "base/PlaceFile.h"
#include "store/LayoutTables.h"
#include "store/sqlite/SqliteDatabase.h"
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QUuid>

namespace vantrel {

namespace {
void MakeContents(const QString& path)
{
    SqliteDatabase database(path, SqliteDatabase::OpenMode::Create);
    database.Begin();
    database.MakeTables(LayoutTables());
    FillPrinterTypes(database);
    database.Commit();
}

void RemoveJournals(const QString& path)
{
    for (const QLatin1StringView suffix :
         {QLatin1StringView("-wal"), QLatin1StringView("-shm"), QLatin1StringView("-journal")})
        QFile::remove(path + suffix);
}

[[noreturn]] void FailAsTaken(const QString& path)
{
    throw Failure(FailureNumber::InvalidCall,
                  QStringLiteral("There is a layout database already: ") + path);
}

[[noreturn]] void FailAsUnwritable(const QString& path)
{
    throw Failure(FailureNumber::PathNotFound,
                  QStringLiteral("The layout database cannot be made: ") + path);
}
} // namespace

QStringList LayoutTableNames()
{
    QStringList names;
    for (const StoreTable& table : LayoutTables())
        names.append(QString::fromLatin1(table.Name));
    return names;
}

void CreateLayoutDatabase(const QString& path)
{
    // The lock is held from the check for an existing file until the new one is in place.
    QLockFile lock(path + QStringLiteral(".lock"));
    if (!lock.lock())
        FailAsUnwritable(path);
    if (QFileInfo(path).exists() || QFileInfo(path).isSymLink())
        FailAsTaken(path);

    const QString fresh =
        path + QStringLiteral(".new-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    auto result = PlaceResult::Failed;
    try {
        MakeContents(fresh);
        // SQLite would apply the leftover journals of a deleted database to the new one.
        RemoveJournals(path);
        result = PlaceFile(fresh, path);
    } catch (const Failure&) {
        result = PlaceResult::Failed;
    }
    if (result == PlaceResult::Placed)
        return;
    QFile::remove(fresh);
    RemoveJournals(fresh);
    if (result == PlaceResult::NameTaken)
        FailAsTaken(path);
    FailAsUnwritable(path);
}

} // namespace vantrel

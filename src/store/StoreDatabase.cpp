#include "store/StoreDatabase.h"
#include "base/Failure.h"
#include "store/postgres/PostgresAddress.h"
#include "store/postgres/PostgresDatabase.h"
#include "store/sqlite/SqliteDatabase.h"
#include <QFileInfo>

namespace vantrel {

std::unique_ptr<StoreDatabase> OpenStoreDatabase(const QString& location)
{
    if (IsPostgresAddress(location))
        return std::make_unique<PostgresDatabase>(location);
    if (!QFileInfo(location).isFile())
        throw Failure(FailureNumber::FileNotFound,
                      QStringLiteral("There is no layout database ") + location + QLatin1Char('.'));
    return std::make_unique<SqliteDatabase>(location, SqliteDatabase::OpenMode::Existing);
}

} // namespace vantrel

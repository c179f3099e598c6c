#include "station/session/StoreLocation.h"
#include "base/Profile.h"
#include "store/Schema.h"
#include "store/postgres/PostgresAddress.h"
#include <QDir>
#include <QFileInfo>

namespace vantrel {

QString StoreLocation(const QString& programFolder)
{
    const QDir folder(programFolder);
    const auto address = FindProfileValue(folder.filePath(SettingsFileName),
                                          QStringLiteral("Store"), QStringLiteral("Database"));
    return address && !address->isEmpty() ? *address
                                          : folder.filePath(QLatin1StringView(LayoutDatabaseName));
}

bool HasStore(const QString& programFolder)
{
    const QString location = StoreLocation(programFolder);
    return IsPostgresAddress(location) || QFileInfo(location).isFile();
}

bool IsStoreAddress(const QString& text)
{
    return IsPostgresAddress(text);
}

QString ShownLocation(const QString& location)
{
    return IsPostgresAddress(location) ? ShownAddress(location) : location;
}

} // namespace vantrel

#include "station/session/StoreLocation.h"
#include "base/Profile.h"
#include "store/Schema.h"
#include "store/postgres/PostgresAddress.h"
#include <QDir>
#include <QFileInfo>

namespace vantrel {

QString StoreOption(const QString& programFolder, const QString& key)
{
    return FindProfileValue(QDir(programFolder).filePath(SettingsFileName), QStringLiteral("Store"),
                            key)
        .value_or(QString());
}

QString StoreLocation(const QString& programFolder)
{
    const QString address = StoreOption(programFolder, QStringLiteral("Database"));
    return address.isEmpty() ? QDir(programFolder).filePath(QLatin1StringView(LayoutDatabaseName))
                             : address;
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

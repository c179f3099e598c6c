#include "samples/RecommendedSettings.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "samples/FreshInstall.h"
#include "station/session/Settings.h"
#include "station/session/StationOptions.h"
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace vantrel {

namespace {

void WriteKeys(const QString& folder)
{
    const QString path = SettingsPath(folder);
    for (const StationOptionRow& row : StationOptionRows()) {
        if (row.Recommended != nullptr &&
            !WriteProfileValue(path, QStringLiteral("Station"), QLatin1StringView(row.Key),
                               QLatin1StringView(row.Recommended)))
            throw Failure(FailureNumber::PathNotFound,
                          QStringLiteral("Cannot be written: ") + path);
    }
}

void RequireDatabase(const QString& folder)
{
    const QString path = LayoutDatabasePath(folder);
    if (!QFileInfo(path).isFile())
        throw Failure(FailureNumber::FileNotFound,
                      QStringLiteral("There is no layout database ") + path + QLatin1Char('.'));
}

} // namespace

QStringList RecommendedKeys()
{
    QStringList keys;
    for (const StationOptionRow& row : StationOptionRows())
        if (row.Recommended != nullptr)
            keys.append(QLatin1StringView(row.Key));
    return keys;
}

void MakeRecommendedFolder(const QString& folder)
{
    // A session that starts as soon as the database is there finds the keys.
    if (!QFileInfo::exists(LayoutDatabasePath(folder)) && QDir().mkpath(folder))
        WriteKeys(folder);
    MakeProgramFolder(folder);
}

void SetRecommendedSettings(const QString& folder)
{
    RequireDatabase(folder);
    WriteKeys(folder);
}

QString BackUpSettings(const QString& folder)
{
    RequireDatabase(folder);
    const QString path = SettingsPath(folder);
    if (!QFileInfo::exists(path))
        return {};
    QString copy =
        path + QDateTime::currentDateTime().toString(QStringLiteral("'.'yyyyMMdd-HHmmss-zzz"));
    // It never replaces a file.
    if (!QFile::copy(path, copy))
        throw Failure(FailureNumber::PathNotFound, QStringLiteral("Cannot be written: ") + copy);
    return copy;
}

} // namespace vantrel

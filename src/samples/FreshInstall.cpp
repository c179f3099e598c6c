#include "samples/FreshInstall.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "store/Schema.h"
#include <QDir>
#include <QFileInfo>

namespace vantrel {

namespace {
struct KeyRow
{
    const char* Key;
    const char* Value;
};

constexpr KeyRow SessionStatusKeys[] = {{"Visible", "True"}, {"Active", "True"}};

[[noreturn]] void FailAsUnwritable(const QString& path)
{
    throw Failure(FailureNumber::PathNotFound, QStringLiteral("Cannot be written: ") + path);
}
} // namespace

void MakeProgramFolder(const QString& folder)
{
    if (!QDir().mkpath(folder))
        FailAsUnwritable(folder);
    CreateLayoutDatabase(LayoutDatabasePath(folder));
    const QString status = QDir(folder).filePath(QStringLiteral("SessionStatus.ini"));
    if (QFileInfo::exists(status))
        return;
    for (const KeyRow& row : SessionStatusKeys)
        if (!WriteProfileValue(status, QStringLiteral("Session 1"), QLatin1StringView(row.Key),
                               QLatin1StringView(row.Value)))
            FailAsUnwritable(status);
}

QString LayoutDatabasePath(const QString& folder)
{
    return QDir(folder).filePath(QLatin1StringView(LayoutDatabaseName));
}

} // namespace vantrel

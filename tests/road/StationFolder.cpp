#include "road/StationFolder.h"
#include "base/Convert.h"
#include "base/Profile.h"
#include "road/StationProcess.h"
#include "samples/FreshInstall.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Host.h"
#include "support/Layouts.h"
#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <gtest/gtest.h>

namespace vantrel::test {

StationFolder::StationFolder() : TestSession({QStringLiteral("Vantrel PDF")})
{
    WithDatabase();
    if (StoresAreOnServer()) {
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder), QStringLiteral("Store"),
                                      QStringLiteral("Database"), LayoutStore->Location()));
    }
    BeginLayout(Session, QStringLiteral("Badge"));
    AddField(Session, 1, {300, 300, 300, 2000});
    AddField(Session, 2, {900, 300, 300, 2000});
    SavePage(Session);
}

void StationFolder::AddCameraObject()
{
    Draw_CamView(OpenForm(Session), {.cTop = 2000, .cLeft = 300, .cHeight = 900, .cWidth = 700}, 0,
                 Picture(), true, QString());
    SavePage(Session);
}

void StationFolder::AddAutoNumber(double seed)
{
    AddNumber(Session, seed, {1500, 300, 300, 2000});
    SavePage(Session);
}

int StationFolder::WithCapture(std::uint8_t sessionNumber)
{
    Session.SessionNumber = sessionNumber;
    const int port = FreePort();
    Set(SettingsPath(Session.ProgramFolder), "LastLayout", QStringLiteral("Badge"));
    Set(SettingsPath(Session.ProgramFolder), "CaptureEnabled", QStringLiteral("True"));
    Set(SettingsPath(Session.ProgramFolder), "Port", QString::number(port));
    return port;
}

void StationFolder::SetStatus(const char* key, const QString& value) const
{
    Set(SessionStatusPath(Session.ProgramFolder), key, value);
}

void StationFolder::SetSetting(const char* key, const QString& value) const
{
    Set(SettingsPath(Session.ProgramFolder), key, value);
}

void StationFolder::SetOption(const char* key, const QString& value) const
{
    EXPECT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder), QStringLiteral("Station"),
                                  QLatin1StringView(key), value));
}

QString StationFolder::Setting(const char* key) const
{
    return Get(SettingsPath(Session.ProgramFolder), key);
}

QString StationFolder::WrittenVisible() const
{
    return Get(Session.ProgramFolder + QStringLiteral("SessionStatus.ini"), "Visible");
}

bool StationFolder::WaitUntilLoadedAndHidden() const
{
    bool visible = true;
    const bool answered = EventsUntil([&] {
        visible = !visible;
        SetStatus("Visible", BooleanText(visible));
        return WrittenVisible() != QStringLiteral("(absent)");
    });
    SetStatus("Visible", QStringLiteral("False"));
    return answered && EventsUntil([&] { return WrittenVisible() == QStringLiteral("False"); });
}

QString StationFolder::PathOfCard(int number) const
{
    return Session.PathInFolder(QStringLiteral("Printed/Session %1/card-%2.pdf")
                                    .arg(Session.SessionNumber)
                                    .arg(number, 6, 10, QLatin1Char('0')));
}

QString StationFolder::TextOfCard(int number) const
{
    const QString path = PathOfCard(number);
    EXPECT_TRUE(EventsUntil([&] { return QFileInfo::exists(path); }));
    return TextOfPdf(path);
}

QStringList StationFolder::Cards(int sessionNumber) const
{
    const QDir folder(
        Session.PathInFolder(QStringLiteral("Printed/Session %1").arg(sessionNumber)));
    QStringList paths;
    for (const QFileInfo& card :
         folder.entryInfoList({QStringLiteral("card-*.pdf")}, QDir::Files, QDir::Name))
        paths.append(card.filePath());
    return paths;
}

QString StationFolder::StoreIntegrity() const
{
    if (StoresAreOnServer())
        return QStringLiteral("ok");
    const QString name = QStringLiteral("integrity");
    QString answer;
    {
        auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(LayoutDatabasePath(Session.ProgramFolder));
        if (database.open()) {
            QSqlQuery query(QStringLiteral("PRAGMA integrity_check"), database);
            if (query.next())
                answer = query.value(0).toString();
        }
    }
    QSqlDatabase::removeDatabase(name);
    return answer;
}

void StationFolder::Set(const QString& path, const char* key, const QString& value) const
{
    EXPECT_TRUE(WriteProfileValue(path, SessionSection(Session), QLatin1StringView(key), value));
}

QString StationFolder::Get(const QString& path, const char* key) const
{
    return ReadProfileValue(path, SessionSection(Session), QLatin1StringView(key),
                            QStringLiteral("(absent)"));
}

void SendRecord(int port, const QByteArray& record)
{
    const Host host(port);
    ASSERT_TRUE(host.IsConnected());
    host.Send(record);
}

} // namespace vantrel::test

#include "app/Settings.h"
#include "layout/DrawObjects.h"
#include "platform/Convert.h"
#include "platform/Profile.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include "support/Host.h"
#include "support/Layouts.h"
#include <QDir>
#include <csignal>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A program folder with a layout of two fields that prints each record on the built-in printer.
class StationFolder : public TestSession
{
public:
    StationFolder() : TestSession({QStringLiteral("Vantrel PDF")})
    {
        WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
        AddField(Session, 1, {300, 300, 300, 2000});
        AddField(Session, 2, {900, 300, 300, 2000});
        SavePage(Session);
    }

    void AddCameraObject()
    {
        Draw_CamView(Session, {.cTop = 2000, .cLeft = 300, .cHeight = 900, .cWidth = 700}, 0,
                     Picture(), true, QString());
        SavePage(Session);
    }

    /// Makes a start open that layout and listen on a free port. @return the port
    int WithCapture(std::uint8_t sessionNumber = 1)
    {
        Session.SessionNumber = sessionNumber;
        const int port = FreePort();
        Set(SettingsPath(Session), "LastLayout", QStringLiteral("Badge"));
        Set(SettingsPath(Session), "CaptureEnabled", QStringLiteral("True"));
        Set(SettingsPath(Session), "Port", QString::number(port));
        return port;
    }
    void SetStatus(const char* key, const QString& value) const
    {
        Set(SessionStatusPath(Session), key, value);
    }
    QString Setting(const char* key) const { return Get(SettingsPath(Session), key); }
    /// The status the station writes: beside its folder, under the folder's name.
    QString WrittenVisible() const
    {
        return Get(Session.ProgramFolder + QStringLiteral("SessionStatus.ini"), "Visible");
    }
    /// Hides the station and waits until it has obeyed, which it does once its window is loaded.
    /// What it reads while it starts is no change to it, so it is told both until it answers.
    bool WaitUntilLoadedAndHidden() const
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
    /// Waits for the card of that number and reads it.
    QString TextOfCard(int number) const
    {
        const QString path = Session.PathInFolder(QStringLiteral("Printed/Session %1/card-%2.pdf")
                                                      .arg(Session.SessionNumber)
                                                      .arg(number, 6, 10, QLatin1Char('0')));
        EXPECT_TRUE(EventsUntil([&] { return QFileInfo::exists(path); }));
        return TextOfPdf(path);
    }

private:
    void Set(const QString& path, const char* key, const QString& value) const
    {
        EXPECT_TRUE(
            WriteProfileValue(path, SessionSection(Session), QLatin1StringView(key), value));
    }
    QString Get(const QString& path, const char* key) const
    {
        return ReadProfileValue(path, SessionSection(Session), QLatin1StringView(key),
                                QStringLiteral("(absent)"));
    }
};

void SendRecord(int port, const QByteArray& record)
{
    Host host(port);
    ASSERT_TRUE(host.IsConnected());
    host.Send(record);
}

TEST(Station, MakesACardOfEachRecord)
{
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    SendRecord(port, "<Anna+7>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("Anna 7"));
    SendRecord(port, "<Ren\xE9+8>");
    EXPECT_EQ(folder.TextOfCard(2), QStringLiteral("Ren\u00E9 8"));
}

TEST(Station, PrintsWithoutAStatusFile)
{
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    EXPECT_FALSE(QFileInfo::exists(SessionStatusPath(folder.Session)));
    SendRecord(port, "<A+B>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("A B"));
    EXPECT_TRUE(station.IsRunning());
}

TEST(Station, AQuestionThatNobodyCanAnswerHoldsNoCardUp)
{
    StationFolder folder;
    folder.AddCameraObject();
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    SendRecord(port, "<A+B>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("A B"));
    EXPECT_EQ(station.ErrorLines(), QStringList{QStringLiteral("Take Picture: Take Picture Now?")});
}

TEST(Station, StopSignalsUnloadItInOrder)
{
    for (const int number : {SIGTERM, SIGINT}) {
        StationFolder folder;
        const int port = folder.WithCapture();
        StationProcess station(folder.Session.ProgramFolder);
        ASSERT_TRUE(station.WaitUntilItListens(port));
        ASSERT_TRUE(folder.WaitUntilLoadedAndHidden());
        station.SendSignal(number);
        EXPECT_EQ(station.ExitCode(), 0);
        EXPECT_EQ(folder.Setting("LastLayout"), QStringLiteral("Badge"));
        EXPECT_EQ(folder.Setting("MWidth"), QStringLiteral("10425"));
        EXPECT_EQ(folder.Setting("DynamicFields"), QStringLiteral("False"));
        EXPECT_EQ(folder.WrittenVisible(), QStringLiteral("False"));
    }
}

TEST(Station, AnInactiveSessionEndsWithZero)
{
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    folder.SetStatus("Active", QStringLiteral("False"));
    EXPECT_EQ(station.ExitCode(), 0);
    EXPECT_EQ(folder.Setting("LastLayout"), QStringLiteral("Badge"));
    EXPECT_EQ(station.ErrorLines(), QStringList());
}

TEST(Station, AStatusThatIsNoBooleanEndsItWithOne)
{
    for (const char* key : {"Visible", "Active"}) {
        StationFolder folder;
        folder.SetStatus(key, QStringLiteral("maybe"));
        StationProcess station(folder.Session.ProgramFolder);
        EXPECT_EQ(station.ExitCode(), 1);
        EXPECT_EQ(station.ErrorLines(),
                  QStringList{QStringLiteral("vantrel: run-time error 13: Type mismatch")});
    }
}

TEST(Station, AFirstRunOpensNoPort)
{
    StationFolder folder;
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(folder.WaitUntilLoadedAndHidden());
    EXPECT_EQ(station.ListeningPorts(), QStringList());
    station.SendSignal(SIGTERM);
    EXPECT_EQ(station.ExitCode(), 0);
}

TEST(Station, ASecondProcessOfTheSameNumberRunsAndGetsNoSocket)
{
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess first(folder.Session.ProgramFolder);
    ASSERT_TRUE(first.WaitUntilItListens(port));
    StationProcess second(folder.Session.ProgramFolder, {}, StationProcess::Skips::Told);
    ASSERT_TRUE(second.WaitUntilItTells(QStringLiteral("listen was passed over")));
    SendRecord(port, "<A+B>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("A B"));
    EXPECT_TRUE(second.IsRunning());
    EXPECT_EQ(second.ListeningPorts(), QStringList());
    EXPECT_EQ(first.ListeningPorts(), QStringList{QString::number(port)});
    folder.SetStatus("Active", QStringLiteral("False"));
    EXPECT_EQ(first.ExitCode(), 0);
    EXPECT_EQ(second.ExitCode(), 0);
}

TEST(Station, ANumberOnTheCommandLineIsItsSession)
{
    StationFolder folder;
    const int port = folder.WithCapture(2);
    StationProcess station(folder.Session.ProgramFolder, {QStringLiteral("2")});
    ASSERT_TRUE(station.WaitUntilItListens(port));
    SendRecord(port, "<A+B>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("A B"));
}

TEST(Station, AnyOtherCommandLineIsSessionOne)
{
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder,
                           {QStringLiteral("-platform"), QStringLiteral("none")});
    EXPECT_TRUE(station.WaitUntilItListens(port));
}

TEST(Station, AHomeThatIsNoFolderIsToldInOneLine)
{
    StationFolder folder;
    const QString missing = folder.Session.PathInFolder(QStringLiteral("missing"));
    StationProcess station(missing);
    EXPECT_EQ(station.ExitCode(), 1);
    EXPECT_EQ(
        station.ErrorLines(),
        QStringList{QStringLiteral("vantrel: run-time error 76: VANTREL_HOME is no folder: ") +
                    missing});
}

} // namespace
} // namespace vantrel::test

#include "base/Profile.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include "station/start/EntryPoint.h"
#include "support/Layouts.h"
#include <QFile>
#include <QTcpServer>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

struct CommandRow
{
    const char* Text;
    int SessionNumber;
    bool OwnsTrayIcon;
};

constexpr CommandRow CommandTable[] = {
    {"", 1, true},     {"abc", 1, true},   {"1", 1, false},   {"2", 2, false},
    {" 7 ", 7, false}, {"2.5", 2, false},  {"3.5", 4, false}, {"255", 255, false},
    {"256", 1, false}, {"-1", 1, false},   {"0", 0, false},   {"2 3", 1, true},
    {"-x", 1, true},   {"1e400", 1, true}, {"2a", 1, true},   {"1e3", 1, false}};

class CommandLines : public ::testing::TestWithParam<CommandRow>
{};

TEST_P(CommandLines, GiveASessionAndAnIcon)
{
    const CommandLine line = ReadCommandLine(QString::fromLatin1(GetParam().Text));
    EXPECT_EQ(line.SessionNumber, GetParam().SessionNumber) << GetParam().Text;
    EXPECT_EQ(line.OwnsTrayIcon, GetParam().OwnsTrayIcon) << GetParam().Text;
}

INSTANTIATE_TEST_SUITE_P(EveryText, CommandLines, ::testing::ValuesIn(CommandTable));

void WriteKey(const vantrel::Session& session, const char* key, const QString& value)
{
    ASSERT_TRUE(WriteProfileValue(session.PathInFolder(QStringLiteral("Vantrel 6.ini")),
                                  QStringLiteral("Session 1"), QLatin1StringView(key), value));
}

void Start(vantrel::Session& session)
{
    Main(session, QString());
    LoadMain(session);
}

TEST(Start, TheFolderOfPhotosBeginsAtTheProgramFolder)
{
    for (const auto& [value, folder] : std::vector<std::pair<QString, QString>>{
             {QString(), QString()},
             {QStringLiteral("Photos"), QStringLiteral("%1/Photos")},
             {QStringLiteral("/srv/photos"), QStringLiteral("/srv/photos")}}) {
        TestSession station;
        ASSERT_TRUE(WriteProfileValue(station.Session.PathInFolder(QStringLiteral("Vantrel 6.ini")),
                                      QStringLiteral("Station"), QStringLiteral("ImagesFrom"),
                                      value));
        Main(station.Session, QString());
        EXPECT_EQ(station.Session.Pictures.Folder,
                  QString(folder).replace(QStringLiteral("%1"), station.Session.ProgramFolder));
    }
}

TEST(Start, AFirstRunWithoutASettingsFileComesUpWithCaptureDisabled)
{
    TestSession station;
    Start(station.Session);
    const StationSettings& settings = station.Session.Settings;
    EXPECT_FALSE(settings.CaptureEnabled);
    EXPECT_TRUE(settings.UseIP);
    EXPECT_EQ(settings.Port, 10001);
    EXPECT_EQ(settings.Framing.DataStart, QStringLiteral("<"));
    EXPECT_EQ(settings.Framing.DataSeperator, QStringLiteral("+"));
    EXPECT_EQ(settings.Framing.DataEnd, QStringLiteral(">"));
    EXPECT_EQ(station.Session.Sock.State(0), SockState::Closed);
}

TEST(Start, AMissingDatabaseLeavesTheStoreClosedAndTheStationUp)
{
    TestSession station;
    Start(station.Session);
    EXPECT_FALSE(station.Session.LayoutDb.IsOpen());
    EXPECT_EQ(station.Session.Face.Caption(), QStringLiteral(" Ostrand Vantrel v6.0"));
    EXPECT_EQ(station.Session.Face.StatusPanel(2).Text, QStringLiteral("Layout (None)"));
}

/// Leaves a layout "Card" in the station's folder, with the database closed again.
void MakeStoredCard(TestSession& station)
{
    station.WithDatabase();
    BeginLayout(station.Session, QStringLiteral("Card"));
    AddText(station.Session, QStringLiteral("text"));
    SavePage(station.Session);
    station.Session.LayoutDb.Close();
    station.Session.CurrentLayoutName.clear();
}

TEST(Start, ReopensTheLastLayoutAndNamesItInTheCaption)
{
    TestSession station;
    MakeStoredCard(station);
    WriteKey(station.Session, "LastLayout", QStringLiteral("Card"));
    Start(station.Session);
    EXPECT_TRUE(station.Session.CurrentParams.LayoutOpen);
    EXPECT_EQ(station.Session.Face.Caption(),
              QStringLiteral(" Ostrand Vantrel v6.0   (Card) printing to (Card Printer)"));
    EXPECT_TRUE(station.Session.Document.IsShown());
    EXPECT_EQ(station.Session.Face.StatusPanel(2).Text,
              QStringLiteral("Layout (Card) Page 1 of 1"));
}

TEST(Start, ALastLayoutThatIsGoneLeavesTheCaptionPlainAndNoDocument)
{
    TestSession station;
    MakeStoredCard(station);
    WriteKey(station.Session, "LastLayout", QStringLiteral("Gone"));
    station.Session.Document.Unload();
    Start(station.Session);
    EXPECT_FALSE(station.Session.CurrentParams.LayoutOpen);
    EXPECT_TRUE(station.Session.CurrentLayoutName.isEmpty());
    EXPECT_EQ(station.Session.Face.Caption(), QStringLiteral(" Ostrand Vantrel v6.0"));
    EXPECT_FALSE(station.Session.Document.IsShown());
}

TEST(Start, TicksFollowTheStoredFlags)
{
    TestSession station;
    WriteKey(station.Session, "DynamicLayouts", QStringLiteral("True"));
    WriteKey(station.Session, "DynamicFields", QStringLiteral("True"));
    Start(station.Session);
    EXPECT_TRUE(station.Session.Face.IsTicked(Tick::cmdDynamicLayout));
    EXPECT_TRUE(station.Session.Face.IsTicked(Tick::chkAutoAdd));
    EXPECT_FALSE(station.Session.Face.IsTicked(Tick::cmdCapEnable));
}

TEST(Start, CaptureEnabledOpensThePortAndShowsTheWaitingIcon)
{
    TestSession station;
    WriteKey(station.Session, "CaptureEnabled", QStringLiteral("True"));
    const int port = station.Session.Settings.Port;
    WriteKey(station.Session, "Port", QString::number(port));
    Start(station.Session);
    EXPECT_EQ(station.Session.Sock.State(0), SockState::Listening);
    EXPECT_EQ(station.Session.Sock.LocalPort(), port);
    EXPECT_EQ(station.Session.Face.TrayPicture(), TrayImage::Waiting);
    EXPECT_EQ(station.Session.Face.TrayTip(), QStringLiteral("Vantrel v5 (Waiting...)"));
}

TEST(Start, AStoredNumberThatIsNoPortOpensNone)
{
    for (const char* text : {"70000", "65536", "-1", "0", "", "next", "99999999999"}) {
        TestSession station;
        // As in a process that has just begun.
        station.Session.Settings.Port = 0;
        WriteKey(station.Session, "CaptureEnabled", QStringLiteral("True"));
        WriteKey(station.Session, "Port", QString::fromLatin1(text));
        Start(station.Session);
        EXPECT_EQ(station.Session.Sock.State(0), SockState::Closed) << text;
        EXPECT_TRUE(station.Operator.AppMessages.isEmpty()) << text;
        EXPECT_TRUE(station.Operator.Boxes.isEmpty()) << text;
    }
}

TEST(Start, ASecondProcessWithTheSameNumberSeesTheSameSettingsAndGetsNoSocket)
{
    TestSession first;
    QTcpServer holder;
    ASSERT_TRUE(holder.listen(QHostAddress::Any));
    WriteKey(first.Session, "CaptureEnabled", QStringLiteral("True"));
    WriteKey(first.Session, "Port", QString::number(holder.serverPort()));
    Start(first.Session);
    EXPECT_EQ(first.Session.Settings.Port, holder.serverPort());
    EXPECT_EQ(first.Session.Sock.State(0), SockState::Closed);
    EXPECT_TRUE(first.Operator.AppMessages.isEmpty());
    EXPECT_TRUE(first.Operator.Boxes.isEmpty());
}

TEST(Start, SessionsHaveTheirOwnSection)
{
    TestSession station;
    const QString path = station.Session.PathInFolder(QStringLiteral("Vantrel 6.ini"));
    ASSERT_TRUE(WriteProfileValue(path, QStringLiteral("Session 1"), QStringLiteral("Port"),
                                  QStringLiteral("1111")));
    ASSERT_TRUE(WriteProfileValue(path, QStringLiteral("Session 2"), QStringLiteral("Port"),
                                  QStringLiteral("2222")));
    Main(station.Session, QStringLiteral("2"));
    EXPECT_EQ(station.Session.Settings.Port, 2222);
    EXPECT_FALSE(station.Session.OwnsTrayIcon);
}

} // namespace
} // namespace vantrel::test

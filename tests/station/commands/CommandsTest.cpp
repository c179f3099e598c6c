#include "station/commands/Commands.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "ports/Launcher.h"
#include "station/layout/LayoutParams.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QLocalServer>
#include <QLocalSocket>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

QString Stored(const Session& session, const char* key)
{
    return ReadProfileValue(SettingsPath(session.ProgramFolder), SessionSection(session),
                            QLatin1StringView(key), QStringLiteral("(absent)"));
}

/// A station with a stored one-field layout open.
class OpenStation : public TestSession
{
public:
    OpenStation()
    {
        WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
        AddField(Session, 1);
        SavePage(Session);
        Printers.Operations.clear();
    }
};

TEST(PrintCommand, PrintsTheCardAndShowsTheRecordAgain)
{
    OpenStation station;
    SetRecord(station.Session, {QStringLiteral("Anna")});
    PrintCommand(station.Session);
    EXPECT_TRUE(station.Printers.Operations.contains(QStringLiteral("Print(\"Anna\")")));
    EXPECT_EQ(station.Session.Document.Find(Family::lbl_DATA, 1)->Caption(),
              QStringLiteral("Anna"));
}

TEST(PrintCommand, HoldsTheRoadOfRecordsWhileItPrints)
{
    OpenStation station;
    bool wasBusy = false;
    station.Session.Settings.MainVisible = true;
    station.Operator.WhileEventsRun.emplace_back([&] { wasBusy = station.Session.Road.IsBusy(); });
    PrintCommand(station.Session);
    EXPECT_TRUE(wasBusy);
    EXPECT_FALSE(station.Session.Road.IsBusy());
}

TEST(PrintCommand, DoesNothingWithoutALayout)
{
    OpenStation station;
    station.Session.CurrentLayoutName.clear();
    PrintCommand(station.Session);
    EXPECT_EQ(station.Printers.Operations, QStringList());
    EXPECT_TRUE(station.Operator.Pointer.empty());
}

TEST(CloseCommand, EndsTheLayoutWithoutAsking)
{
    OpenStation station;
    CloseCommand(station.Session);
    EXPECT_EQ(station.Session.CurrentLayoutName, QString());
    EXPECT_FALSE(station.Session.Document.IsLoaded());
    EXPECT_EQ(station.Operator.AppMessages, QStringList());
}

TEST(AutoSpool, IsKeptByTheLayoutAtOnce)
{
    OpenStation station;
    station.Session.Face.SetTick(Tick::chkAutoSpool, true);
    ToggleAutoSpool(station.Session);
    EXPECT_FALSE(station.Session.Face.IsTicked(Tick::chkAutoSpool));
    EXPECT_FALSE(station.Session.CurrentParams.AutoSpool);
    station.Session.CurrentParams.AutoSpool = true;
    LoadLayoutParams(station.Session);
    EXPECT_FALSE(station.Session.CurrentParams.AutoSpool);
    ToggleAutoSpool(station.Session);
    EXPECT_TRUE(station.Session.CurrentParams.AutoSpool);
}

TEST(AutoSpool, IsOneTickForAllPagesWithTheDesignToolsOnly)
{
    for (const bool tools : {false, true}) {
        OpenStation station;
        station.Session.Options.DesignTools = tools;
        station.Session.CurrentParams.AutoSpool = false;
        for (std::int16_t page = 1; page <= 2; ++page) {
            station.Session.CurrentParams.PageIndex = page;
            SaveLayoutParams(station.Session.LayoutDb, station.Session.CurrentLayoutName,
                             station.Session.CurrentParams);
        }
        station.Session.Face.SetTick(Tick::chkAutoSpool, false);
        ToggleAutoSpool(station.Session);
        station.Session.CurrentParams.PageIndex = 1;
        LoadLayoutParams(station.Session);
        EXPECT_EQ(station.Session.CurrentParams.AutoSpool, tools);
    }
}

TEST(AutoSpool, DoesNothingWithoutALayout)
{
    OpenStation station;
    station.Session.CurrentLayoutName.clear();
    ToggleAutoSpool(station.Session);
    EXPECT_FALSE(station.Session.Face.IsTicked(Tick::chkAutoSpool));
}

TEST(AutoSpool, AFailingStoreReachesTheCaller)
{
    OpenStation station;
    station.Session.LayoutDb.Close();
    EXPECT_THROW(ToggleAutoSpool(station.Session), Failure);
}

TEST(StoredTicks, AreFlippedCopiedAndStored)
{
    struct Row
    {
        void (*Toggle)(Session&);
        Tick Ticked;
        bool StationSettings::*Flag;
        const char* Key;
    };
    constexpr Row Rows[] = {
        {ToggleDynamicFields, Tick::chkAutoAdd, &StationSettings::DynamicFields, "DynamicFields"},
        {ToggleDynamicLayouts, Tick::cmdDynamicLayout, &StationSettings::DynamicLayouts,
         "DynamicLayouts"},
        {ToggleCapture, Tick::cmdCapEnable, &StationSettings::CaptureEnabled, "CaptureEnabled"},
    };
    TestSession station;
    for (const Row& row : Rows) {
        row.Toggle(station.Session);
        EXPECT_TRUE(station.Session.Face.IsTicked(row.Ticked)) << row.Key;
        EXPECT_TRUE(station.Session.Settings.*row.Flag) << row.Key;
        EXPECT_EQ(Stored(station.Session, row.Key), QStringLiteral("True")) << row.Key;
        row.Toggle(station.Session);
        EXPECT_FALSE(station.Session.Face.IsTicked(row.Ticked)) << row.Key;
        EXPECT_FALSE(station.Session.Settings.*row.Flag) << row.Key;
        EXPECT_EQ(Stored(station.Session, row.Key), QStringLiteral("False")) << row.Key;
    }
    EXPECT_EQ(std::size(Rows), 3U);
}

TEST(Capture, GoesOnListeningAfterItIsTurnedOff)
{
    TestSession station;
    station.Session.Settings.UseIP = true;
    ToggleCapture(station.Session);
    EXPECT_EQ(station.Session.Face.TrayPicture(), TrayImage::Waiting);
    ToggleCapture(station.Session);
    EXPECT_EQ(station.Session.Face.TrayPicture(), TrayImage::Disabled);
    EXPECT_EQ(station.Session.Sock.State(0), SockState::Listening);
}

TEST(VisibleCommand, HidesAndShowsTheWindowsAndTheCard)
{
    OpenStation station;
    station.Session.Settings.MainVisible = true;
    std::vector<bool> told;
    QObject::connect(&station.Session.Face, &StationFace::VisibilityChanged,
                     [&](bool visible) { told.push_back(visible); });
    EXPECT_EQ(station.Session.Face.HideCaption(), QStringLiteral("Hide Vantrel..."));
    ToggleVisible(station.Session);
    EXPECT_FALSE(station.Session.Settings.MainVisible);
    EXPECT_EQ(station.Session.Face.HideCaption(), QStringLiteral("Show Vantrel..."));
    station.Session.Document.Hide();
    ToggleVisible(station.Session);
    EXPECT_TRUE(station.Session.Document.IsShown());
    EXPECT_EQ(told, (std::vector<bool>{false, true}));
}

TEST(VisibleCommand, ShowsNoCardWithoutALayout)
{
    TestSession station;
    ToggleVisible(station.Session);
    EXPECT_TRUE(station.Session.Settings.MainVisible);
    EXPECT_FALSE(station.Session.Document.IsShown());
}

TEST(VisibleCommand, WritesBesideTheFolderUnderItsName)
{
    TestSession station;
    ToggleVisible(station.Session);
    EXPECT_EQ(ReadProfileValue(station.Session.ProgramFolder + QStringLiteral("SessionStatus.ini"),
                               QStringLiteral("Session 1"), QStringLiteral("Visible"), QString()),
              QStringLiteral("True"));
    EXPECT_FALSE(QFile::exists(SessionStatusPath(station.Session.ProgramFolder)));
}

/// Runs the command. @return whether the main window was asked to unload
bool TellsExit(Session& session)
{
    bool told = false;
    QObject context;
    QObject::connect(&session.Face, &StationFace::ExitConfirmed, &context, [&] { told = true; });
    ExitCommand(session);
    return told;
}

TEST(ExitCommand, AsksBeforeItEndsTheStation)
{
    TestSession station;
    station.Operator.Answers = {false, true};
    EXPECT_FALSE(TellsExit(station.Session));
    EXPECT_TRUE(TellsExit(station.Session));
    EXPECT_EQ(station.Operator.AppMessages.constFirst(),
              QStringLiteral(" Disable Vantrel?|Closing Vantrel will disable it's ability to "
                             "capture data.  \r\nAre you sure this is what you want?"));
}

TEST(ExitCommand, ClosesTheLauncherInSessionsZeroAndOneOnly)
{
    for (const int number : {0, 1, 2}) {
        TestSession station;
        station.Session.SessionNumber = static_cast<std::uint8_t>(number);
        QLocalServer launcher;
        ASSERT_TRUE(launcher.listen(station.Session.PathInFolder(LauncherTitle)));
        station.Operator.Answers = {true};
        EXPECT_TRUE(TellsExit(station.Session));
        if (number < 2) {
            ASSERT_TRUE(EventsUntil([&] { return launcher.hasPendingConnections(); }));
            QLocalSocket* caller = launcher.nextPendingConnection();
            ASSERT_TRUE(EventsUntil([&] { return caller->canReadLine(); }));
            EXPECT_EQ(caller->readLine(), QByteArray("close\n"));
        } else {
            EXPECT_FALSE(launcher.waitForNewConnection(0));
        }
    }
}

TEST(ExitCommand, WorksWithoutALauncher)
{
    TestSession station;
    station.Operator.Answers = {true};
    EXPECT_TRUE(TellsExit(station.Session));
}

} // namespace
} // namespace vantrel::test

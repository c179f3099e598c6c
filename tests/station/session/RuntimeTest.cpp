#include "base/Failure.h"
#include "base/Profile.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include "station/session/TrayIcon.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

void WriteStatus(const vantrel::Session& session, const char* key, const char* value)
{
    ASSERT_TRUE(WriteProfileValue(SessionStatusPath(session.ProgramFolder), SessionSection(session),
                                  QLatin1StringView(key), QLatin1StringView(value)));
}

TEST(SessionStatus, AbsentKeysReadAsTrue)
{
    TestSession station;
    station.Session.Settings.MainVisible = true;
    EXPECT_EQ(ReadSessionStatus(station.Session), StatusVerdict::Stay);
    EXPECT_TRUE(station.Session.Settings.MainVisible);
}

TEST(SessionStatus, ActiveFalseUnloadsTheStation)
{
    TestSession station;
    WriteStatus(station.Session, "Active", "False");
    EXPECT_EQ(ReadSessionStatus(station.Session), StatusVerdict::Unload);
}

TEST(SessionStatus, AValueThatIsNoBooleanFails)
{
    for (const char* key : {"Visible", "Active"}) {
        TestSession station;
        WriteStatus(station.Session, key, "perhaps");
        EXPECT_THROW(ReadSessionStatus(station.Session), Failure) << key;
    }
}

TEST(SessionStatus, AChangedVisibleIsTakenOverSignalledAndWrittenBesideTheFolder)
{
    TestSession station;
    station.Session.Settings.MainVisible = true;
    WriteStatus(station.Session, "Visible", "False");
    std::vector<bool> told;
    QObject::connect(&station.Session.Face, &StationFace::VisibilityChanged, &station.Session.Face,
                     [&](bool visible) { told.push_back(visible); });
    EXPECT_EQ(ReadSessionStatus(station.Session), StatusVerdict::Stay);
    EXPECT_EQ(ReadSessionStatus(station.Session), StatusVerdict::Stay);
    EXPECT_EQ(told, std::vector<bool>({false}));
    EXPECT_FALSE(station.Session.Settings.MainVisible);
    const QString beside = station.Session.ProgramFolder + QStringLiteral("SessionStatus.ini");
    EXPECT_EQ(
        ReadProfileValue(beside, QStringLiteral("Session 1"), QStringLiteral("Visible"), QString()),
        QStringLiteral("False"));
}

TEST(StatusBar, WithoutAPortItSaysDisabled)
{
    TestSession station;
    TickStatusBar(station.Session);
    EXPECT_EQ(station.Session.Face.StatusPanel(1).Text, QStringLiteral("Vantrel Disabled"));
    EXPECT_EQ(station.Session.Face.StatusPanel(2).Text, QStringLiteral("Layout (None)"));
}

TEST(StatusBar, WithNetworkCaptureItNamesTheAddress)
{
    TestSession station;
    station.Session.Settings.UseIP = true;
    TickStatusBar(station.Session);
    EXPECT_EQ(station.Session.Face.StatusPanel(1).Text,
              QStringLiteral("TCP/IP Active (%1)").arg(station.Session.Sock.LocalIP()));
}

TEST(StatusBar, ASerialStationKeepsTheTextOfPanel1)
{
    TestSession station;
    station.Session.Settings.UseSerial = true;
    station.Session.Face.SetPanelText(1, QStringLiteral("before"));
    TickStatusBar(station.Session);
    EXPECT_EQ(station.Session.Face.StatusPanel(1).Text, QStringLiteral("before"));
}

TEST(StatusBar, APageBeyondTheCountIsANewPage)
{
    TestSession station;
    station.Session.CurrentLayoutName = QStringLiteral("Card");
    station.Session.CurrentParams.PageIndex = 3;
    station.Session.CurrentParams.PageCount = 2;
    TickStatusBar(station.Session);
    EXPECT_EQ(station.Session.Face.StatusPanel(2).Text, QStringLiteral("Layout (Card) New Page*"));
    station.Session.CurrentParams.PageIndex = 2;
    TickStatusBar(station.Session);
    EXPECT_EQ(station.Session.Face.StatusPanel(2).Text,
              QStringLiteral("Layout (Card) Page 2 of 2"));
}

TEST(StatusBar, ALayoutsNameStandsInItsPanelAsItIs)
{
    TestSession station;
    station.Session.CurrentLayoutName = QStringLiteral("%1 of %2");
    station.Session.CurrentParams.PageIndex = 2;
    station.Session.CurrentParams.PageCount = 3;
    TickStatusBar(station.Session);
    EXPECT_EQ(station.Session.Face.StatusPanel(2).Text,
              QStringLiteral("Layout (%1 of %2) Page 2 of 3"));
}

TEST(Unload, KeepsGeometryLastLayoutAndFlags)
{
    TestSession station;
    vantrel::Session& session = station.Session;
    session.CurrentLayoutName = QStringLiteral("Card");
    session.Settings.DynamicFields = true;
    session.Settings.MainVisible = true;
    const Geometry geometry{100, 200, 300, 400};
    UnloadMain(session, &geometry);
    const auto stored = [&](const char* key) {
        return ReadProfileValue(SettingsPath(session.ProgramFolder), SessionSection(session),
                                QLatin1StringView(key), QStringLiteral("absent"));
    };
    EXPECT_EQ(stored("MTop"), QStringLiteral("100"));
    EXPECT_EQ(stored("MLeft"), QStringLiteral("200"));
    EXPECT_EQ(stored("MHeight"), QStringLiteral("300"));
    EXPECT_EQ(stored("MWidth"), QStringLiteral("400"));
    EXPECT_EQ(stored("LastLayout"), QStringLiteral("Card"));
    EXPECT_EQ(stored("DynamicFields"), QStringLiteral("True"));
    EXPECT_EQ(stored("Visible"), QStringLiteral("absent"));
}

TEST(Unload, TakesTheNotificationIconAwayInEverySessionAfterAllElse)
{
    for (const bool owner : {true, false}) {
        TestSession station;
        vantrel::Session& session = station.Session;
        session.OwnsTrayIcon = owner;
        AddTrayIcon(session.Face);
        const QString beside = session.ProgramFolder + QStringLiteral("SessionStatus.ini");
        QString storedBefore;
        QObject::connect(&session.Face, &StationFace::TrayChanged, &session.Face, [&] {
            storedBefore = ReadProfileValue(beside, SessionSection(session),
                                            QStringLiteral("Visible"), QStringLiteral("absent"));
        });
        UnloadMain(session, nullptr);
        EXPECT_FALSE(session.Face.IsTrayShown()) << owner;
        EXPECT_EQ(storedBefore, QStringLiteral("False")) << owner;
    }
}

TEST(LayoutStatus, NamesThePrinterOfTheLayout)
{
    TestSession station;
    EXPECT_EQ(LayoutStatusText(station.Session.CurrentParams),
              QStringLiteral("Current Printer = "));
    station.Session.CurrentParams.PrinterDevice = QStringLiteral("Front Desk");
    EXPECT_EQ(LayoutStatusText(station.Session.CurrentParams),
              QStringLiteral("Current Printer = Front Desk"));
}

TEST(Unload, AMinimisedWindowLeavesTheStoredGeometryUnchanged)
{
    TestSession station;
    const Geometry geometry{100, 200, 300, 400};
    UnloadMain(station.Session, &geometry);
    UnloadMain(station.Session, nullptr);
    EXPECT_EQ(ReadProfileValue(SettingsPath(station.Session.ProgramFolder),
                               SessionSection(station.Session), QStringLiteral("MTop"), QString()),
              QStringLiteral("100"));
}

} // namespace
} // namespace vantrel::test

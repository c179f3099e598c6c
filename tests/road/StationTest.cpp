#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include <QDir>
#include <csignal>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

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
    EXPECT_FALSE(QFileInfo::exists(SessionStatusPath(folder.Session.ProgramFolder)));
    SendRecord(port, "<A+B>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("A B"));
    EXPECT_TRUE(station.IsRunning());
}

TEST(Station, AQuestionThatNobodyCanAnswerDelaysNoCard)
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

TEST(Station, AnInactiveSessionEndsWithExitCodeZero)
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

TEST(Station, AStatusThatIsNoBooleanEndsItWithExitCodeOne)
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

TEST(Station, APortOutOfRangeOpensNoOther)
{
    for (const char* number : {"70000", "65536", "-1", "0"}) {
        StationFolder folder;
        folder.WithCapture();
        folder.SetSetting("Port", QString::fromLatin1(number));
        StationProcess station(folder.Session.ProgramFolder, {.TellsSkips = true});
        EXPECT_TRUE(station.WaitUntilItTells(QStringLiteral("listen was passed over"))) << number;
        EXPECT_EQ(station.ListeningPorts(), QStringList()) << number;
    }
}

TEST(Station, ASecondProcessOfTheSameNumberRunsAndGetsNoSocket)
{
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess first(folder.Session.ProgramFolder);
    ASSERT_TRUE(first.WaitUntilItListens(port));
    StationProcess second(folder.Session.ProgramFolder, {.TellsSkips = true});
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
    StationProcess station(folder.Session.ProgramFolder, {.Arguments = {QStringLiteral("2")}});
    ASSERT_TRUE(station.WaitUntilItListens(port));
    SendRecord(port, "<A+B>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("A B"));
}

TEST(Station, AnyOtherCommandLineIsSessionOne)
{
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder,
                           {.Arguments = {QStringLiteral("-platform"), QStringLiteral("none")}});
    EXPECT_TRUE(station.WaitUntilItListens(port));
}

TEST(Station, AHomeThatIsNoFolderIsReportedInOneLine)
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

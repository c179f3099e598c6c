#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include "support/NotifySocket.h"
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>

// A station that a service manager has started.

namespace vantrel::test {
namespace {

class StationAsService : public ::testing::Test
{
protected:
    static void LetPass(std::chrono::milliseconds time)
    {
        QEventLoop loop;
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
    }

    StationFolder Folder;
    int Port = Folder.WithCapture();
    NotifySocket Manager;
    StationProcess Station{
        Folder.Session.ProgramFolder,
        {.Environment = {{QStringLiteral("NOTIFY_SOCKET"), Manager.Path()},
                         {QStringLiteral("WATCHDOG_USEC"), QStringLiteral("100000")}}}};
};

TEST_F(StationAsService, TellsWhenItsPortIsOpenThatItLivesAndThatItEnds)
{
    ASSERT_TRUE(Manager.WaitUntilTold("READY=1"));
    EXPECT_TRUE(Station.ListeningPorts().contains(QString::number(Port)));
    EXPECT_TRUE(Manager.WaitUntilTold("WATCHDOG=1", 2));
    const auto tellsPort = [](const QByteArray& told) {
        return told.startsWith("STATUS=TCP/IP Active");
    };
    EXPECT_TRUE(std::any_of(Manager.Told().begin(), Manager.Told().end(), tellsPort));
    SendRecord(Port, "<Ada+1>");
    EXPECT_FALSE(Folder.TextOfCard(1).isEmpty());
    EXPECT_FALSE(Manager.Told().contains("STOPPING=1"));
    Station.SendSignal(SIGTERM);
    EXPECT_TRUE(Manager.WaitUntilTold("STOPPING=1"));
    EXPECT_EQ(Station.ExitCode(), 0);
}

TEST_F(StationAsService, AHungStationGivesNoSignOfLife)
{
    ASSERT_TRUE(Manager.WaitUntilTold("WATCHDOG=1"));
    Station.SendSignal(SIGSTOP);
    // A sign may have been on its way.
    LetPass(std::chrono::milliseconds(200));
    const auto told = Manager.Told().size();
    LetPass(std::chrono::milliseconds(500));
    EXPECT_EQ(Manager.Told().size(), told);
    Station.SendSignal(SIGCONT);
    EXPECT_TRUE(EventsUntil([&] { return Manager.Told().size() > told; }));
}

} // namespace
} // namespace vantrel::test

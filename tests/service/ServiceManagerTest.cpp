#include "service/ServiceManager.h"
#include "support/NotifySocket.h"
#include <gtest/gtest.h>
#include <unistd.h>

// What a process tells the service manager that has started it.

namespace vantrel::test {
namespace {

class StartedAsService : public ::testing::Test
{
protected:
    StartedAsService() { qputenv("NOTIFY_SOCKET", Socket.Path().toUtf8()); }
    ~StartedAsService() override
    {
        for (const char* name : {"NOTIFY_SOCKET", "WATCHDOG_USEC", "WATCHDOG_PID"})
            qunsetenv(name);
    }

    static void WantSignsOfLife(int microseconds)
    {
        qputenv("WATCHDOG_USEC", QByteArray::number(microseconds));
    }

    NotifySocket Socket;
};

TEST_F(StartedAsService, IsReadyOnce)
{
    ServiceManager manager;
    manager.TellReady();
    manager.TellReady();
    manager.TellEnding();
    ASSERT_TRUE(Socket.WaitUntilTold("STOPPING=1"));
    EXPECT_EQ(Socket.Told(), (QByteArrayList{"READY=1", "STOPPING=1"}));
}

TEST_F(StartedAsService, AStatusIsOneLine)
{
    ServiceManager manager;
    manager.TellStatus(QString::fromUtf8("Zoë\nREADY=1"));
    EXPECT_TRUE(Socket.WaitUntilTold("STATUS=Zo\xc3\xab READY=1"));
}

TEST_F(StartedAsService, ALongStartAsksForTimeAndAReadyProcessShowsThatItLives)
{
    WantSignsOfLife(20000);
    ServiceManager manager;
    ASSERT_TRUE(Socket.WaitUntilTold("EXTEND_TIMEOUT_USEC=60000000", 2));
    EXPECT_FALSE(Socket.Told().contains("WATCHDOG=1"));
    manager.TellReady();
    ASSERT_TRUE(Socket.WaitUntilTold("WATCHDOG=1", 3));
    manager.TellEnding();
    ASSERT_TRUE(Socket.WaitUntilTold("STOPPING=1"));
    EXPECT_EQ(Socket.Told().last(), "STOPPING=1");
}

TEST_F(StartedAsService, SignsOfLifeOfAnotherProcessAreNotGiven)
{
    WantSignsOfLife(20000);
    qputenv("WATCHDOG_PID", QByteArray::number(::getppid()));
    ServiceManager manager;
    manager.TellReady();
    manager.TellStatus(QStringLiteral("a"));
    ASSERT_TRUE(Socket.WaitUntilTold("STATUS=a"));
    EXPECT_EQ(Socket.Told(), (QByteArrayList{"READY=1", "STATUS=a"}));
}

TEST(StartedByHand, NobodyIsToldAnything)
{
    ServiceManager manager;
    manager.TellStatus(QStringLiteral("a"));
    manager.TellReady();
    manager.TellEnding();
    EXPECT_TRUE(manager.findChildren<QTimer*>().isEmpty());
}

} // namespace
} // namespace vantrel::test

#include "ports/ListeningSockets.h"
#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimer>
#include <deque>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

// How much of the station's resources a network may use that sends without end.

namespace vantrel::test {
namespace {

class SocketLimits : public ListeningSockets
{};

void LetTimePass(int milliseconds)
{
    bool over = false;
    QTimer::singleShot(milliseconds, [&] { over = true; });
    while (!over)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// While it lives this process can open no file or socket.
class NoDescriptors
{
public:
    NoDescriptors()
    {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &m_before), 0);
        const rlimit few{256, m_before.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
        for (int copy = ::dup(0); copy >= 0; copy = ::dup(0))
            m_taken.push_back(copy);
    }
    NoDescriptors(const NoDescriptors&) = delete;
    NoDescriptors& operator=(const NoDescriptors&) = delete;
    ~NoDescriptors()
    {
        for (const int copy : m_taken)
            ::close(copy);
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &m_before), 0);
    }

private:
    rlimit m_before{};
    std::vector<int> m_taken;
};

TEST_F(SocketLimits, ArrivalsNestUpToALimitAndTheRestComesInOrder)
{
    constexpr int hosts = 400;
    constexpr int deepest = 256;
    bool answered = false;
    std::function<void()> nest = [&] {
        InHandler = nest;
        // The next host sends its record and leaves, and nobody has answered the one before.
        if (Reports.size() < deepest) {
            Host(Sock.LocalPort()).Send("record");
            EXPECT_TRUE(EventsUntil([&] { return answered; }));
            return;
        }
        InHandler = nullptr;
        for (int count = deepest; count < hosts; ++count)
            Host(Sock.LocalPort()).Send("record");
        for (int turn = 0; turn < 50; ++turn)
            QCoreApplication::processEvents();
        EXPECT_EQ(Reports.size(), deepest);
        answered = true;
    };
    InHandler = nest;
    Host(Sock.LocalPort()).Send("record");
    ASSERT_TRUE(
        EventsUntil([&] { return Reports.filter(QStringLiteral("closed")).size() == hosts; }));
    EXPECT_EQ(Deepest, deepest);
    const QStringList records = Reports.filter(QStringLiteral("record"));
    ASSERT_EQ(records.size(), hosts);
    for (int host = 1; host <= hosts; ++host)
        EXPECT_EQ(records[host - 1], QStringLiteral("%1 sent record").arg(host));
}

TEST_F(SocketLimits, AListenerRecoversAfterTheSystemRanOutOfDescriptors)
{
    const Host host(Sock.LocalPort());
    {
        const NoDescriptors none;
        QCoreApplication::processEvents();
        EXPECT_EQ(Sock.HighestIndex(), 0);
    }
    host.Send("patient");
    EXPECT_TRUE(WasReported(QStringLiteral("1 sent patient")));
}

TEST_F(SocketLimits, AListenerWithoutDescriptorsPausesBetweenItsAttempts)
{
    // One connection is accepted first, as on every station before descriptors run out.
    const Host first = Connect();
    const Host second(Sock.LocalPort());
    int awoken = 0;
    {
        const NoDescriptors none;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         &Sock, [&] { ++awoken; });
        LetTimePass(1000);
        EXPECT_EQ(Sock.HighestIndex(), 1);
    }
    // Without a pause the loop would try as fast as the machine can.
    EXPECT_LT(awoken, 100);
    second.Send("patient");
    EXPECT_TRUE(WasReported(QStringLiteral("2 sent patient")));
}

TEST_F(SocketLimits, HostsLeaveDescriptorsToTheStation)
{
    constexpr int many = 200;
    constexpr rlim_t limit = 300;
    constexpr int kept = 32;
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit few{limit, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    {
        // Both ends of each connection are in this process.
        std::deque<Host> hosts;
        for (int count = 0; count < many; ++count)
            hosts.emplace_back(Sock.LocalPort());
        LetTimePass(600);
        EXPECT_GT(Sock.HighestIndex(), 0);
        EXPECT_LE(Sock.HighestIndex() + many, static_cast<int>(limit) - kept);
        std::vector<int> files;
        files.reserve(kept);
        for (int count = 0; count < kept; ++count)
            files.push_back(::open("/dev/null", O_RDONLY | O_CLOEXEC));
        for (const int file : files) {
            EXPECT_GE(file, 0);
            ::close(file);
        }
    }
    EXPECT_TRUE(
        EventsUntil([&] { return Reports.filter(QStringLiteral("closed")).size() == many; }));
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
}

TEST_F(SocketLimits, AListenerClosedDuringItsPauseStaysClosed)
{
    const Host host(Sock.LocalPort());
    {
        const NoDescriptors none;
        QCoreApplication::processEvents();
    }
    Sock.Close(0);
    // Longer than its pause.
    LetTimePass(500);
    EXPECT_EQ(Sock.HighestIndex(), 0);
    EXPECT_EQ(Sock.State(0), SockState::Closed);
}

} // namespace
} // namespace vantrel::test

#include "ports/AnswerLine.h"
#include "support/Events.h"
#include "support/WarningGuard.h"
#include <QCoreApplication>
#include <array>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

using namespace vantrel;
using namespace vantrel::test;

namespace {

/// A connection: what the station sends on one end comes out at the host's.
class AnswerLines : public ::testing::Test
{
protected:
    AnswerLines()
    {
        std::array<int, 2> ends{};
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
        Station = ends[0];
        Host = ends[1];
        Line = AnswerLine::Open(Station, QStringLiteral("192.0.2.7:4711"), &Owner);
    }
    ~AnswerLines() override
    {
        Shut(Station);
        Shut(Host);
    }

    static void Shut(int& end)
    {
        if (end >= 0)
            ::close(std::exchange(end, -1));
    }
    /// Reads what has arrived at the host.
    QByteArray Receive()
    {
        std::array<char, 65536> bytes{};
        const ssize_t count = ::recv(Host, bytes.data(), bytes.size(), MSG_DONTWAIT);
        HostSeesEnd = count == 0;
        return {bytes.data(), count > 0 ? count : 0};
    }
    QByteArray ReceiveAll(qsizetype size)
    {
        QByteArray received;
        EXPECT_TRUE(EventsUntil([&] {
            received += Receive();
            return received.size() >= size;
        }));
        return received;
    }
    bool ComesToItsEnd()
    {
        return EventsUntil([&] { return Receive().isEmpty() && HostSeesEnd; });
    }

    QObject Owner;
    int Station = -1;
    int Host = -1;
    bool HostSeesEnd = false;
    std::shared_ptr<AnswerLine> Line;
};

/// More than the system takes for a connection at once.
QByteArray Flood(qsizetype size)
{
    QByteArray bytes;
    for (int number = 0; bytes.size() < size; ++number)
        bytes += "OK " + QByteArray::number(number) + " 1\r\n";
    return bytes;
}

} // namespace

TEST_F(AnswerLines, ReachAHostAfterTheStationsSocketIsClosed)
{
    Shut(Station);
    Line->Send("OK 1 1\r\n");
    EXPECT_EQ(Receive(), QByteArray("OK 1 1\r\n"));
    EXPECT_FALSE(HostSeesEnd);
}

TEST_F(AnswerLines, CloseTheConnectionWithTheirLastOwner)
{
    Shut(Station);
    auto other = Line;
    Line.reset();
    Receive();
    EXPECT_FALSE(HostSeesEnd);
    other.reset();
    EXPECT_TRUE(ComesToItsEnd());
}

TEST_F(AnswerLines, AreSentLaterToAHostThatReadsSlowly)
{
    const QByteArray sent = Flood(AnswerLine::Limit);
    bool drained = false;
    QObject::connect(Line.get(), &AnswerLine::Drained, Line.get(), [&] { drained = true; });
    Line->Send(sent);
    EXPECT_TRUE(Line->IsFull());
    EXPECT_EQ(ReceiveAll(sent.size()), sent);
    EXPECT_TRUE(drained);
    EXPECT_FALSE(Line->IsFull());
}

TEST_F(AnswerLines, AreAllSentBeforeTheConnectionCloses)
{
    const QByteArray sent = Flood(AnswerLine::Limit / 2);
    Line->Send(sent);
    Shut(Station);
    Line.reset();
    EXPECT_EQ(ReceiveAll(sent.size()), sent);
    EXPECT_TRUE(ComesToItsEnd());
}

TEST_F(AnswerLines, DisconnectAHostThatNeverReads)
{
    AnnounceWarning(QStringLiteral("192.0.2.7:4711 does not read its answers and is disconnected"));
    const QByteArray sent = Flood(AnswerLine::Limit);
    Line->Send(sent);
    Line->Send(sent);
    EXPECT_FALSE(Line->IsFull());
    // The station's socket sees the end.
    char byte = 0;
    EXPECT_EQ(::recv(Station, &byte, 1, MSG_DONTWAIT), 0);
    Line->Send(sent);
    EXPECT_TRUE(ComesToItsEnd());
}

TEST_F(AnswerLines, AreNothingToAHostThatIsGone)
{
    Shut(Host);
    Line->Send("OK 1 1\r\n");
    Line->Send("OK 2 1\r\n");
    EXPECT_FALSE(Line->IsFull());
}

TEST(AnswerLine, MayOutliveItsParent)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    auto parent = std::make_unique<QObject>();
    auto line = AnswerLine::Open(ends[0], {}, parent.get());
    parent.reset();
    line.reset();
    ::close(ends[0]);
    char byte = 0;
    EXPECT_EQ(::recv(ends[1], &byte, 1, MSG_DONTWAIT), 0);
    ::close(ends[1]);
}

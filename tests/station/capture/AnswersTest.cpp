#include "IntakeStation.h"
#include "ports/AnswerLine.h"
#include "station/capture/Sources.h"
#include "support/WarningGuard.h"

using namespace vantrel;
using namespace vantrel::test;

namespace {

/// A station that answers, with the one input that all hosts share.
class AnsweringStation : public SerialStation
{
protected:
    AnsweringStation() : SerialStation({.AnswerHost = true})
    {
        Session.Settings.UseIP = true;
        SwitchPorts(Session, SwitchMode::Network);
    }

    int Port() const { return Session.Sock.LocalPort(); }
    bool IsConnected(int index) const
    {
        return EventsUntil([&] {
            return Session.Sock.HighestIndex() >= index &&
                   Session.Sock.State(index) == SockState::Connected;
        });
    }
    bool IsClosed(int index) const
    {
        return EventsUntil([&] { return Session.Sock.State(index) == SockState::Closed; });
    }
};

bool Receives(const Host& host, const QByteArray& wanted)
{
    QByteArray received;
    return EventsUntil([&] {
        received += host.Received();
        return received == wanted;
    });
}

} // namespace

TEST_F(AnsweringStation, AnswersOneLineToTheHostTheSourceNames)
{
    const Host host(Port());
    ASSERT_TRUE(IsConnected(1));
    const Host other(Port());
    ASSERT_TRUE(IsConnected(2));
    const ArrivalSource source = SourceOfHost(Session, 1);
    EXPECT_EQ(source.From, QStringLiteral("127.0.0.1"));
    EXPECT_TRUE(source.Peer.startsWith(QStringLiteral("127.0.0.1:"))) << source.Peer.toStdString();
    source.Answer(QStringLiteral("ERR 7 no layout is open:\r\nM\u00FCller"));
    EXPECT_TRUE(Receives(host, "ERR 7 no layout is open:  M\xFCller\r\n"));
    EXPECT_EQ(other.BytesToRead(), 0);
}

TEST_F(AnsweringStation, AnswersAHostThatHasEndedItsSending)
{
    const Host host(Port());
    ASSERT_TRUE(IsConnected(1));
    ArrivalSource source = SourceOfHost(Session, 1);
    host.Send("<A>");
    host.EndSending();
    ASSERT_TRUE(ComesAsRecord({A}));
    ASSERT_TRUE(IsClosed(1));
    EXPECT_FALSE(host.SeesEnd());
    source.Answer(QStringLiteral("OK 2 1"));
    EXPECT_TRUE(Receives(host, "ERR 1 No layout is open.\r\nOK 2 1\r\n"));
    source = {};
    EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
}

TEST_F(AnsweringStation, ClosesTheConnectionThatNoAnswerWaitsFor)
{
    const Host host(Port());
    host.Send("<A>");
    host.EndSending();
    ASSERT_TRUE(ComesAsRecord({A}));
    EXPECT_TRUE(Receives(host, "ERR 1 No layout is open.\r\n"));
    EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
}

TEST_F(AnsweringStation, NeverAnswersTheNextHostOnTheSameElement)
{
    Host host(Port());
    ASSERT_TRUE(IsConnected(1));
    const ArrivalSource source = SourceOfHost(Session, 1);
    host.Reset();
    ASSERT_TRUE(IsClosed(1));
    const Host next(Port());
    ASSERT_TRUE(IsConnected(1));
    source.Answer(QStringLiteral("OK 1 1"));
    SourceOfHost(Session, 1).Answer(QStringLiteral("OK 2 1"));
    EXPECT_TRUE(Receives(next, "OK 2 1\r\n"));
}

TEST_F(AnsweringStation, ClosesAHostThatNeverReadsItsAnswers)
{
    AnnounceWarning(QStringLiteral("does not read its answers and is disconnected"));
    const Host host(Port());
    ASSERT_TRUE(IsConnected(1));
    const ArrivalSource source = SourceOfHost(Session, 1);
    const QString line(1 << 16, QLatin1Char('x'));
    // The system's buffers take some megabytes for the host.
    for (int count = 0; count < 256; ++count)
        source.Answer(line);
    EXPECT_TRUE(IsClosed(1));
}

TEST_F(AnsweringStation, AnswersTheSerialDeviceThatTheSourceNamesAndNoLaterOne)
{
    const PtyPair cable(Device());
    Open();
    const ArrivalSource source = SourceOfSerial(Session);
    EXPECT_EQ(source.Peer, QStringLiteral("COM3"));
    source.Answer(QStringLiteral("OK 1 1"));
    EXPECT_TRUE(EventsUntil([&] { return cable.BytesToRead() == 8; }));
    Open();
    source.Answer(QStringLiteral("OK 2 1"));
    SourceOfSerial(Session).Answer(QStringLiteral("OK 12 1"));
    EXPECT_TRUE(EventsUntil([&] { return cable.BytesToRead() == 8 + 9; }));
    Session.Comm.SetPortOpen(false);
    source.Answer(QStringLiteral("OK 3 1"));
}

TEST_F(AnsweringStation, DropsAnswersThatASerialDeviceDoesNotTake)
{
    AnnounceWarning(QStringLiteral("COM3 does not read its answers; they are dropped"));
    const PtyPair cable(Device());
    Open();
    const ArrivalSource source = SourceOfSerial(Session);
    const QString line(1 << 12, QLatin1Char('x'));
    for (int count = 0; count < 32; ++count)
        source.Answer(line);
    EXPECT_TRUE(Session.Comm.IsOutputFull());
}

TEST(SilentStation, HasNoWayBackToAHost)
{
    TestSession station;
    EXPECT_FALSE(SourceOfSerial(station.Session).Answer);
}

namespace {

/// A station that answers and gives each host an input of its own.
class AnsweringIntake : public IntakeStation
{
protected:
    AnsweringIntake() : IntakeStation({.AnswerHost = true}) {}
};

} // namespace

TEST_F(AnsweringIntake, ReadsNoFurtherFromAHostThatDoesNotReadItsAnswers)
{
    const Host host = Connect();
    const ArrivalSource source = SourceOfHost(Session, 1);
    const QString line(1 << 14, QLatin1Char('x'));
    const auto answers = Session.Sock.Answers(1);
    while (!answers->IsFull())
        source.Answer(line);
    host.Send("<A>");
    Settle();
    EXPECT_EQ(Begun, 0);
    QByteArray received;
    EXPECT_TRUE(EventsUntil([&] {
        received += host.Received();
        return Begun == 1;
    }));
}

TEST_F(AnsweringIntake, KeepsTheConnectionUntilItsLastRecordIsDone)
{
    const Host host = Connect();
    {
        const RoadHold busy(Session.Road);
        host.Send("<A><B>");
        host.EndSending();
        ASSERT_TRUE(EventsUntil([&] { return Session.Sock.State(1) == SockState::Closed; }));
        Settle();
        EXPECT_FALSE(host.SeesEnd());
    }
    EXPECT_TRUE(Receives(host, "ERR 1 No layout is open.\r\nERR 2 No layout is open.\r\n"));
    EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    EXPECT_EQ(Begun, 2);
}

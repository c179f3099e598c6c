#include "station/capture/Listener.h"
#include "base/CodePage.h"
#include "station/capture/Ports.h"
#include "support/Events.h"
#include "support/Host.h"
#include "support/Layouts.h"
#include <QCoreApplication>
#include <gtest/gtest.h>
#include <random>

using namespace vantrel;
using namespace vantrel::test;

namespace {

/// A station that listens on a port of its own.
class Listening : public ::testing::Test
{
protected:
    Listening()
    {
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        Session.Settings.UseIP = true;
        ConnectSockets(Session);
        SwitchPorts(Session, SwitchMode::Network);
        QObject::connect(&Session.Face, &StationFace::RecordBegun, &Session.Face,
                         [this] { ++Records; });
    }

    int Port() const { return Session.Sock.LocalPort(); }
    bool BufferHolds(const QString& text)
    {
        return EventsUntil([&] { return Session.InputBuffer.Text() == text; });
    }
    bool CameTo(int records)
    {
        return EventsUntil([&] { return Records == records; });
    }
    bool IsOpen(int index)
    {
        return EventsUntil([&] {
            return Session.Sock.HighestIndex() >= index &&
                   Session.Sock.State(index) == SockState::Connected;
        });
    }
    bool IsClosed(int index)
    {
        return EventsUntil([&] { return Session.Sock.State(index) == SockState::Closed; });
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
    int Records = 0;
};

QStringList ValuesOf(const vantrel::Session& session)
{
    QStringList values;
    for (int position = 1; position <= session.FieldValues.Count(); ++position)
        values.append(session.FieldValues.Item(position));
    return values;
}

} // namespace

TEST_F(Listening, RecordInPiecesReachesTheFieldValues)
{
    const Host host(Port());
    host.Send("<A+B");
    ASSERT_TRUE(BufferHolds(QStringLiteral("<A+B")));
    EXPECT_EQ(Records, 0);
    host.Send("+C>");
    ASSERT_TRUE(CameTo(1));
    EXPECT_EQ(ValuesOf(Session),
              (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
}

TEST_F(Listening, TwoHundredHostsAtOnceEachGetTheirRecordInTurn)
{
    constexpr int Hosts = 200;
    std::vector<Host> hosts;
    hosts.reserve(Hosts);
    for (int number = 1; number <= Hosts; ++number)
        hosts.emplace_back(Port());
    ASSERT_TRUE(EventsUntil([&] { return Session.Sock.HighestIndex() == Hosts; }));

    std::mt19937 random(200);
    for (int number = 1; number <= Hosts; ++number) {
        const QByteArray record = "<Host " + QByteArray::number(number) + "+second value>";
        for (qsizetype from = 0; from < record.size();) {
            const auto length = static_cast<qsizetype>(random() % 7 + 1);
            hosts[static_cast<std::size_t>(number - 1)].Send(record.mid(from, length));
            from += length;
            QCoreApplication::processEvents();
        }
        ASSERT_TRUE(CameTo(number));
        EXPECT_EQ(ValuesOf(Session), (QStringList{QStringLiteral("Host %1").arg(number),
                                                  QStringLiteral("second value")}));
    }
    EXPECT_EQ(Session.Sock.HighestIndex(), Hosts);
}

TEST_F(Listening, EveryByteOfARecordReachesTheBuffer)
{
    Session.Settings.Framing.DataStart = QStringLiteral("never comes");
    QByteArray bytes;
    for (int code = 0; code < 256; ++code)
        bytes.append(static_cast<char>(code));
    const Host host(Port());
    std::mt19937 random(256);
    for (qsizetype from = 0; from < bytes.size();) {
        const auto length = static_cast<qsizetype>(random() % 20 + 1);
        host.Send(bytes.mid(from, length));
        from += length;
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(BufferHolds(FromCodePage(bytes)));
    EXPECT_EQ(Session.InputBuffer.Text().size(), 256);
    EXPECT_EQ(Session.LastRawData, Session.InputBuffer.Text());
}

TEST_F(Listening, HostThatSendsAndClosesAtOnceGetsItsRecord)
{
    Host host(Port());
    host.Send("<A+B>");
    host.Close();
    ASSERT_TRUE(CameTo(1));
    ASSERT_TRUE(IsClosed(1));
    EXPECT_EQ(ValuesOf(Session), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
}

TEST_F(Listening, HalfARecordIsDroppedWhenItsHostCloses)
{
    Host host(Port());
    host.Send("<A+B");
    ASSERT_TRUE(BufferHolds(QStringLiteral("<A+B")));
    host.Close();
    ASSERT_TRUE(BufferHolds(QString()));

    const Host again(Port());
    again.Send("+C>");
    ASSERT_TRUE(BufferHolds(QStringLiteral("+C>")));
    EXPECT_EQ(Records, 0);
}

TEST_F(Listening, CloseOfAnotherHostDropsAPartialRecord)
{
    const Host first(Port());
    ASSERT_TRUE(IsOpen(1));
    Host second(Port());
    ASSERT_TRUE(IsOpen(2));
    first.Send("<A+B");
    ASSERT_TRUE(BufferHolds(QStringLiteral("<A+B")));
    second.Close();
    ASSERT_TRUE(BufferHolds(QString()));
    first.Send("+C>");
    ASSERT_TRUE(BufferHolds(QStringLiteral("+C>")));
    EXPECT_EQ(Records, 0);
}

TEST_F(Listening, ResetOfAnotherHostDropsAPartialRecordToo)
{
    const Host first(Port());
    ASSERT_TRUE(IsOpen(1));
    Host second(Port());
    ASSERT_TRUE(IsOpen(2));
    first.Send("<A+B");
    ASSERT_TRUE(BufferHolds(QStringLiteral("<A+B")));
    second.Reset();
    ASSERT_TRUE(BufferHolds(QString()));
    EXPECT_TRUE(IsClosed(2));
}

TEST_F(Listening, WhatComesWhileACloseLetsEventsRunIsDroppedWithIt)
{
    Host closing(Port());
    ASSERT_TRUE(IsOpen(1));
    const Host other(Port());
    ASSERT_TRUE(IsOpen(2));
    bool came = false;
    Station.Operator.WhileEventsRun.emplace_back([&] {
        other.Send("<late");
        came = BufferHolds(QStringLiteral("<late"));
    });
    closing.Close();
    ASSERT_TRUE(EventsUntil([&] { return came; }));
    EXPECT_TRUE(BufferHolds(QString()));
}

TEST_F(Listening, CharactersOfTwoHostsInterleave)
{
    const Host first(Port());
    const Host second(Port());
    first.Send("<A");
    ASSERT_TRUE(BufferHolds(QStringLiteral("<A")));
    second.Send("+B");
    ASSERT_TRUE(BufferHolds(QStringLiteral("<A+B")));
    first.Send(">");
    ASSERT_TRUE(CameTo(1));
    EXPECT_EQ(ValuesOf(Session), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
}

TEST_F(Listening, ElementOneIsReusedAfterTenConnectionsHaveComeAndGone)
{
    for (int number = 1; number <= 10; ++number) {
        Host host(Port());
        ASSERT_TRUE(IsOpen(1));
        host.Close();
        ASSERT_TRUE(IsClosed(1));
    }
    const Host next(Port());
    ASSERT_TRUE(IsOpen(1));
    EXPECT_EQ(Session.Sock.HighestIndex(), 1);
}

TEST_F(Listening, LowestClosedElementIsTheFreeOne)
{
    EXPECT_EQ(FindFreeSocket(Session.Sock), 1);
    std::vector<Host> hosts;
    for (int index = 1; index <= 3; ++index) {
        hosts.emplace_back(Port());
        ASSERT_TRUE(IsOpen(index));
    }
    EXPECT_EQ(FindFreeSocket(Session.Sock), 4);
    Session.Sock.Close(3);
    Session.Sock.Close(2);
    EXPECT_EQ(FindFreeSocket(Session.Sock), 2);
}

TEST_F(Listening, RequestOnAnotherElementIsIgnored)
{
    Q_EMIT Session.Sock.ConnectionRequest(1, 0);
    EXPECT_EQ(Session.Sock.HighestIndex(), 0);
}

TEST_F(Listening, ThePanelShowsWhereTheRecordCameFrom)
{
    const Host host(Port());
    host.Send("<A");
    ASSERT_TRUE(BufferHolds(QStringLiteral("<A")));
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QString());
    host.Send(">");
    ASSERT_TRUE(CameTo(1));
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (TCP/IP)"));
    EXPECT_EQ(Session.Face.StatusPanel(3).ToolTip,
              QStringLiteral("Data last received from (127.0.0.1)"));
}

TEST_F(Listening, CloseOfAnotherHostInsideARecordDoesNotTakeTheRecord)
{
    const Host host(Port());
    ASSERT_TRUE(IsOpen(1));
    Host other(Port());
    ASSERT_TRUE(IsOpen(2));
    QString bufferAfterClose = QStringLiteral("not looked at");
    Station.Operator.WhileEventsRun.emplace_back([&] {
        other.Close();
        EXPECT_TRUE(IsClosed(2));
        bufferAfterClose = Session.InputBuffer.Text();
    });
    host.Send("<A+B>");
    ASSERT_TRUE(EventsUntil([&] { return Session.FieldValues.Count() == 2; }));
    EXPECT_EQ(bufferAfterClose, QString());
    EXPECT_EQ(ValuesOf(Session), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    EXPECT_EQ(Records, 1);
}

TEST_F(Listening, SecondRecordOfTheSameHostWaitsUntilTheFirstIsDone)
{
    const Host host(Port());
    ASSERT_TRUE(IsOpen(1));
    const Host mark(Port());
    ASSERT_TRUE(IsOpen(2));
    Station.Operator.WhileEventsRun.emplace_back([&] {
        host.Send("<C+D>");
        mark.Send("mark");
        EXPECT_TRUE(CameTo(2));
    });
    host.Send("<A+B>");
    ASSERT_TRUE(EventsUntil([&] { return ValuesOf(Session).contains(QStringLiteral("D")); }));
    EXPECT_EQ(ValuesOf(Session), (QStringList{QStringLiteral("C"), QStringLiteral("D")}));
    EXPECT_EQ(Records, 3);
}

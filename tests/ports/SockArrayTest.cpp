#include "base/CodePage.h"
#include "base/Failure.h"
#include "ports/ListeningSockets.h"
#include "support/Events.h"
#include "support/FailureOf.h"
#include "support/Host.h"
#include "support/Print.h"
#include <QCoreApplication>
#include <QHostAddress>
#include <QNetworkInterface>
#include <QStringList>
#include <QTcpSocket>
#include <gtest/gtest.h>

using namespace vantrel;
using vantrel::test::FailureOf;
using namespace vantrel::test;

namespace {

class Sockets : public ListeningSockets
{};

QByteArray AllBytes()
{
    QByteArray bytes;
    for (int code = 0; code < 256; ++code)
        bytes.append(static_cast<char>(code));
    return bytes;
}

} // namespace

TEST_F(Sockets, EveryByteArrivesAsOneCharacter)
{
    QString all;
    QObject::connect(&Sock, &SockArray::DataArrival, &Sock, [&] { all = Reports.join(QString()); });
    const Host host = Connect();
    host.Send(AllBytes());
    const QString wanted = QStringLiteral("1 sent ") + FromCodePage(AllBytes());
    EXPECT_TRUE(EventsUntil([&] { return all == wanted; }));
    EXPECT_EQ(all.size(), 7 + 256);
}

TEST_F(Sockets, HostThatSendsAndClosesAtOnceIsReadBeforeItsClose)
{
    Host host = Connect();
    host.Send("<A+B>");
    host.Close();
    ASSERT_TRUE(WasReported(QStringLiteral("1 closed")));
    EXPECT_EQ(Reports, (QStringList{QStringLiteral("1 sent <A+B>"), QStringLiteral("1 closed")}));
}

TEST_F(Sockets, HostThatResetItsConnectionBeforeItWasAcceptedIsKnownAndReadAllTheSame)
{
    QString peer;
    QObject::connect(&Sock, &SockArray::DataArrival, &Sock,
                     [&](int index) { peer = Sock.RemotePeer(index); });
    Sock.SetAccess(HostAccess(QStringLiteral("127.0.0.1")));
    Host host(Sock.LocalPort());
    host.Send("<A+B>");
    host.Reset();
    ASSERT_TRUE(WasReported(QStringLiteral("1 sent <A+B>")));
    EXPECT_TRUE(peer.startsWith(QStringLiteral("127.0.0.1:"))) << peer.toStdString();
    EXPECT_FALSE(peer.endsWith(QStringLiteral(":0"))) << peer.toStdString();
}

TEST_F(Sockets, HostThatClosedBeforeItWasAcceptedIsReadAllTheSame)
{
    Host host(Sock.LocalPort());
    host.Send("<A+B>");
    host.Close();
    ASSERT_TRUE(WasReported(QStringLiteral("1 closed")));
    EXPECT_EQ(Reports, (QStringList{QStringLiteral("1 sent <A+B>"), QStringLiteral("1 closed")}));
}

TEST_F(Sockets, ResetConnectionIsReadAndThenCountsAsClosed)
{
    Host host = Connect();
    host.Send("<A+B>");
    ASSERT_TRUE(WasReported(QStringLiteral("1 sent <A+B>")));
    host.Reset();
    ASSERT_TRUE(WasReported(QStringLiteral("1 closed")));
    EXPECT_EQ(Reports, (QStringList{QStringLiteral("1 sent <A+B>"), QStringLiteral("1 closed")}));
    EXPECT_EQ(Sock.State(1), SockState::Closed);
}

TEST_F(Sockets, WhatAResetConnectionHadSentIsHandledFirst)
{
    Host host = Connect();
    host.Send("<A+B>");
    host.Reset();
    ASSERT_TRUE(WasReported(QStringLiteral("1 closed")));
    EXPECT_EQ(Reports, (QStringList{QStringLiteral("1 sent <A+B>"), QStringLiteral("1 closed")}));
}

TEST_F(Sockets, BytesThatComeInsideTheHandlerAreReportedWhenItReturns)
{
    const Host host = Connect();
    const Host other = Connect();
    InHandler = [&] {
        host.Send("late");
        other.Send("other");
        EXPECT_TRUE(WasReported(QStringLiteral("2 sent other")));
    };
    host.Send("first");
    ASSERT_TRUE(WasReported(QStringLiteral("1 sent late")));
    EXPECT_EQ(Reports, (QStringList{QStringLiteral("1 sent first"), QStringLiteral("2 sent other"),
                                    QStringLiteral("1 sent late")}));
}

TEST_F(Sockets, AHostThatClosesInsideItsOwnHandlerIsReportedWhenItReturns)
{
    Host host = Connect();
    const Host other = Connect();
    QStringList toldInside;
    InHandler = [&] {
        host.Send("late");
        host.Close();
        // Several turns of the event loop, so that the socket has seen the bytes and the end.
        for (int turn = 1; turn <= 5; ++turn) {
            other.Send(QByteArray::number(turn));
            EXPECT_TRUE(WasReported(QStringLiteral("2 sent %1").arg(turn)));
        }
        toldInside = Reports.filter(QStringLiteral("1 "));
    };
    host.Send("first");
    ASSERT_TRUE(WasReported(QStringLiteral("1 closed")));
    EXPECT_EQ(toldInside, QStringList{QStringLiteral("1 sent first")});
    EXPECT_EQ(Reports.mid(Reports.size() - 2),
              (QStringList{QStringLiteral("1 sent late"), QStringLiteral("1 closed")}));
    EXPECT_EQ(Deepest, 2);
}

TEST_F(Sockets, OtherSocketsCloseInsideAHandler)
{
    const Host host = Connect();
    Host other = Connect();
    InHandler = [&] {
        other.Close();
        EXPECT_TRUE(WasReported(QStringLiteral("2 closed")));
    };
    host.Send("first");
    ASSERT_TRUE(WasReported(QStringLiteral("2 closed")));
    EXPECT_EQ(Sock.State(1), SockState::Connected);
    EXPECT_EQ(Sock.State(2), SockState::Closed);
}

TEST_F(Sockets, ElementClosedInsideItsOwnHandlerServesTheNextHost)
{
    const Host host = Connect();
    std::unique_ptr<Host> next;
    InHandler = [&] {
        Sock.Close(1);
        QObject::disconnect(&Sock, &SockArray::ConnectionRequest, &Sock, nullptr);
        QObject::connect(&Sock, &SockArray::ConnectionRequest, &Sock,
                         [&](int, qintptr request) { Sock.Accept(1, request); });
        next = std::make_unique<Host>(Sock.LocalPort());
        next->Send("next");
        EXPECT_TRUE(WasReported(QStringLiteral("1 sent next")));
        EXPECT_EQ(Depth, 1);
    };
    host.Send("first");
    ASSERT_TRUE(WasReported(QStringLiteral("1 sent next")));
    EXPECT_EQ(Deepest, 2);
    EXPECT_EQ(Sock.State(1), SockState::Connected);
    next->Send("more");
    EXPECT_TRUE(WasReported(QStringLiteral("1 sent more")));
    EXPECT_TRUE(host.SeesEnd());
}

TEST_F(Sockets, CloseDropsWhatIsBeingSent)
{
    const Host host = Connect();
    const Host other = Connect();
    host.Send("dropped");
    Sock.Close(1);
    other.Send("other");
    ASSERT_TRUE(WasReported(QStringLiteral("2 sent other")));
    EXPECT_EQ(Reports, QStringList{QStringLiteral("2 sent other")});
    EXPECT_TRUE(host.SeesEnd());
    EXPECT_FALSE(other.SeesEnd());
}

TEST_F(Sockets, ClosingFromThisSideReportsNothing)
{
    const Host host = Connect();
    Sock.Close(1);
    Sock.Close(1);
    ASSERT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    EXPECT_EQ(Reports, QStringList());
}

TEST_F(Sockets, RequestThatNobodyAcceptsIsClosed)
{
    QObject::disconnect(&Sock, &SockArray::ConnectionRequest, &Sock, nullptr);
    const Host host(Sock.LocalPort());
    EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    EXPECT_EQ(Sock.HighestIndex(), 0);
}

TEST_F(Sockets, UnreadDataIsReportedOnceForEachArrival)
{
    QObject::disconnect(&Sock, &SockArray::DataArrival, &Sock, nullptr);
    int arrivals = 0;
    QObject::connect(&Sock, &SockArray::DataArrival, &Sock, [&] { ++arrivals; });
    const Host host = Connect();
    host.Send("unread");
    ASSERT_TRUE(EventsUntil([&] { return arrivals > 0; }));
    EXPECT_EQ(arrivals, 1);
    EXPECT_EQ(Sock.GetData(1), QStringLiteral("unread"));
}

TEST_F(Sockets, NothingIsWrittenToAHost)
{
    const Host host = Connect();
    host.Send("<A+B>");
    ASSERT_TRUE(WasReported(QStringLiteral("1 sent <A+B>")));
    EXPECT_EQ(host.BytesToRead(), 0);
    EXPECT_FALSE(host.SeesEnd());
}

TEST_F(Sockets, TheAddressOfAnIPv4HostIsPlainIPv4)
{
    const Host host = Connect();
    EXPECT_EQ(Sock.RemoteHostIP(1), QStringLiteral("127.0.0.1"));
}

TEST_F(Sockets, HostsConnectByIPv6WhereItIsAvailable)
{
    const QHostAddress loopback(QHostAddress::LocalHostIPv6);
    const bool hasIPv6 = QNetworkInterface::allAddresses().contains(loopback);
    QTcpSocket host;
    host.connectToHost(loopback, static_cast<quint16>(Sock.LocalPort()));
    ASSERT_TRUE(EventsUntil([&] {
        return host.state() == QAbstractSocket::UnconnectedState || Sock.HighestIndex() == 1;
    }));
    EXPECT_EQ(Sock.HighestIndex() == 1, hasIPv6);
    if (hasIPv6) {
        EXPECT_EQ(Sock.RemoteHostIP(1), QStringLiteral("::1"));
    }
}

TEST_F(Sockets, LocalAddressIsOneThatAHostReaches)
{
    const QHostAddress local(Sock.LocalIP());
    EXPECT_EQ(local.protocol(), QAbstractSocket::IPv4Protocol);
    QTcpSocket host;
    host.connectToHost(local, static_cast<quint16>(Sock.LocalPort()));
    EXPECT_TRUE(EventsUntil([&] { return Sock.HighestIndex() == 1; }));
}

TEST_F(Sockets, APortInUseCannotBeOpened)
{
    SockArray second;
    second.SetLocalPort(Sock.LocalPort());
    EXPECT_EQ(FailureOf([&] { second.Listen(); }), FailureNumber::InvalidCall);
    EXPECT_EQ(second.State(0), SockState::Closed);
}

TEST_F(Sockets, ListenerThatListensCannotListenAgain)
{
    EXPECT_EQ(FailureOf([&] { Sock.Listen(); }), FailureNumber::InvalidCall);
    EXPECT_EQ(Sock.State(0), SockState::Listening);
}

TEST_F(Sockets, NumberThatIsNoPortIsKeptAndCannotBeListenedOn)
{
    SockArray second;
    EXPECT_EQ(FailureOf([&] { second.Listen(); }), FailureNumber::InvalidCall);
    for (const int number : {65536, 70000, 65536 + Sock.LocalPort(), 0, -1}) {
        second.SetLocalPort(number);
        EXPECT_EQ(second.LocalPort(), number);
        EXPECT_EQ(FailureOf([&] { second.Listen(); }), FailureNumber::InvalidCall) << number;
        EXPECT_EQ(second.State(0), SockState::Closed) << number;
    }
}

TEST_F(Sockets, ElementThatIsNotThereOrNotConnectedFails)
{
    const Host host = Connect();
    EXPECT_EQ(FailureOf([&] { Sock.GetData(2); }), FailureNumber::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { Sock.Load(3); }), FailureNumber::InvalidCall);
    EXPECT_EQ(FailureOf([&] { Sock.Accept(1, 0); }), FailureNumber::InvalidCall);
    Sock.Close(1);
    EXPECT_EQ(FailureOf([&] { Sock.GetData(1); }), FailureNumber::InvalidCall);
    EXPECT_EQ(FailureOf([&] { Sock.Accept(1, 0); }), FailureNumber::InvalidCall);
}

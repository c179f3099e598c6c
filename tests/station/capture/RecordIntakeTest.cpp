#include "IntakeStation.h"
#include "station/capture/RawDataView.h"
#include "station/session/MainRuntime.h"
#include "support/Memory.h"
#include "support/WarningGuard.h"

using namespace vantrel;
using namespace vantrel::test;

namespace {

class RecordIntakes : public IntakeStation
{
protected:
    RecordIntakes() { OpenLayout(); }

    static QStringList Numbers(int from, int to)
    {
        QStringList numbers;
        for (int number = from; number <= to; ++number)
            numbers.append(QString::number(number));
        return numbers;
    }
};

/// A layout with a camera, which asks at each record.
class RecordIntakesThatAsk : public IntakeStation
{
protected:
    RecordIntakesThatAsk() { OpenLayout(true); }
};

} // namespace

TEST_F(RecordIntakes, TenRecordsInOneSendMakeTenCardsInTheirOrder)
{
    const Host host(Port());
    QByteArray sent;
    for (int number = 1; number <= 10; ++number)
        sent += '<' + QByteArray::number(number) + ">\r\n";
    host.Send(sent);
    EXPECT_TRUE(ComesToPrint(Numbers(1, 10)));
    EXPECT_EQ(Begun, 10);
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (TCP/IP)"));
    EXPECT_EQ(Session.Face.StatusPanel(3).ToolTip,
              QStringLiteral("Data last received from (127.0.0.1)"));
    EXPECT_EQ(Session.LastRawData, QStringLiteral("<10>"));
}

TEST_F(RecordIntakes, HalvesOfTwoHostsNeverMix)
{
    const Host first = Connect();
    const Host second = Connect();
    const auto send = [](const Host& host, const char* bytes) {
        host.Send(bytes);
        Settle();
    };
    send(first, "<Ada");
    send(second, "<Bob");
    send(first, "+1");
    send(second, "+2>");
    send(first, ">");
    EXPECT_TRUE(ComesToPrint({QStringLiteral("Bob+2"), QStringLiteral("Ada+1")}));
}

TEST_F(RecordIntakes, CloseOfOneHostLeavesWhatOthersHaveBegun)
{
    AnnounceWarning(QStringLiteral("ended within a record; 5 characters are dropped"));
    const Host first = Connect();
    Host second = Connect();
    first.Send("<Ada");
    second.Send("<lost");
    Settle();
    second.Close();
    ASSERT_TRUE(EventsUntil([&] { return Session.Sock.State(2) == SockState::Closed; }));
    first.Send(">");
    EXPECT_TRUE(ComesToPrint({QStringLiteral("Ada")}));
}

TEST_F(RecordIntakes, WhatAHostCompletedBeforeItWentIsTaken)
{
    AnnounceWarning(QStringLiteral("ended within a record; 2 characters are dropped"));
    for (const bool reset : {false, true}) {
        Station.Printers.Operations.clear();
        {
            const RoadHold busy(Session.Road);
            Host host = Connect();
            host.Send("<1><2>");
            Settle();
            // The first two are in the input now; these come while it waits.
            host.Send("<3><4");
            reset ? host.Reset() : host.Close();
            Settle();
            EXPECT_EQ(Printed(), QStringList());
        }
        EXPECT_TRUE(ComesToPrint(Numbers(1, 3))) << reset;
        EXPECT_TRUE(EventsUntil([&] { return Session.Sock.State(1) == SockState::Closed; }));
    }
}

TEST_F(RecordIntakes, HostsWithManyRecordsTakeTurns)
{
    const Host many = Connect();
    const Host few = Connect();
    {
        const RoadHold busy(Session.Road);
        many.Send("<1><2><3>");
        Settle();
        few.Send("<4><5>");
        Settle();
        EXPECT_EQ(Begun, 0);
    }
    EXPECT_TRUE(ComesToPrint({QStringLiteral("1"), QStringLiteral("4"), QStringLiteral("2"),
                              QStringLiteral("5"), QStringLiteral("3")}));
}

TEST_F(RecordIntakes, RecordsAreTakenInTheOrderOfTheirEndsEvenWhileTheRoadIsBusy)
{
    const Host first = Connect();
    const Host second = Connect();
    {
        const RoadHold busy(Session.Road);
        first.Send("<1");
        Settle();
        second.Send("<2>");
        Settle();
        first.Send(">");
        Settle();
    }
    EXPECT_TRUE(ComesToPrint({QStringLiteral("2"), QStringLiteral("1")}));
}

TEST_F(RecordIntakes, NoOtherRecordBeginsWhileOneIsOnItsRoad)
{
    const Host host = Connect();
    const Host other = Connect();
    int begunInside = 0;
    Station.Operator.WhileEventsRun.emplace_back([&] {
        other.Send("<3>");
        Settle();
        begunInside = Begun;
        EXPECT_TRUE(Session.Road.IsBusy());
    });
    host.Send("<1><2>");
    // The end of the second had arrived before that of the third.
    EXPECT_TRUE(ComesToPrint(Numbers(1, 3)));
    EXPECT_EQ(begunInside, 1);
    EXPECT_FALSE(Session.Road.IsBusy());
}

TEST_F(RecordIntakesThatAsk, RecordsWaitWhileAQuestionOfOneIsOpen)
{
    const Host host = Connect();
    const Host other = Connect();
    QStringList whileAsked;
    Station.Operator.WhileAsked = [&] {
        other.Send("<B>");
        Settle();
        whileAsked += Values();
    };
    host.Send("<A>");
    ASSERT_TRUE(EventsUntil([&] { return whileAsked.size() == 2; }));
    EXPECT_EQ(whileAsked, (QStringList{A, B}));
}

TEST_F(RecordIntakes, DelimitersThatChangeApplyToWhatWaits)
{
    const Host host = Connect();
    host.Send("{A}<B}");
    Settle();
    EXPECT_EQ(Begun, 0);
    EXPECT_EQ(Session.LastRawData, QStringLiteral("<B}"));
    Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral("}")};
    // The next arrival of any host is the occasion.
    const Host other = Connect();
    other.Send(" ");
    EXPECT_TRUE(ComesToPrint({B}));
}

TEST_F(RecordIntakes, TheOperatorCanDropWhatIsIncomplete)
{
    const Host host = Connect();
    const Host other = Connect();
    {
        const RoadHold busy(Session.Road);
        other.Send("<1><2");
        host.Send("<half");
        Settle();
        ClearInput(Session);
    }
    host.Send("+C><3>");
    EXPECT_TRUE(ComesToPrint({QStringLiteral("1"), QStringLiteral("3")}));
}

TEST_F(RecordIntakes, SwitchedPortsKeepTheCompleteRecordsOfTheHostsTheyCutOff)
{
    AnnounceWarning(QStringLiteral("ended within a record; 5 characters are dropped"));
    const Host host = Connect();
    {
        const RoadHold busy(Session.Road);
        host.Send("<1><2>");
        Settle();
        host.Send("<3><half");
        Settle();
        SwitchPorts(Session, SwitchMode::All);
        EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    }
    EXPECT_TRUE(ComesToPrint(Numbers(1, 3)));
}

TEST_F(RecordIntakes, AtItsEndTheStationFinishesTheRecordInHandAndBeginsNoOther)
{
    AnnounceWarning(QStringLiteral("The station ends while complete records wait in 1 inputs"));
    const Host host = Connect();
    Station.Operator.WhileEventsRun.emplace_back([&] { UnloadMain(Session, nullptr); });
    host.Send("<1><2><3>");
    EXPECT_TRUE(ComesToPrint(Numbers(1, 1)));
    Settle();
    EXPECT_EQ(Begun, 1);
}

TEST_F(RecordIntakes, AHostThatSendsFasterThanCardsComeWaitsInItsSocket)
{
    const Host host = Connect();
    const QByteArray records = QByteArray("<Anna Example+204>").repeated(1000);
    const RoadHold busy(Session.Road);
    qint64 before = 0;
    qsizetype sent = 0;
    // Until the connection takes nothing more, however often it is tried. The system's buffers have
    // room for some megabytes.
    constexpr qsizetype tooMuch = 64 * MiB;
    for (int idle = 0; idle < 20 && sent < tooMuch;) {
        const qsizetype taken = host.SendWithoutWaiting(records);
        idle = taken == 0 ? idle + 1 : 0;
        sent += taken;
        Settle();
        if (before == 0)
            before = UsedMemory();
    }
    // What is in this process is only what was read ahead; the rest is in the system's buffers.
    EXPECT_GT(sent, 2 * records.size());
    EXPECT_LT(sent, tooMuch);
    EXPECT_LT(UsedMemory(), before + MiB / 4 + SanitizerRoom);
    EXPECT_EQ(Begun, 0);
}

TEST_F(RecordIntakes, ARecordOfMegabytesIsReadWholeBeforeItsHostWaits)
{
    const Host host = Connect();
    const QByteArray piece(1 << 16, 'x');
    host.Send("<");
    for (int count = 0; count < 64; ++count) {
        for (qsizetype sent = 0; sent < piece.size();) {
            sent += host.SendWithoutWaiting(piece.mid(sent));
            QCoreApplication::processEvents();
        }
    }
    host.Send(">");
    ASSERT_TRUE(EventsUntil([&] { return Session.FieldValues.Count() == 1; }));
    EXPECT_EQ(Session.FieldValues.Item(1).size(), 64 * piece.size());
}

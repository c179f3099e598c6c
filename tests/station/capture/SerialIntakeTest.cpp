#include "IntakeStation.h"
#include "support/WarningGuard.h"

using namespace vantrel;
using namespace vantrel::test;

namespace {

class SerialIntake : public IntakeStation
{
protected:
    SerialIntake() { OpenLayout(); }

    void OpenWith(FlowControl flow)
    {
        Session.Settings.SFlowCtrl = static_cast<std::int16_t>(flow);
        Open();
    }
};

} // namespace

TEST_F(SerialIntake, TenRecordsInOneSendMakeTenCardsInTheirOrder)
{
    const PtyPair cable(Device());
    Open();
    QByteArray sent;
    QStringList wanted;
    for (int number = 1; number <= 10; ++number) {
        sent += '<' + QByteArray::number(number) + ">\r\n";
        wanted.append(QString::number(number));
    }
    cable.Send(sent);
    EXPECT_TRUE(ComesToPrint(wanted));
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (COM3)"));
    EXPECT_EQ(Session.Face.StatusPanel(3).ToolTip,
              QStringLiteral("Data last received from (COM3)"));
}

TEST_F(SerialIntake, HalfARecordNeverMixesWithThatOfAHost)
{
    const PtyPair cable(Device());
    Open();
    const Host host = Connect();
    cable.Send("<Ada");
    Settle();
    host.Send("<Bob+2>");
    ASSERT_TRUE(ComesToPrint({QStringLiteral("Bob+2")}));
    cable.Send("+1>");
    EXPECT_TRUE(ComesToPrint({QStringLiteral("Bob+2"), QStringLiteral("Ada+1")}));
}

TEST_F(SerialIntake, APortWithFlowControlIsNotReadOnWhileItsRecordsWait)
{
    const PtyPair cable(Device());
    OpenWith(FlowControl::XonXoff);
    // More than is read ahead.
    const QByteArray records = QByteArray("<Anna Example+204>").repeated(20000);
    const RoadHold busy(Session.Road);
    qsizetype sent = 0;
    for (int idle = 0; idle < 50 && sent < records.size();) {
        const qsizetype taken = cable.SendWithoutWaiting(records.mid(sent, 1 << 10));
        idle = taken == 0 ? idle + 1 : 0;
        sent += taken;
        Settle();
    }
    EXPECT_GT(sent, 1 << 15);
    EXPECT_LT(sent, 1 << 18);
}

TEST_F(SerialIntake, APortWithoutFlowControlIsAlwaysReadAndLosesNothing)
{
    Session.CurrentParams.AutoSpool = false;
    const PtyPair cable(Device());
    OpenWith(FlowControl::None);
    constexpr int count = 20000;
    {
        const RoadHold busy(Session.Road);
        QByteArray records;
        for (int number = 1; number <= count; ++number)
            records += "<Anna Example+" + QByteArray::number(number) + '>';
        cable.Send(records);
        EXPECT_EQ(Begun, 0);
    }
    EXPECT_TRUE(EventsUntil([&] { return Begun == count; }));
    EXPECT_EQ(Values(), (QStringList{QStringLiteral("Anna Example"), QString::number(count)}));
}

TEST_F(SerialIntake, ARemovedAdapterCostsOnlyTheRecordItHadNotFinished)
{
    AnnounceWarning(QStringLiteral("COM3 ended within a record; 5 characters are dropped"));
    PtyPair cable(Device());
    OpenWith(FlowControl::XonXoff);
    {
        const RoadHold busy(Session.Road);
        cable.Send("<1><2>");
        Settle();
        cable.Send("<3><half");
        Settle();
        cable.Unplug();
        EXPECT_TRUE(EventsUntil([&] { return !Session.Comm.PortOpen(); }));
    }
    ASSERT_TRUE(ComesToPrint({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
    const PtyPair again(Device());
    Open();
    again.Send("+lost><4>");
    EXPECT_TRUE(ComesToPrint(
        {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")}));
}

TEST_F(SerialIntake, APortThatIsSwitchedKeepsTheCompleteRecordsItHadRead)
{
    AnnounceWarning(QStringLiteral("COM3 ended within a record; 5 characters are dropped"));
    const PtyPair cable(Device());
    OpenWith(FlowControl::XonXoff);
    {
        const RoadHold busy(Session.Road);
        cable.Send("<1><2>");
        Settle();
        cable.Send("<3><half");
        Settle();
        Open();
        cable.Send("+lost><4>");
        Settle();
    }
    // What was opened anew is an input of its own, and inputs take turns.
    EXPECT_TRUE(ComesToPrint(
        {QStringLiteral("1"), QStringLiteral("4"), QStringLiteral("2"), QStringLiteral("3")}));
}

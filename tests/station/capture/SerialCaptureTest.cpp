#include "SerialStation.h"
#include "base/CodePage.h"
#include "station/session/MainRuntime.h"
#include "support/Host.h"
#include <QCoreApplication>

using namespace vantrel;
using namespace vantrel::test;

namespace {
class SerialCapture : public SerialStation
{};
} // namespace

TEST_F(SerialCapture, RecordComesInAndTheCardPrints)
{
    OpenLayout();
    const PtyPair cable(Device());
    Open();
    cable.Send("<A+B>");
    ASSERT_TRUE(ComesAsRecord({A, B}));
    EXPECT_EQ(Printed(), Prints({A, B}));
    EXPECT_EQ(Session.LastRawData, QStringLiteral("<A+B>"));
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (COM3)"));
    EXPECT_EQ(Session.Face.StatusPanel(3).ToolTip,
              QStringLiteral("Data last received from (COM3)"));
}

TEST_F(SerialCapture, RecordSplitOverManyReadsCompletesWithItsEnd)
{
    const PtyPair cable(Device());
    Open();
    QByteArray sent;
    for (const char byte : QByteArray("<Anna Example+204")) {
        cable.Send(QByteArray(1, byte));
        sent += byte;
        ASSERT_TRUE(ComesToHold(sent.constData()));
        EXPECT_EQ(Values(), QStringList());
        EXPECT_EQ(Session.LastRawData, QString::fromLatin1(sent));
    }
    cable.Send("17>");
    EXPECT_TRUE(ComesAsRecord({QStringLiteral("Anna Example"), QStringLiteral("20417")}));
}

TEST_F(SerialCapture, RecordBegunOnSerialEndsOnTheNetwork)
{
    Session.Settings.UseIP = true;
    const PtyPair cable(Device());
    SwitchPorts(Session, SwitchMode::All);
    const Host host(Session.Sock.LocalPort());
    cable.Send("<A");
    ASSERT_TRUE(ComesToHold("<A"));
    host.Send("+B>");
    ASSERT_TRUE(ComesAsRecord({A, B}));
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (TCP/IP)"));
}

TEST_F(SerialCapture, RecordBegunOnTheNetworkEndsOnSerial)
{
    Session.Settings.UseIP = true;
    const PtyPair cable(Device());
    SwitchPorts(Session, SwitchMode::All);
    const Host host(Session.Sock.LocalPort());
    host.Send("<A");
    ASSERT_TRUE(ComesToHold("<A"));
    cable.Send("+B>");
    ASSERT_TRUE(ComesAsRecord({A, B}));
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (COM3)"));
}

TEST_F(SerialCapture, QuietLineKeepsHalfARecordAndAClosingHostDropsIt)
{
    Session.Settings.UseIP = true;
    const PtyPair cable(Device());
    SwitchPorts(Session, SwitchMode::All);
    Host host(Session.Sock.LocalPort());
    cable.Send("<A");
    ASSERT_TRUE(ComesToHold("<A"));
    SwitchPorts(Session, SwitchMode::Serial);
    EXPECT_EQ(Session.InputBuffer.Text(), QStringLiteral("<A"));
    ASSERT_TRUE(EventsUntil([&] { return Session.Sock.HighestIndex() == 1; }));
    host.Close();
    EXPECT_TRUE(ComesToHold(""));
}

TEST_F(SerialCapture, StrayCharactersWaitAndGoWithTheNextRecord)
{
    const PtyPair cable(Device());
    Open();
    cable.Send("noise");
    ASSERT_TRUE(ComesToHold("noise"));
    cable.Send("<A+B>");
    EXPECT_TRUE(ComesAsRecord({A, B}));
}

TEST_F(SerialCapture, EveryByteComesAsItsCharacter)
{
    const PtyPair cable(Device());
    Open();
    QByteArray bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    // The character that would end the record is left out.
    bytes.replace('>', "");
    cable.Send(bytes);
    ASSERT_TRUE(EventsUntil([&] { return Session.InputBuffer.Text().size() == bytes.size(); }));
    EXPECT_EQ(ToCodePage(Session.InputBuffer.Text()), bytes);
    EXPECT_TRUE(Session.InputBuffer.Text().contains(QChar(0x20AC)));
    EXPECT_EQ(cable.BytesToRead(), 0) << "the station answers nothing";
}

TEST_F(SerialCapture, FloodWithoutAnEndIsTakenWhole)
{
    const PtyPair cable(Device());
    Open();
    constexpr qsizetype Megabyte = qsizetype{1024} * 1024;
    QByteArray flood = "<";
    while (flood.size() < Megabyte)
        flood += "0123456789ABCDE\n";
    cable.Send(flood);
    ASSERT_TRUE(EventsUntil([&] { return Session.InputBuffer.Text().size() == flood.size(); }));
    EXPECT_EQ(ToCodePage(Session.InputBuffer.Text()), flood);
    cable.Send("+B>");
    ASSERT_TRUE(EventsUntil([&] { return Session.FieldValues.Count() == 2; }));
    EXPECT_EQ(Session.FieldValues.Item(2), B);
}

TEST_F(SerialCapture, RecordIsKeptWithAllThatCame)
{
    Session.Settings.BufferData = true;
    const PtyPair cable(Device());
    Open();
    cable.Send("x<A+B>");
    ASSERT_TRUE(ComesAsRecord({A, B}));
    ASSERT_EQ(Session.RecordQueue.RecordCount, 1);
    EXPECT_EQ(Session.RecordQueue.BufferedRecords[0]->RawData, QStringLiteral("x<A+B>"));
}

TEST_F(SerialCapture, SerialRecordInsideANetworkRecordTakesItsPlace)
{
    OpenLayout();
    const PtyPair cable(Device());
    Open();
    cable.Send("<C+D>");
    Station.Operator.WhileEventsRun = {[] {},
                                       [&] {
                                           EXPECT_TRUE(EventsUntil([&] {
                                               return Session.FieldValues.Count() == 2 &&
                                                      Session.FieldValues.Item(1) == C;
                                           }));
                                       }};
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({C, D, C, D}));
    EXPECT_EQ(Values(), (QStringList{C, D}));
}

TEST_F(SerialCapture, ARecordThatComesDuringAnotherIsTakenAfterIt)
{
    OpenLayout();
    const PtyPair cable(Device());
    Open();
    Station.Operator.WhileEventsRun = {[&] {
        // The line does not nest in itself: the bytes wait.
        cable.Send("<C+D>");
        for (int look = 0; look < 20; ++look)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        EXPECT_EQ(Session.FieldValues.Count(), 0);
    }};
    cable.Send("<A+B>");
    ASSERT_TRUE(ComesAsRecord({C, D}));
    EXPECT_EQ(Printed(), Prints({A, B, C, D}));
}

TEST_F(SerialCapture, APortClosedDuringItsRecordStillMakesTheCard)
{
    OpenLayout();
    const PtyPair cable(Device());
    Open();
    Station.Operator.WhileEventsRun = {[&] { SwitchPorts(Session, SwitchMode::Serial); }};
    cable.Send("<A+B>");
    ASSERT_TRUE(ComesAsRecord({A, B}));
    EXPECT_EQ(Printed(), Prints({A, B}));
    cable.Send("<C+D>");
    EXPECT_TRUE(ComesAsRecord({C, D}));
}

TEST_F(SerialCapture, SerialAloneLeavesPanelOneAsItWas)
{
    Session.Face.SetPanelText(1, QStringLiteral("before"));
    const PtyPair cable(Device());
    Open();
    TickStatusBar(Session);
    EXPECT_EQ(Session.Face.StatusPanel(1).Text, QStringLiteral("before"));
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
}

TEST_F(SerialCapture, ParallelAloneWaitsAndSaysNothing)
{
    Session.Settings.UseSerial = false;
    Session.Settings.UseParallel = true;
    Session.Face.SetPanelText(1, QStringLiteral("before"));
    SwitchPorts(Session, SwitchMode::Parallel);
    TickStatusBar(Session);
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
    EXPECT_EQ(Session.Face.TrayTip(), TrayTip::Waiting);
    EXPECT_EQ(Session.Face.StatusPanel(1).Text, QStringLiteral("before"));
}

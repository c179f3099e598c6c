#include "SerialStation.h"
#include "station/session/MainRuntime.h"
#include "support/FailureOf.h"
#include <QCoreApplication>
#include <QSerialPort>
#include <set>

using namespace vantrel;
using namespace vantrel::test;

namespace {

/// A port that refuses settings, as ports do that lack a speed or a control line.
class PickyLine : public SerialLine
{
public:
    struct Wire
    {
        std::set<QString> RefusedSettings;
        std::set<FlowControl> RefusedFlows;
        QStringList Opened;
        QString Settings;
        FlowControl Flow = FlowControl::None;
        int Closed = 0;
        qint64 ReadAhead = 0;
        QByteArray Unsent;
        PickyLine* Line = nullptr;
    };

    explicit PickyLine(Wire& wire) : m_wire(wire) { m_wire.Line = this; }
    bool Apply(const SerialSettings& settings) override
    {
        const QString text = SerialSettingsText(settings);
        if (m_wire.RefusedSettings.contains(text))
            return false;
        m_wire.Settings = text;
        return true;
    }
    bool Apply(FlowControl flow) override
    {
        if (m_wire.RefusedFlows.contains(flow))
            return false;
        m_wire.Flow = flow;
        return true;
    }
    bool HasBytes() const override { return !Bytes.isEmpty(); }
    QByteArray TakeBytes() override { return std::exchange(Bytes, {}); }
    void LimitReadAhead(qint64 bytes) override { m_wire.ReadAhead = bytes; }
    void Send(const QByteArray& bytes) override { m_wire.Unsent += bytes; }
    qint64 Unsent() const override { return m_wire.Unsent.size(); }
    void Close() override { ++m_wire.Closed; }

    QByteArray Bytes;

private:
    Wire& m_wire;
};

class SerialPorts : public SerialStation
{
protected:
    void WithPickyLine()
    {
        Session.Comm.SetLineMaker([this](const QString& device, LineUse) {
            Wire.Opened.append(device);
            return std::make_unique<PickyLine>(Wire);
        });
    }

    void Switch(const char* settings, std::int16_t flow = 0)
    {
        Session.Settings.SSettings = QString::fromLatin1(settings);
        Session.Settings.SFlowCtrl = flow;
        SwitchPorts(Session, SwitchMode::Serial);
    }

    PickyLine::Wire Wire;
};

/// The settings that the dialog offers, as far as a test's line supports them: it has only eight
/// data bits and no parity.
constexpr int OfferedSpeeds[] = {300,  600,   1200,  1800,  2400,  4800,   7200,
                                 9600, 14400, 19200, 38400, 57600, 115200, 128000};

} // namespace

TEST_F(SerialPorts, EachModeOpensThePortItNames)
{
    constexpr struct
    {
        SwitchMode Mode;
        bool Open;
    } Rows[] = {{SwitchMode::All, true},
                {SwitchMode::Serial, true},
                {SwitchMode::Parallel, false},
                {SwitchMode::Network, false}};
    static_assert(std::size(Rows) == 4);
    const PtyPair cable(Device());
    for (const auto& row : Rows) {
        Session.Comm.SetPortOpen(false);
        SwitchPorts(Session, row.Mode);
        EXPECT_EQ(Session.Comm.PortOpen(), row.Open) << "mode " << static_cast<int>(row.Mode);
        EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
    }
}

TEST_F(SerialPorts, PortOutOfUseIsClosedAndKeepsItsValues)
{
    const PtyPair cable(Device());
    Open();
    Session.Settings.UseSerial = false;
    Switch("19200,n,8,2", 2);
    EXPECT_FALSE(Session.Comm.PortOpen());
    EXPECT_EQ(Session.Comm.Settings(), QStringLiteral("19200,n,8,2"));
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Disabled);
}

TEST_F(SerialPorts, CaptureTurnedOffAtRunTimeGoesOnReading)
{
    const PtyPair cable(Device());
    Session.Settings.CaptureEnabled = false;
    Open();
    cable.Send("<A+B>");
    EXPECT_TRUE(ComesAsRecord({A, B}));
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Disabled);
}

TEST_F(SerialPorts, StartWithCaptureOpensThePortAndWithoutOnlyPreparesIt)
{
    const PtyPair cable(Device());
    Session.Settings.SSettings = QStringLiteral("19200,n,8,1");
    Session.Settings.CaptureEnabled = false;
    LoadMain(Session);
    EXPECT_FALSE(Session.Comm.PortOpen());
    EXPECT_EQ(Session.Comm.Settings(), QStringLiteral("19200,n,8,1"));
    EXPECT_EQ(Session.Comm.CommPort(), 3);
    TestSession other;
    other.Session.Settings = Session.Settings;
    other.Session.Settings.CaptureEnabled = true;
    ASSERT_TRUE(WriteProfileValue(SettingsPath(other.Session.ProgramFolder),
                                  QStringLiteral("Serial Ports"), QStringLiteral("COM3"),
                                  Device()));
    LoadMain(other.Session);
    EXPECT_TRUE(other.Session.Comm.PortOpen());
}

TEST_F(SerialPorts, ChangedSpeedComesWithTheNextSwitch)
{
    const PtyPair cable(Device());
    Open();
    for (const int speed : OfferedSpeeds) {
        const auto before = cable.Speed();
        Session.Settings.SSettings = QStringLiteral("%1,n,8,1").arg(speed);
        EXPECT_EQ(cable.Speed(), before);
        SwitchPorts(Session, SwitchMode::Serial);
        EXPECT_EQ(static_cast<int>(cable.Speed()), speed);
        EXPECT_EQ(Session.Comm.Settings(), Session.Settings.SSettings);
    }
}

TEST_F(SerialPorts, StopBitsAndFlowControlReachTheLine)
{
    const PtyPair cable(Device());
    Switch("9600,n,8,2", 1);
    EXPECT_TRUE(cable.HasLongStop());
    EXPECT_TRUE(cable.HasXonXoff());
    EXPECT_FALSE(cable.HasHardwareFlow());
    Switch("9600,n,8,1", 2);
    EXPECT_FALSE(cable.HasLongStop());
    EXPECT_FALSE(cable.HasXonXoff());
    EXPECT_TRUE(cable.HasHardwareFlow());
    Switch("9600,n,8,1", 0);
    EXPECT_FALSE(cable.HasXonXoff());
    EXPECT_FALSE(cable.HasHardwareFlow());
}

TEST_F(SerialPorts, BadTextLeavesTheSettingsInForceAndThePortOpens)
{
    const PtyPair cable(Device());
    EXPECT_EQ(Session.Comm.Settings(), QStringLiteral("9600,n,8,1"));
    Switch("19200,n,8,1");
    for (const char* bad : {"", "nonsense", "19200,n,4,1", "19200,n,8", ",n,8,1"}) {
        Switch(bad, 7);
        EXPECT_TRUE(Session.Comm.PortOpen()) << bad;
        EXPECT_EQ(Session.Comm.Settings(), QStringLiteral("19200,n,8,1")) << bad;
        EXPECT_EQ(cable.Speed(), 19200U);
        EXPECT_EQ(Session.Settings.SSettings, QString::fromLatin1(bad));
    }
}

TEST_F(SerialPorts, ValuesThatThePortRefusesLeaveTheEarlierOnes)
{
    WithPickyLine();
    Wire.RefusedSettings = {QStringLiteral("128000,e,7,2")};
    Wire.RefusedFlows = {FlowControl::Hardware};
    Switch("4800,o,7,1", 1);
    Switch("128000,e,7,2", 2);
    EXPECT_TRUE(Session.Comm.PortOpen());
    EXPECT_EQ(Wire.Settings, QStringLiteral("4800,o,7,1"));
    EXPECT_EQ(Wire.Flow, FlowControl::XonXoff);
    EXPECT_EQ(Session.Comm.Settings(), QStringLiteral("4800,o,7,1"));
}

TEST_F(SerialPorts, FirstValuesThatThePortRefusesLeaveThoseItHadAtFirst)
{
    WithPickyLine();
    Wire.RefusedSettings = {QStringLiteral("128000,e,7,2")};
    Switch("128000,e,7,2");
    EXPECT_EQ(Wire.Settings, QStringLiteral("9600,n,8,1"));
    EXPECT_EQ(Session.Comm.Settings(), QStringLiteral("9600,n,8,1"));
}

TEST_F(SerialPorts, OpenPortTakesValuesAtOnceAndRefusesTheOthers)
{
    WithPickyLine();
    Wire.RefusedSettings = {QStringLiteral("128000,n,8,1")};
    Wire.RefusedFlows = {FlowControl::Hardware};
    Open();
    Session.Comm.SetSettings(QStringLiteral("1200,m,6,2"));
    EXPECT_EQ(Wire.Settings, QStringLiteral("1200,m,6,2"));
    EXPECT_EQ(FailureOf([&] { Session.Comm.SetSettings(QStringLiteral("128000,n,8,1")); }),
              FailureNumber::InvalidCall);
    EXPECT_EQ(FailureOf([&] { Session.Comm.SetHandshaking(2); }), FailureNumber::InvalidCall);
    EXPECT_EQ(Session.Comm.Settings(), QStringLiteral("1200,m,6,2"));
    EXPECT_EQ(Wire.Settings, QStringLiteral("1200,m,6,2"));
    EXPECT_EQ(FailureOf([&] { Session.Comm.SetCommPort(4); }), FailureNumber::InvalidCall);
    EXPECT_EQ(FailureOf([&] { Session.Comm.SetPortOpen(true); }), FailureNumber::InvalidCall);
    EXPECT_EQ(Session.Comm.CommPort(), 3);
}

TEST_F(SerialPorts, NumberIsADeviceUnlessTheSettingsFileNamesAnother)
{
    WithPickyLine();
    for (const std::uint8_t port : {std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{16}}) {
        Session.Settings.SPort = port;
        SwitchPorts(Session, SwitchMode::Serial);
    }
    EXPECT_EQ(Wire.Opened,
              (QStringList{QStringLiteral("/dev/ttyS0"), Device(), QStringLiteral("/dev/ttyS15")}));
}

TEST_F(SerialPorts, PortThatDoesNotExistIsSilentAndTheIconWaits)
{
    for (const std::uint8_t port : {std::uint8_t{3}, std::uint8_t{0}, std::uint8_t{255}}) {
        Session.Settings.SPort = port;
        SwitchPorts(Session, SwitchMode::Serial);
        EXPECT_FALSE(Session.Comm.PortOpen());
        EXPECT_EQ(Session.Comm.CommPort(), port);
        EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
    }
    EXPECT_EQ(Station.Operator.AppMessages + Station.Operator.CriticalBoxes, QStringList());
}

TEST_F(SerialPorts, DeviceThatIsNoPortIsSilent)
{
    QFile file(Device());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    SwitchPorts(Session, SwitchMode::Serial);
    EXPECT_FALSE(Session.Comm.PortOpen());
}

TEST_F(SerialPorts, PortThatSomebodyElseHoldsIsSilentUntilItIsFree)
{
    const PtyPair cable(Device());
    QSerialPort other(Device());
    ASSERT_TRUE(other.open(QIODevice::ReadOnly));
    SwitchPorts(Session, SwitchMode::Serial);
    EXPECT_FALSE(Session.Comm.PortOpen());
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
    other.close();
    Open();
    EXPECT_FALSE(other.open(QIODevice::ReadOnly));
}

TEST_F(SerialPorts, PulledAdapterClosesThePortAtOnceAndComesBackWithTheNextSwitch)
{
    PtyPair cable(Device());
    Open();
    cable.Send("<A");
    ASSERT_TRUE(ComesToHold("<A"));
    int events = 0;
    QObject::connect(&Session.Comm, &Comm::OnComm, &Session.Comm, [&] { ++events; });
    cable.Unplug();
    ASSERT_TRUE(EventsUntil([&] { return !Session.Comm.PortOpen(); }));
    for (int look = 0; look < 20; ++look)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(events, 1);
    EXPECT_EQ(Session.InputBuffer.Text(), QStringLiteral("<A"));
    SwitchPorts(Session, SwitchMode::Serial);
    EXPECT_FALSE(Session.Comm.PortOpen());
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);

    const PtyPair back(Device());
    Open();
    back.Send("+B>");
    EXPECT_TRUE(ComesAsRecord({A, B}));
}

TEST_F(SerialPorts, AnAdapterPulledDuringItsRecordStillMakesTheCard)
{
    OpenLayout();
    PtyPair cable(Device());
    Open();
    Station.Operator.WhileEventsRun = {[&] {
        cable.Unplug();
        EXPECT_TRUE(EventsUntil([&] { return !Session.Comm.PortOpen(); }));
    }};
    cable.Send("<A+B>");
    ASSERT_TRUE(ComesAsRecord({A, B}));
    EXPECT_EQ(Printed(), Prints({A, B}));
}

TEST_F(SerialPorts, LastBytesOfADeviceThatIsGoneAreTaken)
{
    WithPickyLine();
    Open();
    Wire.Line->Bytes = "<A+B>";
    Q_EMIT Wire.Line->Gone();
    EXPECT_EQ(Values(), (QStringList{A, B}));
    EXPECT_EQ(Wire.Closed, 1);
    EXPECT_FALSE(Session.Comm.PortOpen());
}

TEST_F(SerialPorts, AnyEventRunsTheArrivalStepThoughNothingCame)
{
    WithPickyLine();
    Open();
    Wire.Line->Bytes = "<A+B>";
    Q_EMIT Wire.Line->Arrived();
    EXPECT_EQ(Session.LastRawData, QStringLiteral("<A+B>"));
    Q_EMIT Wire.Line->Gone();
    EXPECT_EQ(Session.LastRawData, QString());
    EXPECT_EQ(Values(), (QStringList{A, B}));
}

TEST_F(SerialPorts, WhatWaitsUnreadIsLostWithTheClose)
{
    WithPickyLine();
    Open();
    Wire.Line->Bytes = "<A+B>";
    Session.Comm.SetPortOpen(false);
    EXPECT_EQ(Session.Comm.Input(), QString());
    Session.Comm.SetPortOpen(false);
    EXPECT_EQ(Wire.Closed, 1);
}

TEST_F(SerialPorts, SerialModeTurnsSerialCaptureOnAndOff)
{
    const PtyPair cable(Device());
    PrepareComm(Session.Comm, Session.Settings);
    SerialMode(Session.Comm, Session.Settings, true);
    EXPECT_TRUE(Session.Comm.PortOpen());
    EXPECT_TRUE(Session.Settings.UseSerial);
    SerialMode(Session.Comm, Session.Settings, false);
    EXPECT_FALSE(Session.Comm.PortOpen());
    EXPECT_FALSE(Session.Settings.UseSerial);
    SerialMode(Session.Comm, Session.Settings, true);
    EXPECT_FALSE(Session.Comm.PortOpen());
    EXPECT_FALSE(Session.Settings.UseSerial);
}

TEST_F(SerialPorts, SerialModeOutOfUseStillCloses)
{
    const PtyPair cable(Device());
    Open();
    Session.Settings.UseSerial = false;
    SerialMode(Session.Comm, Session.Settings, true);
    EXPECT_FALSE(Session.Comm.PortOpen());
}

TEST_F(SerialPorts, SerialListenOpensThePortWhateverIsInUse)
{
    Session.Settings.UseSerial = false;
    PrepareComm(Session.Comm, Session.Settings);
    SerialListen(Session.Comm);
    EXPECT_FALSE(Session.Comm.PortOpen());
    const PtyPair cable(Device());
    SerialListen(Session.Comm);
    EXPECT_TRUE(Session.Comm.PortOpen());
}

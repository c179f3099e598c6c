#include "station/capture/CommSettings.h"
#include "SerialStation.h"
#include "base/Convert.h"
#include "support/Host.h"

using namespace vantrel;
using namespace vantrel::test;

namespace {

class CommSettings : public SerialStation
{
protected:
    QString Stored(const char* key) const
    {
        return ReadProfileValue(SettingsPath(Session.ProgramFolder), SessionSection(Session),
                                QLatin1StringView(key), QStringLiteral("(absent)"));
    }
};

} // namespace

TEST_F(CommSettings, TablesHoldWhatTheDialogOffers)
{
    EXPECT_EQ(CommDevices.size(), 2U);
    EXPECT_EQ(CommPortCount, 16);
    EXPECT_EQ(CommSpeeds.size(), 14U);
    EXPECT_EQ(CommParities.size(), 5U);
    EXPECT_EQ(CommDataBits.size(), 5U);
    EXPECT_EQ(CommStopBits.size(), 3U);
    EXPECT_EQ(CommFlows.size(), 3U);
}

TEST_F(CommSettings, EveryChoiceGivesItsPartOfTheText)
{
    constexpr const char* Letters[] = {"e", "o", "n", "m", "s"};
    constexpr const char* Stops[] = {"1", "1.5", "2"};
    const auto size = [](const auto& table) { return static_cast<int>(table.size()); };
    int texts = 0;
    for (int speed = 0; speed < size(CommSpeeds); ++speed) {
        for (int parity = 0; parity < size(CommParities); ++parity) {
            for (int bits = 0; bits < size(CommDataBits); ++bits) {
                for (int stop = 0; stop < size(CommStopBits); ++stop) {
                    CommBoxes boxes{{}, speed, parity, bits, stop};
                    const QString text = GetCommSettings(boxes);
                    EXPECT_EQ(text.toStdString(),
                              std::string(CommSpeeds[static_cast<std::size_t>(speed)]) + "," +
                                  Letters[parity] + "," + std::to_string(4 + bits) + "," +
                                  Stops[stop]);
                    CommBoxes shown;
                    ShowSettingsText(shown, text);
                    EXPECT_EQ(GetCommSettings(shown), text);
                    ++texts;
                }
            }
        }
    }
    EXPECT_EQ(texts, 14 * 5 * 5 * 3);
}

TEST_F(CommSettings, MissingChoiceLeavesItsPartEmpty)
{
    EXPECT_EQ(GetCommSettings({}), QStringLiteral(",,,"));
    CommBoxes boxes;
    boxes.DataBits = 4;
    EXPECT_EQ(GetCommSettings(boxes), QStringLiteral(",,8,"));
}

TEST_F(CommSettings, TextOfAnotherNumberOfPartsLeavesTheBoxesEmpty)
{
    for (const char* text : {"", "9600,n,8", "9600,n,8,1,x"}) {
        CommBoxes boxes;
        ShowSettingsText(boxes, QStringLiteral("9600,n,8,1"));
        ShowSettingsText(boxes, QString::fromLatin1(text));
        EXPECT_EQ(GetCommSettings(boxes), QStringLiteral(",,,")) << text;
    }
}

TEST_F(CommSettings, PartOutsideItsListIsNoChoice)
{
    CommBoxes boxes;
    ShowSettingsText(boxes, QStringLiteral("28800,n,8,1"));
    EXPECT_EQ(GetCommSettings(boxes), QStringLiteral(",n,8,1"));
}

TEST_F(CommSettings, BoxesShowWhatIsInForceAndNotWhatIsStored)
{
    const PtyPair cable(Device());
    Open();
    Session.Settings.Port = 9234;
    Session.Settings.SSettings = QStringLiteral("115200,e,4,2");
    Session.Settings.SFlowCtrl = 2;
    const CommBoxes boxes = ReadCommBoxes(Session.Settings, Session.Comm);
    EXPECT_EQ(GetCommSettings(boxes), QStringLiteral("9600,n,8,1"));
    EXPECT_EQ(boxes.Port, QStringLiteral("9234"));
    EXPECT_EQ(boxes.SelectedSerialPort, 3);
    EXPECT_EQ(boxes.SelectedFlowControl, 2);
    EXPECT_STREQ(CommFlows[static_cast<std::size_t>(boxes.Flow)].Caption, "Hardware");
}

TEST_F(CommSettings, EachFlowControlHasItsButtonAndAnotherNumberHasNone)
{
    constexpr const char* Captions[] = {"None", "Xon / Xoff", "Hardware"};
    for (std::int16_t number = 0; number < 3; ++number) {
        Session.Settings.SFlowCtrl = number;
        const CommBoxes boxes = ReadCommBoxes(Session.Settings, Session.Comm);
        EXPECT_STREQ(CommFlows[static_cast<std::size_t>(boxes.Flow)].Caption, Captions[number]);
        EXPECT_EQ(boxes.SelectedFlowControl, number);
    }
    Session.Settings.SFlowCtrl = 3;
    EXPECT_EQ(ReadCommBoxes(Session.Settings, Session.Comm).Flow, -1);
    EXPECT_EQ(ReadCommBoxes(Session.Settings, Session.Comm).SelectedFlowControl, 0);
}

TEST_F(CommSettings, SaveStoresTheBoxesAndReopensAllPorts)
{
    const PtyPair cable(Device());
    Session.Settings.UseIP = true;
    SwitchPorts(Session, SwitchMode::All);
    const Host host(Session.Sock.LocalPort());
    ASSERT_TRUE(EventsUntil([&] { return Session.Sock.HighestIndex() == 1; }));
    CommBoxes boxes = ReadCommBoxes(Session.Settings, Session.Comm);
    ShowSettingsText(boxes, QStringLiteral("19200,n,8,2"));
    boxes.Port = QStringLiteral("00%1").arg(Session.Settings.Port);
    boxes.SelectedFlowControl = 1;
    SaveCommBoxes(Session, boxes);
    EXPECT_EQ(Stored("Port"), boxes.Port);
    EXPECT_EQ(Stored("SPort"), QStringLiteral("3"));
    EXPECT_EQ(Stored("SSettings"), QStringLiteral("19200,n,8,2"));
    EXPECT_EQ(Stored("SFlowCtrl"), QStringLiteral("1"));
    EXPECT_EQ(Session.Settings.SSettings, QStringLiteral("19200,n,8,2"));
    EXPECT_EQ(Session.Settings.SFlowCtrl, 1);
    EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    EXPECT_TRUE(Session.Comm.PortOpen());
    EXPECT_EQ(cable.Speed(), 19200U);
    EXPECT_TRUE(cable.HasXonXoff());
}

TEST_F(CommSettings, FourDataBitsAreStoredButRefusedByThePort)
{
    const PtyPair cable(Device());
    Open();
    CommBoxes boxes = ReadCommBoxes(Session.Settings, Session.Comm);
    boxes.DataBits = 0;
    SaveCommBoxes(Session, boxes);
    EXPECT_EQ(Stored("SSettings"), QStringLiteral("9600,n,4,1"));
    EXPECT_TRUE(Session.Comm.PortOpen());
    EXPECT_EQ(Session.Comm.Settings(), QStringLiteral("9600,n,8,1"));
    EXPECT_EQ(GetCommSettings(ReadCommBoxes(Session.Settings, Session.Comm)),
              QStringLiteral("9600,n,8,1"));
}

TEST_F(CommSettings, PortTextIsStoredAsItStands)
{
    Session.Settings.UseSerial = false;
    Session.Settings.Port = 10001;
    constexpr struct
    {
        const char* Text;
        int Port;
    } Rows[] = {{"70000", 70000}, {"99999999999", 0}, {"007", 7}, {"", 0}};
    for (const auto& row : Rows) {
        CommBoxes boxes = ReadCommBoxes(Session.Settings, Session.Comm);
        boxes.Port = QString::fromLatin1(row.Text);
        SaveCommBoxes(Session, boxes);
        EXPECT_EQ(Stored("Port"), QString::fromLatin1(row.Text));
        EXPECT_EQ(Session.Settings.Port, row.Port);
        EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    }
}

TEST_F(CommSettings, ATextThatIsNoPortNumberLeavesNoPortOpen)
{
    Session.Settings.UseSerial = false;
    Session.Settings.UseIP = true;
    const int port = Session.Settings.Port;
    for (const char* text : {"70000", "65536", "0", "", "99999999999"}) {
        Session.Settings.Port = port;
        SwitchPorts(Session, SwitchMode::All);
        ASSERT_EQ(Session.Sock.LocalPort(), port);
        CommBoxes boxes = ReadCommBoxes(Session.Settings, Session.Comm);
        boxes.Port = QString::fromLatin1(text);
        SaveCommBoxes(Session, boxes);
        EXPECT_EQ(Session.Sock.State(0), SockState::Closed) << text;
        EXPECT_FALSE(Host(port).IsConnected()) << text;
    }
}

TEST_F(CommSettings, TurningAPortOnOrOffActsAtOnce)
{
    constexpr struct
    {
        const CommFeature& Feature;
        const char* Key;
    } Rows[] = {
        {NetworkFeature, "UseIP"}, {SerialFeature, "UseSerial"}, {ParallelFeature, "UseParallel"}};
    static_assert(std::size(Rows) == 3);
    const PtyPair cable(Device());
    for (const bool on : {true, false}) {
        for (const auto& row : Rows) {
            UseFeature(Session, row.Feature, on);
            EXPECT_EQ(Session.Settings.*row.Feature.Flag, on) << row.Key;
            EXPECT_EQ(Stored(row.Key), BooleanText(on)) << row.Key;
        }
        EXPECT_EQ(Session.Comm.PortOpen(), on);
        EXPECT_EQ(Session.Sock.State(0), on ? SockState::Listening : SockState::Closed);
        EXPECT_EQ(Session.Face.TrayPicture(), on ? TrayImage::Waiting : TrayImage::Disabled);
    }
}

TEST_F(CommSettings, TurningOnePortOnOrOffLeavesTheOthersUnchanged)
{
    const PtyPair cable(Device());
    Open();
    UseFeature(Session, NetworkFeature, true);
    const int port = Session.Sock.LocalPort();
    UseFeature(Session, ParallelFeature, true);
    UseFeature(Session, SerialFeature, false);
    EXPECT_EQ(Session.Sock.LocalPort(), port);
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
    EXPECT_FALSE(Session.Comm.PortOpen());
}

TEST_F(CommSettings, DeviceIsAPortNumberOnly)
{
    UseFeature(Session, NetworkFeature, true);
    EXPECT_EQ(PortOfDevice(Session.Sock, CommDevice::JetDirect), QStringLiteral("9100"));
    EXPECT_EQ(PortOfDevice(Session.Sock, CommDevice::Custom),
              QString::number(Session.Sock.LocalPort()));
}

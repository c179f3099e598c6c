#include "station/capture/Ports.h"
#include "base/Failure.h"
#include "station/capture/Listener.h"
#include "station/session/MainRuntime.h"
#include "support/Events.h"
#include "support/FailureOf.h"
#include "support/HeldPort.h"
#include "support/Host.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::test;

namespace {

class PortSwitch : public ::testing::Test
{
protected:
    PortSwitch()
    {
        Session.Settings.UseIP = true;
        Session.Settings.CaptureEnabled = true;
        ConnectSockets(Session);
    }

    /// A host on element 1.
    Host Connect()
    {
        Host host(Session.Sock.LocalPort());
        EXPECT_TRUE(EventsUntil([&] { return Session.Sock.HighestIndex() == 1; }));
        return host;
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

} // namespace

TEST_F(PortSwitch, ModesOfTheNetworkOpenTheListenerAndTheOthersDoNot)
{
    constexpr struct
    {
        SwitchMode Mode;
        SockState State;
    } Rows[] = {{SwitchMode::All, SockState::Listening},
                {SwitchMode::Serial, SockState::Closed},
                {SwitchMode::Parallel, SockState::Closed},
                {SwitchMode::Network, SockState::Listening}};
    static_assert(std::size(Rows) == 4);
    for (const auto& row : Rows) {
        Session.Sock.Close(0);
        Session.Face.SetTray(TrayImage::Flash, QStringLiteral("before"));
        SwitchPorts(Session, row.Mode);
        EXPECT_EQ(Session.Sock.State(0), row.State) << "mode " << static_cast<int>(row.Mode);
        EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
        EXPECT_EQ(Session.Face.TrayTip(), TrayTip::Waiting);
    }
}

TEST_F(PortSwitch, NetworkOffClosesAllSocketsAndThePortRefuses)
{
    SwitchPorts(Session, SwitchMode::Network);
    const int port = Session.Sock.LocalPort();
    const Host host = Connect();
    Session.Settings.UseIP = false;
    SwitchPorts(Session, SwitchMode::Network);
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    EXPECT_EQ(Session.Sock.State(1), SockState::Closed);
    EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    EXPECT_FALSE(Host(port).IsConnected());
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Disabled);
}

TEST_F(PortSwitch, SwitchCutsConnectionsButKeepsTheBuffer)
{
    SwitchPorts(Session, SwitchMode::All);
    const Host host = Connect();
    Session.InputBuffer.Set(QStringLiteral("<half"));
    SwitchPorts(Session, SwitchMode::All);
    ASSERT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    EXPECT_EQ(Session.InputBuffer.Text(), QStringLiteral("<half"));
    EXPECT_EQ(Session.Sock.State(1), SockState::Closed);
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
}

TEST_F(PortSwitch, SerialAndParallelModesLeaveConnectionsOpen)
{
    SwitchPorts(Session, SwitchMode::Network);
    const Host host = Connect();
    SwitchPorts(Session, SwitchMode::Serial);
    SwitchPorts(Session, SwitchMode::Parallel);
    EXPECT_EQ(Session.Sock.State(1), SockState::Connected);
    EXPECT_FALSE(host.SeesEnd());
}

TEST_F(PortSwitch, CaptureTurnedOffAtRunTimeGoesOnListening)
{
    SwitchPorts(Session, SwitchMode::All);
    Session.Settings.CaptureEnabled = false;
    SwitchPorts(Session, SwitchMode::All);
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Disabled);
    EXPECT_EQ(Session.Face.TrayTip(), TrayTip::Disabled);
}

TEST_F(PortSwitch, PortInUseIsSilent)
{
    SockArray other;
    other.SetLocalPort(Session.Settings.Port);
    other.Listen();
    SwitchPorts(Session, SwitchMode::All);
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
    EXPECT_EQ(Station.Operator.AppMessages, QStringList());
    EXPECT_EQ(Station.Operator.CriticalBoxes, QStringList());
}

TEST_F(PortSwitch, NumberThatIsNoPortOpensNoneAndIsSilent)
{
    SwitchPorts(Session, SwitchMode::All);
    const int before = Session.Sock.LocalPort();
    for (const int number : {70000, 65536, 65536 + before, 0, -1}) {
        Session.Settings.Port = number;
        SwitchPorts(Session, SwitchMode::All);
        EXPECT_EQ(Session.Sock.State(0), SockState::Closed) << number;
        EXPECT_FALSE(Host(before).IsConnected()) << number;
        EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
        EXPECT_EQ(Station.Operator.AppMessages, QStringList());
        EXPECT_EQ(Station.Operator.CriticalBoxes, QStringList());
    }
    Session.Settings.Port = before;
    SwitchPorts(Session, SwitchMode::All);
    EXPECT_TRUE(Host(before).IsConnected());
}

TEST_F(PortSwitch, HighestPortIsOpenedLikeAnyOther)
{
    Session.Settings.Port = 65535;
    SwitchPorts(Session, SwitchMode::All);
    // Unless another program of this machine has it.
    SockArray other;
    other.SetLocalPort(65535);
    EXPECT_EQ(FailureOf([&] { other.Listen(); }), FailureNumber::InvalidCall);
    EXPECT_EQ(Session.Sock.LocalPort(), 65535);
}

TEST_F(PortSwitch, ChangedPortIsTakenWithTheNextSwitch)
{
    SwitchPorts(Session, SwitchMode::All);
    const int before = Session.Sock.LocalPort();
    const HeldPort next;
    const int wanted = next.Number();
    Session.Settings.Port = wanted;
    EXPECT_EQ(Session.Sock.LocalPort(), before);
    SwitchPorts(Session, SwitchMode::All);
    EXPECT_EQ(Session.Sock.LocalPort(), wanted);
}

TEST_F(PortSwitch, SetPortDoesNothingWhileTheListenerIsClosed)
{
    EXPECT_FALSE(SetPort(Session, 9100));
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    EXPECT_EQ(Session.Sock.LocalPort(), 0);
}

TEST_F(PortSwitch, SetPortMovesTheListenerAndSetsTheIconItOwns)
{
    SwitchPorts(Session, SwitchMode::All);
    const int before = Session.Sock.LocalPort();
    Session.Face.SetTray(TrayImage::Disabled, QStringLiteral("before"));
    const HeldPort next;
    const int wanted = next.Number();
    EXPECT_TRUE(SetPort(Session, wanted));
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
    EXPECT_EQ(Session.Sock.LocalPort(), wanted);
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
    EXPECT_EQ(Session.Face.TrayTip(), TrayTip::Waiting);
    EXPECT_FALSE(Host(before).IsConnected());
}

TEST_F(PortSwitch, SetPortLeavesAnIconItDoesNotOwn)
{
    SwitchPorts(Session, SwitchMode::All);
    Session.OwnsTrayIcon = false;
    Session.Face.SetTray(TrayImage::Disabled, QStringLiteral("before"));
    EXPECT_TRUE(SetPort(Session, Session.Settings.Port));
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
    EXPECT_EQ(Session.Face.TrayTip(), QStringLiteral("before"));
}

TEST_F(PortSwitch, SetPortToNoPortClosesTheListener)
{
    for (const int number : {0, -1, 65536}) {
        SwitchPorts(Session, SwitchMode::All);
        EXPECT_TRUE(SetPort(Session, number));
        EXPECT_EQ(Session.Sock.State(0), SockState::Closed) << number;
    }
}

TEST_F(PortSwitch, SetPortWithoutCaptureLeavesTheListenerClosed)
{
    SwitchPorts(Session, SwitchMode::All);
    Session.Settings.CaptureEnabled = false;
    EXPECT_TRUE(SetPort(Session, 9100));
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    EXPECT_EQ(Session.Sock.LocalPort(), 9100);
}
